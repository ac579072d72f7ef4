#include "capture/ecrans/F_Organisme_Preleveur.h"

#include "capture/FichesIntervenants.h"
#include "ui_F_Organisme_Preleveur.h"

F_Organisme_Preleveur::F_Organisme_Preleveur(Session &session, Cadre &cadre)
    : FicheActeur(session, cadre, Fiches::preleveur()), m_ui(std::make_unique<Ui::F_Organisme_Preleveur>())
{
    m_ui->setupUi(this);
    preparerFiche();
}

F_Organisme_Preleveur::~F_Organisme_Preleveur() = default;
