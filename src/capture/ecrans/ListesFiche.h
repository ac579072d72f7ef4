// Rows of the lists that several sheets offer.
#pragma once

#include "platform/Choix.h"

#include <QStringList>

class DataEnvironment1;

namespace ListesFiche
{
ListeChoix bassins(const DataEnvironment1 &donnees);
ListeChoix sousBassins(const DataEnvironment1 &donnees);
// Communes of one name are told apart by their number.
ListeChoix communes(const DataEnvironment1 &donnees);
ListeChoix gestionnaires(const DataEnvironment1 &donnees);
ListeChoix stationsQualite(const DataEnvironment1 &donnees);
} // namespace ListesFiche
