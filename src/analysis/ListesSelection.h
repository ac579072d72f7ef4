// What the selection screens of concentrations offer: stations, parameters, fractions, filters, linked stations.
#pragma once

#include "platform/Choix.h"

#include <optional>
#include <QDate>

class DataEnvironment1;

// Two families of results share one table; the group of their parameter alone tells them apart.
enum class Famille { PhysicoChimie, Pesticides };

// What the measures of one station offer.
struct ListesStation {
    ListeChoix parametres; // CodeParam, NomParam
    ListeChoix fractions;  // CD_FRACTION, "23 - Eau brute"; ordered by name
    ListeChoix gestionnaires;
    ListeChoix reseaux;
    ListeChoix protocoles;
    // First and last day of a sampling with a result of the family; null without any.
    QDate premierJour;
    QDate dernierJour;
};

namespace ListesSelection
{
// The row of the filter on comments that stands for the results without any.
inline constexpr char16_t COMMENTAIRE_VIDE[] = u"- vide -";

// Every quality station, by code.
QList<StationProposee> stations(const DataEnvironment1 &donnees);
// What the whole base can be filtered on. Only what at least one result of the family bears is listed.
ListesFiltres filtres(const DataEnvironment1 &donnees, Famille famille);
// The same for one station, with its parameters and fractions; the comments are those of the base.
ListesStation station(const DataEnvironment1 &donnees, Famille famille, const QString &codeStation);

// Hydrometric stations (code twice, name beside), and the first one linked to a quality station, or the empty text.
ListeChoix stationsHydro(const DataEnvironment1 &donnees);
QString stationHydroLiee(const DataEnvironment1 &donnees, const QString &codeStation);
// Rainfall stations, in the same form.
ListeChoix stationsPluvio(const DataEnvironment1 &donnees);
} // namespace ListesSelection
