// The rows of one table of a conversion, written to the store.
#pragma once

#include "database/DefinitionTable.h"
#include "database/jet/ValeurMagasin.h"

#include <QSqlDatabase>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

// Adds rows to a table that stands in the store under this definition, straight through the engine's own interface: a
// study has rows by the hundred thousand.
class EcritureTable
{
public:
    // `genres` are those of the first columns of the definition, the ones that the rows fill.
    EcritureTable(const QSqlDatabase &base, DefinitionTable definition, QList<GenreMagasin> genres);
    ~EcritureTable();
    EcritureTable(const EcritureTable &) = delete;
    EcritureTable &operator=(const EcritureTable &) = delete;

    // A row that breaks a key or an obligation of the table (the file's own table may have none) makes the table lose
    // them rather than the user his row; only a number that the store gives must be there once. An Erreur otherwise.
    void ajouter(const std::vector<ValeurJet> &ligne);
    bool assouplie() const { return m_assouplie; }

private:
    void preparer();
    void lier(const std::vector<ValeurJet> &ligne);
    void assouplir();
    [[noreturn]] void echouer(int code) const;

    QSqlDatabase m_base;
    sqlite3 *m_poignee;
    sqlite3_stmt *m_instruction = nullptr;
    DefinitionTable m_definition;
    QList<GenreMagasin> m_genres;
    std::vector<QByteArray> m_tampons;
    bool m_assouplie = false;
};
