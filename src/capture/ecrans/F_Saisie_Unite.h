// The sheet of a unit of reference.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Unite;
}

class F_Saisie_Unite : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Unite(Session &session, Cadre &cadre);
    ~F_Saisie_Unite() override;

    void Vider_Unite() { vider(); }

protected:
    void remplirListes() override;

private:
    std::unique_ptr<Ui::F_Saisie_Unite> m_ui;
};
