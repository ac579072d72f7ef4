// The sheet on which the series of a station is shown.
#pragma once

#include <QString>

class Feuille;
class TableTravail;

struct EnTeteSerie {
    QString titre;       // "LISTE DES MESURES PLUVIOMETRIQUES"
    QString libelleCode; // "Station pluviométrique:"
    QString code;
    QString libelleNom; // "Nom :"; empty: neither this nor the name is written
    QString nom;
    QString formatDates; // of the first column: "dd/mm/yyyy", "m/d/yy"
};

// Heading in rows 1 and 3, the captions of the grid's columns in row 5, its rows from row 6. Dates and numbers are values,
// codes and names stay text whatever they look like.
void ecrireSerie(Feuille &feuille, const EnTeteSerie &enTete, const TableTravail &lignes);
