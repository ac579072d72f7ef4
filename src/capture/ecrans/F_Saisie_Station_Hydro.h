// The sheet of a hydrometric station.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Station_Hydro;
}

class F_Saisie_Station_Hydro : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Station_Hydro(Session &session, Cadre &cadre);
    ~F_Saisie_Station_Hydro() override;

    void Vider_Station_Hydro() { vider(); }

protected:
    void remplirListes() override;

private:
    std::unique_ptr<Ui::F_Saisie_Station_Hydro> m_ui;
};
