// Fills the sheet "Mesures" of an evolution chart.
#pragma once

#include "analysis/Evolution.h"
#include "workbook/BlocValeurs.h"

class Feuille;

// Dates and curves, flows and rain, remark codes: only the columns that hold something. Wants no workbook.
QVector<BlocPlace> preparerMesures(const Evolution &evolution);

// Heading, names of the series, levels and bands, and the measures made ready for the same evolution. What the run does
// not use stays empty.
void ecrireEvolution(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution,
                     const QVector<BlocPlace> &mesures);
