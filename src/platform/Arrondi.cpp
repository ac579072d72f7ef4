#include "platform/Arrondi.h"

#include <cfenv>
#include <cmath>

double arrondir(double valeur, int decimales)
{
    const double echelle = std::pow(10.0, decimales);
    // nearbyint follows the default rounding mode, which is to nearest, ties to even.
    return std::nearbyint(valeur * echelle) / echelle;
}
