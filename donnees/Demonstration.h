// The demonstration study: an invented basin, eleven years of it.
#pragma once

#include <QString>

class QSqlDatabase;

// Fills a store that holds the reference content with the study that the tables of `dossier` (donnees/etude) describe:
// its basin, stations, actors, networks, objectives, flows, rain, samplings and results.
void remplirDemonstration(const QSqlDatabase &base, const QString &dossier);
