#include "capture/ecrans/F_Mesure_Physico.h"

#include "capture/ecrans/F_Mesure_Physico_Detail.h"

F_Mesure_Physico::F_Mesure_Physico(Session &session, Cadre &cadre, QWidget *parent)
    : EcranPrelevement(session, cadre, FamillePrelevement::PhysicoChimie, parent)
{
}

EcranDetailPrelevement *F_Mesure_Physico::creerDetail(const LignePrelevement &ligne)
{
    return new F_Mesure_Physico_Detail(session(), cadre(), ligne);
}
