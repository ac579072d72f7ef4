// What the fluxes are reckoned from, read from the base.
#pragma once

#include "analysis/DemandeFlux.h"
#include "analysis/FluxJournalier.h"

#include <optional>
#include <QString>

class DataEnvironment1;

struct EnTeteFlux {
    QString bassin;                   // NomBV
    QString station;                  // NomStationM, or the code where it has no name
    QString stationDebit;             // IntituleStationHM, or the code
    std::optional<double> surfaceKm2; // SurfReelStationHM; none for null

    // An area that a flux can be divided by.
    bool surfaceUtilisable() const { return surfaceKm2 && *surfaceKm2 > 0; }
};

EnTeteFlux lireEnTeteFlux(const DataEnvironment1 &donnees, const QString &codeStation,
                          const QString &codeDebit);

// The station's concentrations of the parameter in the window, by date, as stored: remark codes 1 (quantified) and 2 alone,
// a value of code 2 not halved. Several of one day stand one after the other.
QList<ConcentrationDuJour> lireConcentrationsFlux(const DataEnvironment1 &donnees, const DemandeFlux &demande,
                                                  const BornesFlux &fenetre);

// The station's daily flows (l/s) in these bounds, by date.
QList<DebitDuJour> lireDebitsFlux(const DataEnvironment1 &donnees, const QString &codeDebit,
                                  const BornesFlux &bornes);

// First and last day of what the base holds; null where it holds nothing.
struct Etendue {
    QDate premier;
    QDate dernier;
};
// Of the concentrations that can enter a flux, without the filters.
Etendue etendueConcentrations(const DataEnvironment1 &donnees, const QString &codeStation,
                              const QString &codeParametre);
Etendue etendueDebits(const DataEnvironment1 &donnees, const QString &codeDebit);
