#include "capture/ecrans/F_Saisie_Unite.h"

#include "capture/FichesSimples.h"
#include "ui_F_Saisie_Unite.h"

F_Saisie_Unite::F_Saisie_Unite(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::unite()), m_ui(std::make_unique<Ui::F_Saisie_Unite>())
{
    m_ui->setupUi(this);
    preparerFiche();
}

F_Saisie_Unite::~F_Saisie_Unite() = default;

void F_Saisie_Unite::remplirListes()
{
    m_ui->cmb_statut->remplir(LectureFiche::valeursConnues(
        session().donnees, QStringLiteral("UNITEREFERENCE"), QStringLiteral("StatutUnite")));
}
