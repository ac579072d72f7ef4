// What an instance of the spreadsheet application leaves on this host, seen from outside (Linux).
#pragma once

#include "workbook/InstallationCalc.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStringList>
#include <QtTest>

namespace TracesCalc
{
// Numbers of the processes whose command line names this folder.
inline QList<qint64> processusNommant(const QString &dossier)
{
    QList<qint64> numeros;
    const QStringList entrees = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &entree : entrees) {
        bool estNombre = false;
        const qint64 numero = entree.toLongLong(&estNombre);
        QFile ligne(QStringLiteral("/proc/%1/cmdline").arg(entree));
        if (estNombre && ligne.open(QIODevice::ReadOnly) && ligne.readAll().contains(dossier.toUtf8()))
            numeros << numero;
    }
    return numeros;
}

// The sockets of the instance with this number: its own pipe and the one that its profile is found by.
inline QStringList prises(qint64 numero)
{
    QFile ligne(QStringLiteral("/proc/%1/cmdline").arg(numero));
    if (!ligne.open(QIODevice::ReadOnly))
        return {};
    QString profil;
    QString tube;
    const QStringList arguments = QString::fromUtf8(ligne.readAll()).split(QChar(0));
    for (const QString &argument : arguments) {
        if (argument.startsWith(QLatin1String("-env:UserInstallation=file://")))
            profil = argument.mid(29);
        else if (argument.startsWith(QLatin1String("--accept=pipe,name=")))
            tube = argument.mid(19).section(QLatin1Char(';'), 0, 0);
    }
    QStringList presentes;
    for (const QString &prise : InstallationCalc::prises(profil, tube)) {
        if (QFile::exists(prise))
            presentes << prise;
    }
    return presentes;
}

// Nothing of what was started with this temporary folder is left: no process, no file, none of these sockets. Waits a
// little, as what ends the instance of a killed program works after its death.
inline QString restes(const QString &dossier, const QStringList &sockets, int patience = 0)
{
    QString restes;
    QElapsedTimer depuis;
    depuis.start();
    do {
        restes.clear();
        for (const qint64 numero : processusNommant(dossier))
            restes += QStringLiteral("processus %1 ").arg(numero);
        for (const QString &nom :
             QDir(dossier).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
            restes += QStringLiteral("fichier %1 ").arg(nom);
        for (const QString &prise : sockets) {
            if (QFile::exists(prise))
                restes += QStringLiteral("prise %1 ").arg(prise);
        }
        if (!restes.isEmpty())
            QTest::qSleep(50);
    } while (!restes.isEmpty() && depuis.elapsed() < patience);
    return restes;
}
} // namespace TracesCalc
