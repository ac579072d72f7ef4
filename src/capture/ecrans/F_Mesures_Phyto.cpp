#include "capture/ecrans/F_Mesures_Phyto.h"

#include "capture/ecrans/F_Mesures_Phyto_Detail.h"

F_Mesures_Phyto::F_Mesures_Phyto(Session &session, Cadre &cadre, QWidget *parent)
    : EcranPrelevement(session, cadre, FamillePrelevement::Pesticides, parent)
{
}

EcranDetailPrelevement *F_Mesures_Phyto::creerDetail(const LignePrelevement &ligne)
{
    return new F_Mesures_Phyto_Detail(session(), cadre(), ligne);
}
