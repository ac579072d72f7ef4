// The evolution charts of a station: the routines behind the buttons "Graphique ..." and "Graphique et Rapport ...".
#pragma once

#include "analysis/DemandeEvolution.h"

class Classeur;
class DataEnvironment1;
class Dialogue;
struct CommandeRapport;

namespace M_Concentration_OVRA
{
// Whether the routine is to remind that organic carbon wants a fraction, or something before it has.
enum class RappelFraction { Oui, DejaFait };

// Fills the sheet "Mesures" of an open workbook made from "Modele_concentr.xls" (or any template with that sheet, its
// chart "Graphique" and its "Text Box 1"), wires the chart to it and returns the number of measures shown: 0 means that
// there was none, and that the workbook is as it was. Progress is shown on the main window and cleared at the end. A
// failure is an Erreur.
int TracerEvolution(const DemandeEvolution &demande, const DataEnvironment1 &donnees, Dialogue &dialogue,
                    Classeur &classeur, RappelFraction rappel = RappelFraction::Oui);

// The whole commands, for CoursRapport; the base and the dialogue must outlive their execution.
//
// "Graphique ..."
CommandeRapport commandeGraphique(const DemandeEvolution &demande, const DataEnvironment1 &donnees,
                                  Dialogue &dialogue);
// "Graphique et Rapport ...": the report, and where it has something to tell, the chart, in one workbook. The request is
// of one curve.
CommandeRapport commandeGraphiqueEtRapport(const DemandeEvolution &demande, const DataEnvironment1 &donnees,
                                           Dialogue &dialogue);
} // namespace M_Concentration_OVRA
