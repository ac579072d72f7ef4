#include "analysis/FluxPeriode.h"

namespace
{
constexpr int OCTOBRE = 10;
constexpr int JOURS_AVANT = 15;
constexpr int MOIS_APRES = 2;

QDate premierDuMois(QDate jour)
{
    return {jour.year(), jour.month(), 1};
}
} // namespace

BornesFlux bornesMois(QDate premierMois, QDate dernierMois)
{
    return {premierDuMois(premierMois), premierDuMois(dernierMois).addMonths(1)};
}

BornesFlux bornesAnnees(int premiere, int derniere, ModeAnnee mode)
{
    const int mois = mode == ModeAnnee::Hydrologique ? OCTOBRE : 1;
    return {QDate(premiere, mois, 1), QDate(derniere + 1, mois, 1)};
}

BornesFlux fenetreConcentrations(const BornesFlux &bornes)
{
    return {premierDuMois(bornes.debut.addDays(-JOURS_AVANT)), bornes.fin.addMonths(MOIS_APRES)};
}
