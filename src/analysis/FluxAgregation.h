// Daily fluxes added up by month and by year, and run up from month to month.
#pragma once

#include "analysis/FluxJournalier.h"

#include <optional>
#include <QList>
#include <QString>

// A month or a year of the asked period. A period in which no day has a flux (or a flow) has no flux (or volume): that
// is not zero.
struct PeriodeFlux {
    QDate debut;      // its first day
    QString intitule; // "03/2009", "2009", "2008-2009"
    int jours = 0;
    int joursAvecDebit = 0;
    int joursAvecFlux = 0;
    std::optional<double> fluxMg;
    std::optional<double> volumeL;

    bool debitIncomplet() const { return joursAvecDebit < jours; }
};

// Sums over the days of each calendar month, from whole months of days in order.
QList<PeriodeFlux> fluxMensuels(const QList<JourFlux> &jours);
// Sums over the days of each civil or hydrological year.
QList<PeriodeFlux> fluxAnnuels(const QList<JourFlux> &jours, ModeAnnee mode);

// Each flux and volume becomes the sum from the first month on; it starts again nowhere. A month without a value stays
// without one, and the sum goes on after it.
QList<PeriodeFlux> cumuler(QList<PeriodeFlux> mois);
