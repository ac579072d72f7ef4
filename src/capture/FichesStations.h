// The sheets of the stations, as data.
#pragma once

#include "capture/DescriptionFiche.h"

namespace Fiches
{
// Without its sampling point (EnregistrementStation).
DescriptionFiche stationQualite();
DescriptionFiche stationHydro();
DescriptionFiche stationPluvio();
} // namespace Fiches
