// What a sampler would find in an invented stream on one day.
#pragma once

#include "Hydrologie.h"

#include <QDate>
#include <QHash>
#include <QString>

// How a station's water departs from the basin's: factors around 1, but for nitrates, the level of a wet winter in
// mg/l.
struct Eau {
    double nitrates = 30;
    double phosphore = 1;
    double ammonium = 1;
    double particules = 1;
    double carbone = 1;
    double bacteries = 1;
    double pesticides = 1;
    double mineralisation = 1;
};

// How a pesticide comes and goes: a peak around a day of the year when it is spread, washed by the rains that follow,
// over a background.
struct Molecule {
    int jour_pic = 150;
    double etalement_j = 30;
    double pic_ug_l = 0.1;
    double fond_ug_l = 0.01;
    int annee_fin = 0; // last year of use, 0 = still used; traces fade in the two years after
};

// One sampling: the day, the stream and the noise of this very sample.
struct Echantillon {
    QDate date;
    Eau eau;
    Regime regime;
    double debit_relatif = 1; // to the mean flow of the catchment
    double debit_m3_s = 0;
    QString graine;
};

// Concentration of a physico-chemical parameter (national code), in its reference unit. The shapes are those of a
// western French stream: nitrates follow the groundwater, high in winter, diluted by floods; phosphorus and bacteria
// follow the rejects in summer and the mud in floods; organic carbon comes with the autumn flush; and what is tied by
// nature stays tied (orthophosphates within phosphorus, dissolved carbon within total, oxygen with temperature).
// An unknown code is an Erreur.
double concentration(const QString &parametre, const QString &fraction, const Echantillon &echantillon);

// Concentration of a pesticide, µg/l.
double concentration(const QString &parametre, const Molecule &molecule, const Echantillon &echantillon);
