// The stream of a reading process, taken apart record by record; it believes nothing (see Protocole.h).
#pragma once

#include "database/jet/LecteurJet.h"

#include <functional>
#include <QByteArray>
#include <vector>

// Reads one record after another from a source of bytes. A stream that breaks the protocol is an Erreur.
class FluxJet
{
public:
    // Gives the next bytes; empty at the end of the stream.
    using Source = std::function<QByteArray()>;
    // `tailleFichier` bounds what a stream may hold: a damaged file can make a small one endless.
    FluxJet(Source source, qint64 tailleFichier);

    void lireStructure();
    void lireLignes(const LecteurJet::Recevoir &recevoir);

    int generation = 0;
    std::optional<QString> accessVersion;
    QList<TableJet> tables;
    QList<RelationJet> relations;

private:
    struct Curseur;

    ProtocoleJet::Genre suivant();
    Curseur corps() const;
    [[noreturn]] void echec() const;
    void lireTable();
    void lireRelation(const TableJet &systeme);
    // Takes a Ligne apart into m_ligne.
    void lireLigne(const TableJet &table);
    // Reads the rows of a table up to its FinTable.
    void lireTableEntiere(const TableJet &table, const std::function<void()> &ligne);

    Source m_source;
    qint64 m_reste;
    QByteArray m_tampon;
    qsizetype m_debutCorps = 0;
    qsizetype m_tailleCorps = 0;
    qsizetype m_fin = 0; // of what m_tampon holds and is consumed
    std::vector<ValeurJet> m_ligne;
};
