#include "analysis/TexteEvolution.h"

#include "platform/NombreFrancais.h"

#include <QLocale>

namespace
{
// Means, deviations and frequencies are shown with two decimals, what was measured or typed as it is.
constexpr int DECIMALES_DES_FIGURES = 2;
constexpr int DECIMALES_DE_LA_BASE = 4;

QString mois(QDate date)
{
    return QLocale(QLocale::French, QLocale::France).toString(date, QStringLiteral("MMMM yyyy"));
}

// A parameter in the title of two: organic carbon goes by its fraction, which is what tells its two curves apart.
QString nomDansUnCouple(const EnTeteRapport &courbe)
{
    return courbe.libelleFraction.isEmpty() ? courbe.parametre : courbe.libelleFraction;
}

QString mesure(const QString &libelle, double valeur, int decimales, const QString &unite)
{
    return libelle + nombreFrancais(valeur, decimales) + u' ' + unite;
}

QString frequence(const QString &libelle, const std::optional<double> &pourcentage)
{
    return libelle + nombreFrancais(pourcentage.value_or(0), DECIMALES_DES_FIGURES) + QStringLiteral(" %");
}
} // namespace

QString TexteEvolution::titre(const EnTeteEvolution &enTete, const DemandeEvolution &demande)
{
    const EnTeteRapport &premiere = enTete.courbes[0];
    const bool couple = enTete.courbes.size() > 1;
    const QString parametres =
        couple ? nomDansUnCouple(premiere) + QStringLiteral(" et ") + nomDansUnCouple(enTete.courbes[1])
               : premiere.parametre;
    return QStringLiteral("BASSIN VERSANT :  ") + premiere.bassin +
           QStringLiteral("\nEvolution des teneurs en ") + parametres +
           QStringLiteral(" à la station de mesure : ") + premiere.codeAffiche +
           (couple ? QStringLiteral("\n   Cours d'eau : ") : QStringLiteral("\nCours d'eau : ")) +
           premiere.riviere + QStringLiteral("  -  Lieu-dit : ") + premiere.station +
           QStringLiteral("\nPériode : ") + mois(demande.selection.debut) + QStringLiteral(" - ") +
           mois(demande.selection.fin);
}

QStringList TexteEvolution::figures(const StatistiquesEvolution &figures, const QString &unite,
                                    const DemandeEvolution &demande, const QStringList &sources)
{
    const QString ecart = QStringLiteral("  ");
    QStringList lignes{
        QStringLiteral("Nombre de prélèvements : ") + QString::number(figures.effectif) + ecart + u' ' +
        mesure(QStringLiteral("Maximum : "), figures.maximum, DECIMALES_DE_LA_BASE, unite) + ecart + u' ' +
        mesure(QStringLiteral("Minimum : "), figures.minimum, DECIMALES_DE_LA_BASE, unite) + ecart +
        mesure(QStringLiteral(" Valeur Moyenne : "), figures.moyenne, DECIMALES_DES_FIGURES, unite) + ecart +
        mesure(QStringLiteral(" Ecart Type : "), figures.ecartType, DECIMALES_DES_FIGURES, unite)};
    QStringList frequences;
    if (demande.objectifMoyen && demande.frequenceMoyen)
        frequences << frequence(QStringLiteral(" Fréquence de dépassement de l'objectif moyen : "),
                                figures.depassementMoyen);
    if (demande.objectifMaximal && demande.frequenceMaximal)
        frequences << frequence(QStringLiteral(" Fréquence de dépassement de l'objectif maximal : "),
                                figures.depassementMaximal);
    if (!frequences.isEmpty())
        lignes << frequences.join(ecart);
    if (!sources.isEmpty())
        lignes << QStringLiteral("Source de données : ") + sources.join(QStringLiteral(", "));
    return lignes;
}

QString TexteEvolution::axe(const QString &unite)
{
    return QStringLiteral(" ( ") + unite + QStringLiteral(" ) ");
}

QString TexteEvolution::axeDebit()
{
    return axe(QStringLiteral("Débit ") + uniteDebit());
}

QString TexteEvolution::axePluie()
{
    return axe(QStringLiteral("Précipitations ") + unitePluie());
}

QString TexteEvolution::uniteDebit()
{
    return QStringLiteral("l/s");
}

QString TexteEvolution::unitePluie()
{
    return QStringLiteral("mm");
}

QString TexteEvolution::serie(const QString &nom, const QString &unite)
{
    return nom + QStringLiteral(" (") + unite + u')';
}

QString TexteEvolution::niveau(const QString &nom, double valeur, const QString &unite)
{
    return serie(nom, nombreFrancais(valeur, DECIMALES_DE_LA_BASE) + u' ' + unite);
}

QString TexteEvolution::echelleTropPetite(double maximumTrouve)
{
    return QStringLiteral("La valeur maximale saisie est inférieure à la valeur maximale trouvée (") +
           nombreFrancais(maximumTrouve, DECIMALES_DE_LA_BASE) +
           QStringLiteral("). Il manquera probablement des points sur le graphique !");
}
