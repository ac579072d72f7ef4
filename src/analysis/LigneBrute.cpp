#include "analysis/LigneBrute.h"

#include "platform/Saisie.h"

#include <QLocale>

namespace
{
QString ecrireEntier(double nombre)
{
    // Every digit that the stored number has, and no more; an exponent only where it would take a line of zeros.
    constexpr double GRAND = 1e15;
    constexpr double PETIT = 1e-6;
    const double taille = qAbs(nombre);
    const bool courant = taille == 0 || (taille < GRAND && taille >= PETIT);
    return QString::number(nombre, courant ? 'f' : 'g', QLocale::FloatingPointShortest).replace(u'.', u',');
}

QVariant ouRien(const QString &texte)
{
    return texte.isEmpty() ? QVariant() : QVariant(texte);
}
} // namespace

QVariant LigneBrute::valeur(ColonneBrute colonne) const
{
    switch (colonne) {
    case ColonneBrute::CodeStation:
        return ouRien(codeStation);
    case ColonneBrute::Station:
        return ouRien(station);
    case ColonneBrute::Date:
        return date.isValid() ? QVariant(date) : QVariant();
    case ColonneBrute::Heure:
        return heure.isValid() ? QVariant(heure) : QVariant();
    case ColonneBrute::CodeParametre:
        return ouRien(codeParametre);
    case ColonneBrute::Parametre:
        return ouRien(parametre);
    case ColonneBrute::Resultat:
        return resultat ? QVariant(*resultat) : QVariant();
    case ColonneBrute::Unite:
        return ouRien(unite);
    case ColonneBrute::Remarque:
        return ouRien(remarque);
    case ColonneBrute::Fraction:
        return ouRien(fraction);
    case ColonneBrute::Gestionnaire:
        return ouRien(gestionnaire);
    case ColonneBrute::Laboratoire:
        return ouRien(laboratoire);
    case ColonneBrute::Preleveur:
        return ouRien(preleveur);
    case ColonneBrute::Reseaux:
        return ouRien(reseaux);
    }
    return {};
}

QString LigneBrute::texte(ColonneBrute colonne) const
{
    switch (colonne) {
    case ColonneBrute::Date:
        return Saisie::ecrireDate(date);
    case ColonneBrute::Heure:
        return heure.isValid() ? heure.toString(heure.second() == 0 ? QStringLiteral("hh:mm")
                                                                    : QStringLiteral("hh:mm:ss"))
                               : QString();
    case ColonneBrute::Resultat:
        if (!presente)
            return QStringLiteral("supprimé");
        return resultat ? ecrireEntier(*resultat) : QString();
    default:
        return valeur(colonne).toString();
    }
}

namespace
{
struct Description {
    const char *titre;
    const char *explication;
    int largeur; // characters
};

const Description &description(ColonneBrute colonne)
{
    static constexpr Description DESCRIPTIONS[NOMBRE_COLONNES_BRUTES] = {
        {"Code station", "Code national de la station de mesure", 9},
        {"Station", "Nom de la station de mesure", 24},
        {"Date", "Date du prélèvement", 10},
        {"Heure", "Heure du prélèvement", 5},
        {"Code par.", "Code national du paramètre", 6},
        {"Paramètre", "", 24},
        {"Résultat", "Valeur enregistrée, dans l'unité de référence du paramètre", 9},
        {"Unité", "Unité de référence du paramètre", 10},
        {"Rem.", "Code remarque de l'analyse", 3},
        {"Fraction", "Fraction analysée", 12},
        {"Gestionnaire", "Gestionnaire de l'analyse", 24},
        {"Laboratoire", "", 24},
        {"Préleveur", "", 24},
        {"Réseaux", "Réseaux de mesure du prélèvement", 30},
    };
    return DESCRIPTIONS[static_cast<int>(colonne)];
}
} // namespace

QString ColonnesBrutes::titre(ColonneBrute colonne)
{
    return QString::fromUtf8(description(colonne).titre);
}

QString ColonnesBrutes::explication(ColonneBrute colonne)
{
    return QString::fromUtf8(description(colonne).explication);
}

int ColonnesBrutes::largeur(ColonneBrute colonne)
{
    return description(colonne).largeur;
}

bool ColonnesBrutes::aDroite(ColonneBrute colonne)
{
    return colonne == ColonneBrute::Resultat;
}

QString ColonnesBrutes::sensRemarque(const QString &code)
{
    if (code == QLatin1String("0"))
        return QStringLiteral("Analyse sans résultat");
    if (code == QLatin1String("1"))
        return QStringLiteral("Résultat dans le domaine de mesure");
    if (code == QLatin1String("2"))
        return QStringLiteral("Résultat inférieur au seuil de détection");
    if (code == QLatin1String("3"))
        return QStringLiteral("Résultat supérieur au seuil de saturation");
    if (code == QLatin1String("10"))
        return QStringLiteral("Résultat inférieur au seuil de quantification");
    return {};
}

QList<ColonneBrute> ColonnesBrutes::toutes()
{
    QList<ColonneBrute> colonnes;
    for (int i = 0; i < NOMBRE_COLONNES_BRUTES; ++i)
        colonnes << static_cast<ColonneBrute>(i);
    return colonnes;
}

QString nombreEntierFrancais(qint64 nombre)
{
    QString texte = QString::number(nombre);
    constexpr int GROUPE = 3;
    const qsizetype premier = nombre < 0 ? 1 : 0;
    for (qsizetype i = texte.size() - GROUPE; i > premier; i -= GROUPE)
        texte.insert(i, QChar(QChar::Nbsp));
    return texte;
}
