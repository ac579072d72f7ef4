// Fills the sheet "Mesures" of an evolution chart.
#pragma once

#include "analysis/Evolution.h"

class Feuille;

// Heading, names of the series and one rectangle for all rows. What the run does not use stays empty.
void ecrireEvolution(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution);
