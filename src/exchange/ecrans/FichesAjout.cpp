#include "exchange/ecrans/FichesAjout.h"

#include <map>

OuvrirFiche ficheAjout(TypeElement type)
{
    static const std::map<TypeElement, OuvrirFiche> fiches = {};
    const auto fiche = fiches.find(type);
    return fiche == fiches.end() ? OuvrirFiche() : fiche->second;
}
