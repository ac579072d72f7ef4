#include "platform/Chemins.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace
{
QString &racineCourante()
{
    static QString valeur = QDir::homePath();
    return valeur;
}

bool formeWindows(const QString &chemin)
{
    static const QRegularExpression disque(QStringLiteral("^[A-Za-z]:[\\\\/]"));
    return disque.match(chemin).hasMatch();
}

// The entry of `dossier` that is `nom` but for its case, or `nom` itself where there is none.
QString entreeExistante(const QString &dossier, const QString &nom)
{
    if (QFileInfo::exists(dossier + u'/' + nom))
        return nom;
    const QStringList entrees =
        QDir(dossier).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &entree : entrees)
        if (entree.compare(nom, Qt::CaseInsensitive) == 0)
            return entree;
    return nom;
}

qsizetype dernierSeparateur(const QString &chemin)
{
    return std::max(chemin.lastIndexOf(u'/'), chemin.lastIndexOf(u'\\'));
}
} // namespace

void Chemins::definirRacine(const QString &dossierHote)
{
    racineCourante() = QDir::cleanPath(QDir(dossierHote).absolutePath());
}

QString Chemins::racine()
{
    return racineCourante();
}

QString Chemins::versHote(const QString &chemin)
{
#ifdef Q_OS_WIN
    return chemin;
#else
    if (!formeWindows(chemin))
        return chemin;
    QString hote = racine();
    const QStringList composants = chemin.mid(3).split(QRegularExpression(QStringLiteral("[\\\\/]")));
    for (qsizetype i = 0; i < composants.size(); ++i) {
        // A path that ends in a separator keeps it.
        if (composants[i].isEmpty() && i > 0 && i == composants.size() - 1)
            return hote + u'/';
        if (composants[i].isEmpty())
            continue;
        QString nom = composants[i];
        if (i == 0 && nom.compare(QLatin1String("projet"), Qt::CaseInsensitive) == 0)
            nom = QStringLiteral("Projet");
        hote += u'/' + entreeExistante(hote, nom);
    }
    return hote;
#endif
}

QString Chemins::dossier(const QString &chemin)
{
    return chemin.left(dernierSeparateur(chemin) + 1);
}

QString Chemins::titre(const QString &chemin)
{
    return chemin.mid(dernierSeparateur(chemin) + 1);
}
