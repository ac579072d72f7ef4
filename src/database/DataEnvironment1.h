// The one connection of the program and its named commands.
#pragma once

#include "database/Memoire.h"
#include "database/Requete.h"

#include <memory>
#include <QSqlDatabase>
#include <QString>

// Owns Connect_Bdd, the connection on the study's file. Screens and modules hold no connection of their own: they ask
// for a named command or run statements on Connect_Bdd. Needs a QCoreApplication.
class DataEnvironment1
{
public:
    DataEnvironment1();
    ~DataEnvironment1();
    DataEnvironment1(const DataEnvironment1 &) = delete;
    DataEnvironment1 &operator=(const DataEnvironment1 &) = delete;

    // Opens the store at this host path: foreign keys on, WAL, the connection's collations installed. An Erreur tells
    // why it cannot be. A connection that is already open is released first. Without `journal` the file keeps its own
    // journal mode, and nothing is written until a statement does: for a file that is still to be judged.
    void ouvrir(const QString &cheminHote, bool journal = true);
    // Goes over to WAL; what `ouvrir` does by itself.
    void activerJournal() const;
    // Makes a new store at this host path and opens it: every table, empty, current versions. An Erreur where a file of
    // that name is there already.
    void creer(const QString &cheminHote);
    // Closes the connection; the journal is folded back, so that the study is one file again.
    void liberer();
    bool estOuvert() const;

    const QSqlDatabase &Connect_Bdd() const;

    // Opens a named command ("Parametre", "Mesure_PC", ...): its rows from the first. An unknown name is an Erreur.
    Requete commande(const QString &nom) const;
    // The statement behind a named command.
    static QString source(const QString &nom);

    // Runs one statement on Connect_Bdd.
    Requete executer(const QString &sql, const QVariantList &parametres = {}) const;

    // A statement that is prepared once and kept as long as the connection: for loops over thousands of rows. The caller
    // runs it with executer() and ends with finir(); it must not be run again while its rows are being read.
    Requete &preparee(const QString &sql) const;
    // First column of the first row of such a statement; invalid when there is no row.
    QVariant valeur(const QString &sql, const QVariantList &parametres = {}) const;

    // The rows of a named command, kept in memory and read again when what they come from has changed.
    std::shared_ptr<const TableMemoire> enMemoire(const QString &commande) const;
    // To call after a table was altered by a statement of ours.
    void oublierMemoire() const;

    // Number of rows that a named command gives; reckoned again only when something behind it has changed.
    qint64 nombreLignes(const QString &commande) const;

private:
    void verifierOuverte() const;

    struct Etat;
    std::unique_ptr<Etat> m_etat;
};
