#include "capture/ecrans/F_Saisie_Methode.h"

#include "capture/FichesSimples.h"
#include "ui_F_Saisie_Methode.h"

F_Saisie_Methode::F_Saisie_Methode(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::methode()), m_ui(std::make_unique<Ui::F_Saisie_Methode>())
{
    m_ui->setupUi(this);
    preparerFiche();
}

F_Saisie_Methode::~F_Saisie_Methode() = default;
