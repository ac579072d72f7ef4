// What the fluxes of one station are asked for: the selection screen's controls, as plain values.
#pragma once

#include "analysis/FluxPeriode.h"

#include <QList>
#include <QString>
#include <QStringList>

// One flux asked for, on its own sheet.
struct FluxDemande {
    GenreFlux genre = GenreFlux::Mensuel;
    BornesFlux bornes;
    bool specifique = false; // divided by the catchment's area; never for GenreFlux::ParVolume
    bool operator==(const FluxDemande &) const = default;
};

struct DemandeFlux {
    QString codeStation;   // CodeSandreStationM
    QString codeDebit;     // CodeStationHM
    QString codeParametre; // CodeParam
    QString parametre;     // as the titles name it
    ModeAnnee mode = ModeAnnee::Civile;
    QList<FluxDemande> flux; // in the order of the sheets

    // Filters; an empty list filters nothing.
    QStringList gestionnaires; // CodeSandreGest of the selected producers
    QStringList reseaux;       // CodeReseau of the selected networks
    QString protocole;         // label ("Suivi pluie"); empty: none chosen
};
