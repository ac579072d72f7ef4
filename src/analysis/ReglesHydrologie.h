// What the graph of flows and rainfall checks before it is made.
#pragma once

#include "analysis/DemandeHydrologie.h"

#include <optional>

namespace ReglesHydrologie
{
enum class Champ { StationDebit, StationPluie, DateDebut, DateFin, Choix };

struct Refus {
    QString message;
    Champ champ;
};

// The first thing that is wrong, in the order of the checks; nothing when all is well.
std::optional<Refus> premierRefus(const DemandeHydrologie &demande);
} // namespace ReglesHydrologie
