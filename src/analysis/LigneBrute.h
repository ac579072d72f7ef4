// One row of the raw data, as it is shown, copied and exported. Pure.
#pragma once

#include "analysis/DemandeDonneesBrutes.h"

#include <optional>
#include <QTime>
#include <QVariant>

struct LigneBrute {
    QString codeStation;
    QString station;
    QDate date;
    QTime heure;
    QString codeParametre;
    QString parametre;
    std::optional<double> resultat; // as stored, in the parameter's reference unit
    QString unite;
    QString remarque; // code
    QString fraction;
    QString gestionnaire;
    QString laboratoire;
    QString preleveur;
    QString reseaux; // labels joined by " | "
    // False where the result has been deleted since the set was read.
    bool presente = true;

    // A double, a QDate, a QTime or a QString; invalid where there is nothing.
    QVariant valeur(ColonneBrute colonne) const;
    // "01/03/2009", "10:30", "0,05": as shown; a number with all its digits.
    QString texte(ColonneBrute colonne) const;
};

namespace ColonnesBrutes
{
QString titre(ColonneBrute colonne);
// What the column holds, in a sentence, where its title is short of it; else empty.
QString explication(ColonneBrute colonne);
// A usual width, in characters.
int largeur(ColonneBrute colonne);
bool aDroite(ColonneBrute colonne);
// What a remark code means; empty for an unknown one.
QString sensRemarque(const QString &code);
// All columns, in order.
QList<ColonneBrute> toutes();
} // namespace ColonnesBrutes

// "1 000 000": groups of three digits, with no-break spaces.
QString nombreEntierFrancais(qint64 nombre);
