// The whole series of flows of one hydrometric station: read into the work tables, checked, saved, deleted.
#pragma once

#include "database/TableTravail.h"
#include "platform/Choix.h"

class DataEnvironment1;

// Flows are in litres per second. Daily ones stand in Temp_mesure_hydro_jour while they are edited, monthly ones in
// Temp_mesure_hydro_mois. Failures of the store are Erreurs.
namespace SerieHydro
{
inline constexpr char16_t TABLE_JOUR[] = u"Temp_mesure_hydro_jour";
inline constexpr char16_t TABLE_MOIS[] = u"Temp_mesure_hydro_mois";

QList<ColonneTravail> colonnesJour(); // date, time, flow
QList<ColonneTravail> colonnesMois(); // date, flow
// The order in which both tables are shown.
QString ordreJour();
QString ordreMois();

// Every hydrometric station: its code, and its name beside.
ListeChoix stations(const DataEnvironment1 &donnees);

// Whether the station has a daily or a monthly flow.
bool existe(const DataEnvironment1 &donnees, const QString &station);
// The work tables hold the flows of this station and nothing else.
void remplir(const DataEnvironment1 &donnees, const QString &station);
// Whether there is a row in either work table, and every row has its date and its flow.
bool complete(const DataEnvironment1 &donnees);
// The rows of the work tables take the place of the station's flows, all of them or, when it fails, none. A family without rows is left as it is in the base.
void enregistrer(const DataEnvironment1 &donnees, const QString &station);
// Deletes every flow of the station, daily and monthly.
void supprimer(const DataEnvironment1 &donnees, const QString &station);
} // namespace SerieHydro
