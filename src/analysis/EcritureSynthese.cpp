#include "analysis/EcritureSynthese.h"

#include "analysis/DispositionSynthese.h"
#include "analysis/ListesSelection.h"
#include "platform/NombreFrancais.h"
#include "platform/Saisie.h"
#include "workbook/Feuille.h"

#include <QRegularExpression>

using namespace DispositionSynthese;

namespace
{
constexpr int DECIMALES_DES_FIGURES = 2;
constexpr int DECIMALES_DE_LA_BASE = 4;

QString tiret()
{
    return QStringLiteral("-");
}

QString ouTiret(const QString &texte)
{
    return texte.isEmpty() ? tiret() : texte;
}

QString choisis(const QStringList &noms)
{
    return noms.isEmpty() ? QStringLiteral("Tous") : noms.join(QStringLiteral(", "));
}

QString mesure(const std::optional<double> &valeur, int decimales, const QString &unite)
{
    return valeur ? nombreFrancais(*valeur, decimales) + u' ' + unite : tiret();
}

// "12,5 % (objectif : 25 mg/L)"
QString depassement(const std::optional<double> &pourcentage, const std::optional<double> &objectif,
                    const QString &unite)
{
    if (!pourcentage || !objectif)
        return tiret();
    return nombreFrancais(*pourcentage, DECIMALES_DES_FIGURES) + QStringLiteral(" % (objectif : ") +
           nombreFrancais(*objectif, DECIMALES_DE_LA_BASE) + u' ' + unite + u')';
}

QStringList commentaires(QStringList choix)
{
    choix.replaceInStrings(QRegularExpression(QStringLiteral("^$")),
                           QString::fromUtf16(ListesSelection::COMMENTAIRE_VIDE));
    return choix;
}
} // namespace

Valeurs valeursSynthese(const DemandeEvolution &demande, const Evolution &evolution)
{
    const EnTeteRapport &enTete = evolution.enTete.courbes[0];
    const StatistiquesEvolution &figures = *evolution.figures;
    const DemandeRapport &selection = demande.selection;
    const QString &unite = enTete.unite;
    Valeurs valeurs(NORME - BASSIN + 1, QVector<QVariant>(1));
    const auto mettre = [&valeurs](int ligne, const QString &texte) { valeurs[ligne - BASSIN][0] = texte; };
    mettre(BASSIN, ouTiret(enTete.bassin));
    mettre(STATION, enTete.codeAffiche);
    mettre(RIVIERE, ouTiret(enTete.riviere));
    mettre(LIEU, ouTiret(enTete.station));
    mettre(PARAMETRE, enTete.parametre + QStringLiteral(" (") + unite + u')');
    mettre(PERIODE, QStringLiteral("du ") + Saisie::ecrireDate(selection.debut) + QStringLiteral(" au ") +
                        Saisie::ecrireDate(selection.fin));
    mettre(SOURCES, ouTiret(evolution.sources.join(QStringLiteral(", "))));

    mettre(LIGNE_SELECTION, {}); // the template's heading is in the first column
    mettre(GESTIONNAIRES, choisis(demande.nomsGestionnaires));
    mettre(RESEAUX, choisis(demande.nomsReseaux));
    mettre(COMMENTAIRES, choisis(commentaires(selection.commentaires)));
    mettre(PROTOCOLE, selection.protocole.isEmpty() ? QStringLiteral("Tous") : selection.protocole);

    mettre(EFFECTIF, QString::number(figures.effectif));
    mettre(MAXIMUM, mesure(figures.maximum, DECIMALES_DE_LA_BASE, unite));
    mettre(MINIMUM, mesure(figures.minimum, DECIMALES_DE_LA_BASE, unite));
    mettre(MOYENNE, mesure(figures.moyenne, DECIMALES_DES_FIGURES, unite));
    mettre(ECART_TYPE, mesure(figures.ecartType, DECIMALES_DES_FIGURES, unite));
    mettre(MEDIANE, mesure(figures.mediane, DECIMALES_DES_FIGURES, unite));
    mettre(QUANTILE90, mesure(figures.quantile90, DECIMALES_DES_FIGURES, unite));
    mettre(DEPASSEMENT_MOYEN, depassement(figures.depassementMoyen, demande.objectifMoyen, unite));
    mettre(DEPASSEMENT_MAXIMAL, depassement(figures.depassementMaximal, demande.objectifMaximal, unite));
    mettre(NORME, mesure(evolution.enTete.norme, DECIMALES_DE_LA_BASE, unite));
    return valeurs;
}

void ecrireSynthese(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution)
{
    feuille.plage(BASSIN, COLONNE_VALEURS, NORME, COLONNE_VALEURS)
        .ecrire(valeursSynthese(demande, evolution));
}
