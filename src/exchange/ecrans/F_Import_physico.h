// "Import de données physico-chimiques": choice of the format and of the file to import.
#pragma once

#include "widgets/Ecran.h"

#include <memory>

namespace Ui
{
class F_Import_physico;
}

class F_Import_physico : public Ecran
{
    Q_OBJECT
public:
    F_Import_physico(Session &session, Cadre &cadre);
    ~F_Import_physico() override;

private:
    void remplirFormats();
    void cmd_import_Click();

    std::unique_ptr<Ui::F_Import_physico> m_ui;
};
