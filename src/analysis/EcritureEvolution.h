// Fills the sheet "Mesures" of an evolution chart.
#pragma once

#include "analysis/Evolution.h"

class Feuille;

// Heading, names of the series, a rectangle for each group of columns that is used. What the run does not use stays empty.
void ecrireEvolution(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution);
