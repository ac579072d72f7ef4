// The texts of the graphs of flows and rainfall.
#pragma once

#include "analysis/DemandeHydrologie.h"

#include <QStringList>

namespace TexteHydrologie
{
inline constexpr QStringView UNITE_DEBIT = u"l/s";
inline constexpr QStringView UNITE_PLUIE = u"mm";

struct Lieux {
    QString bassin;
    QString nomStationDebit;
    QString nomStationPluie;
};

// The lines of the title box. `debit` and `pluie` say what is drawn, which may be less than what was asked for.
QStringList titre(const DemandeHydrologie &demande, const Lieux &lieux, bool debit, bool pluie);
// "janvier 2010 - décembre 2014"
QString periode(QDate debut, QDate fin);

QString titreAxeDebit();
QString titreAxePluie();
// Names of the series, with their units, as the legend shows them.
QString nomDebit(GenreDebit genre);
QString nomPluie(bool parMois);
} // namespace TexteHydrologie
