// The sheet of a quality station.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Station_Mesure;
}

class F_Saisie_Station_Mesure : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Station_Mesure(Session &session, Cadre &cadre);
    ~F_Saisie_Station_Mesure() override;

    void Vider_Station_Mesure() { vider(); }

protected:
    void remplirListes() override;
    void montrerDependants(const FicheLue *fiche) override;
    QStringList saisieDependante() const override;
    Enregistrement enregistrement() const override;

private:
    std::unique_ptr<Ui::F_Saisie_Station_Mesure> m_ui;
};
