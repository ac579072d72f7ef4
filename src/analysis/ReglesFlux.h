// What the command of the fluxes checks first, and the request that its controls make.
#pragma once

#include "analysis/DemandeFlux.h"

#include <optional>
#include <QDate>
#include <QString>

namespace ReglesFlux
{
// One kind of flux, as its controls stand. For months: their first days; for years: 1 January.
struct Ligne {
    bool demande = false;
    QDate debut; // null where the field is empty
    QDate fin;
    bool specifique = false;
};

struct Controles {
    QString station;
    QString stationDebit;
    ModeAnnee mode = ModeAnnee::Civile;
    Ligne mensuel;
    Ligne annuel;
    Ligne cumule;
    bool parVolume = false; // over the months of the cumulated flux
};

// The control that a check is about.
enum class Champ {
    Station,
    StationDebit,
    Choix, // no flux is asked for
    DebutMensuel,
    FinMensuel,
    DebutAnnuel,
    FinAnnuel,
    DebutCumule,
    FinCumule
};

struct Refus {
    QString message;
    Champ champ;
};

// The first thing that is wrong, in the order of the checks; nothing when all is well. A kind that is not asked for is
// not looked at.
std::optional<Refus> premierRefus(const Controles &controles);

// What is asked for, in the order of the sheets; for controls that nothing is wrong with.
QList<FluxDemande> fluxDemandes(const Controles &controles);

// Whether a flux divided by the catchment's area is asked for.
bool demandeSpecifique(const QList<FluxDemande> &flux);
} // namespace ReglesFlux
