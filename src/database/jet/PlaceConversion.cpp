#include "database/jet/PlaceConversion.h"

#include "platform/Erreur.h"
#include "platform/FichierSur.h"

#include <filesystem>
#include <QFile>
#include <QFileInfo>

namespace
{
constexpr int ERREUR_PLACE = 3051; // Jet's own number for a file that is in use or cannot be written

constexpr const char *SUITES[] = {"", "-journal", "-wal", "-shm"};

std::filesystem::path versStd(const QString &chemin)
{
#ifdef Q_OS_WIN
    return chemin.toStdWString();
#else
    return QFile::encodeName(chemin).toStdString();
#endif
}

bool memeFichier(const QString &a, const QString &b)
{
    std::error_code erreur;
    return std::filesystem::equivalent(versStd(a), versStd(b), erreur) && !erreur;
}

bool memeContenu(const QString &a, const QString &b)
{
    QFile premier(a);
    QFile second(b);
    if (!premier.open(QIODevice::ReadOnly) || !second.open(QIODevice::ReadOnly) ||
        premier.size() != second.size())
        return false;
    constexpr qint64 MORCEAU = 1 << 20;
    while (!premier.atEnd())
        if (premier.read(MORCEAU) != second.read(MORCEAU))
            return false;
    return true;
}

QString sansMdb(const QString &chemin)
{
    const qsizetype debutTitre = QFileInfo(chemin).path().size();
    const qsizetype p = chemin.lastIndexOf(QLatin1String(".mdb"), -1, Qt::CaseInsensitive);
    return p > debutTitre ? chemin.left(p) : chemin;
}
} // namespace

QString PlaceConversion::nomDeLAncien(const QString &fichierJet)
{
    return sansMdb(fichierJet) + QStringLiteral("_old97.mdb");
}

QString PlaceConversion::provisoire() const
{
    return m_fichier + QStringLiteral(".conversion");
}

PlaceConversion::PlaceConversion(const QString &fichierJet)
    : m_fichier(QFileInfo(fichierJet).canonicalFilePath())
{
    verifierFichier();
    m_verrou = std::make_unique<VerrouFichier>(m_fichier);
    m_taille = QFileInfo(m_fichier).size();
    m_modifie = QFileInfo(m_fichier).lastModified();
    // The file is ours: what stands beside it is left from a run that was killed.
    oublierProvisoire();
    if (const QString ancien = nomDeLAncien(m_fichier); memeFichier(m_fichier, ancien))
        QFile::remove(ancien);
    QFile magasin(provisoire());
    if (!magasin.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw Erreur(ERREUR_PLACE,
                     QStringLiteral("La base de données doit être convertie, mais rien ne peut être écrit "
                                    "dans son dossier « %1 » (%2). Copiez la base dans un dossier où vous "
                                    "pouvez écrire, puis ouvrez cette copie.")
                         .arg(QFileInfo(m_fichier).path(), magasin.errorString()));
}

PlaceConversion::~PlaceConversion()
{
    oublierProvisoire();
}

void PlaceConversion::verifierFichier() const
{
    const QFileInfo info(m_fichier);
    // The administrator may write everything: the file's own bits say what its owner wants.
    const bool protege = !(info.permissions() & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
    if (protege || !info.isWritable())
        throw Erreur(ERREUR_PLACE,
                     QStringLiteral("La base de données est en lecture seule : elle ne peut pas être "
                                    "convertie. Retirez cette protection, ou ouvrez une copie de la "
                                    "base."));
    const QFileInfo ldb(sansMdb(m_fichier) + QStringLiteral(".ldb"));
    if (ldb.size() > 0)
        throw Erreur(ERREUR_PLACE,
                     QStringLiteral(
                         "La base de données est ouverte dans Access, sur ce poste ou un autre (son fichier "
                         "« %1 » est là). Fermez-la, puis recommencez. Si personne ne l'utilise, ce fichier "
                         "est resté d'un arrêt brutal : supprimez-le.")
                         .arg(ldb.fileName()));
}

void PlaceConversion::oublierProvisoire() const noexcept
{
    for (const char *suite : SUITES)
        QFile::remove(provisoire() + QLatin1String(suite));
}

// Gives an existing "…_old97.mdb" a name with its date; that name, or nothing where none had to be moved.
QString PlaceConversion::ecarterAncien() const
{
    const QString ancien = nomDeLAncien(m_fichier);
    if (!QFileInfo::exists(ancien) || memeContenu(m_fichier, ancien))
        return {};
    const QString base = QStringLiteral("%1_%2").arg(
        sansMdb(ancien), QFileInfo(ancien).lastModified().toString(u"yyyy-MM-dd"));
    QString nom = base + QStringLiteral(".mdb");
    for (int i = 2; QFileInfo::exists(nom); ++i)
        nom = QStringLiteral("%1_%2.mdb").arg(base).arg(i);
    if (!QFile::rename(ancien, nom))
        throw Erreur(ERREUR_PLACE, QStringLiteral("Le fichier « %1 » ne peut pas être renommé.").arg(ancien));
    return nom;
}

void PlaceConversion::mettreEnPlace()
{
    const QFileInfo info(m_fichier);
    if (info.size() != m_taille || info.lastModified() != m_modifie)
        throw Erreur(ERREUR_PLACE,
                     QStringLiteral("La base de données a été modifiée par un autre programme pendant sa "
                                    "conversion. Recommencez."));
    const QString ancien = nomDeLAncien(m_fichier);
    const QString ecarte = ecarterAncien();
    const bool aDoubler = !QFileInfo::exists(ancien);
    try {
        if (aDoubler)
            FichierSur::doubler(m_fichier, ancien);
        QFile::setPermissions(provisoire(), info.permissions());
#ifdef Q_OS_WIN
        m_verrou->liberer(); // a file that is held cannot be replaced there
#endif
        FichierSur::mettreEnPlace(provisoire(), m_fichier);
    } catch (...) {
        // Once the store bears the chosen name, nothing is taken back any more.
        if (QFileInfo::exists(provisoire())) {
            if (aDoubler)
                QFile::remove(ancien);
            if (!ecarte.isEmpty())
                QFile::rename(ecarte, ancien);
            throw;
        }
    }
    m_verrou->liberer();
}
