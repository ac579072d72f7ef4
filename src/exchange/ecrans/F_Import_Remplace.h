// "Continuer l'import": rows of the file are in the base already; replace them all, or stop.
#pragma once

#include "exchange/ecrans/EcranReprise.h"

#include <memory>

namespace Ui
{
class F_Import_Remplace;
}

class F_Import_Remplace : public EcranReprise
{
    Q_OBJECT
public:
    F_Import_Remplace(Session &session, Cadre &cadre);
    ~F_Import_Remplace() override;

private:
    void cmd_remplacer_Click();

    std::unique_ptr<Ui::F_Import_Remplace> m_ui;
};
