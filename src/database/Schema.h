// The tables of a study, as data, and the making of a new store from them.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QSqlDatabase;

// Names are kept letter for letter, accents and blank included. Dates are ISO text, times "hh:mm:ss", booleans -1 and 0.
// Only collations that every SQLite tool knows stand in the file: texts are compared without regard to the case of
// ASCII letters (NOCASE).
namespace Schema
{
enum class Genre {
    Texte,      // at most `longueur` characters; the length is declared, screens and imports enforce it
    Memo,       // text without a limit
    Entier,     // whole number
    Octet,      // whole number from 0 to 255
    Reel,       // double precision
    Simple,     // single precision by its meaning, stored as a double
    Date,       // "2009-03-01"
    DateHeure,  // "2009-03-01" or "2009-03-01 10:00:00"
    Heure,      // "10:00:00"
    OuiNon,     // -1 or 0
    NumeroAuto, // whole-number key that the store gives
};

struct Colonne {
    QString nom;
    Genre genre = Genre::Texte;
    int longueur = 0; // of a Texte
    bool cle = false; // the table's unique key
    bool nonNul = false;
    bool unique = false;
};

struct Table {
    QString nom;
    QList<Colonne> colonnes;
    // Name of the primary key's constraint; empty where the key is declared with its column.
    QString nomCle;

    // Position of a column by its name in any case, or -1.
    qsizetype position(const QString &colonne) const;
};

struct CleEtrangere {
    QString nom;
    QString table;
    QString colonne;
    QString tableCible;
    QString colonneCible;
    bool suppressionEnCascade = false; // updates cascade in all of them
};

struct Index {
    QString nom;
    QString table;
    QStringList colonnes;
    QString condition; // the rows it holds; empty: all
    // Rows of the table, then rows that share the first column, the first two, and so on, in a big study. The engine chooses
    // between indexes by it; without, it takes the results of one manager for fewer than those of one sampling.
    QString effectifs;
};

const QList<Table> &tables();
const QList<CleEtrangere> &clesEtrangeres();
const QList<Index> &index();
// A table by its name in any case, or nothing.
const Table *table(const QString &nom);

// "[Rattachement_hydro_ mesure]": a name as it stands in a statement.
QString entreCrochets(const QString &nom);
// "VARCHAR(8) COLLATE NOCASE", "DOUBLE", ...
QString typeSql(const Colonne &colonne);
QString instructionTable(const Table &table);
QString instructionIndex(const Index &index);
// The view PARAMETRE_PHYTO: the rows and columns of the command Parametre whose group is "PS", by name.
QString instructionVueParametrePhyto();

// Makes a whole new store in an empty base: tables, foreign keys, view, indexes, DbVersion "4.0.1" and VERSION "2L".
// COULEURS_GRAPH alone is left out: the opening makes and fills it (M_Couleurs::CreerCouleurs).
void creer(const QSqlDatabase &base);
// Writes the `effectifs` of the indexes into the store (its table sqlite_stat1), which `creer` does.
void ecrireEffectifs(const QSqlDatabase &base);
// Makes one table of the list with its indexes.
void creerTable(const QSqlDatabase &base, const QString &nom);

inline constexpr QStringView VERSION_DONNEES = u"4.0.1";
inline constexpr QStringView VERSION_STRUCTURE = u"2L";
} // namespace Schema
