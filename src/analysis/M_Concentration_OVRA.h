// The statistics of the concentrations of one station: the routines that the selection screens launch.
#pragma once

#include "analysis/DemandeRapport.h"

#include <QString>

class Classeur;
class DataEnvironment1;
class Dialogue;
struct CommandeRapport;

namespace M_Concentration_OVRA
{
// Parameter whose results are told apart by fraction, and the fraction for which the SEQ grid holds.
inline constexpr char16_t CARBONE_ORGANIQUE[] = u"1841";
inline constexpr char16_t FRACTION_DE_LA_GRILLE[] = u"23";

// Fills the sheet "Données" of an open workbook made from "rapport.xls" (or any template with that sheet) and returns
// the number of measures written: 0 means that there was nothing to report, and then a message may have said why.
// Progress is shown on the main window and cleared at the end. A failure is an Erreur.
int EditerRapport(const DemandeRapport &demande, const DataEnvironment1 &donnees, Dialogue &dialogue,
                  Classeur &classeur);

// The whole command of the button "Rapport ...", for CoursRapport:
//
//     CoursRapport cours(session.dialogue, session.tableur, session.dossiers, session.etatRapport);
//     cours.executer(M_Concentration_OVRA::commandeRapport(demande, session.donnees, session.dialogue));
//
// The base and the dialogue must outlive its execution.
CommandeRapport commandeRapport(const DemandeRapport &demande, const DataEnvironment1 &donnees,
                                Dialogue &dialogue);
} // namespace M_Concentration_OVRA
