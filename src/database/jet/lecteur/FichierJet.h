// A Jet file as libmdb reads it; plain C++, only in the reading process.
#pragma once

#include "database/jet/lecteur/Sortie.h"
#include "database/jet/Protocole.h"

#include <exception>
#include <memory>
#include <string>
#include <vector>

// A damaged file: ends as a record Echec.
class EchecLecture : public std::exception
{
public:
    EchecLecture(ProtocoleJet::Motif motif, std::string table) : m_motif(motif), m_table(std::move(table)) {}
    ProtocoleJet::Motif motif() const { return m_motif; }
    const std::string &table() const { return m_table; }

private:
    ProtocoleJet::Motif m_motif;
    std::string m_table;
};

// Opens a file and tells its structure and rows, checking what libmdb does not: that each value lies inside its row,
// that a long text has its announced length, and that a table has its announced number of rows.
class FichierJet
{
public:
    explicit FichierJet(const char *chemin);
    ~FichierJet();
    FichierJet(const FichierJet &) = delete;
    FichierJet &operator=(const FichierJet &) = delete;

    // Entete, the Table records, FinStructure.
    void ecrireStructure(Sortie &sortie);
    // The rows of every table, then Fin. Stops early where nobody reads any more.
    void ecrireLignes(Sortie &sortie);

private:
    struct Interne;
    std::unique_ptr<Interne> m_interne;
};
