// What the sheets of the laboratories, the samplers and the managers share beside their table.
#pragma once

#include "capture/ecrans/FicheReference.h"

class FicheActeur : public FicheReference
{
    Q_OBJECT
protected:
    using FicheReference::FicheReference;

    void remplirListes() override;
    // A code in use is not changed on a sheet that does not carry it over.
    std::optional<RefusFiche> refusSaisie() const override;
};
