// The water-quality classes of the SEQ-Eau system, as fills of cells.
#pragma once

#include <optional>

// Upper bounds of the classes blue, green, yellow and orange (Valeur1SEQ to Valeur4SEQ), in the parameter's own unit.
// A bound that the base does not give is 0.
struct GrilleSEQ {
    double valeur1 = 0;
    double valeur2 = 0;
    double valeur3 = 0;
    double valeur4 = 0;
};

// ColorIndex of the class of a value: that of the first bound that is greater than or equal to it, red beyond the last.
int couleurClasseSEQ(double valeur, const GrilleSEQ &grille);
