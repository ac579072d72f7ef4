#include "capture/ecrans/F_Saisie_SEQ.h"

#include "capture/ecrans/F_Saisie_Parametre.h"
#include "capture/FicheGrilleSEQ.h"
#include "database/DataEnvironment1.h"
#include "ui_F_Saisie_SEQ.h"

namespace
{
// As the maps and reports colour the classes; the name stands beside each.
void teinter(QLabel *pastille, QRgb couleur)
{
    QPixmap image(18, 18);
    image.fill(QColor(couleur));
    pastille->setPixmap(image);
}
} // namespace

F_Saisie_SEQ::F_Saisie_SEQ(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::grilleSEQ()), m_ui(std::make_unique<Ui::F_Saisie_SEQ>())
{
    m_ui->setupUi(this);
    teinter(m_ui->teinte_bleu, 0x0070c0);
    teinter(m_ui->teinte_vert, 0x00b050);
    teinter(m_ui->teinte_jaune, 0xffd700);
    teinter(m_ui->teinte_orange, 0xff8c00);
    teinter(m_ui->teinte_rouge, 0xd00000);
    appeler<F_Saisie_Parametre>(m_ui->cmd_param, OrigineSaisie::GRILLE_SEQ);
    preparerFiche();
    connect(m_ui->cmb_param, &ZoneCombo::choixChange, this, &F_Saisie_SEQ::montrerUnite);
}

F_Saisie_SEQ::~F_Saisie_SEQ() = default;

void F_Saisie_SEQ::remplirListes()
{
    remplirCombo(m_ui->cmb_param, LectureFiche::liste(session().donnees, QStringLiteral("Parametre"),
                                                      QStringLiteral("CodeParam"), QStringLiteral("NomParam"),
                                                      QStringLiteral("CodeParam")));
}

// By code, with the parameter's name, which is what one looks for.
ListeChoix F_Saisie_SEQ::cles() const
{
    ListeChoix liste = FicheReference::cles();
    const auto parametres = session().donnees.enMemoire(QStringLiteral("Parametre"));
    for (Choix &grille : liste) {
        const qsizetype ligne = parametres->premiere(QStringLiteral("CodeParam"), grille.texte);
        if (ligne >= 0)
            grille.complement = parametres->texte(ligne, QStringLiteral("NomParam"));
    }
    return liste;
}

void F_Saisie_SEQ::montrerDependants(const FicheLue * /*fiche*/)
{
    montrerUnite();
}

void F_Saisie_SEQ::montrerUnite()
{
    const auto parametres = session().donnees.enMemoire(QStringLiteral("Parametre"));
    const qsizetype ligne = parametres->premiere(QStringLiteral("CodeParam"), m_ui->cmb_param->code());
    const QString unite = ligne < 0 ? QString() : parametres->texte(ligne, QStringLiteral("SymboleUnite"));
    for (QLabel *libelle : {m_ui->lbl_unite1, m_ui->lbl_unite2, m_ui->lbl_unite3, m_ui->lbl_unite4})
        libelle->setText(unite);
}

std::optional<RefusFiche> F_Saisie_SEQ::refusSaisie() const
{
    const std::array champs{m_ui->txt_valeur1, m_ui->txt_valeur2, m_ui->txt_valeur3, m_ui->txt_valeur4};
    FicheGrilleSEQ::Bornes bornes;
    for (std::size_t i = 0; i < champs.size(); ++i)
        bornes[i] = champs[i]->nombre();
    const QString faute = FicheGrilleSEQ::faute(bornes);
    if (faute.isEmpty())
        return std::nullopt;
    const auto enFaute = static_cast<std::size_t>(FicheGrilleSEQ::borneEnFaute(bornes));
    return RefusFiche{faute, QStringLiteral("Attention"), champs[enFaute]->objectName()};
}
