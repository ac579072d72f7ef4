// The flux of each day: the concentration on the straight line between two samples, times the day's volume of water.
#pragma once

#include "analysis/FluxPeriode.h"

#include <optional>
#include <QDate>
#include <QList>

struct ConcentrationDuJour {
    QDate jour;
    double concentrationMgL = 0;
    bool operator==(const ConcentrationDuJour &) const = default;
};

struct DebitDuJour {
    QDate jour;
    double debitLS = 0; // litres per second, mean of the day
    bool operator==(const DebitDuJour &) const = default;
};

// One day of the asked period. What is not known has no value.
struct JourFlux {
    QDate jour;
    std::optional<double> debitLS;
    std::optional<double> volumeJourL;      // litres
    std::optional<double> concentrationMgL; // measured or interpolated
    std::optional<double> fluxMg;           // of the whole day
};

// Litres that pass in a day: 86 400 seconds of this flow.
double volumeJourL(double debitLS);

// One value a day, by date: several samples (or flows) of one day count as their mean, as a line through two points of
// one day has no slope.
QList<ConcentrationDuJour> parJour(QList<ConcentrationDuJour> mesures);
QList<DebitDuJour> parJour(QList<DebitDuJour> debits);

// The concentration of each day of the period, in order: C1 + (C2 - C1) / (J2 - J1) x (day - J1) between the sample
// before it (J1, C1) and the one after (J2, C2), days counted as whole numbers; the sample's own value on its day; none
// before the first sample and after the last. `mesures` holds one value a day, by date, and may reach beyond the period.
QList<std::optional<double>> interpolerConcentrations(const BornesFlux &periode,
                                                      const QList<ConcentrationDuJour> &mesures);

// Every day of the period: mg/l x l = mg. A day without a flow or without a concentration has no flux. Both lists hold one
// value a day, by date.
QList<JourFlux> fluxJournaliers(const BornesFlux &periode, const QList<ConcentrationDuJour> &mesures,
                                const QList<DebitDuJour> &debits);
