// The Access bases that tests read, and what the command mdb-export prints of them.
#pragma once

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace BasesJet
{
inline QString chemin(const QString &nom)
{
    return QStringLiteral(DONNEES_TESTS "/bases/") + nom;
}

// A real Access 97 base, which is not ours to hand on: in the folder that OVRALIS_BASES_VOISINES names, empty where it is
// absent.
inline QString autreBase97()
{
    const QString voisin =
        qEnvironmentVariable("OVRALIS_BASES_VOISINES") + QStringLiteral("/autre_base_97.mdb");
    return QFileInfo::exists(voisin) ? voisin : QString();
}

// Rows of cells of a CSV text; a quote is doubled inside quotes, which may hold line breaks.
inline QList<QStringList> csv(const QString &texte)
{
    QList<QStringList> lignes;
    QStringList ligne;
    QString cellule;
    bool guillemets = false;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const QChar c = texte[i];
        if (guillemets) {
            if (c != u'"')
                cellule += c;
            else if (i + 1 < texte.size() && texte[i + 1] == u'"')
                cellule += texte[++i];
            else
                guillemets = false;
        } else if (c == u'"') {
            guillemets = true;
        } else if (c == u',' || c == u'\n') {
            ligne << cellule;
            cellule.clear();
            if (c == u'\n')
                lignes << std::exchange(ligne, {});
        } else {
            cellule += c;
        }
    }
    return lignes;
}

inline QString sortieDe(const QString &programme, const QStringList &arguments)
{
    QProcess processus;
    processus.start(programme, arguments);
    if (!processus.waitForFinished(60000) || processus.exitCode() != 0)
        qFatal("%s: %s", qPrintable(programme), processus.readAllStandardError().constData());
    return QString::fromUtf8(processus.readAllStandardOutput());
}

// The rows of a table as mdb-export prints them, its heading first; dates and times as "2009-03-01 10:00:00".
inline QList<QStringList> mdbExport(const QString &base, const QString &table)
{
    const QString format = QStringLiteral("%Y-%m-%d %H:%M:%S");
    return csv(sortieDe(QStringLiteral("mdb-export"),
                        {QStringLiteral("-D"), format, QStringLiteral("-T"), format, base, table}));
}

inline QStringList mdbTables(const QString &base)
{
    QStringList tables =
        sortieDe(QStringLiteral("mdb-tables"), {QStringLiteral("-1"), base}).split(u'\n', Qt::SkipEmptyParts);
    tables.sort();
    return tables;
}
} // namespace BasesJet
