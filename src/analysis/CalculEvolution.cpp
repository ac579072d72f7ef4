#include "analysis/CalculEvolution.h"

#include "platform/Arrondi.h"

#include <algorithm>

namespace
{
// Bounds have four decimals; what a difference of two has beyond them is noise.
constexpr int DECIMALES_DES_BORNES = 4;
constexpr qint64 EFFECTIF_DU_QUANTILE = 11;

// Where a value comes from. Values of one day are put on rows in this order.
enum Origine { PremiereCourbe, SecondeCourbe, Debit, Pluie };

struct Entree {
    QDate date;
    Origine origine = PremiereCourbe;
    double valeur = 0;
    QString code;
};

std::vector<Entree> entrees(const SeriesEvolution &series)
{
    std::vector<Entree> toutes;
    toutes.reserve(static_cast<size_t>(series.courbes[0].size() + series.courbes[1].size() +
                                       series.debits.size() + series.pluies.size()));
    for (const Origine courbe : {PremiereCourbe, SecondeCourbe})
        for (const MesureTracee &mesure : series.courbes[courbe])
            toutes.push_back({mesure.date, courbe, mesure.valeur, mesure.codeRemarque});
    for (const ValeurDuJour &debit : series.debits)
        toutes.push_back({debit.date, Debit, debit.valeur, {}});
    for (const ValeurDuJour &pluie : series.pluies)
        toutes.push_back({pluie.date, Pluie, pluie.valeur, {}});
    std::stable_sort(toutes.begin(), toutes.end(), [](const Entree &g, const Entree &d) {
        return g.date != d.date ? g.date < d.date : g.origine < d.origine;
    });
    return toutes;
}

void poser(LigneEvolution &ligne, const Entree &entree)
{
    switch (entree.origine) {
    case PremiereCourbe:
    case SecondeCourbe:
        ligne.valeurs[entree.origine] = entree.valeur;
        ligne.codes[entree.origine] = entree.code;
        break;
    case Debit:
        ligne.debit = entree.valeur;
        break;
    case Pluie:
        ligne.pluie = entree.valeur;
        break;
    }
}

bool estTrace(const EnregistrementPC &enregistrement, const FiltresMesures &filtres)
{
    return filtres.accepte(enregistrement) &&
           effetRemarque(enregistrement.codeRemarque) != EffetRemarque::Ecarte;
}

double frequence(const QList<MesureTracee> &mesures, double limite)
{
    const auto nombre = std::count_if(mesures.begin(), mesures.end(),
                                      [limite](const MesureTracee &m) { return m.valeur > limite; });
    return 100.0 * static_cast<double>(nombre) / static_cast<double>(mesures.size());
}
} // namespace

QList<MesureTracee> mesuresTracees(const QList<EnregistrementPC> &enregistrements,
                                   const FiltresMesures &filtres)
{
    QList<MesureTracee> tracees;
    for (const EnregistrementPC &e : enregistrements)
        if (estTrace(e, filtres))
            tracees.append({e.date, e.valeur, e.codeRemarque});
    return tracees;
}

QStringList producteursTraces(const QList<EnregistrementPC> &enregistrements, const FiltresMesures &filtres)
{
    QStringList producteurs;
    for (const EnregistrementPC &e : enregistrements)
        if (estTrace(e, filtres) && !e.gestionnaire.isEmpty() && !producteurs.contains(e.gestionnaire))
            producteurs << e.gestionnaire;
    return producteurs;
}

QList<LigneEvolution> fusionnerParDate(const SeriesEvolution &series)
{
    QList<LigneEvolution> lignes;
    qsizetype premiereDuJour = 0;
    qsizetype rang = 0; // row of the day that the entry goes to, from 0
    Origine origine = PremiereCourbe;
    for (const Entree &entree : entrees(series)) {
        if (lignes.isEmpty() || lignes[premiereDuJour].date != entree.date) {
            premiereDuJour = lignes.size();
            rang = 0;
        } else {
            rang = origine == entree.origine ? rang + 1 : 0;
        }
        origine = entree.origine;
        if (premiereDuJour + rang == lignes.size()) {
            LigneEvolution ligne;
            ligne.date = entree.date;
            lignes.append(ligne);
        }
        poser(lignes[premiereDuJour + rang], entree);
    }
    return lignes;
}

StatistiquesEvolution calculerEvolution(const QList<MesureTracee> &mesures,
                                        std::optional<double> objectifMoyen,
                                        std::optional<double> objectifMaximal)
{
    std::vector<MesureRetenue> retenues;
    retenues.reserve(static_cast<size_t>(mesures.size()));
    for (const MesureTracee &mesure : mesures)
        retenues.push_back({mesure.valeur, false}); // as stored: no half values on a chart
    const auto [minimum, maximum] =
        std::minmax_element(mesures.begin(), mesures.end(),
                            [](const MesureTracee &g, const MesureTracee &d) { return g.valeur < d.valeur; });

    const SerieMesures serie(std::move(retenues), mesures.size());
    StatistiquesEvolution figures;
    figures.effectif = serie.effectif();
    figures.minimum = minimum->valeur;
    figures.maximum = maximum->valeur;
    figures.moyenne = serie.moyenne().value_or(0);
    figures.ecartType = serie.ecartType().value_or(0);
    figures.mediane = serie.mediane().value_or(0);
    if (serie.effectif() >= EFFECTIF_DU_QUANTILE)
        figures.quantile90 = serie.quantile90();
    if (objectifMoyen)
        figures.depassementMoyen = frequence(mesures, *objectifMoyen);
    if (objectifMaximal)
        figures.depassementMaximal = frequence(mesures, *objectifMaximal);
    return figures;
}

BandesSEQ hauteursDesBandes(const BornesSEQ &bornes)
{
    const double bleu = bornes.valeur1;
    const double vert = bornes.valeur2 - bleu;
    const double jauneClair = bornes.valeur3Bis == 0 ? 0 : bornes.valeur3Bis - vert - bleu;
    const double jaune = bornes.valeur3 - jauneClair - vert - bleu;
    const double orange = bornes.valeur4 - jauneClair - jaune - vert - bleu;
    const double orangeFonce =
        bornes.valeur4Bis == 0 ? 0 : bornes.valeur4Bis - orange - jaune - jauneClair - vert - bleu;
    BandesSEQ bandes{bleu, vert, jaune, jauneClair, orange, orangeFonce, orange};
    for (double &hauteur : bandes)
        hauteur = arrondir(hauteur, DECIMALES_DES_BORNES);
    return bandes;
}

QList<PointMarque> pointsMarques(const QList<LigneEvolution> &lignes)
{
    QList<PointMarque> points;
    for (int ligne = 0; ligne < lignes.size(); ++ligne) {
        for (const int courbe : {0, 1}) {
            const std::optional<double> code = numeroRemarque(lignes[ligne].codes[courbe]);
            if (code == 2 || code == 3)
                points.append({courbe, ligne, static_cast<int>(*code)});
        }
    }
    return points;
}
