// A prepared statement without ceremony, for loops that run it tens of thousands of times.
#pragma once

#include <initializer_list>
#include <QByteArrayView>
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
    // Runs the statement for its rows, before the first of them; `suivant` moves to the next, false at the end, where the
    // statement is freed. Not while another run of it is being read.
    //
    //     for (results.lire({numPrel}); results.suivant();)
    //         numbers << results.entier(0);
    void lire(std::initializer_list<Valeur> valeurs = {});
    bool suivant();
    // Columns of the row, from 0. The bytes live until the next move only.
    bool estNul(int colonne) const;
    qint64 entier(int colonne) const; // 0 for null
    double reel(int colonne) const;   // 0 for null
    QByteArrayView octets(int colonne) const;
    QString texte(int colonne) const { return QString::fromUtf8(octets(colonne)); }
    // Frees the statement before its end.
    void finir() { terminer(); }

    // Number of the row that the connection has inserted last.
    qint64 dernierIdentifiant() const;

    // NULL for an empty text.
    static Valeur ouNul(const QString &texte);

private:
    // `copier`: the texts of the values are copied, and need not live as long as the run.
    void lier(std::initializer_list<Valeur> valeurs, bool copier);
    // True when there is a row.
    bool avancer(std::initializer_list<Valeur> valeurs);
    void terminer();
    [[noreturn]] void echouer();

    sqlite3 *m_base;
    sqlite3_stmt *m_instruction = nullptr;
};
