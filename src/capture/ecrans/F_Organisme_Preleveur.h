// The sheet of a sampling body.
#pragma once

#include "capture/ecrans/FicheActeur.h"

#include <memory>

namespace Ui
{
class F_Organisme_Preleveur;
}

class F_Organisme_Preleveur : public FicheActeur
{
    Q_OBJECT
public:
    F_Organisme_Preleveur(Session &session, Cadre &cadre);
    ~F_Organisme_Preleveur() override;

    void Vider_Preleveur() { vider(); }

private:
    std::unique_ptr<Ui::F_Organisme_Preleveur> m_ui;
};
