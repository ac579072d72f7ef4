// The sheets of the reference tables that are a row and nothing more: units, networks, methods.
#pragma once

#include "capture/DescriptionFiche.h"

namespace Fiches
{
const DescriptionFiche &unite();   // UNITEREFERENCE
const DescriptionFiche &reseau();  // RESEAU_MESURE
const DescriptionFiche &methode(); // METHODE
} // namespace Fiches
