#include "Hydrologie.h"

#include "Hasard.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double L_S_KM2_PAR_MM_JOUR = 1e6 / 86400.0; // 1 mm over 1 km2 in a day
constexpr double SOL_MM = 110.0;                      // what the soil holds before it drains
constexpr double VIDANGE_RAPIDE = 0.38;               // share of each reservoir that flows out in a day
constexpr double VIDANGE_LENTE = 0.017;

// Dry and wet years follow each other as they please; the same for every catchment of the study.
double annee(int an)
{
    return 1.0 + 0.08 * Hasard(QStringLiteral("annee|%1").arg(an)).normale();
}

double evapotranspiration_mm(QDate date)
{
    return std::max(0.2, 1.9 + 1.7 * saison(date, 190));
}
} // namespace

double saison(QDate date, int sommet)
{
    return std::cos(2.0 * std::numbers::pi * (date.dayOfYear() - sommet) / 365.25);
}

Hydrologie::Hydrologie(QDate debut, QDate fin, double part_rapide, const QString &graine) : m_debut(debut)
{
    // A year before the first day fills the reservoirs.
    const QDate amorce = debut.addYears(-1);
    bool humide = false;
    double sol = SOL_MM, rapide = 1.0, lente = 40.0, somme = 0.0;
    for (QDate date = amorce; date <= fin; date = date.addDays(1)) {
        Hasard ciel("pluie|" + date.toString(Qt::ISODate));
        const double hiver = saison(date, 350);
        humide = ciel.uniforme() < (humide ? 0.64 + 0.07 * hiver : 0.31 + 0.08 * hiver);
        const double lame = -std::log(1.0 - ciel.uniforme()) * (4.4 + 1.0 * hiver) * annee(date.year());
        const double local = Hasard(graine + date.toString(Qt::ISODate)).facteur(0.12);
        const double pluie = humide ? std::round(lame * local * 5.0) / 5.0 : 0.0; // a bucket tips at 0.2 mm

        sol += pluie;
        sol -= std::min(sol, evapotranspiration_mm(date) * std::min(1.0, sol / (0.7 * SOL_MM)));
        const double exces = std::max(0.0, sol - SOL_MM);
        sol -= exces;
        const double ruissele = pluie > 8.0 ? 0.04 * (pluie - 8.0) : 0.0; // roads and trodden ground
        rapide += exces * part_rapide + ruissele;
        lente += exces * (1.0 - part_rapide);
        const double q_rapide = rapide * VIDANGE_RAPIDE;
        const double q_lente = lente * VIDANGE_LENTE;
        rapide -= q_rapide;
        lente -= q_lente;
        if (date < debut)
            continue;
        const double q = q_rapide + q_lente + 0.03;
        m_jours.push_back({pluie, q * L_S_KM2_PAR_MM_JOUR, q_rapide / q, std::min(1.2, lente / 90.0)});
        somme += q * L_S_KM2_PAR_MM_JOUR;
    }
    m_module = somme / static_cast<double>(m_jours.size());
}

const Regime &Hydrologie::jour(QDate date) const
{
    return m_jours.at(static_cast<size_t>(m_debut.daysTo(date)));
}
