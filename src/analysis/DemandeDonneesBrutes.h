// What the raw data screen shows: which results, and in which columns.
#pragma once

#include "analysis/ListesSelection.h"

#include <optional>
#include <QDate>
#include <QString>

// An empty code, a null date or no family leaves nothing out.
struct DemandeDonneesBrutes {
    QString station;   // CodeSandreStationM
    QString parametre; // CodeParam
    QDate debut;       // first and last day of the samplings, both included
    QDate fin;
    std::optional<Famille> famille;
    bool operator==(const DemandeDonneesBrutes &) const = default;
};

// In the order shown.
enum class ColonneBrute {
    CodeStation,
    Station,
    Date,
    Heure,
    CodeParametre,
    Parametre,
    Resultat,
    Unite,
    Remarque,
    Fraction,
    Gestionnaire,
    Laboratoire,
    Preleveur,
    Reseaux
};
inline constexpr int NOMBRE_COLONNES_BRUTES = 14;
