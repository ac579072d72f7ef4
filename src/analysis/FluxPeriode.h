// The days that a flux is asked for, and those over which its concentrations are read.
#pragma once

#include "analysis/Annees.h"

#include <QDate>

enum class GenreFlux { Mensuel, Annuel, Cumule, ParVolume };

// From `debut` (included) to `fin` (left out).
struct BornesFlux {
    QDate debut;
    QDate fin;
    qint64 jours() const { return debut.daysTo(fin); }
    bool operator==(const BornesFlux &) const = default;
};

// From the first day of a month to the end of another, the last one included (monthly, cumulated and per-volume
// fluxes). Any day of the months will do.
BornesFlux bornesMois(QDate premierMois, QDate dernierMois);

// From the beginning of a year to the end of another, the last one included; a hydrological year is named by the
// calendar year in which it begins (2008 to 2009: 01/10/2008 to 30/09/2010).
BornesFlux bornesAnnees(int premiere, int derniere, ModeAnnee mode);

// A wider window, from which the first and the last days can be interpolated: from the first of the month in which the
// fifteenth day before the first one falls, to two months past the end.
BornesFlux fenetreConcentrations(const BornesFlux &bornes);
