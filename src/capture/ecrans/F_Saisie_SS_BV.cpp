#include "capture/ecrans/F_Saisie_SS_BV.h"

#include "capture/ecrans/F_Saisie_BV.h"
#include "capture/ecrans/ListesFiche.h"
#include "capture/FichesLieux.h"
#include "ui_F_Saisie_SS_BV.h"

F_Saisie_SS_BV::F_Saisie_SS_BV(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::sousBassin()), m_ui(std::make_unique<Ui::F_Saisie_SS_BV>())
{
    m_ui->setupUi(this);
    appeler<F_Saisie_BV>(m_ui->cmd_bv, OrigineSaisie::SOUS_BASSIN);
    preparerFiche();
}

F_Saisie_SS_BV::~F_Saisie_SS_BV() = default;

void F_Saisie_SS_BV::remplirListes()
{
    remplirCombo(m_ui->cmb_bv, ListesFiche::bassins(session().donnees));
}
