// The templates that this folder makes. A new one is a function here and a line in the list of faire_modeles.cpp.
#pragma once

class Classeur;
class Feuille;

namespace Modele
{
// "rapport.xls": the physico-chemical statistics report.
void rapport(Classeur &classeur);
// "Modele_concentr.xls": the evolution chart.
void concentrations(Classeur &classeur);
// "Concentr_Rapport.xls": the report and the chart together.
void concentrationsEtRapport(Classeur &classeur);
// "Modele_concentr_hydro.xls" and "Modele_concentr_pluvio.xls": flows with or without rain, rain alone.
void debits(Classeur &classeur);
void pluies(Classeur &classeur);
// The sheet "Rapport" of the former.
void synthese(Feuille feuille);
// "Modele_flux.xls": the fluxes, a sheet and a chart each.
void flux(Classeur &classeur);
} // namespace Modele
