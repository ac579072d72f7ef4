// The sheet of a department.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Departement;
}

class F_Saisie_Departement : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Departement(Session &session, Cadre &cadre);
    ~F_Saisie_Departement() override;

    void Vider_Departement() { vider(); }

private:
    std::unique_ptr<Ui::F_Saisie_Departement> m_ui;
};
