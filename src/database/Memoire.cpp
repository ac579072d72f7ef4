#include "database/Memoire.h"

#include "database/Collation.h"
#include "platform/Erreur.h"

#include <sqlite3.h>
#include <utility>

namespace
{
constexpr qint64 DELAI_DEMANDE_MS = 20;

// Changed rows announced to every Memoire of this program. All of them live in the main thread.
quint64 changementsDuProgramme = 0;

[[noreturn]] void echouer(sqlite3 *base)
{
    throw Erreur(sqlite3_extended_errcode(base), QString::fromUtf8(sqlite3_errmsg(base)));
}

// A statement that is finalized on every way out.
class Instruction
{
public:
    Instruction(sqlite3 *base, const QString &sql) : m_base(base)
    {
        const QByteArray utf8 = sql.toUtf8();
        if (sqlite3_prepare_v2(base, utf8.constData(), static_cast<int>(utf8.size()), &m_instruction,
                               nullptr) != SQLITE_OK)
            echouer(base);
    }
    ~Instruction() { sqlite3_finalize(m_instruction); }
    Instruction(const Instruction &) = delete;
    Instruction &operator=(const Instruction &) = delete;

    bool suivant()
    {
        const int code = sqlite3_step(m_instruction);
        if (code != SQLITE_ROW && code != SQLITE_DONE)
            echouer(m_base);
        return code == SQLITE_ROW;
    }
    int colonnes() const { return sqlite3_column_count(m_instruction); }
    QString nom(int colonne) const { return QString::fromUtf8(sqlite3_column_name(m_instruction, colonne)); }
    QVariant valeur(int colonne) const
    {
        switch (sqlite3_column_type(m_instruction, colonne)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return static_cast<qlonglong>(sqlite3_column_int64(m_instruction, colonne));
        case SQLITE_FLOAT:
            return sqlite3_column_double(m_instruction, colonne);
        default:
            return QString::fromUtf8(
                reinterpret_cast<const char *>(sqlite3_column_text(m_instruction, colonne)),
                sqlite3_column_bytes(m_instruction, colonne));
        }
    }

private:
    sqlite3 *m_base;
    sqlite3_stmt *m_instruction = nullptr;
};
} // namespace

TableMemoire::TableMemoire(QStringList colonnes, QList<QVariantList> lignes)
    : m_colonnes(std::move(colonnes)), m_lignes(std::move(lignes))
{
}

qsizetype TableMemoire::position(const QString &colonne) const
{
    for (qsizetype i = 0; i < m_colonnes.size(); ++i)
        if (m_colonnes[i].compare(colonne, Qt::CaseInsensitive) == 0)
            return i;
    throw Erreur(0, QStringLiteral("Colonne inconnue : ") + colonne);
}

QVariant TableMemoire::valeur(qsizetype ligne, const QString &colonne) const
{
    return m_lignes[ligne][position(colonne)];
}

const QList<qsizetype> &TableMemoire::toutes(const QString &colonne, const QString &valeur) const
{
    static const QList<qsizetype> aucune;
    const qsizetype p = position(colonne);
    auto index = m_index.find(p);
    if (index == m_index.end()) {
        index = m_index.insert(p, {});
        index->reserve(m_lignes.size());
        for (qsizetype i = 0; i < m_lignes.size(); ++i)
            if (!m_lignes[i][p].isNull())
                (*index)[Collation::pliee(m_lignes[i][p].toString())].append(i);
    }
    const auto trouvees = index->constFind(Collation::pliee(valeur));
    return trouvees == index->constEnd() ? aucune : *trouvees;
}

qsizetype TableMemoire::premiere(const QString &colonne, const QString &valeur) const
{
    const QList<qsizetype> &lignes = toutes(colonne, valeur);
    return lignes.isEmpty() ? -1 : lignes.first();
}

Memoire::Memoire(sqlite3 *base)
    : m_base(base), m_autresVus(changementsDuProgramme), m_totalVu(sqlite3_total_changes64(base))
{
    if (sqlite3_prepare_v3(base, "PRAGMA data_version", -1, SQLITE_PREPARE_PERSISTENT, &m_versionDonnees,
                           nullptr) != SQLITE_OK)
        echouer(base);
    sqlite3_update_hook(
        base,
        [](void *moi, int, const char *, const char *table, sqlite3_int64) {
            static_cast<Memoire *>(moi)->annoncer(table);
        },
        this);
    sqlite3_commit_hook(
        base,
        [](void *moi) {
            static_cast<Memoire *>(moi)->m_enSuspens.clear();
            return 0;
        },
        this);
    sqlite3_rollback_hook(
        base,
        [](void *moi) {
            static_cast<Memoire *>(moi)->m_enSuspens.clear();
            static_cast<Memoire *>(moi)->oublier();
        },
        this);
}

Memoire::~Memoire()
{
    sqlite3_update_hook(m_base, nullptr, nullptr);
    sqlite3_commit_hook(m_base, nullptr, nullptr);
    sqlite3_rollback_hook(m_base, nullptr, nullptr);
    sqlite3_finalize(m_versionDonnees);
}

void Memoire::annoncer(const char *table)
{
    const QByteArray nom = QByteArray(table).toLower();
    ++m_parTable[nom];
    m_enSuspens.insert(nom);
    ++m_annonces;
    ++m_miens;
    ++changementsDuProgramme;
}

bool Memoire::enSuspens(const QList<QByteArray> &tables) const
{
    return std::any_of(tables.begin(), tables.end(),
                       [this](const QByteArray &t) { return m_enSuspens.contains(t); });
}

bool Memoire::autreConnexionAEcrit()
{
    const quint64 autres = changementsDuProgramme - m_miens;
    if (autres == m_autresVus && m_derniereDemande.isValid() &&
        m_derniereDemande.elapsed() < DELAI_DEMANDE_MS)
        return false;
    m_autresVus = autres;
    m_derniereDemande.start();
    const int code = sqlite3_step(m_versionDonnees);
    const qint64 version = code == SQLITE_ROW ? sqlite3_column_int64(m_versionDonnees, 0) : -1;
    sqlite3_reset(m_versionDonnees);
    return std::exchange(m_derniereVersion, version) != version || version < 0;
}

void Memoire::voirLesChangements()
{
    const qint64 total = sqlite3_total_changes64(m_base);
    // A whole table emptied at once is counted, but not announced row by row.
    if (total - m_totalVu != m_annonces)
        oublier();
    if (autreConnexionAEcrit())
        oublier();
    m_totalVu = total;
    m_annonces = 0;
}

quint64 Memoire::changements(const QList<QByteArray> &tables) const
{
    quint64 somme = 0;
    for (const QByteArray &t : tables)
        somme += m_parTable.value(t);
    return somme;
}

std::shared_ptr<const TableMemoire> Memoire::table(const QString &sql)
{
    voirLesChangements();
    const auto connue = m_entrees.constFind(sql);
    if (connue != m_entrees.constEnd() && connue->generation == m_generation &&
        connue->changements == changements(connue->tables))
        return connue->table;
    Entree entree = lire(sql);
    // What is read amid a transaction may be undone without a word (to a savepoint): it is not kept.
    if (enSuspens(entree.tables))
        return entree.table;
    m_entrees.insert(sql, entree);
    return entree.table;
}

Memoire::Entree Memoire::lire(const QString &sql) const
{
    Entree entree;
    entree.generation = m_generation;
    // The engine tells the tables that a statement reads, behind views too, while it prepares it.
    sqlite3_set_authorizer(
        m_base,
        [](void *liste, int action, const char *table, const char *, const char *, const char *) {
            auto *tables = static_cast<QList<QByteArray> *>(liste);
            const QByteArray nom = QByteArray(table).toLower();
            if (action == SQLITE_READ && !tables->contains(nom))
                tables->append(nom);
            return SQLITE_OK;
        },
        &entree.tables);
    const auto finir = qScopeGuard([this] { sqlite3_set_authorizer(m_base, nullptr, nullptr); });
    Instruction instruction(m_base, sql);
    QStringList colonnes;
    for (int i = 0; i < instruction.colonnes(); ++i)
        colonnes << instruction.nom(i);
    QList<QVariantList> lignes;
    while (instruction.suivant()) {
        QVariantList ligne;
        ligne.reserve(colonnes.size());
        for (int i = 0; i < colonnes.size(); ++i)
            ligne << instruction.valeur(i);
        lignes << ligne;
    }
    entree.changements = changements(entree.tables);
    entree.table = std::make_shared<const TableMemoire>(std::move(colonnes), std::move(lignes));
    return entree;
}
