// The one connection of the program and its named commands.
#pragma once

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
    // why it cannot be. A connection that is already open is released first.
    void ouvrir(const QString &cheminHote);
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

private:
    struct Etat;
    std::unique_ptr<Etat> m_etat;
};
