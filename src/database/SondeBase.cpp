#include "database/SondeBase.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <sqlite3.h>

namespace
{
constexpr int ATTENTE_VERROU_MS = 1000;
// https://www.sqlite.org/fileformat2.html, section 1.3
constexpr qsizetype TAILLE_ENTETE = 100;
constexpr char SIGNE_SQLITE[] = "SQLite format 3"; // with its NUL
// A Jet file begins with 00 01 00 00 and one of these names.
constexpr qsizetype DEBUT_SIGNE_JET = 4;
constexpr const char *SIGNES_JET[] = {"Standard Jet DB", "Standard ACE DB"};

[[noreturn]] void refuser(int numero, const QString &raison)
{
    throw Erreur(numero, raison);
}

QString motsFrancais(int code)
{
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral(
            "Le fichier est utilisé par un autre programme. Fermez ce programme, puis recommencez.");
    case SQLITE_READONLY:
        return QStringLiteral("Le fichier est en lecture seule.");
    case SQLITE_IOERR:
        return QStringLiteral("Une erreur de lecture ou d'écriture s'est produite sur le disque.");
    case SQLITE_CORRUPT:
        return QStringLiteral("Le fichier est endommagé.");
    case SQLITE_FULL:
        return QStringLiteral("Le disque est plein.");
    case SQLITE_CANTOPEN:
        return QStringLiteral("Le fichier ne peut pas être ouvert.");
    case SQLITE_NOTADB:
        return QStringLiteral("Ce fichier n'est pas une base de données.");
    default:
        return {};
    }
}

SondeBase::Nature natureDe(const QByteArray &entete)
{
    if (entete.startsWith(QByteArray(SIGNE_SQLITE, sizeof SIGNE_SQLITE)))
        return SondeBase::Nature::Etude;
    const bool jet = std::any_of(std::begin(SIGNES_JET), std::end(SIGNES_JET), [&](const char *signe) {
        return entete.mid(DEBUT_SIGNE_JET).startsWith(signe);
    });
    return jet ? SondeBase::Nature::Jet : SondeBase::Nature::Inconnue;
}

bool nonVide(const QString &chemin)
{
    return QFileInfo(chemin).size() > 0;
}

// The engine itself would only meet the missing end when it needs it.
void verifierTaille(const QString &chemin, const QByteArray &entete, qint64 taille)
{
    const auto octets = reinterpret_cast<const uchar *>(entete.constData());
    qint64 page = qFromBigEndian<quint16>(octets + 16);
    if (page == 1)
        page = 65536;
    const quint32 pages = qFromBigEndian<quint32>(octets + 28);
    const bool compteFiable = qFromBigEndian<quint32>(octets + 24) == qFromBigEndian<quint32>(octets + 92);
    // A journal of a killed program may hold what the file lacks: the engine plays it first.
    const bool journal =
        nonVide(chemin + QStringLiteral("-wal")) || nonVide(chemin + QStringLiteral("-journal"));
    if (taille < TAILLE_ENTETE || (compteFiable && !journal && taille < page * pages))
        refuser(SQLITE_CORRUPT, QStringLiteral("Le fichier est incomplet : la fin en manque."));
}

void verifierEcriture(const QString &chemin)
{
    if (!QFile(chemin).open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        refuser(SQLITE_READONLY, QStringLiteral("Le fichier est en lecture seule."));
    // Journals stand beside the file.
    const QString dossier = QFileInfo(chemin).absolutePath();
    if (!QFileInfo(dossier).isWritable())
        refuser(SQLITE_READONLY, QStringLiteral("Le dossier « %1 » est en lecture seule.").arg(dossier));
}

class Connexion
{
public:
    explicit Connexion(const QString &chemin)
    {
        const int code =
            sqlite3_open_v2(chemin.toUtf8().constData(), &m_base, SQLITE_OPEN_READWRITE, nullptr);
        if (code != SQLITE_OK)
            echouer(code);
        sqlite3_busy_timeout(m_base, ATTENTE_VERROU_MS);
    }
    ~Connexion() { sqlite3_close(m_base); }
    Connexion(const Connexion &) = delete;
    Connexion &operator=(const Connexion &) = delete;

    int nombre(const char *sql) { return lire(sql); }
    void executer(const char *sql) { lire(sql); }

private:
    int lire(const char *sql)
    {
        sqlite3_stmt *instruction = nullptr;
        const auto finir = qScopeGuard([&] { sqlite3_finalize(instruction); });
        int code = sqlite3_prepare_v2(m_base, sql, -1, &instruction, nullptr);
        if (code == SQLITE_OK)
            code = sqlite3_step(instruction);
        if (code == SQLITE_ROW)
            return sqlite3_column_int(instruction, 0);
        if (code != SQLITE_DONE)
            echouer(code);
        return 0;
    }
    [[noreturn]] void echouer(int code)
    {
        const QString mots = m_base ? QString::fromUtf8(sqlite3_errmsg(m_base)) : QString();
        throw SondeBase::enFrancais(Erreur(code, mots));
    }

    sqlite3 *m_base = nullptr;
};

void verifierEtude(const QString &chemin)
{
    Connexion connexion(chemin);
    if (connexion.nombre("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND lower(name) IN "
                         "('prelevement', 'mesure_physico', 'station_qualite')") != 3)
        refuser(SQLITE_NOTADB,
                QStringLiteral(
                    "Ce fichier est une base de données, mais pas celle d'une étude de l'outil : les tables "
                    "des prélèvements, des résultats ou des stations en sont absentes."));
    // The lock of a writer, taken and given back: another program that holds one is met here.
    connexion.executer("BEGIN IMMEDIATE");
    connexion.executer("ROLLBACK");
}
} // namespace

Erreur SondeBase::enFrancais(const Erreur &erreur)
{
    const QString mots = motsFrancais(erreur.numero());
    return mots.isEmpty() ? erreur : Erreur(erreur.numero() & 0xff, mots);
}

SondeBase::Nature SondeBase::nature(const QString &cheminHote)
{
    QFile fichier(cheminHote);
    return fichier.open(QIODevice::ReadOnly) ? natureDe(fichier.read(TAILLE_ENTETE)) : Nature::Inconnue;
}

SondeBase::Nature SondeBase::examiner(const QString &cheminHote)
{
    const QFileInfo fichier(cheminHote);
    if (!fichier.exists())
        refuser(SQLITE_CANTOPEN, QStringLiteral("Le fichier « %1 » n'existe pas.").arg(cheminHote));
    if (!fichier.isFile())
        refuser(SQLITE_CANTOPEN, QStringLiteral("« %1 » n'est pas un fichier.").arg(cheminHote));
    QFile lecture(cheminHote);
    if (!lecture.open(QIODevice::ReadOnly))
        refuser(SQLITE_CANTOPEN, QStringLiteral("Vous n'avez pas le droit de lire ce fichier."));
    const QByteArray entete = lecture.read(TAILLE_ENTETE);
    const qint64 taille = lecture.size();
    lecture.close();
    if (taille == 0)
        refuser(SQLITE_NOTADB, QStringLiteral("Le fichier est vide."));
    const Nature trouvee = natureDe(entete);
    if (trouvee == Nature::Jet)
        return trouvee;
    if (trouvee == Nature::Inconnue)
        refuser(SQLITE_NOTADB, motsFrancais(SQLITE_NOTADB));
    verifierTaille(cheminHote, entete, taille);
    verifierEcriture(cheminHote);
    verifierEtude(cheminHote);
    return trouvee;
}
