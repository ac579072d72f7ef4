// "Données facultatives" of a pesticide result.
#pragma once

#include "capture/ecrans/EcranDetailPrelevement.h"

class F_Mesures_Phyto_Detail : public EcranDetailPrelevement
{
    Q_OBJECT
public:
    F_Mesures_Phyto_Detail(Session &session, Cadre &cadre, const LignePrelevement &ligne,
                           QWidget *parent = nullptr)
        : EcranDetailPrelevement(session, cadre, FamillePrelevement::Pesticides, ligne, parent)
    {
    }
};
