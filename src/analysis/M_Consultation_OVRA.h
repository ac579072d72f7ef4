// The graph of flows and rainfall: the routine that its screen launches.
#pragma once

#include "analysis/DemandeHydrologie.h"

class Classeur;
class DataEnvironment1;
class Dialogue;
struct CommandeRapport;

namespace M_Consultation_OVRA
{
// Fills an open workbook made from the template of the demand and returns the number of measures read: 0 means that there was
// nothing to draw. A kind of measure that has none is told in a box, and the graph made with the other. Progress is shown on
// the main window and cleared at the end. A failure is an Erreur.
int TracerGraphique(const DemandeHydrologie &demande, const DataEnvironment1 &donnees, Dialogue &dialogue,
                    Classeur &classeur);

// The whole command of the button "Graphique ...", for CoursRapport. The base and the dialogue must outlive its execution.
CommandeRapport commandeGraphique(const DemandeHydrologie &demande, const DataEnvironment1 &donnees,
                                  Dialogue &dialogue);
} // namespace M_Consultation_OVRA
