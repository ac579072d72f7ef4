// Named commands read once and kept in memory, for lookups that come by the thousand.
#pragma once

#include <memory>
#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

struct sqlite3;
struct sqlite3_stmt;

// The rows of a command, in its order.
class TableMemoire
{
public:
    TableMemoire(QStringList colonnes, QList<QVariantList> lignes);

    qsizetype nombreLignes() const { return m_lignes.size(); }
    QVariant valeur(qsizetype ligne, const QString &colonne) const;
    QVariant valeur(qsizetype ligne, int colonne) const { return m_lignes[ligne][colonne]; }
    QString texte(qsizetype ligne, const QString &colonne) const { return valeur(ligne, colonne).toString(); }

    // Rows whose column equals this value, whatever the case of its letters (É = é), in order.
    const QList<qsizetype> &toutes(const QString &colonne, const QString &valeur) const;
    // The first of them, or -1.
    qsizetype premiere(const QString &colonne, const QString &valeur) const;

private:
    qsizetype position(const QString &colonne) const;

    QStringList m_colonnes;
    QList<QVariantList> m_lignes;
    // For each column searched so far: folded value to rows.
    mutable QHash<qsizetype, QHash<QString, QList<qsizetype>>> m_index;
};

// Keeps such tables for one connection, and reads one again when a table behind it has changed. Changes of this connection
// are told by the engine table by table, so that an import does not make it reread the reference tables. Those of other
// connections are told by "PRAGMA data_version", which costs more than a search: it is asked at once after a change by
// another DataEnvironment1 of this program, and every 20 ms for the sake of other programs.
class Memoire
{
public:
    explicit Memoire(sqlite3 *base);
    ~Memoire();
    Memoire(const Memoire &) = delete;
    Memoire &operator=(const Memoire &) = delete;

    std::shared_ptr<const TableMemoire> table(const QString &sql);
    // Everything is read again at its next use (a table was altered).
    void oublier() { ++m_generation; }

private:
    struct Entree {
        std::shared_ptr<const TableMemoire> table;
        QList<QByteArray> tables; // what the statement reads, in small letters
        quint64 generation = 0;
        quint64 changements = 0;
    };

    void annoncer(const char *table);
    void voirLesChangements();
    // Whether one of these tables has changes that may still be undone.
    bool enSuspens(const QList<QByteArray> &tables) const;
    // Whether another connection has written since the last time.
    bool autreConnexionAEcrit();
    quint64 changements(const QList<QByteArray> &tables) const;
    Entree lire(const QString &sql) const;

    sqlite3 *m_base;
    sqlite3_stmt *m_versionDonnees = nullptr;
    qint64 m_derniereVersion = -1;
    QElapsedTimer m_derniereDemande;
    quint64 m_miens = 0;      // changed rows that this connection has announced, ever
    quint64 m_autresVus = 0;  // those of the program's other connections at the last demand
    qint64 m_totalVu = 0;     // the engine's count of changed rows
    qint64 m_annonces = 0;    // changed rows that the engine has announced since
    quint64 m_generation = 0; // moves when anything may have changed
    QHash<QByteArray, quint64> m_parTable;
    QSet<QByteArray> m_enSuspens; // tables changed since the last commit
    QHash<QString, Entree> m_entrees;
};
