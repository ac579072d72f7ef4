#include "analysis/FluxAgregation.h"

#include "platform/Saisie.h"

namespace
{
void ajouter(std::optional<double> &somme, const std::optional<double> &valeur)
{
    if (valeur)
        somme = somme.value_or(0) + *valeur;
}

// `debut` gives the first day of the month or year of a day, `intitule` the name of the one that begins on a day.
QList<PeriodeFlux> sommer(const QList<JourFlux> &jours, QDate (*debut)(QDate), QString (*intitule)(QDate))
{
    QList<PeriodeFlux> periodes;
    for (const JourFlux &jour : jours) {
        const QDate premier = debut(jour.jour);
        if (periodes.isEmpty() || periodes.last().debut != premier) {
            PeriodeFlux periode;
            periode.debut = premier;
            periode.intitule = intitule(premier);
            periodes << periode;
        }
        PeriodeFlux &periode = periodes.last();
        ++periode.jours;
        periode.joursAvecDebit += jour.volumeJourL ? 1 : 0;
        periode.joursAvecFlux += jour.fluxMg ? 1 : 0;
        ajouter(periode.fluxMg, jour.fluxMg);
        ajouter(periode.volumeL, jour.volumeJourL);
    }
    return periodes;
}

QDate debutDuMois(QDate jour)
{
    return {jour.year(), jour.month(), 1};
}

QDate debutAnneeCivile(QDate jour)
{
    return {jour.year(), 1, 1};
}

QDate debutAnneeHydrologique(QDate jour)
{
    constexpr int OCTOBRE = 10;
    return {jour.month() < OCTOBRE ? jour.year() - 1 : jour.year(), OCTOBRE, 1};
}

QString nomAnneeCivile(QDate debut)
{
    return QString::number(debut.year());
}

QString nomAnneeHydrologique(QDate debut)
{
    return QString::number(debut.year()) + u'-' + QString::number(debut.year() + 1);
}
} // namespace

QList<PeriodeFlux> fluxMensuels(const QList<JourFlux> &jours)
{
    return sommer(jours, debutDuMois, Saisie::ecrireMois);
}

QList<PeriodeFlux> fluxAnnuels(const QList<JourFlux> &jours, ModeAnnee mode)
{
    return mode == ModeAnnee::Hydrologique ? sommer(jours, debutAnneeHydrologique, nomAnneeHydrologique)
                                           : sommer(jours, debutAnneeCivile, nomAnneeCivile);
}

QList<PeriodeFlux> cumuler(QList<PeriodeFlux> mois)
{
    std::optional<double> fluxMg;
    std::optional<double> volumeL;
    for (PeriodeFlux &periode : mois) {
        ajouter(fluxMg, periode.fluxMg);
        ajouter(volumeL, periode.volumeL);
        if (periode.fluxMg)
            periode.fluxMg = fluxMg;
        if (periode.volumeL)
            periode.volumeL = volumeL;
    }
    return mois;
}
