// What the sampling screens offer: stations, dates and times of samplings, parameters, actors, networks.
#pragma once

#include "capture/LignePrelevement.h"
#include "capture/ReglesPrelevement.h"
#include "platform/Choix.h"

class DataEnvironment1;

namespace ListesPrelevement
{
// "<> 'PS'" or "= 'PS'", to be compared with CodeGroupeParam.
QString condition(FamillePrelevement famille);

// Stations in the order of their codes, each once.
QList<StationProposee> stations(const DataEnvironment1 &donnees);
// Days on which the station has results of the family, newest first.
QList<QDate> dates(const DataEnvironment1 &donnees, FamillePrelevement famille, const QString &station);
// Times of these samplings on that day, "hh:mm:ss", in order; samplings without a time are left out.
QStringList heures(const DataEnvironment1 &donnees, FamillePrelevement famille, const QString &station,
                   QDate date);

// Names, in the order of the commands.
QStringList parametres(const DataEnvironment1 &donnees, FamillePrelevement famille);
QStringList intervenants(const DataEnvironment1 &donnees);
QStringList reseaux(const DataEnvironment1 &donnees);

// A parameter of the family by its name.
struct Parametre {
    QString code;
    QString unite; // SymboleUnite
    bool environnemental = false;
};
std::optional<Parametre> parametre(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                   const QString &nom);

// The reference tables as the rules ask for them. `donnees` outlives them.
ReglesPrelevement::References references(const DataEnvironment1 &donnees, FamillePrelevement famille);
} // namespace ListesPrelevement
