#include "exchange/ecrans/F_Import_physico.h"

#include "exchange/ecrans/ControleurImport.h"
#include "frame/Session.h"
#include "ui_F_Import_physico.h"

#include <QStandardItemModel>

namespace
{
struct FormatFichier {
    const char16_t *nom;
    const char16_t *filtre;
    TypeImport type; // the routine that reads it
};
constexpr FormatFichier FORMATS[] = {
    {u"Document Excel", u"Excel (.xls)|*.xls|Excel et OpenDocument (.xlsx, .ods)|*.xlsx;*.ods",
     TypeImport::Physico},
    {u"Document Texte (Trames SANDRE 1997-1)", u"Texte (.txt)|*.txt", TypeImport::Trames},
    {u"Document XML-SANDRE QUESU 2.0", u"Documents XML (.xml)|*.xml", TypeImport::Quesu},
};
} // namespace

F_Import_physico::F_Import_physico(Session &session, Cadre &cadre)
    : Ecran(session, cadre), m_ui(std::make_unique<Ui::F_Import_physico>())
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_import, m_ui->cmd_fermer);
    commencerPar(m_ui->cmb_format);
    remplirFormats();
    connect(m_ui->cmd_import, &QPushButton::clicked, this, &F_Import_physico::cmd_import_Click);
    // Ready by the time that a file is chosen.
    session.tableur.demarrerEnAvance();
}

F_Import_physico::~F_Import_physico() = default;

void F_Import_physico::remplirFormats()
{
    ListeChoix lignes;
    for (const FormatFichier &format : FORMATS)
        lignes.append({QString::fromUtf16(format.filtre), QString::fromUtf16(format.nom)});
    m_ui->cmb_format->remplir(lignes);
    m_ui->cmb_format->choisir(lignes.constFirst().code);
    const auto *modele = qobject_cast<QStandardItemModel *>(m_ui->cmb_format->model());
    for (int i = 0; modele && i < static_cast<int>(std::size(FORMATS)); ++i) {
        if (ControleurImport::lecteurDisponible(FORMATS[i].type))
            continue;
        modele->item(i)->setEnabled(false);
        modele->item(i)->setToolTip(QStringLiteral("Ce format ne peut pas encore être importé."));
    }
}

void F_Import_physico::cmd_import_Click()
{
    if (!verifierZones() || m_ui->cmb_format->estVide())
        return;
    const std::optional<QString> fichier =
        ControleurImport::choisirFichier(session(), m_ui->cmb_format->code());
    if (!fichier)
        return;
    Session &s = session();
    Cadre &c = cadre();
    fermer();
    s.dialogue.ceder();
    ControleurImport::importerFichier(s, c, *fichier);
}
