// What the cells of the statistics report hold: labels, rounded figures, dashes. Values only, no workbook.
#pragma once

#include "analysis/Annees.h"
#include "analysis/StatistiquesPC.h"
#include "workbook/Plage.h"

#include <QString>
#include <QStringList>

namespace ContenuRapportPC
{
// Title, a line feed, and the kind of year.
QString titre(ModeAnnee mode);
// "Source des données utilisées : " and the names; empty without a name.
QString sources(const QStringList &noms);

// Labels of the interannual figures (10).
QStringList libellesPeriode(const QString &unite, const Limites &limites);
// Labels of a yearly block's figures (13).
QStringList libellesAnnee(const QString &unite, const Limites &limites);

// The ten interannual figures, from the count down.
QVariantList figuresPeriode(const StatistiquesPeriode &periode);
// The thirteen figures of a year, from the count down. A year with a class leaves the last one empty: it gets a fill.
QVariantList figuresAnnee(const StatistiquesAnnee &annee);

// All yearly blocks as one rectangle, from the first block's header row down: labels, headings and figures, with the
// blank rows between the blocks. Six columns.
Valeurs blocs(const QList<Annee> &annees, const QList<StatistiquesAnnee> &figures,
              const QStringList &libelles);
} // namespace ContenuRapportPC
