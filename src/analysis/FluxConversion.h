// From milligrams to the unit that a flux is shown in.
#pragma once

#include <optional>
#include <QString>

// Parameter whose results are nitrate, and whose fluxes are told in nitrogen.
inline constexpr QStringView NITRATES = u"1340";

// 1 g of nitrogen makes 4.42 g of nitrate.
inline constexpr double NITRATE_PAR_AZOTE = 4.42;

struct UniteFlux {
    // Area in square kilometres of the catchment that a specific flux is divided by; none: an ordinary flux.
    std::optional<double> surfaceKm2;
    bool enAzote = false;
};

// Ordinary: / 1 000 000 (kg) / 1000, tonnes. Specific: / 1 000 000 (kg) / area / 100 (hectares in a square kilometre),
// kilograms per hectare; the area is not 0. In nitrogen: / 4.42 besides.
double convertirFlux(double fluxMg, const UniteFlux &unite);

// Cubic metres.
double volumeM3(double volumeL);

// "Tonnes", "Kg/ha", "T de N-No3", "kg de N-No3/ha".
QString nomUniteFlux(bool specifique, bool enAzote);
