// The chart of a flux.
#pragma once

#include "analysis/FluxCalcul.h"
#include "analysis/LectureFlux.h"

class Feuille;

namespace M_creer_graph
{
// Wires the chart "Graphique" of a flux's sheet, whose rows are written, to them: titles, series against the dates, and
// a label beside each month or year that lacks flows.
void grapheFlux(const Feuille &feuille, const FluxCalcule &flux, const EnTeteFlux &enTete,
                const QString &parametre, ModeAnnee mode);
} // namespace M_creer_graph
