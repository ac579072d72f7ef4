// The evolution chart as pure computation: records, flows and rain in, rows of the sheet, statistics and class bands out. No
// database, no workbook.
#pragma once

#include "analysis/SerieMesures.h"
#include "analysis/StatistiquesPC.h"

#include <array>
#include <optional>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

// A day's flow (l/s) or rainfall (mm).
struct ValeurDuJour {
    QDate date;
    double valeur = 0;
    bool operator==(const ValeurDuJour &) const = default;
};

// A record that a chart shows: one that the filters keep and whose remark code is not 0.
struct MesureTracee {
    QDate date;
    double valeur = 0;
    QString codeRemarque; // as stored
    bool operator==(const MesureTracee &) const = default;
};

// The records that are shown, in their own order.
QList<MesureTracee> mesuresTracees(const QList<EnregistrementPC> &enregistrements,
                                   const FiltresMesures &filtres);
// CodeSandreGest of the records that are shown, once each, as they are met.
QStringList producteursTraces(const QList<EnregistrementPC> &enregistrements, const FiltresMesures &filtres);

// One row of the sheet: what was measured on one day. A curve has at most one value a row.
struct LigneEvolution {
    QDate date;
    std::array<std::optional<double>, 2> valeurs; // first and second curve
    std::array<QString, 2> codes;                 // their remark codes
    std::optional<double> debit;
    std::optional<double> pluie;
    bool operator==(const LigneEvolution &) const = default;
};

struct SeriesEvolution {
    std::array<QList<MesureTracee>, 2> courbes;
    QList<ValeurDuJour> debits;
    QList<ValeurDuJour> pluies;
};

// All series merged by date. What falls on one day shares a row: a measure, and the flow of its day. A series that has
// several values on a day takes as many rows, in the order in which they came; the other series begin on the first of
// them.
QList<LigneEvolution> fusionnerParDate(const SeriesEvolution &series);

// Figures of a single curve, unrounded. The values are taken as stored, those of code 2 too.
struct StatistiquesEvolution {
    qint64 effectif = 0;
    double maximum = 0;
    double minimum = 0;
    double moyenne = 0;
    double ecartType = 0; // population form
    double mediane = 0;
    std::optional<double> quantile90; // none for fewer than eleven values
    // Frequencies with which each objective was exceeded, strictly, in % of the values.
    std::optional<double> depassementMoyen;
    std::optional<double> depassementMaximal;
};

// At least one value.
StatistiquesEvolution calculerEvolution(const QList<MesureTracee> &mesures,
                                        std::optional<double> objectifMoyen,
                                        std::optional<double> objectifMaximal);

// Upper bounds of the SEQ-Eau classes, in the parameter's unit; a Bis bound is 0 where there is none.
struct BornesSEQ {
    double valeur1 = 0;
    double valeur2 = 0;
    double valeur3 = 0;
    double valeur3Bis = 0; // between the second and the third
    double valeur4 = 0;
    double valeur4Bis = 0; // above the fourth
    bool operator==(const BornesSEQ &) const = default;
};

// Heights of the seven bands, in the order of the sheet's columns H to N: blue, green, yellow, light yellow, orange, dark
// orange, red. Stacked with the light yellow one under the yellow one, they meet at the bounds. The red one, which has no
// bound, is as high as the orange one.
using BandesSEQ = std::array<double, 7>;
BandesSEQ hauteursDesBandes(const BornesSEQ &bornes);

// A point that gets a marker of its own because of its remark code, 2 or 3.
struct PointMarque {
    int courbe = 0; // 0 or 1
    int ligne = 0;  // place among the rows, from 0
    int code = 0;
    bool operator==(const PointMarque &) const = default;
};

// The points to mark, row by row.
QList<PointMarque> pointsMarques(const QList<LigneEvolution> &lignes);
