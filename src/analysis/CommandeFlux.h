// The command that makes the fluxes of one station.
#pragma once

#include "analysis/DemandeFlux.h"

class Classeur;
class DataEnvironment1;
class Dialogue;
struct CommandeRapport;

namespace M_Concentration_OVRA
{
// Fills an open workbook made from "Modele_flux.xls" and returns the number of months and years that have a flux; 0: there
// was nothing to reckon with, and the workbook is left as it was. A specific flux of a station without an area is passed
// over. Progress is shown on the main window and cleared at the end. A failure is an Erreur.
int EditerFlux(const DemandeFlux &demande, const DataEnvironment1 &donnees, Dialogue &dialogue,
               Classeur &classeur);

// The whole command of the button "Graphique ..." of the fluxes, for CoursRapport. The base and the dialogue must outlive its
// execution.
CommandeRapport commandeFlux(const DemandeFlux &demande, const DataEnvironment1 &donnees, Dialogue &dialogue);
} // namespace M_Concentration_OVRA
