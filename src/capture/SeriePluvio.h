// The whole series of rainfall of one station: read into the work table, checked, saved, deleted.
#pragma once

#include "database/TableTravail.h"
#include "platform/Choix.h"

class DataEnvironment1;

// Heights are in millimetres. The rows stand in Temp_mesure_pluvio while they are edited. Failures of the store are Erreurs.
namespace SeriePluvio
{
inline constexpr char16_t TABLE[] = u"Temp_mesure_pluvio";

QList<ColonneTravail> colonnes(); // date, height
QString ordre();

// Every rainfall station: its code, and its name beside.
ListeChoix stations(const DataEnvironment1 &donnees);

bool existe(const DataEnvironment1 &donnees, const QString &station);
// The work table holds the rainfall of this station and nothing else; the rowid of a row is its NumMesurePM.
void remplir(const DataEnvironment1 &donnees, const QString &station);
// Whether there is a row, and every row has its date and its height.
bool complete(const DataEnvironment1 &donnees);
// The rows of the work table take the place of the station's rainfall, all of them or, when it fails, none. The manager, which the screen does not show, stays
// with its value: a row that was read keeps its own, whatever was typed over it; a row that was typed takes the one of a
// value of its day that no row read stands for, if there is one.
void enregistrer(const DataEnvironment1 &donnees, const QString &station);
void supprimer(const DataEnvironment1 &donnees, const QString &station);
} // namespace SeriePluvio
