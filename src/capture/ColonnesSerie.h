// The columns in which flows and rainfall are typed.
#pragma once

#include "database/TableTravail.h"

// Dates and times are typed as the screens show them and stored as the store means them; numbers go through VersNombre.
// What a column refuses is told under "Erreur de type".
namespace ColonnesSerie
{
// A day typed as jj/mm/aaaa.
ColonneTravail date(const QString &champ, const QString &titre);
// The first day of a month, typed as 01/mm/aaaa.
ColonneTravail premierDuMois(const QString &champ, const QString &titre);
// A time that M_Variables_OVRA::HeureValide accepts, stored as hh:mm:ss.
ColonneTravail heure(const QString &champ, const QString &titre);
// A number; `message` is said of what is none.
ColonneTravail nombre(const QString &champ, const QString &titre, const QString &message);
} // namespace ColonnesSerie
