// One prepared statement and its rows.
#pragma once

#include <QHash>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

class QSqlDatabase;

// A statement with bound parameters; every failure is an Erreur with the engine's number and words.
//
//     Requete r(base, "SELECT NomParam FROM PARAMETRE WHERE CodeParam = ?", {"1340"});
//     while (r.suivant())
//         noms << r.texte("NomParam");
//
// Values are stored as the store means them: a QDate as "2009-03-01", a QTime as "10:00:00", a QDateTime as either or
// both ("2009-03-01 10:00:00", the date alone at midnight), a bool as -1 or 0. An invalid QVariant, date or time is NULL;
// a QString is text even when it is null.
class Requete
{
public:
    // Prepares `sql`; runs it at once where parameters are given (possibly none: `{}`).
    Requete(const QSqlDatabase &base, const QString &sql);
    Requete(const QSqlDatabase &base, const QString &sql, const QVariantList &parametres);

    // Runs one statement for its effect alone; returns the number of rows that it changed.
    static int lancer(const QSqlDatabase &base, const QString &sql, const QVariantList &parametres = {});

    // Runs the prepared statement with these values for its question marks, in order.
    void executer(const QVariantList &parametres);

    // Moves to the next row; false at the end.
    bool suivant();
    // Column by name (any case) or by position. An unknown name is an Erreur; of two columns of one name, the first.
    QVariant valeur(const QString &colonne) const;
    QVariant valeur(int colonne) const;
    // The same as text; empty for null.
    QString texte(const QString &colonne) const { return valeur(colonne).toString(); }
    QString texte(int colonne) const { return valeur(colonne).toString(); }
    // A date or time of the store; invalid for null.
    QDate date(const QString &colonne) const;
    QTime heure(const QString &colonne) const;
    bool estNul(const QString &colonne) const { return valeur(colonne).isNull(); }
    // Names of the columns, in order.
    QStringList colonnes() const;

    int lignesTouchees() const;
    QVariant dernierIdentifiant() const;
    // Frees the statement's locks; it can be run again.
    void finir();

    QSqlQuery &requete() { return m_requete; }

private:
    int position(const QString &colonne) const;

    QSqlQuery m_requete;
    // Positions of the names asked for so far.
    mutable QHash<QString, int> m_positions;
};
