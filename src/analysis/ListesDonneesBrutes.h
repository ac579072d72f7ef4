// What the raw data screen can be filtered on.
#pragma once

#include "analysis/ListesSelection.h"

class DataEnvironment1;

namespace ListesDonneesBrutes
{
// Every quality station by code, its usual code and name beside.
ListeChoix stations(const DataEnvironment1 &donnees);
// The parameters of the family (of both without one) that have a result, by name, their code beside.
ListeChoix parametres(const DataEnvironment1 &donnees, std::optional<Famille> famille);
} // namespace ListesDonneesBrutes
