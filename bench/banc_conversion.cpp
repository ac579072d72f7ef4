// The opening of an Access study, with its conversion, against mdb-export printing all of its tables one after another.
#include "database/jet/BasesJet.h"
#include "database/jet/LecteurJet.h"
#include "database/jet/OuvertureDEssai.h"
#include "OutilsBanc.h"

#include <algorithm>
#include <cstdio>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

using OutilsBanc::mediane;

namespace
{
constexpr int FOIS = 7;

double ouvertureMs(const QString &base)
{
    const QTemporaryDir dossier;
    const QString chemin = dossier.filePath(QStringLiteral("etude.mdb"));
    QFile::copy(base, chemin);
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner);
    OuvertureDEssai essai;
    QElapsedTimer duree;
    duree.start();
    if (!essai.ouvrir(chemin))
        qFatal("pas ouverte : %s", qPrintable(essai.dialogue.messages.value(0).texte));
    return static_cast<double>(duree.nsecsElapsed()) / 1e6;
}

double lectureMs(const QString &base)
{
    QElapsedTimer duree;
    duree.start();
    LecteurJet lecteur(base);
    qint64 lignes = 0;
    lecteur.lire([&](const TableJet &, const std::vector<ValeurJet> &) { ++lignes; });
    return static_cast<double>(duree.nsecsElapsed()) / 1e6;
}

double exportMs(const QString &base)
{
    const QStringList tables = BasesJet::mdbTables(base);
    QElapsedTimer duree;
    duree.start();
    QStringList commandes;
    for (const QString &table : tables)
        commandes << QStringLiteral("mdb-export '%1' '%2'").arg(base, table);
    QProcess processus;
    processus.setStandardOutputFile(QProcess::nullDevice());
    processus.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), commandes.join(u';')});
    if (!processus.waitForFinished(-1) || processus.exitCode() != 0)
        qFatal("mdb-export");
    return static_cast<double>(duree.nsecsElapsed()) / 1e6;
}
} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QString base = BasesJet::chemin(QStringLiteral("courant.mdb"));
    std::vector<double> ouvertures;
    std::vector<double> lectures;
    std::vector<double> exports;
    // In turn, so that what else the machine does weighs on each alike.
    for (int i = 0; i < FOIS; ++i) {
        exports.push_back(exportMs(base));
        lectures.push_back(lectureMs(base));
        ouvertures.push_back(ouvertureMs(base));
    }
    const double o = mediane(ouvertures);
    const double e = mediane(exports);
    std::printf("mdb-export de toutes les tables   %8.1f ms\n", e);
    std::printf("lecture seule, sans conversion    %8.1f ms\n", mediane(lectures));
    std::printf("ouverture avec conversion         %8.1f ms\n", o);
    std::printf("ouverture / mdb-export            %8.2f      (au plus 2)\n", o / e);
    return 0;
}
