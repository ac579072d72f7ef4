// "Consultation hydrologique": what is chosen before the graph of flows and rainfall.
#pragma once

#include "analysis/DemandeHydrologie.h"
#include "analysis/ReglesHydrologie.h"
#include "widgets/Ecran.h"

#include <memory>

namespace Ui
{
class F_Hydrometrie;
}

class F_Hydrometrie : public Ecran
{
    Q_OBJECT
public:
    F_Hydrometrie(Session &session, Cadre &cadre, QWidget *parent = nullptr);
    ~F_Hydrometrie() override;

    // The graph's request, as the controls stand.
    DemandeHydrologie demande() const;

private:
    void changerStations();
    void visualiser();
    QWidget *champ(ReglesHydrologie::Champ nom) const;

    std::unique_ptr<Ui::F_Hydrometrie> m_ui;
};
