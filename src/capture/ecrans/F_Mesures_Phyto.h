// The sampling screen of pesticides.
#pragma once

#include "capture/ecrans/EcranPrelevement.h"

class F_Mesures_Phyto : public EcranPrelevement
{
    Q_OBJECT
public:
    F_Mesures_Phyto(Session &session, Cadre &cadre, QWidget *parent = nullptr);

    void Vider_Mesures_Phyto() { vider(); }

protected:
    EcranDetailPrelevement *creerDetail(const LignePrelevement &ligne) override;
};
