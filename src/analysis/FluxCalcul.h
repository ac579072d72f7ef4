// One flux asked for, from its samples and flows to the rows of its sheet: the steps put together.
#pragma once

#include "analysis/DemandeFlux.h"
#include "analysis/FluxAgregation.h"
#include "analysis/FluxConversion.h"

// One row: a month or a year, in the flux's own unit.
struct LigneFlux {
    PeriodeFlux periode; // cumulated where the flux is; in mg and litres
    std::optional<double> flux;
    std::optional<double> volumeM3; // GenreFlux::ParVolume alone
};

struct FluxCalcule {
    FluxDemande demande;
    bool enAzote = false;
    QList<ConcentrationDuJour> mesures; // one value a day, of the window
    QList<JourFlux> jours;              // every day of the bounds
    QList<LigneFlux> lignes;

    // Number of rows that have a value.
    int lignesAvecFlux() const;
};

// `surfaceKm2` is that of the catchment, needed (and above 0) for a specific flux alone. The fluxes of nitrates are given
// in nitrogen. Samples and flows may have several values a day, in any order.
FluxCalcule calculerFlux(const FluxDemande &demande, ModeAnnee mode, const QString &codeParametre,
                         std::optional<double> surfaceKm2, const QList<ConcentrationDuJour> &mesures,
                         const QList<DebitDuJour> &debits);
