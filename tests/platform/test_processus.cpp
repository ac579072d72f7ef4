#include "platform/Ouvrir.h"
#include "platform/Processus.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestProcessus : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void soiMeme() { QVERIFY(ProcessusActif(QCoreApplication::applicationPid())); }
    void impossibles()
    {
        QVERIFY(!ProcessusActif(0));
        QVERIFY(!ProcessusActif(-1));
    }
    void finit()
    {
        QProcess enfant;
        enfant.start(QStringLiteral("sleep"), {QStringLiteral("30")});
        QVERIFY(enfant.waitForStarted());
        const qint64 pid = enfant.processId();
        QVERIFY(ProcessusActif(pid));
        enfant.kill();
        QVERIFY(enfant.waitForFinished());
        QVERIFY(!ProcessusActif(pid));
    }
    void documentAbsent() { QVERIFY(!ouvrirAvecSonApplication(QStringLiteral("/nulle/part/rapport.xls"))); }
#ifdef Q_OS_LINUX
    // A desktop of our own, first on the path: it writes down what it was asked to open, and where it stood.
    void documentRemis()
    {
        QTemporaryDir dossier;
        const QString trace = dossier.filePath(QStringLiteral("trace"));
        QFile ouvreur(dossier.filePath(QStringLiteral("xdg-open")));
        QVERIFY(ouvreur.open(QIODevice::WriteOnly));
        ouvreur.write("#!/bin/sh\nprintf '%s|%s' \"$PWD\" \"$1\" > " + trace.toUtf8() + ".tmp && mv " +
                      trace.toUtf8() + ".tmp " + trace.toUtf8() + "\n");
        ouvreur.close();
        QVERIFY(ouvreur.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        const QString document = dossier.filePath(QStringLiteral("rapport d'été.xls"));
        QFile vide(document);
        QVERIFY(vide.open(QIODevice::WriteOnly));
        vide.close();
        const QByteArray chemins = qgetenv("PATH");
        qputenv("PATH", dossier.path().toUtf8() + ':' + chemins);
        const bool ouvert = ouvrirAvecSonApplication(document);
        qputenv("PATH", chemins);
        QVERIFY(ouvert);
        QTRY_VERIFY(QFile::exists(trace));
        QFile lue(trace);
        QVERIFY(lue.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(lue.readAll()), dossier.path() + u'|' + document);
    }
#endif
};

QTEST_GUILESS_MAIN(TestProcessus)
#include "test_processus.moc"
