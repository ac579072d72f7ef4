#include "database/InstructionDirecte.h"

#include "platform/Erreur.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QVariant>
#include <sqlite3.h>

namespace
{
sqlite3 *poignee(const QSqlDatabase &base)
{
    const QVariant v = base.driver()->handle();
    return v.isValid() ? *static_cast<sqlite3 *const *>(v.constData()) : nullptr;
}

// Binds one value. Under SQLITE_STATIC its text is not copied and must live until the statement is reset.
struct Lien {
    sqlite3_stmt *instruction;
    int position;
    sqlite3_destructor_type duree;

    int operator()(std::monostate) const { return sqlite3_bind_null(instruction, position); }
    int operator()(qint64 valeur) const { return sqlite3_bind_int64(instruction, position, valeur); }
    int operator()(double valeur) const { return sqlite3_bind_double(instruction, position, valeur); }
    int operator()(const QString &valeur) const
    {
        // A null pointer would be NULL.
        static const char16_t VIDE[] = u"";
        const void *texte = valeur.isEmpty() ? static_cast<const void *>(VIDE) : valeur.utf16();
        return sqlite3_bind_text16(instruction, position, texte,
                                   static_cast<int>(valeur.size() * qsizetype(sizeof(QChar))), duree);
    }
};
} // namespace

InstructionDirecte::InstructionDirecte(const QSqlDatabase &base, const char *sql) : m_base(poignee(base))
{
    if (!m_base)
        throw Erreur(SQLITE_MISUSE, QStringLiteral("La base n'est pas ouverte."));
    if (sqlite3_prepare_v3(m_base, sql, -1, SQLITE_PREPARE_PERSISTENT, &m_instruction, nullptr) != SQLITE_OK)
        echouer();
}

InstructionDirecte::~InstructionDirecte()
{
    sqlite3_finalize(m_instruction);
}

InstructionDirecte::Valeur InstructionDirecte::ouNul(const QString &texte)
{
    return texte.isEmpty() ? Valeur() : Valeur(texte);
}

void InstructionDirecte::lier(std::initializer_list<Valeur> valeurs, bool copier)
{
    int position = 0;
    for (const Valeur &valeur : valeurs) {
        const Lien lien{m_instruction, ++position, copier ? SQLITE_TRANSIENT : SQLITE_STATIC};
        if (std::visit(lien, valeur) != SQLITE_OK)
            echouer();
    }
}

bool InstructionDirecte::avancer(std::initializer_list<Valeur> valeurs)
{
    lier(valeurs, false);
    const int code = sqlite3_step(m_instruction);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        echouer();
    return code == SQLITE_ROW;
}

void InstructionDirecte::terminer()
{
    sqlite3_reset(m_instruction);
    sqlite3_clear_bindings(m_instruction);
}

void InstructionDirecte::echouer()
{
    const Erreur erreur(sqlite3_extended_errcode(m_base), QString::fromUtf8(sqlite3_errmsg(m_base)));
    if (m_instruction)
        terminer();
    throw erreur;
}

void InstructionDirecte::executer(std::initializer_list<Valeur> valeurs)
{
    if (avancer(valeurs))
        while (sqlite3_step(m_instruction) == SQLITE_ROW) {
        }
    terminer();
}

qint64 InstructionDirecte::premierEntier(std::initializer_list<Valeur> valeurs)
{
    const qint64 entier = avancer(valeurs) ? sqlite3_column_int64(m_instruction, 0) : 0;
    terminer();
    return entier;
}

void InstructionDirecte::lire(std::initializer_list<Valeur> valeurs)
{
    terminer();
    lier(valeurs, true);
}

bool InstructionDirecte::suivant()
{
    const int code = sqlite3_step(m_instruction);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        echouer();
    terminer();
    return false;
}

bool InstructionDirecte::estNul(int colonne) const
{
    return sqlite3_column_type(m_instruction, colonne) == SQLITE_NULL;
}

qint64 InstructionDirecte::entier(int colonne) const
{
    return sqlite3_column_int64(m_instruction, colonne);
}

double InstructionDirecte::reel(int colonne) const
{
    return sqlite3_column_double(m_instruction, colonne);
}

QByteArrayView InstructionDirecte::octets(int colonne) const
{
    const auto *debut = reinterpret_cast<const char *>(sqlite3_column_text(m_instruction, colonne));
    return {debut, debut ? sqlite3_column_bytes(m_instruction, colonne) : 0};
}

qint64 InstructionDirecte::dernierIdentifiant() const
{
    return sqlite3_last_insert_rowid(m_base);
}
