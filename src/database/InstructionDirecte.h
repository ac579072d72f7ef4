// A prepared statement without ceremony, for loops that run it tens of thousands of times.
#pragma once

#include <initializer_list>
#include <QString>
#include <variant>

class QSqlDatabase;
struct sqlite3;
struct sqlite3_stmt;

// Where Requete goes through Qt's driver, this one talks to the engine: a run costs a third. Values are as the store means
// them (ISO dates, "hh:mm:ss"). Every failure is an Erreur with the engine's number and words.
//
//     InstructionDirecte ajouter(base, "INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) VALUES (?, ?)");
//     ajouter.executer({numPrel, reseau});
class InstructionDirecte
{
public:
    // std::monostate is NULL.
    using Valeur = std::variant<std::monostate, qint64, double, QString>;

    InstructionDirecte(const QSqlDatabase &base, const char *sql);
    ~InstructionDirecte();
    InstructionDirecte(const InstructionDirecte &) = delete;
    InstructionDirecte &operator=(const InstructionDirecte &) = delete;

    // Runs the statement to its end.
    void executer(std::initializer_list<Valeur> valeurs = {});
    // The first column of its first row, as a number; 0 when there is no row or it is null.
    qint64 premierEntier(std::initializer_list<Valeur> valeurs);
    // Number of the row that the connection has inserted last.
    qint64 dernierIdentifiant() const;

    // NULL for an empty text.
    static Valeur ouNul(const QString &texte);

private:
    // True when there is a row.
    bool avancer(std::initializer_list<Valeur> valeurs);
    void terminer();
    [[noreturn]] void echouer();

    sqlite3 *m_base;
    sqlite3_stmt *m_instruction = nullptr;
};
