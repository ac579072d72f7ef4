// What the graph of flows and rainfall reads from the base.
#pragma once

#include "analysis/DemandeHydrologie.h"
#include "analysis/SerieHydrologie.h"

#include <QPair>

class DataEnvironment1;

namespace LectureHydrologie
{
// The flows of the demand's kind and period, in l/s, by date and time.
QList<SerieHydrologie::Mesure> debits(const DataEnvironment1 &donnees, const DemandeHydrologie &demande);
// The daily rainfall of the period, in mm, by date.
QList<SerieHydrologie::Mesure> pluies(const DataEnvironment1 &donnees, const DemandeHydrologie &demande);

// Names of the stations, empty where there is none.
QString nomStationDebit(const DataEnvironment1 &donnees, const QString &code);
QString nomStationPluie(const DataEnvironment1 &donnees, const QString &code);

// First and last day for which the chosen stations have measures; null dates where they have none. An empty code is no
// choice.
QPair<QDate, QDate> etendue(const DataEnvironment1 &donnees, const QString &stationDebit,
                            const QString &stationPluie);
} // namespace LectureHydrologie
