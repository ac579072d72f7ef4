#include "frame/Aide.h"

#include "platform/Dialogue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString Aide::page(const QString &ecran)
{
    const QString dossier = QCoreApplication::applicationDirPath() + QStringLiteral("/aide/");
    QString propre = dossier + ecran + QStringLiteral(".html");
    if (!ecran.isEmpty() && QFileInfo::exists(propre))
        return propre;
    return dossier + QStringLiteral("index.html");
}

void Aide::ouvrir(Dialogue &dialogue, const QString &ecran)
{
    const QString chemin = page(ecran);
    if (!dialogue.ouvrirDocument(chemin))
        dialogue.message(
            QStringLiteral("L'aide n'a pas pu être ouverte. Ouvrez ce fichier avec un navigateur :\n") +
                QDir::toNativeSeparators(chemin),
            QStringLiteral("Aide"), Icone::Exclamation);
}
