#include "Chimie.h"

#include "Hasard.h"
#include "platform/Erreur.h"

#include <algorithm>
#include <cmath>

namespace
{
// The sample's own departure for one quantity, drawn apart from all others.
double bruit(const Echantillon &e, const char *grandeur, double ecart)
{
    return Hasard(e.graine + QLatin1Char('|') + QLatin1String(grandeur)).facteur(ecart);
}

double ete(const Echantillon &e)
{
    return std::max(0.0, saison(e.date, 205));
}

// 1 at the first floods of autumn, which wash what the summer left.
double lessivage(const Echantillon &e)
{
    return std::max(0.0, saison(e.date, 325));
}

double crue(const Echantillon &e)
{
    return e.regime.part_rapide * std::min(3.0, e.debit_relatif);
}

// Little water dilutes what the villages let out.
double concentration_etiage(const Echantillon &e)
{
    return 1.0 / (e.debit_relatif + 0.35);
}

double temperature(const Echantillon &e)
{
    return 11.4 + 6.2 * saison(e.date, 208) + 2.2 * (bruit(e, "temperature", 0.4) - 1.0);
}

double matieres_en_suspension(const Echantillon &e)
{
    return e.eau.particules * (4.0 + 3.0 * ete(e) + 17.0 * crue(e)) * bruit(e, "mes", 0.45);
}

double nitrates(const Echantillon &e)
{
    const double progres = 1.0 - 0.012 * (e.date.year() - 2008);
    const double nappe = 0.6 + 0.55 * std::min(1.0, e.regime.reserve);
    const double chasse = 1.0 + 0.18 * lessivage(e) * std::min(1.0, e.debit_relatif);
    const double dilution = 1.0 - 0.1 * crue(e);
    return e.eau.nitrates * progres * nappe * chasse * dilution * bruit(e, "nitrates", 0.05);
}

double ammonium(const Echantillon &e)
{
    return e.eau.ammonium * (0.035 + 0.02 * concentration_etiage(e) + 0.06 * crue(e)) *
           bruit(e, "ammonium", 0.5);
}

double phosphore_dissous(const Echantillon &e)
{
    return e.eau.phosphore * (0.012 + 0.022 * concentration_etiage(e)) * bruit(e, "phosphore", 0.3);
}

double phosphore_total(const Echantillon &e)
{
    return phosphore_dissous(e) + 0.02 * e.eau.phosphore + 0.0015 * matieres_en_suspension(e);
}

double carbone_dissous(const Echantillon &e)
{
    return e.eau.carbone * (3.6 + 1.9 * lessivage(e) + 1.5 * crue(e)) * bruit(e, "carbone", 0.12);
}

double carbone_total(const Echantillon &e)
{
    return carbone_dissous(e) + 0.3 + 0.02 * matieres_en_suspension(e);
}

double saturation(const Echantillon &e)
{
    const double manque = (4.0 + 12.0 * ete(e) * concentration_etiage(e)) * std::sqrt(e.eau.ammonium);
    return std::clamp((97.0 - manque) * bruit(e, "oxygene", 0.04), 25.0, 118.0);
}

double oxygene_dissous(const Echantillon &e)
{
    // Oxygen at saturation in fresh water at sea level, a common cubic of the temperature in °C.
    const double t = temperature(e);
    return saturation(e) / 100.0 * (14.652 - 0.41022 * t + 0.007991 * t * t - 0.000077774 * t * t * t);
}

double chlorophylle(const Echantillon &e)
{
    return (1.5 + 42.0 * ete(e) * ete(e)) * bruit(e, "chlorophylle", 0.55);
}

double escherichia(const Echantillon &e)
{
    return e.eau.bacteries * 190.0 * std::exp(1.4 * crue(e)) * bruit(e, "escherichia", 1.0);
}
} // namespace

double concentration(const QString &parametre, const QString &fraction, const Echantillon &e)
{
    switch (parametre.toInt()) {
    case 1295:
        return 0.8 + 0.75 * matieres_en_suspension(e) * bruit(e, "turbidite", 0.2);
    case 1301:
        return temperature(e);
    case 1302:
        return 7.35 + 0.3 * saison(e.date, 130) - 0.12 * crue(e) + 7.0 * (bruit(e, "ph", 0.015) - 1.0);
    case 1303:
        return e.eau.mineralisation * (262.0 - 32.0 * crue(e) + 26.0 * ete(e)) *
               bruit(e, "conductivite", 0.04);
    case 1305:
        return matieres_en_suspension(e);
    case 1311:
        return oxygene_dissous(e);
    case 1312:
        return saturation(e);
    case 1313:
        return (1.0 + 0.5 * ete(e) + 0.5 * crue(e)) * std::sqrt(e.eau.ammonium) * bruit(e, "dbo", 0.3);
    case 1314:
        return 2.4 * carbone_total(e) + 0.12 * matieres_en_suspension(e) + 3.0 * bruit(e, "dco", 0.3);
    case 1319:
        return 0.78 * ammonium(e) + 0.09 * carbone_total(e) * bruit(e, "kjeldahl", 0.25);
    case 1335:
        return ammonium(e);
    case 1337:
        return e.eau.mineralisation * (29.0 - 3.0 * crue(e) + 4.0 * ete(e)) * bruit(e, "chlorures", 0.06);
    case 1338:
        return e.eau.mineralisation * (15.0 + 2.0 * lessivage(e)) * bruit(e, "sulfates", 0.08);
    case 1339:
        return std::sqrt(e.eau.ammonium) * (0.03 + 0.045 * ete(e)) * bruit(e, "nitrites", 0.4);
    case 1340:
        return nitrates(e);
    case 1350:
        return phosphore_total(e);
    case 1420:
        return e.debit_m3_s;
    case 1433:
        return 0.8 * 3.066 * phosphore_dissous(e); // mg of PO4 for 1 mg of P
    case 1436:
        return 0.3 * chlorophylle(e) * bruit(e, "pheopigments", 0.3);
    case 1439:
        return chlorophylle(e);
    case 1449:
        return escherichia(e);
    case 1841:
        return fraction == "3" ? carbone_dissous(e) : carbone_total(e);
    case 6455:
        return 0.35 * escherichia(e) * bruit(e, "enterocoques", 0.5);
    default:
        throw Erreur(0, "Paramètre sans modèle : " + parametre);
    }
}

double concentration(const QString &parametre, const Molecule &molecule, const Echantillon &e)
{
    const int ecart = std::abs(e.date.dayOfYear() - molecule.jour_pic);
    const double jours = std::min(ecart, 365 - ecart) / molecule.etalement_j;
    const double usage = molecule.annee_fin == 0 || e.date.year() <= molecule.annee_fin
                             ? 1.0
                             : std::max(0.1, 0.5 - 0.25 * (e.date.year() - molecule.annee_fin - 1));
    const double apport = molecule.pic_ug_l * std::exp(-0.5 * jours * jours) * (0.25 + 1.1 * crue(e));
    const double tirage = Hasard(e.graine + QLatin1Char('|') + parametre).facteur(0.7);
    return e.eau.pesticides * usage * (molecule.fond_ug_l + apport * tirage);
}
