#include "database/DataEnvironment1.h"

#include "database/Collation.h"
#include "database/Commandes.h"
#include "database/Schema.h"
#include "platform/Erreur.h"

#include <atomic>
#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <sqlite3.h>

struct DataEnvironment1::Etat {
    QString nom;
    QSqlDatabase base;
    QHash<QString, std::shared_ptr<Requete>> preparees;
    std::unique_ptr<Memoire> memoire;

    sqlite3 *poignee() const
    {
        const QVariant v = base.driver()->handle();
        return *static_cast<sqlite3 *const *>(v.constData());
    }
};

namespace
{
// How long a statement waits for another program that is writing.
constexpr int ATTENTE_VERROU_MS = 2000;

QString nomDeConnexion()
{
    static std::atomic<int> numero = 0;
    return QStringLiteral("Connect_Bdd_%1").arg(++numero);
}

QString sourceConnue(const QString &commande)
{
    QString sql = Commandes::source(commande);
    if (sql.isEmpty())
        throw Erreur(0, QStringLiteral("Commande inconnue : ") + commande);
    return sql;
}
} // namespace

DataEnvironment1::DataEnvironment1() = default;

DataEnvironment1::~DataEnvironment1()
{
    liberer();
}

void DataEnvironment1::ouvrir(const QString &cheminHote, bool journal)
{
    liberer();
    if (!QFile::exists(cheminHote))
        throw Erreur(SQLITE_CANTOPEN, QStringLiteral("Le fichier « %1 » n'existe pas.").arg(cheminHote));
    auto etat = std::make_unique<Etat>();
    etat->nom = nomDeConnexion();
    etat->base = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), etat->nom);
    etat->base.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(ATTENTE_VERROU_MS));
    etat->base.setDatabaseName(cheminHote);
    m_etat = std::move(etat);
    try {
        if (!m_etat->base.open()) {
            const QSqlError erreur = m_etat->base.lastError();
            throw Erreur(erreur.nativeErrorCode().toInt(), erreur.databaseText());
        }
        Collation::installer(m_etat->poignee());
        executer(QStringLiteral("PRAGMA foreign_keys = ON"));
        executer(QStringLiteral("PRAGMA cache_size = -32000"));
        m_etat->memoire = std::make_unique<Memoire>(m_etat->poignee());
        if (journal)
            activerJournal();
    } catch (...) {
        liberer();
        throw;
    }
}

void DataEnvironment1::activerJournal() const
{
    Requete mode = executer(QStringLiteral("PRAGMA journal_mode = WAL"));
    // A file system without shared memory keeps the other journal, which is safe only when it waits for the disk.
    const bool wal = mode.suivant() && mode.texte(0) == u"wal";
    mode.finir();
    executer(wal ? QStringLiteral("PRAGMA synchronous = NORMAL")
                 : QStringLiteral("PRAGMA synchronous = FULL"));
    // A row-by-row import fills the journal fast; each folding waits for the disk.
    executer(QStringLiteral("PRAGMA wal_autocheckpoint = 8000"));
}

void DataEnvironment1::creer(const QString &cheminHote)
{
    QFile fichier(cheminHote);
    if (!fichier.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw Erreur(SQLITE_CANTOPEN, fichier.errorString());
    fichier.close();
    try {
        ouvrir(cheminHote);
        Schema::creer(Connect_Bdd());
    } catch (...) {
        liberer();
        QFile::remove(cheminHote);
        throw;
    }
}

void DataEnvironment1::liberer()
{
    if (!m_etat)
        return;
    const QString nom = m_etat->nom;
    m_etat->preparees.clear();
    m_etat->memoire.reset();
    // Closing the last connection folds the journal back and removes it.
    m_etat->base.close();
    m_etat.reset();
    QSqlDatabase::removeDatabase(nom);
}

bool DataEnvironment1::estOuvert() const
{
    return m_etat && m_etat->base.isOpen();
}

const QSqlDatabase &DataEnvironment1::Connect_Bdd() const
{
    static const QSqlDatabase aucune;
    return m_etat ? m_etat->base : aucune;
}

Requete DataEnvironment1::commande(const QString &nom) const
{
    return executer(sourceConnue(nom));
}

QString DataEnvironment1::source(const QString &nom)
{
    return Commandes::source(nom);
}

Requete DataEnvironment1::executer(const QString &sql, const QVariantList &parametres) const
{
    verifierOuverte();
    return Requete(Connect_Bdd(), sql, parametres);
}

Requete &DataEnvironment1::preparee(const QString &sql) const
{
    verifierOuverte();
    std::shared_ptr<Requete> &requete = m_etat->preparees[sql];
    if (!requete) {
        try {
            requete = std::make_shared<Requete>(Connect_Bdd(), sql);
        } catch (...) {
            m_etat->preparees.remove(sql);
            throw;
        }
    }
    return *requete;
}

QVariant DataEnvironment1::valeur(const QString &sql, const QVariantList &parametres) const
{
    Requete &requete = preparee(sql);
    requete.executer(parametres);
    QVariant valeur = requete.suivant() ? requete.valeur(0) : QVariant();
    requete.finir();
    return valeur;
}

std::shared_ptr<const TableMemoire> DataEnvironment1::enMemoire(const QString &commande) const
{
    verifierOuverte();
    return m_etat->memoire->table(sourceConnue(commande));
}

void DataEnvironment1::oublierMemoire() const
{
    if (m_etat)
        m_etat->memoire->oublier();
}

qint64 DataEnvironment1::nombreLignes(const QString &commande) const
{
    verifierOuverte();
    sourceConnue(commande);
    return m_etat->memoire->table(Commandes::comptage(commande))->valeur(0, 0).toLongLong();
}

void DataEnvironment1::verifierOuverte() const
{
    if (!estOuvert())
        throw Erreur(0, QStringLiteral("Aucune base de données n'est ouverte."));
}
