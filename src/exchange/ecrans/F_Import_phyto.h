// The former import of pesticides, now a part of the physico-chemical one: it only says so.
#pragma once

#include "widgets/Ecran.h"

#include <memory>

namespace Ui
{
class F_Import_phyto;
}

class F_Import_phyto : public Ecran
{
    Q_OBJECT
public:
    F_Import_phyto(Session &session, Cadre &cadre);
    ~F_Import_phyto() override;

    // The message of the menu entry and of this screen.
    static void annoncer(Session &session);

private:
    std::unique_ptr<Ui::F_Import_phyto> m_ui;
};
