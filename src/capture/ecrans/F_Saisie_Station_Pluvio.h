// The sheet of a rainfall station.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Station_Pluvio;
}

class F_Saisie_Station_Pluvio : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Station_Pluvio(Session &session, Cadre &cadre);
    ~F_Saisie_Station_Pluvio() override;

    void Vider_Station_Pluvio() { vider(); }

protected:
    void remplirListes() override;

private:
    std::unique_ptr<Ui::F_Saisie_Station_Pluvio> m_ui;
};
