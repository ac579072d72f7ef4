// One prepared statement and its rows.
#pragma once

#include <QSqlQuery>
#include <QString>
#include <QVariant>

class QSqlDatabase;

// A statement with bound parameters; every failure is an Erreur with the engine's number and words.
//
//     Requete r(base, "SELECT NomParam FROM PARAMETRE WHERE CodeParam = ?", {"1340"});
//     while (r.suivant())
//         noms << r.texte("NomParam");
class Requete
{
public:
    // Prepares `sql`; runs it at once where parameters are given (possibly none: `{}`).
    Requete(const QSqlDatabase &base, const QString &sql);
    Requete(const QSqlDatabase &base, const QString &sql, const QVariantList &parametres);

    // Runs the prepared statement with these values for its question marks, in order. A null QVariant is NULL.
    void executer(const QVariantList &parametres);

    // Moves to the next row; false at the end.
    bool suivant();
    // Column by name (any case) or by position. An unknown name is an Erreur.
    QVariant valeur(const QString &colonne) const;
    QVariant valeur(int colonne) const;
    // The same as text; empty for null.
    QString texte(const QString &colonne) const { return valeur(colonne).toString(); }
    QString texte(int colonne) const { return valeur(colonne).toString(); }

    int lignesTouchees() const;
    QVariant dernierIdentifiant() const;
    // Frees the statement's locks; it can be run again.
    void finir();

    QSqlQuery &requete() { return m_requete; }

private:
    QSqlQuery m_requete;
};
