#include "platform/FichierLisible.h"

#include "platform/Chemins.h"
#include "platform/Erreur.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <sys/file.h>
#endif

namespace
{
// Numbers under which users of spreadsheet macros know these failures.
constexpr int INTROUVABLE = 53;
constexpr int PERMISSION_REFUSEE = 70;

#ifdef Q_OS_WIN
// There an exclusive lock shows by itself: the file does not open.
bool verrouille(const QFile &)
{
    return false;
}
#else
bool verrouille(const QFile &fichier)
{
    struct flock verrou = {};
    verrou.l_type = F_RDLCK;
    verrou.l_whence = SEEK_SET;
    if (fcntl(fichier.handle(), F_GETLK, &verrou) == 0 && verrou.l_type != F_UNLCK)
        return true;
    if (flock(fichier.handle(), LOCK_SH | LOCK_NB) != 0)
        return true;
    flock(fichier.handle(), LOCK_UN);
    return false;
}
#endif

// Who has the document open, from the lock file of the office program: ",nom,poste,date,profil;".
QString detenteur(const QString &cheminHote)
{
    const QFileInfo info(cheminHote);
    QFile verrou(info.dir().filePath(QStringLiteral(".~lock.%1#").arg(info.fileName())));
    if (!verrou.open(QIODevice::ReadOnly))
        return {};
    const QStringList champs = QString::fromUtf8(verrou.read(1000)).split(u',');
    QStringList noms;
    for (qsizetype i = 0; i < qMin<qsizetype>(champs.size(), 3); ++i) {
        if (!champs[i].trimmed().isEmpty())
            noms << champs[i].trimmed();
    }
    return noms.isEmpty() ? QStringLiteral("inconnu") : noms.join(QStringLiteral(", "));
}
} // namespace

void verifierLisible(const QString &cheminHote)
{
    const QString titre = Chemins::titre(cheminHote);
    if (!QFileInfo(cheminHote).isFile())
        throw Erreur(INTROUVABLE, QStringLiteral("Le fichier « %1 » est introuvable.").arg(titre));
    QFile fichier(cheminHote);
    if (!fichier.open(QIODevice::ReadOnly))
        throw Erreur(PERMISSION_REFUSEE,
                     QStringLiteral("Le fichier « %1 » ne peut pas être lu : accès refusé, ou "
                                    "fichier ouvert dans un autre programme.")
                         .arg(titre));
    if (verrouille(fichier))
        throw Erreur(PERMISSION_REFUSEE,
                     QStringLiteral("Le fichier « %1 » est verrouillé par un autre programme. Fermez-le puis "
                                    "recommencez.")
                         .arg(titre));
    if (const QString nom = detenteur(cheminHote); !nom.isEmpty())
        throw Erreur(
            PERMISSION_REFUSEE,
            QStringLiteral("Le fichier « %1 » est ouvert dans un autre programme (%2). Fermez-le puis "
                           "recommencez.")
                .arg(titre, nom));
}
