// "Erreur d'unité": a unit of the imported file is not tied to its parameter; correct it or pass over it.
#pragma once

#include "exchange/ecrans/EcranReprise.h"

#include <memory>

namespace Ui
{
class F_Choix_unite;
}

class F_Choix_unite : public EcranReprise
{
    Q_OBJECT
public:
    // Shows ElementNom (the unit) and ElementParametre of the session's import.
    F_Choix_unite(Session &session, Cadre &cadre);
    ~F_Choix_unite() override;

private:
    void cmd_corriger_Click();
    void cmd_ignorer_Click();
    void cmd_continuer_Click();

    std::unique_ptr<Ui::F_Choix_unite> m_ui;
};
