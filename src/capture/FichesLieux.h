// The sheets of places and of their stations, as data.
#pragma once

#include "capture/DescriptionFiche.h"

namespace Fiches
{
DescriptionFiche commune();
DescriptionFiche departement();
} // namespace Fiches
