// The sheet of the SEQ grids: the bounds of the quality classes of a parameter.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_SEQ;
}

class F_Saisie_SEQ : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_SEQ(Session &session, Cadre &cadre);
    ~F_Saisie_SEQ() override;

    void Vider_SEQ() { vider(); }

protected:
    void remplirListes() override;
    ListeChoix cles() const override;
    void montrerDependants(const FicheLue *fiche) override;
    std::optional<RefusFiche> refusSaisie() const override;

private:
    void montrerUnite();

    std::unique_ptr<Ui::F_Saisie_SEQ> m_ui;
};
