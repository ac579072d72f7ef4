#include "capture/ecrans/F_Saisie_Parametre.h"

#include "capture/ecrans/F_Saisie_Unite.h"
#include "capture/FicheParametre.h"
#include "database/M_Referentiels.h"
#include "platform/Saisie.h"
#include "platform/VersNombre.h"
#include "ui_F_Saisie_Parametre.h"

#include <QKeyEvent>
#include <QShortcut>

namespace
{
const QString CODE_PARAM = QStringLiteral("CodeParam");

bool queDesChiffres(const QString &texte)
{
    return std::all_of(texte.begin(), texte.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

ListeChoix fractions(const DataEnvironment1 &donnees)
{
    ListeChoix liste = LectureFiche::liste(donnees, QStringLiteral("Fraction"), QStringLiteral("CD_FRACTION"),
                                           QStringLiteral("LB_NOM_FRACTION"));
    for (Choix &fraction : liste)
        fraction.texte = fraction.code + QStringLiteral(" - ") + fraction.texte;
    return liste;
}
} // namespace

F_Saisie_Parametre::F_Saisie_Parametre(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::parametre()), m_ui(std::make_unique<Ui::F_Saisie_Parametre>())
{
    m_ui->setupUi(this);
    if (mode() == MODE_IMPORT)
        m_uniteDuFichier = session.importSession.ElementUnite;
    preparerFiche();
    reglerCode();

    connect(m_ui->cmb_nature, &ZoneCombo::choixChange, this, [this] {
        if (m_ui->cmb_nature->code() == FicheParametre::GROUPE_PESTICIDES)
            m_ui->cmb_groupe->choisir(QStringLiteral("PS"));
    });
    connect(m_ui->cmd_unite, &QPushButton::clicked, this, &F_Saisie_Parametre::ouvrirUnite);
    connect(m_ui->cmb_unite, &ZoneCombo::choixChange, this, &F_Saisie_Parametre::accorderUnites);
    connect(m_ui->cmb_unite_import, &ZoneCombo::choixChange, this, &F_Saisie_Parametre::ajouterUnite);
    connect(m_ui->cmd_retirer_unite, &QPushButton::clicked, this, &F_Saisie_Parametre::retirerUnite);
    auto *suppr = new QShortcut(QKeySequence::Delete, m_ui->lst_unite);
    suppr->setContext(Qt::WidgetShortcut);
    connect(suppr, &QShortcut::activated, this, &F_Saisie_Parametre::retirerUnite);
    connect(m_ui->lst_unite, &QListWidget::currentRowChanged, this, [this](int rang) {
        m_ui->cmd_retirer_unite->setEnabled(rang >= 0);
        m_ui->cmd_retirer_unite->setToolTip(
            rang >= 0 ? QStringLiteral("Le paramètre ne pourra plus être importé dans cette unité")
                      : QStringLiteral("Choisissez d'abord une unité de la liste"));
    });
    connect(m_ui->cmb_fraction, &ZoneCombo::choixChange, this, &F_Saisie_Parametre::changerFraction);
    connect(m_ui->txt_norme, &QLineEdit::textEdited, this,
            [this](const QString &texte) { m_normes[cleNorme()] = texte; });
}

F_Saisie_Parametre::~F_Saisie_Parametre() = default;

void F_Saisie_Parametre::ouvrirUnite()
{
    const bool inconnue = !m_uniteDuFichier.isEmpty() && m_ui->cmb_unite->estVide();
    auto *fiche =
        ouvrir<F_Saisie_Unite>(session(), cadre(), this, OrigineSaisie::PARAMETRE, [this, inconnue] {
            rafraichir();
            if (!inconnue || !m_ui->cmb_unite->estVide())
                return;
            m_ui->cmb_unite->choisir(M_Referentiels::CodeUniteDeSymbole(session().donnees, m_uniteDuFichier));
            accorderUnites();
        });
    if (inconnue)
        fiche->proposer(QStringLiteral("txt_symbole"), m_uniteDuFichier);
}

// The code is a number, beside what its column asks for; one that an old base holds otherwise stays.
void F_Saisie_Parametre::reglerCode()
{
    m_ui->txt_code->definirRegle([this](const QString &texte) -> std::optional<ZoneReglee::Refus> {
        if (const auto refus =
                ReglesFiche::refusChamp(description().table, *description().champ(CODE_PARAM), texte))
            return ZoneReglee::Refus{refus->message, refus->titre};
        const QString code = texte.trimmed();
        if (queDesChiffres(code) || (chargee() && chargee()->cle == code))
            return std::nullopt;
        return ZoneReglee::Refus{QStringLiteral("Le code du paramètre ne doit contenir que des chiffres."),
                                 QStringLiteral("Erreur de type")};
    });
}

void F_Saisie_Parametre::montrerParametre(const QString &nom)
{
    const QString code = FicheParametre::codeDuNom(session().donnees, nom);
    if (!code.isEmpty())
        montrerCle(code);
}

void F_Saisie_Parametre::remplirListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    remplirCombo(m_ui->cmb_groupe, {{QStringLiteral("PC"), FicheParametre::GROUPE_PHYSICO.toString()},
                                    {QStringLiteral("PS"), FicheParametre::GROUPE_PESTICIDES.toString()}});
    ListeChoix natures;
    for (const QString &nature : FicheParametre::natures())
        natures.append({nature, nature});
    remplirCombo(m_ui->cmb_nature, natures);
    m_ui->cmb_statut->remplir(
        LectureFiche::valeursConnues(donnees, QStringLiteral("PARAMETRE"), QStringLiteral("StatutParam")));
    const ListeChoix unites =
        LectureFiche::liste(donnees, QStringLiteral("Table_UNITEREFERENCE"), QStringLiteral("CodeUnite"),
                            QStringLiteral("SymboleUnite"), QStringLiteral("LibelleUnite"));
    remplirCombo(m_ui->cmb_unite, unites);
    remplirCombo(m_ui->cmb_unite_import, unites);
    remplirCombo(m_ui->cmb_fraction, fractions(donnees));
}

void F_Saisie_Parametre::montrerDependants(const FicheLue *fiche)
{
    const DataEnvironment1 &donnees = session().donnees;
    m_unites = fiche ? FicheParametre::autresUnites(donnees, fiche->cle, {}) : QStringList();
    m_normes.clear();
    const FicheParametre::Normes lues =
        fiche ? FicheParametre::normes(donnees, fiche->cle) : FicheParametre::Normes();
    for (auto norme = lues.cbegin(); norme != lues.cend(); ++norme)
        m_normes.insert(norme.key(), Saisie::ecrireNombre(norme.value().value()));
    m_fractionsLues = lues.keys();
    m_fraction = m_fractionsLues.value(0);
    m_ui->cmb_fraction->choisir(m_fraction);
    m_ui->cmb_unite_import->vider();
    accorderUnites();
    montrerNorme();
}

void F_Saisie_Parametre::accorderUnites()
{
    const DataEnvironment1 &donnees = session().donnees;
    m_ui->lst_unite->clear();
    for (const QString &unite : autresUnites()) {
        const QString symbole = M_Referentiels::SymboleUniteDeCode(donnees, unite);
        auto *ligne = new QListWidgetItem(symbole == QLatin1String("-") ? unite : symbole, m_ui->lst_unite);
        ligne->setData(Qt::UserRole, unite);
    }
    m_ui->lst_unite->setCurrentRow(-1);
    m_ui->cmd_retirer_unite->setEnabled(false);
    m_ui->cmd_retirer_unite->setToolTip(QStringLiteral("Choisissez d'abord une unité de la liste"));
    m_ui->lbl_sans_unite->setVisible(m_ui->cmb_unite->estVide());
    m_ui->lbl_unite_norme->setText(m_ui->cmb_unite->texte());
}

QStringList F_Saisie_Parametre::autresUnites() const
{
    QStringList autres = m_unites;
    autres.removeAll(m_ui->cmb_unite->code());
    return autres;
}

void F_Saisie_Parametre::ajouterUnite()
{
    const QString unite = m_ui->cmb_unite_import->code();
    if (unite.isEmpty())
        return;
    if (!m_unites.contains(unite))
        m_unites << unite;
    m_ui->cmb_unite_import->vider();
    accorderUnites();
}

void F_Saisie_Parametre::retirerUnite()
{
    const QListWidgetItem *ligne = m_ui->lst_unite->currentItem();
    if (!ligne)
        return;
    const int rang = m_ui->lst_unite->currentRow();
    m_unites.removeAll(ligne->data(Qt::UserRole).toString());
    accorderUnites();
    m_ui->lst_unite->setCurrentRow(std::min(rang, m_ui->lst_unite->count() - 1));
}

QString F_Saisie_Parametre::cleNorme() const
{
    return FicheParametre::sansFraction(m_ui->txt_code->text().trimmed()) ? QString() : m_fraction;
}

void F_Saisie_Parametre::changerFraction()
{
    m_fraction = m_ui->cmb_fraction->code();
    // A norm that was typed before its fraction was chosen is that fraction's.
    if (!m_fraction.isEmpty() && !cleNorme().isEmpty() && m_normes.value(m_fraction).isEmpty() &&
        !m_normes.value(QString()).isEmpty())
        m_normes[m_fraction] = m_normes.take(QString());
    montrerNorme();
}

void F_Saisie_Parametre::montrerNorme()
{
    m_ui->txt_norme->setText(m_normes.value(cleNorme()));
}

QStringList F_Saisie_Parametre::saisieDependante() const
{
    QStringList saisie = autresUnites();
    for (auto norme = m_normes.cbegin(); norme != m_normes.cend(); ++norme)
        if (!norme.value().isEmpty())
            saisie << norme.key() + u'=' + norme.value();
    return saisie;
}

std::optional<RefusFiche> F_Saisie_Parametre::refusSaisie() const
{
    const ChampFiche norme{QStringLiteral("txt_norme"), QStringLiteral("ValeurNorme"),
                           QStringLiteral("La norme")};
    for (const QString &texte : m_normes)
        if (const auto refus = ReglesFiche::refusChamp(QStringLiteral("NORME_AEP"), norme, texte))
            return refus;
    const QString code = m_ui->txt_code->text().trimmed();
    if (!FicheParametre::sansFraction(code) && !m_normes.value(QString()).trimmed().isEmpty())
        return RefusFiche{QStringLiteral("Choisissez la fraction à laquelle s'applique la norme."),
                          QStringLiteral("Attention"), QStringLiteral("cmb_fraction")};
    return std::nullopt;
}

Enregistrement F_Saisie_Parametre::enregistrement() const
{
    ValeursFiche lues = valeurs();
    const QString groupe = QStringLiteral("CodeGroupeParam");
    lues[groupe] = FicheParametre::groupe(lues.value(groupe), lues.value(QStringLiteral("NatureParam")));
    Enregistrement e = M_Enreg_Tables::ligne(description(), lues);
    const QString code = lues.value(CODE_PARAM).trimmed();
    const bool memeLigne = chargee() && chargee()->cle == code;
    FicheParametre::Normes normes;
    for (auto norme = m_normes.cbegin(); norme != m_normes.cend(); ++norme) {
        if (!norme.value().trimmed().isEmpty())
            normes.insert(norme.key(), VersNombre(norme.value()));
        else if (memeLigne && m_fractionsLues.contains(norme.key()))
            normes.insert(norme.key(), std::nullopt); // taken out
    }
    e.dependants = [code, reference = m_ui->cmb_unite->code(), autres = autresUnites(),
                    normes](const DataEnvironment1 &donnees, qint64 /*rang*/) {
        FicheParametre::ecrireUnites(donnees, code, reference, autres);
        FicheParametre::ecrireNormes(donnees, code, normes);
    };
    return e;
}

void F_Saisie_Parametre::keyPressEvent(QKeyEvent *evenement)
{
    // There Enter adds the unit, and nothing more.
    const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    if (entree && focusWidget() == m_ui->cmb_unite_import) {
        evenement->accept();
        return;
    }
    FicheReference::keyPressEvent(evenement);
}
