// The definition of a table of the store as data: read, changed, and the table made anew from it.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QSqlDatabase;

// The store's engine cannot change a column's type or a constraint in place; a table is copied into a new one of the
// same name. What is kept: columns with their types, collations, defaults and obligations, primary key, unique
// constraints, foreign keys, indexes, triggers and every row, in order. Names of tables and columns are
// compared without regard to case.
struct DefinitionTable {
    struct Colonne {
        QString nom;
        QString type;      // "VARCHAR(8)", as declared
        QString collation; // "NOCASE"; empty for the engine's own
        bool nonNulle = false;
        QString defaut; // as it stands in SQL; empty for none
    };
    struct CleEtrangere {
        QString nom; // empty where the constraint has none
        QStringList colonnes;
        QString tableCible;
        QStringList colonnesCible;
        bool majEnCascade = false;
        bool suppressionEnCascade = false;
    };

    QString nom;
    QList<Colonne> colonnes;
    QString nomCle;
    QStringList cle;
    QList<QStringList> uniques;
    QList<CleEtrangere> clesEtrangeres;

    // The table of the store; an Erreur where it is not there.
    static DefinitionTable lire(const QSqlDatabase &base, const QString &table);

    qsizetype position(const QString &colonne) const;
    // Takes the foreign key of this name away, or one of the same column and table where the name got lost.
    void retirerCleEtrangere(const CleEtrangere &retiree);
    // "CREATE TABLE ..." under that name.
    QString instruction(const QString &sousLeNom) const;
    QString instruction() const { return instruction(nom); }

    // Makes the store's table of this name the one described here, with its rows: columns found in both keep their
    // values, as their new type means them. All or nothing. Inside a transaction only under ReglagesStructure.
    void reconstruire(const QSqlDatabase &base) const;
};

namespace Structure
{
// A name as it stands in a statement, whatever its characters.
QString citer(const QString &nom);
// Names of the tables, in alphabetical order.
QStringList tables(const QSqlDatabase &base);
bool tableExiste(const QSqlDatabase &base, const QString &table);
bool vueExiste(const QSqlDatabase &base, const QString &vue);
// Names of the columns of a table, in order; none for a table that is not there.
QStringList colonnes(const QSqlDatabase &base, const QString &table);
bool colonneExiste(const QSqlDatabase &base, const QString &table, const QString &colonne);
// Whether the column alone is a key or a unique index of its table, so that a foreign key can refer to it.
bool estUnique(const QSqlDatabase &base, const QString &table, const QString &colonne);
// Statements that make the indexes in which the column stands (of the whole table where it is empty); keys excepted.
struct Index {
    QString nom;
    QString instruction;
};
QList<Index> index(const QSqlDatabase &base, const QString &table, const QString &colonne = {});
} // namespace Structure
