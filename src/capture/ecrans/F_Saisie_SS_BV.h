// The sheet of a sub-basin.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_SS_BV;
}

class F_Saisie_SS_BV : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_SS_BV(Session &session, Cadre &cadre);
    ~F_Saisie_SS_BV() override;

    void Vider_SS_BV() { vider(); }

protected:
    void remplirListes() override;

private:
    std::unique_ptr<Ui::F_Saisie_SS_BV> m_ui;
};
