#include "analysis/EchellesHydrologie.h"

#include <array>
#include <cmath>
#include <limits>

namespace
{
constexpr int GRADUATIONS_MIN = 4;
constexpr int GRADUATIONS_MAX = 10;
} // namespace

EchelleDepuisZero echelleRonde(double valeur)
{
    if (!(valeur > 0) || !std::isfinite(valeur))
        return {1, 0.25};
    constexpr std::array PAS{1.0, 2.0, 2.5, 5.0};
    const int exposant = static_cast<int>(std::floor(std::log10(valeur)));
    EchelleDepuisZero meilleure{std::numeric_limits<double>::infinity(), 1};
    for (int e = exposant - 1; e <= exposant; ++e) {
        for (const double chiffre : PAS) {
            const double pas = chiffre * std::pow(10.0, e);
            // A value that is itself a multiple, but for the last bits, needs no further graduation.
            const double nombre = std::max<double>(std::ceil(valeur / pas - 1e-9), GRADUATIONS_MIN);
            if (nombre <= GRADUATIONS_MAX && pas * nombre < meilleure.maximum * (1 - 1e-9))
                meilleure = {pas * nombre, pas};
        }
    }
    return meilleure;
}

EchellesHydrologie echellesHydrologie(double debitMaximal, double pluieMaximale)
{
    return {echelleRonde(debitMaximal / PART_DES_DEBITS), echelleRonde(pluieMaximale / PART_DE_LA_PLUIE)};
}
