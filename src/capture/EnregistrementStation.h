// The save of a quality station: its row, its communes and managers, and its sampling point.
#pragma once

#include "capture/M_Enreg_Tables.h"

// What the sheet of a quality station holds.
struct SaisieStation {
    ValeursFiche valeurs;
    LiensFiche liens;
    QString site; // code of the sampling point, for a station that has none yet; empty: "031"
};

namespace M_Enreg_Tables
{
inline constexpr QStringView POINT_PAR_DEFAUT = u"031";

Enregistrement stationQualite(const SaisieStation &saisie);
// The point of a station (its first LOCALISATION row); empty where it has none.
QString pointDeStation(const DataEnvironment1 &donnees, const QString &station);
} // namespace M_Enreg_Tables
