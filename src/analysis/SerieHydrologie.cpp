#include "analysis/SerieHydrologie.h"

#include <algorithm>
#include <QMap>

namespace
{
using SerieHydrologie::Mesure;

QDate premierDuMois(QDate date)
{
    return {date.year(), date.month(), 1};
}

QMap<QDate, QList<double>> parDate(const QList<Mesure> &mesures)
{
    QMap<QDate, QList<double>> groupes;
    for (const Mesure &mesure : mesures)
        groupes[mesure.date] << mesure.valeur;
    return groupes;
}
} // namespace

QList<Mesure> SerieHydrologie::auPremierDuMois(const QList<Mesure> &mesures)
{
    QList<Mesure> resultat = mesures;
    for (Mesure &mesure : resultat)
        mesure.date = premierDuMois(mesure.date);
    return resultat;
}

QList<Mesure> SerieHydrologie::sommesMensuelles(const QList<Mesure> &pluies)
{
    QMap<QDate, double> sommes;
    for (const Mesure &pluie : pluies)
        sommes[premierDuMois(pluie.date)] += pluie.valeur;
    QList<Mesure> resultat;
    for (auto mois = sommes.constBegin(); mois != sommes.constEnd(); ++mois)
        resultat << Mesure{mois.key(), mois.value()};
    return resultat;
}

QList<SerieHydrologie::Ligne> SerieHydrologie::fusionner(const QList<Mesure> &debits,
                                                         const QList<Mesure> &pluies)
{
    const QMap<QDate, QList<double>> lesDebits = parDate(debits);
    const QMap<QDate, QList<double>> lesPluies = parDate(pluies);
    QList<QDate> dates = lesDebits.keys() + lesPluies.keys();
    std::sort(dates.begin(), dates.end());
    dates.erase(std::unique(dates.begin(), dates.end()), dates.end());
    QList<Ligne> lignes;
    for (const QDate date : std::as_const(dates)) {
        const QList<double> debit = lesDebits.value(date);
        const QList<double> pluie = lesPluies.value(date);
        for (qsizetype i = 0; i < std::max(debit.size(), pluie.size()); ++i) {
            Ligne ligne{date, {}, {}};
            if (i < debit.size())
                ligne.debit_l_s = debit[i];
            if (i < pluie.size())
                ligne.pluie_mm = pluie[i];
            lignes << ligne;
        }
    }
    return lignes;
}

QList<SerieHydrologie::Ligne> SerieHydrologie::avecInterruptions(const QList<Ligne> &lignes, Pas pas)
{
    QList<Ligne> resultat;
    for (const Ligne &ligne : lignes) {
        // After a row with a flow, the next one comes at most one step later; a row without one is the gap itself.
        if (!resultat.isEmpty() && resultat.last().debit_l_s) {
            const QDate precedente = resultat.last().date;
            const QDate attendue = pas == Pas::Jour ? precedente.addDays(1) : precedente.addMonths(1);
            if (ligne.date > attendue)
                resultat << Ligne{attendue, {}, {}};
        }
        resultat << ligne;
    }
    return resultat;
}
