// What an evolution chart reads from the base.
#pragma once

#include "analysis/CalculEvolution.h"
#include "analysis/DemandeEvolution.h"
#include "analysis/LectureRapportPC.h"

#include <functional>
#include <optional>

class DataEnvironment1;

// A hydrometric or rainfall station; its name is its code where the base has no other.
struct StationLiee {
    QString code;
    QString nom;
};

// Station and parameters, and what a single curve is held against.
struct EnTeteEvolution {
    QList<EnTeteRapport>
        courbes; // as many as asked for; the unit of a second one without any is "non défini"
    std::optional<BornesSEQ> grille; // only where the request wants the classes and the grid holds
    std::optional<double> norme;     // only where the request wants it and the parameter has one
    StationLiee debit;
    StationLiee pluie;
};

EnTeteEvolution lireEnTeteEvolution(const DataEnvironment1 &donnees, const DemandeEvolution &demande);

// The records of a curve over the whole period, by date. `parEnregistrement` is called for each.
QList<EnregistrementPC> lireCourbe(const DataEnvironment1 &donnees, const DemandeEvolution &demande,
                                   const EnTeteRapport &enTete, qsizetype courbe,
                                   const std::function<void()> &parEnregistrement);

// Daily flows and rainfalls of the linked station in the period, by date; none without a station.
QList<ValeurDuJour> lireDebits(const DataEnvironment1 &donnees, const DemandeEvolution &demande,
                               const std::function<void()> &parEnregistrement);
QList<ValeurDuJour> lirePluies(const DataEnvironment1 &donnees, const DemandeEvolution &demande,
                               const std::function<void()> &parEnregistrement);
