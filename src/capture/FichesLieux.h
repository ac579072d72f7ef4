// The sheets of places, as data.
#pragma once

#include "capture/DescriptionFiche.h"

namespace Fiches
{
DescriptionFiche commune();
DescriptionFiche departement();
DescriptionFiche sousBassin();
// Without its objectives and its sub-basins (EnregistrementBassin).
DescriptionFiche bassin();
} // namespace Fiches
