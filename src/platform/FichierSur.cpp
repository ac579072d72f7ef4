#include "platform/FichierSur.h"

#include "platform/Erreur.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace
{
[[noreturn]] void echouer(int numero, const QString &geste, const QString &chemin)
{
    throw Erreur(numero, QStringLiteral("%1 « %2 » : %3").arg(geste, chemin, FichierSur::raison(numero)));
}
} // namespace

void FichierSur::synchroniser(const QString &chemin)
{
#ifdef Q_OS_WIN
    if (QFileInfo(chemin).isDir())
        return; // renames are journaled there
    const HANDLE fichier = CreateFileW(reinterpret_cast<const wchar_t *>(chemin.utf16()), GENERIC_WRITE,
                                       FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (fichier == INVALID_HANDLE_VALUE || !FlushFileBuffers(fichier))
        echouer(static_cast<int>(GetLastError()), QStringLiteral("Écriture impossible sur le disque de"),
                chemin);
    CloseHandle(fichier);
#else
    const int descripteur = ::open(QFile::encodeName(chemin).constData(), O_RDONLY | O_CLOEXEC);
    if (descripteur < 0)
        echouer(errno, QStringLiteral("Ouverture impossible de"), chemin);
    const bool ecrit = ::fsync(descripteur) == 0;
    const int cause = errno;
    ::close(descripteur);
    if (!ecrit)
        echouer(cause, QStringLiteral("Écriture impossible sur le disque de"), chemin);
#endif
}

QString FichierSur::nomDePreparation(const QString &destination)
{
    return destination + QStringLiteral(".nouveau");
}

void FichierSur::remplacer(const QString &source, const QString &cible)
{
    // Behind a link it is the file itself that is replaced, not the link.
    const QFileInfo actuel(cible);
    const QString destination = actuel.exists() ? actuel.canonicalFilePath() : cible;
    const QString preparation = nomDePreparation(destination);
    QFile::remove(preparation);
    try {
        QFile origine(source);
        if (!origine.copy(preparation))
            throw Erreur(
                origine.error(),
                QStringLiteral("Copie impossible vers « %1 » : %2").arg(preparation, origine.errorString()));
        if (actuel.exists())
            QFile::setPermissions(preparation, actuel.permissions());
        mettreEnPlace(preparation, destination);
    } catch (...) {
        QFile::remove(preparation);
        throw;
    }
}

void FichierSur::mettreEnPlace(const QString &preparation, const QString &destination)
{
    synchroniser(preparation);
#ifdef Q_OS_WIN
    if (!MoveFileExW(reinterpret_cast<const wchar_t *>(preparation.utf16()),
                     reinterpret_cast<const wchar_t *>(destination.utf16()),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        echouer(static_cast<int>(GetLastError()), QStringLiteral("Remplacement impossible de"), destination);
#else
    if (std::rename(QFile::encodeName(preparation).constData(), QFile::encodeName(destination).constData()) !=
        0)
        echouer(errno, QStringLiteral("Remplacement impossible de"), destination);
#endif
    synchroniser(QFileInfo(destination).absolutePath());
}

void FichierSur::doubler(const QString &fichier, const QString &nouveau)
{
#ifdef Q_OS_WIN
    const bool lie = CreateHardLinkW(reinterpret_cast<const wchar_t *>(nouveau.utf16()),
                                     reinterpret_cast<const wchar_t *>(fichier.utf16()), nullptr);
#else
    const bool lie =
        ::link(QFile::encodeName(fichier).constData(), QFile::encodeName(nouveau).constData()) == 0;
#endif
    if (lie) {
        synchroniser(QFileInfo(nouveau).absolutePath());
        return;
    }
    if (QFileInfo::exists(nouveau))
        throw Erreur(0, QStringLiteral("Le fichier « %1 » existe déjà.").arg(nouveau));
    remplacer(fichier, nouveau);
}

QString FichierSur::raison(int numero)
{
#ifndef Q_OS_WIN
    switch (numero) {
    case EACCES:
    case EPERM:
        return QStringLiteral("Vous n'avez pas le droit d'écrire à cet endroit.");
    case EROFS:
        return QStringLiteral("Le disque est en lecture seule.");
    case ENOSPC:
    case EDQUOT:
        return QStringLiteral("Le disque est plein.");
    case ENOENT:
        return QStringLiteral("Le fichier ou le dossier n'existe pas.");
    case EBUSY:
    case ETXTBSY:
        return QStringLiteral("Le fichier est utilisé par un autre programme.");
    case EIO:
        return QStringLiteral("Une erreur de lecture ou d'écriture s'est produite sur le disque.");
    default:
        break;
    }
#endif
    return qt_error_string(numero);
}
