// Fills the sheet "Rapport" of a workbook that holds both the report and the chart: what it is about, how the measures
// were chosen, and the figures of the chart.
#pragma once

#include "analysis/Evolution.h"
#include "workbook/Plage.h"

class Feuille;

// The values of its second column, from the first row of the identity down to the last figure. For one curve.
Valeurs valeursSynthese(const DemandeEvolution &demande, const Evolution &evolution);

void ecrireSynthese(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution);
