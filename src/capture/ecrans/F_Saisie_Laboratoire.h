// The sheet of a laboratory.
#pragma once

#include "capture/ecrans/FicheActeur.h"

#include <memory>

namespace Ui
{
class F_Saisie_Laboratoire;
}

class F_Saisie_Laboratoire : public FicheActeur
{
    Q_OBJECT
public:
    F_Saisie_Laboratoire(Session &session, Cadre &cadre);
    ~F_Saisie_Laboratoire() override;

    void Vider_Laboratoire() { vider(); }

private:
    std::unique_ptr<Ui::F_Saisie_Laboratoire> m_ui;
};
