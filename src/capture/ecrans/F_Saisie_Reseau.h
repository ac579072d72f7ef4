// The sheet of a measuring network; its key is typed in its combo.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Reseau;
}

class F_Saisie_Reseau : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Reseau(Session &session, Cadre &cadre);
    ~F_Saisie_Reseau() override;

    void Vider_Reseau() { vider(); }

private:
    std::unique_ptr<Ui::F_Saisie_Reseau> m_ui;
};
