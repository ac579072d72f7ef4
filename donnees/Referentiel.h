// The reference content that every new base holds.
#pragma once

#include <QString>

class QSqlDatabase;

// Loads the tables of donnees/referentiel into an empty store: fractions, units, parameters and their units, SEQ-Eau
// grids, drinking-water norms, departments, and the default palette of the charts (so that the first opening of the
// base has nothing to add and needs no spreadsheet).
void chargerReferentiel(const QSqlDatabase &base, const QString &dossier);
