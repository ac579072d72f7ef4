#include "capture/ecrans/F_Saisie_Laboratoire.h"

#include "capture/FichesIntervenants.h"
#include "ui_F_Saisie_Laboratoire.h"

F_Saisie_Laboratoire::F_Saisie_Laboratoire(Session &session, Cadre &cadre)
    : FicheActeur(session, cadre, Fiches::laboratoire()), m_ui(std::make_unique<Ui::F_Saisie_Laboratoire>())
{
    m_ui->setupUi(this);
    preparerFiche();
}

F_Saisie_Laboratoire::~F_Saisie_Laboratoire() = default;
