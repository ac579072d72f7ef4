#include "analysis/FluxJournalier.h"

#include <algorithm>

namespace
{
constexpr double SECONDES_PAR_JOUR = 86400;

// Sorts by day and replaces the values of one day by their mean.
template <typename Mesure> QList<Mesure> moyennesParJour(QList<Mesure> mesures, double Mesure::*valeur)
{
    std::stable_sort(mesures.begin(), mesures.end(),
                     [](const Mesure &a, const Mesure &b) { return a.jour < b.jour; });
    QList<Mesure> resultat;
    for (qsizetype i = 0; i < mesures.size();) {
        Mesure jour = mesures[i];
        qsizetype fin = i + 1;
        for (; fin < mesures.size() && mesures[fin].jour == jour.jour; ++fin)
            jour.*valeur += mesures[fin].*valeur;
        jour.*valeur /= static_cast<double>(fin - i);
        resultat << jour;
        i = fin;
    }
    return resultat;
}
} // namespace

double volumeJourL(double debitLS)
{
    return debitLS * SECONDES_PAR_JOUR;
}

QList<ConcentrationDuJour> parJour(QList<ConcentrationDuJour> mesures)
{
    return moyennesParJour(std::move(mesures), &ConcentrationDuJour::concentrationMgL);
}

QList<DebitDuJour> parJour(QList<DebitDuJour> debits)
{
    return moyennesParJour(std::move(debits), &DebitDuJour::debitLS);
}

QList<std::optional<double>> interpolerConcentrations(const BornesFlux &periode,
                                                      const QList<ConcentrationDuJour> &mesures)
{
    QList<std::optional<double>> resultat;
    resultat.reserve(periode.jours());
    qsizetype suivante = 0; // the first sample that is not before the day
    for (QDate jour = periode.debut; jour < periode.fin; jour = jour.addDays(1)) {
        while (suivante < mesures.size() && mesures[suivante].jour < jour)
            ++suivante;
        if (suivante == mesures.size()) {
            resultat << std::nullopt;
        } else if (const ConcentrationDuJour &apres = mesures[suivante]; apres.jour == jour) {
            resultat << apres.concentrationMgL;
        } else if (suivante == 0) {
            resultat << std::nullopt;
        } else {
            const ConcentrationDuJour &avant = mesures[suivante - 1];
            const auto intervalle = static_cast<double>(avant.jour.daysTo(apres.jour));
            const auto ecoules = static_cast<double>(avant.jour.daysTo(jour));
            resultat << avant.concentrationMgL +
                            (apres.concentrationMgL - avant.concentrationMgL) / intervalle * ecoules;
        }
    }
    return resultat;
}

QList<JourFlux> fluxJournaliers(const BornesFlux &periode, const QList<ConcentrationDuJour> &mesures,
                                const QList<DebitDuJour> &debits)
{
    const QList<std::optional<double>> concentrations = interpolerConcentrations(periode, mesures);
    QList<JourFlux> jours;
    jours.reserve(concentrations.size());
    qsizetype rang = 0;
    for (const std::optional<double> &concentrationMgL : concentrations) {
        JourFlux jour;
        jour.jour = periode.debut.addDays(jours.size());
        jour.concentrationMgL = concentrationMgL;
        while (rang < debits.size() && debits[rang].jour < jour.jour)
            ++rang;
        if (rang < debits.size() && debits[rang].jour == jour.jour) {
            jour.debitLS = debits[rang].debitLS;
            jour.volumeJourL = volumeJourL(*jour.debitLS);
            if (concentrationMgL)
                jour.fluxMg = *concentrationMgL * *jour.volumeJourL;
        }
        jours << jour;
    }
    return jours;
}
