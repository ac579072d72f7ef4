// The scales that keep rain and flow apart on one chart.
#pragma once

// An axis that begins at 0.
struct EchelleDepuisZero {
    double maximum = 1;
    double pas = 1; // between two graduations; the maximum is a multiple of it
    bool operator==(const EchelleDepuisZero &) const = default;
};

struct EchellesHydrologie {
    EchelleDepuisZero debit; // left axis, upward
    EchelleDepuisZero pluie; // right axis, reversed: rain hangs from the top
};

// At most these parts of the plot's height are taken, by the flows from the bottom and by the rain from the top. What is
// left between them is for the labels of the flows.
inline constexpr double PART_DES_DEBITS = 0.60;
inline constexpr double PART_DE_LA_PLUIE = 0.32;

// Scales of a chart that shows flows up to `debitMaximal` (l/s) and rain down to `pluieMaximale` (mm), on the same height:
// the highest flow stays under the lowest end of the rain, so that no column ever covers the line, on whatever days the two
// happen. Both maxima are round numbers, with four to ten graduations; no part of the plot is wasted beyond that rounding
// (each series takes at least half of its part). A series that is 0 all over, or below, gets a scale from 0 to 1.
EchellesHydrologie echellesHydrologie(double debitMaximal, double pluieMaximale);

// The smallest round scale that holds this value; "round" steps are 1, 2, 2.5 or 5 times a power of ten.
EchelleDepuisZero echelleRonde(double valeur);
