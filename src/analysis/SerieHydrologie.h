// The rows of the graph of flows and rainfall, as pure computation: measures in, rows of the sheet out.
#pragma once

#include <optional>
#include <QDate>
#include <QList>

namespace SerieHydrologie
{
// One measure: a flow in l/s or a height of rain in mm.
struct Mesure {
    QDate date;
    double valeur = 0;
    bool operator==(const Mesure &) const = default;
};

// One row of the sheet. A row with neither value stands in a gap of the flows, so that their line stops there.
struct Ligne {
    QDate date;
    std::optional<double> debit_l_s;
    std::optional<double> pluie_mm;
    bool operator==(const Ligne &) const = default;
};

// Where a line must stop: the flows follow each other by days or by months.
enum class Pas { Jour, Mois };

// Monthly flows stand on the first of their month, whatever the day that was stored.
QList<Mesure> auPremierDuMois(const QList<Mesure> &mesures);
// Rainfall summed into months, on the first of each; only months that have a measure, in order.
QList<Mesure> sommesMensuelles(const QList<Mesure> &pluies);

// Flows and rain merged by date, in order. What falls on one day shares a row; a series that has several values on a day
// takes as many rows, in the order in which they came.
QList<Ligne> fusionner(const QList<Mesure> &debits, const QList<Mesure> &pluies);

// The same rows with one more at the beginning of each gap of the flows that no row stands in: the first day, or month,
// that has no flow.
QList<Ligne> avecInterruptions(const QList<Ligne> &lignes, Pas pas);
} // namespace SerieHydrologie
