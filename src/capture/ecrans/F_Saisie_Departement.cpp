#include "capture/ecrans/F_Saisie_Departement.h"

#include "capture/FichesLieux.h"
#include "ui_F_Saisie_Departement.h"

F_Saisie_Departement::F_Saisie_Departement(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::departement()),
      m_ui(std::make_unique<Ui::F_Saisie_Departement>())
{
    m_ui->setupUi(this);
    preparerFiche();
}

F_Saisie_Departement::~F_Saisie_Departement() = default;
