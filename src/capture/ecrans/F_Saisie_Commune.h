// The sheet of a commune.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Commune;
}

class F_Saisie_Commune : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Commune(Session &session, Cadre &cadre);
    ~F_Saisie_Commune() override;

    void Vider_Commune() { vider(); }

protected:
    void remplirListes() override;

private:
    std::unique_ptr<Ui::F_Saisie_Commune> m_ui;
};
