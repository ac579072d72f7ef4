#include "analysis/ContenuRapportPC.h"

#include "analysis/DispositionRapportPC.h"
#include "platform/Arrondi.h"
#include "platform/NombreFrancais.h"

#include <algorithm>

using namespace DispositionRapportPC;

namespace
{
// Numbers of the base have four decimals at most.
constexpr int DECIMALES_DES_LIMITES = 4;

QVariant tiret()
{
    return QStringLiteral("-");
}

QVariant arrondi(const std::optional<double> &figure)
{
    return figure ? QVariant(arrondir(*figure, 2)) : tiret();
}

QVariant tel(const std::optional<double> &figure)
{
    return figure ? QVariant(*figure) : tiret();
}

QVariant frequence(const std::optional<double> &pourcentage)
{
    if (!pourcentage)
        return tiret();
    return QString(nombreFrancais(*pourcentage, 2) + QStringLiteral(" %"));
}

QVariant nombre(qint64 effectif)
{
    return static_cast<double>(effectif);
}

// A civil year is a number in its cell, a hydrological one a text.
QVariant intitule(const Annee &annee)
{
    bool civile = false;
    const double an = annee.intitule.toDouble(&civile);
    return civile ? QVariant(an) : QVariant(annee.intitule);
}

QString avecLimite(const QString &libelle, const std::optional<double> &limite, const QString &unite)
{
    if (!limite)
        return libelle + QStringLiteral("inexistant)");
    return libelle + nombreFrancais(*limite, DECIMALES_DES_LIMITES) + u' ' + unite + u')';
}

QString depassementMoyen(const Limites &limites, const QString &unite)
{
    return avecLimite(QStringLiteral("Fréquence de dépassement de l'objectif moyen du BV ("),
                      limites.objectifMoyen, unite);
}

QString depassementMaximum(const Limites &limites, const QString &unite)
{
    return avecLimite(QStringLiteral("Fréquence de dépassement de l'objectif maximum du BV ("),
                      limites.objectifMaximum, unite);
}
} // namespace

QString ContenuRapportPC::titre(ModeAnnee mode)
{
    return QStringLiteral("RAPPORT STATISTIQUE - Données physico-chimiques\n") +
           (mode == ModeAnnee::Hydrologique
                ? QStringLiteral("les calculs sont effectués sur l'année hydrologique")
                : QStringLiteral("les calculs sont effectués sur l'année civile"));
}

QString ContenuRapportPC::sources(const QStringList &noms)
{
    if (noms.isEmpty())
        return {};
    return QStringLiteral("Source des données utilisées : ") + noms.join(QStringLiteral(", "));
}

QStringList ContenuRapportPC::libellesPeriode(const QString &unite, const Limites &limites)
{
    const QString fin = unite + u')';
    return {QStringLiteral("Nombre de mesure(s)"),
            QStringLiteral("Moyenne (") + fin,
            QStringLiteral("Maximum observé sur la période (") + fin,
            QStringLiteral("Minimum observé sur la période (") + fin,
            depassementMoyen(limites, unite),
            depassementMaximum(limites, unite),
            QStringLiteral("Quantile 90 (") + fin,
            QStringLiteral("Quantile 10 (") + fin,
            QStringLiteral("Ecart-Type (") + fin,
            QStringLiteral("Médiane (") + fin};
}

QStringList ContenuRapportPC::libellesAnnee(const QString &unite, const Limites &limites)
{
    const QString fin = unite + u')';
    return {QStringLiteral("Nombre de mesure(s)"),
            QStringLiteral("Evolution des moyennes annuelles"),
            QStringLiteral("Quantile 90 (") + fin,
            QStringLiteral("Maximum (") + fin,
            QStringLiteral("Quantile 10 (") + fin,
            QStringLiteral("Minimum (") + fin,
            depassementMoyen(limites, unite),
            depassementMaximum(limites, unite),
            avecLimite(QStringLiteral("Fréquence de dépassement du seuil ("), limites.seuil, unite),
            QStringLiteral("Médiane (") + fin,
            QStringLiteral("Ecart-Type (") + fin,
            QStringLiteral("Moyenne pondérée annuelle (") + fin,
            QStringLiteral("Classe SEQ")};
}

QVariantList ContenuRapportPC::figuresPeriode(const StatistiquesPeriode &periode)
{
    if (periode.vide)
        return QVariantList(FIGURES_PERIODE, tiret());
    return {nombre(periode.effectif),
            arrondi(periode.moyenne),
            periode.maximum,
            tel(periode.minimum),
            frequence(periode.depassements.objectifMoyen),
            frequence(periode.depassements.objectifMaximum),
            arrondi(periode.quantile90),
            arrondi(periode.quantile10),
            arrondi(periode.ecartType),
            arrondi(periode.mediane)};
}

QVariantList ContenuRapportPC::figuresAnnee(const StatistiquesAnnee &annee)
{
    if (annee.vide)
        return QVariantList(FIGURES_ANNEE, tiret());
    return {nombre(annee.effectif),
            arrondi(annee.moyenne),
            arrondi(annee.quantile90),
            arrondi(annee.maximum),
            arrondi(annee.quantile10),
            arrondi(annee.minimum),
            frequence(annee.depassements.objectifMoyen),
            frequence(annee.depassements.objectifMaximum),
            frequence(annee.depassements.seuil),
            arrondi(annee.mediane),
            arrondi(annee.ecartType),
            arrondi(annee.moyennePonderee),
            annee.couleurClasse ? QVariant() : tiret()};
}

Valeurs ContenuRapportPC::blocs(const QList<Annee> &annees, const QList<StatistiquesAnnee> &figures,
                                const QStringList &libelles)
{
    const qsizetype nombreDeBlocs = (annees.size() + ANNEES_PAR_BLOC - 1) / ANNEES_PAR_BLOC;
    if (nombreDeBlocs == 0)
        return {};
    Valeurs valeurs(nombreDeBlocs * PAS_DES_BLOCS - 1, QVector<QVariant>(DERNIERE_COLONNE));
    for (qsizetype bloc = 0; bloc < nombreDeBlocs; ++bloc)
        for (int rang = 1; rang <= FIGURES_ANNEE; ++rang)
            valeurs[bloc * PAS_DES_BLOCS + rang][COLONNE_LIBELLES - 1] = libelles[rang - 1];
    for (qsizetype k = 0; k < annees.size(); ++k) {
        const qsizetype entete = k / ANNEES_PAR_BLOC * PAS_DES_BLOCS;
        const qsizetype colonne = COLONNE_PREMIERE_ANNEE - 1 + k % ANNEES_PAR_BLOC;
        valeurs[entete][colonne] = intitule(annees[k]);
        const QVariantList figuresDeLAnnee = figuresAnnee(figures[k]);
        for (int rang = 1; rang <= FIGURES_ANNEE; ++rang)
            valeurs[entete + rang][colonne] = figuresDeLAnnee[rang - 1];
    }
    return valeurs;
}
