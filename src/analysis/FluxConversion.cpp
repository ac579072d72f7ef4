#include "analysis/FluxConversion.h"

namespace
{
constexpr double MG_PAR_KG = 1000000;
constexpr double KG_PAR_TONNE = 1000;
constexpr double HECTARES_PAR_KM2 = 100;
constexpr double LITRES_PAR_M3 = 1000;
} // namespace

double convertirFlux(double fluxMg, const UniteFlux &unite)
{
    const double fluxKg = fluxMg / MG_PAR_KG;
    const double flux =
        unite.surfaceKm2 ? fluxKg / *unite.surfaceKm2 / HECTARES_PAR_KM2 : fluxKg / KG_PAR_TONNE;
    return unite.enAzote ? flux / NITRATE_PAR_AZOTE : flux;
}

double volumeM3(double volumeL)
{
    return volumeL / LITRES_PAR_M3;
}

QString nomUniteFlux(bool specifique, bool enAzote)
{
    if (enAzote)
        return specifique ? QStringLiteral("kg de N-No3/ha") : QStringLiteral("T de N-No3");
    return specifique ? QStringLiteral("Kg/ha") : QStringLiteral("Tonnes");
}
