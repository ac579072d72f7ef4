// Rounding, written once for the whole program.
#pragma once

// Value rounded to `decimales` decimals: times 10^decimales, to the nearest whole, ties to the even one, divided again.
double arrondir(double valeur, int decimales);
