// The sheet of a method of analysis.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Methode;
}

class F_Saisie_Methode : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Methode(Session &session, Cadre &cadre);
    ~F_Saisie_Methode() override;

    void Vider_Methode() { vider(); }

private:
    std::unique_ptr<Ui::F_Saisie_Methode> m_ui;
};
