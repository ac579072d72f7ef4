#include "capture/ecrans/F_Saisie_Reseau.h"

#include "capture/FichesSimples.h"
#include "ui_F_Saisie_Reseau.h"

F_Saisie_Reseau::F_Saisie_Reseau(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::reseau()), m_ui(std::make_unique<Ui::F_Saisie_Reseau>())
{
    m_ui->setupUi(this);
    preparerFiche();
}

F_Saisie_Reseau::~F_Saisie_Reseau() = default;
