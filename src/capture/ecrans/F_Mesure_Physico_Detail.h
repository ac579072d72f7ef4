// "Données facultatives" of a physico-chemical result.
#pragma once

#include "capture/ecrans/EcranDetailPrelevement.h"

class F_Mesure_Physico_Detail : public EcranDetailPrelevement
{
    Q_OBJECT
public:
    F_Mesure_Physico_Detail(Session &session, Cadre &cadre, const LignePrelevement &ligne,
                            QWidget *parent = nullptr)
        : EcranDetailPrelevement(session, cadre, FamillePrelevement::PhysicoChimie, ligne, parent)
    {
    }
};
