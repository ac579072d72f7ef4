#include "pilote/Installation.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace
{
bool copier(const QString &source, const QString &cible)
{
    if (!QDir().mkpath(cible))
        return false;
    const QFileInfoList entrees =
        QDir(source).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    return std::all_of(entrees.begin(), entrees.end(), [&](const QFileInfo &entree) {
        const QString copie = cible + u'/' + entree.fileName();
        if (entree.isDir())
            return copier(entree.absoluteFilePath(), copie);
        // The copy is written to, whatever the original allows.
        return QFile::copy(entree.absoluteFilePath(), copie) &&
               QFile::setPermissions(copie, QFile::permissions(copie) | QFile::ReadOwner | QFile::WriteOwner);
    });
}
} // namespace

QStringList Installation::garnir(const QString &racine, const QString &modele)
{
    if (!QDir(racine).isEmpty())
        return {};
    QStringList manques;
    if (!copier(modele, racine))
        manques << QStringLiteral("l'installation %1 n'a pas pu être copiée dans %2").arg(modele, racine);
    const QDir projet(racine + QStringLiteral("/Projet"));
    // The folders are part of an installation even when there is nothing to put in them yet.
    for (const QString &dossier :
         {QStringLiteral("Base"), QStringLiteral("Modèles"), QStringLiteral("Export"),
          QStringLiteral("Travail"), QStringLiteral("Dessin"), QStringLiteral("MajIntervenant")})
        projet.mkpath(projet.filePath(dossier));
    if (projet.entryInfoList({QStringLiteral("Base/*.mdb")}).isEmpty() &&
        QDir(projet.filePath(QStringLiteral("Base"))).isEmpty())
        manques << QStringLiteral("l'installation n'a pas de base de données (%1)").arg(modele);
    if (QDir(projet.filePath(QStringLiteral("Modèles"))).isEmpty())
        manques << QStringLiteral("l'installation n'a pas de modèles de documents (%1)").arg(modele);
    return manques;
}
