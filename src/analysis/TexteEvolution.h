// The texts of an evolution chart: title box, axis titles, names of the lines. Values only, no workbook.
#pragma once

#include "analysis/CalculEvolution.h"
#include "analysis/DemandeEvolution.h"
#include "analysis/LectureEvolution.h"

#include <optional>
#include <QString>
#include <QStringList>

namespace TexteEvolution
{
// Basin; parameters and station; river and place; period as "janvier 2010 - décembre 2014": four lines.
QString titre(const EnTeteEvolution &enTete, const DemandeEvolution &demande);

// What stands under the title of a single curve: number, extremes, mean and deviation on a line; the frequencies that
// the request wants on another; the producers on a third.
QStringList figures(const StatistiquesEvolution &figures, const QString &unite,
                    const DemandeEvolution &demande, const QStringList &sources);

// " ( mg/L ) ", " ( Débit l/s ) ", " ( Précipitations mm ) ".
QString axe(const QString &unite);
QString axeDebit();
QString axePluie();

QString uniteDebit(); // "l/s"
QString unitePluie(); // "mm"

// A series as the legend names it, with its unit: "Nitrates (mg(NO3)/L)".
QString serie(const QString &nom, const QString &unite);
// A level with its value: "Objectif moyen (25 mg(NO3)/L)".
QString niveau(const QString &nom, double valeur, const QString &unite);

// "La valeur maximale saisie est inférieure à ...": some points will be missing.
QString echelleTropPetite(double maximumTrouve);
} // namespace TexteEvolution
