// What a parameter's values are held against on one station: objectives, norm, class grid; and its unit.
#pragma once

#include <optional>
#include <QString>

class DataEnvironment1;

struct ReperesParametre {
    QString unite; // SymboleUnite; empty where the parameter has none
    // Objectives of the station's basin. An objective of 0 is none.
    std::optional<double> objectifMoyen;
    std::optional<double> objectifMaximal;
    std::optional<double> norme; // NORME_AEP
    bool grille = false;         // GRILLE_SEQ has a row that holds for the parameter
};

// For organic carbon with a fraction, the objectives and the norm are those of that fraction, and the grid holds for raw
// water alone. Any other parameter, or an empty fraction: those of the parameter, whatever the fraction.
ReperesParametre lireReperes(const DataEnvironment1 &donnees, const QString &codeStation,
                             const QString &codeParametre, const QString &codeFraction);
