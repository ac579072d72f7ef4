// "Consultation-Saisie de la qualité des eaux": physico-chemical samplings.
#pragma once

#include "capture/ecrans/EcranPrelevement.h"

class F_Mesure_Physico : public EcranPrelevement
{
    Q_OBJECT
public:
    F_Mesure_Physico(Session &session, Cadre &cadre, QWidget *parent = nullptr);

    void Vider_Mesure_Physico() { vider(); }

protected:
    EcranDetailPrelevement *creerDetail(const LignePrelevement &ligne) override;
};
