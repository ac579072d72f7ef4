// The hidden instance hung, absent, or unable to start: an error in words, never a wait without end.
#include "platform/Processus.h"
#include "workbook/EssaiTableur.h"

#include <csignal>

class TestTableurFige : public EssaiTableur
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(preparer()); }
    void cleanup() { QCOMPARE(restes(), QString()); } // after every test, whatever happened in it
    void figeePendantUnAppel();
    void figeeAuRepos();
    void figeeAuDemarrage();
    void absente();
    void neDemarrePas_data();
    void neDemarrePas();

private:
    static DelaisTableur delaisCourts()
    {
        DelaisTableur delais;
        delais.appel = 1000;
        delais.fichier = 1000;
        delais.essai = 300;
        return delais;
    }
};

void TestTableurFige::figeePendantUnAppel()
{
    Tableur tableur;
    tableur.definirDelais(delaisCourts());
    {
        const auto classeur = tableur.ajouter();
        const qint64 numero = tableur.numeroProcessus();
        kill(static_cast<pid_t>(numero), SIGSTOP);
        QElapsedTimer depuis;
        depuis.start();
        QCOMPARE(echec([&] { classeur->feuille(1); }),
                 QStringLiteral("LibreOffice Calc ne répondait plus et a été arrêté."));
        QVERIFY(depuis.elapsed() >= 1000);
        QVERIFY(!ProcessusActif(numero));
    }
    verifierQuElleSert(tableur);
}

void TestTableurFige::figeeAuRepos()
{
    Tableur tableur;
    tableur.definirDelais(delaisCourts());
    verifierQuElleSert(tableur);
    const qint64 numero = tableur.numeroProcessus();
    kill(static_cast<pid_t>(numero), SIGSTOP);
    verifierQuElleSert(tableur); // by a fresh one
    QVERIFY(tableur.numeroProcessus() != numero);
    QVERIFY(!ProcessusActif(numero));
}

void TestTableurFige::figeeAuDemarrage()
{
    Tableur tableur;
    DelaisTableur delais;
    delais.demarrage = 1500;
    tableur.definirDelais(delais);
    tableur.demarrerEnAvance();
    kill(static_cast<pid_t>(tableur.numeroProcessus()), SIGSTOP);
    QCOMPARE(echec([&] { tableur.ajouter(); }),
             QStringLiteral("LibreOffice Calc n'a pas démarré en 1 secondes."));
    tableur.definirDelais({});
    verifierQuElleSert(tableur);
}

void TestTableurFige::absente()
{
    Tableur tableur;
    tableur.definirProgramme(m_dossier.filePath(QStringLiteral("soffice")));
    tableur.demarrerEnAvance(); // tells nothing
    QCOMPARE(echec([&] { tableur.ajouter(); }),
             QStringLiteral(
                 "LibreOffice Calc est introuvable sur cet ordinateur. Installez-le, puis recommencez."));
    QCOMPARE(tableur.numeroProcessus(), 0);
    tableur.definirProgramme({}); // installed meanwhile
    verifierQuElleSert(tableur);
}

void TestTableurFige::neDemarrePas_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("raison");
    QTest::newRow("s'arrête") << QByteArray("#!/bin/sh\nexit 3\n")
                              << QStringLiteral("LibreOffice Calc n'a pas pu démarrer (code 3).");
    QTest::newRow("demande sans fin à être relancée")
        << QByteArray("#!/bin/sh\nexit 81\n")
        << QStringLiteral("LibreOffice Calc n'a pas pu démarrer (code 81).");
    QTest::newRow("muet") << QByteArray("#!/bin/sh\nexec sleep 1000\n")
                          << QStringLiteral("LibreOffice Calc n'a pas démarré en 1 secondes.");
}

void TestTableurFige::neDemarrePas()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, raison);
    QTemporaryDir ailleurs(QStringLiteral("/tmp/ovralis-essai-XXXXXX"));
    QFile programme(ailleurs.filePath(QStringLiteral("soffice")));
    QVERIFY(programme.open(QIODevice::WriteOnly));
    programme.write(script);
    programme.close();
    programme.setPermissions(QFile::ReadOwner | QFile::ExeOwner);

    Tableur tableur;
    DelaisTableur delais;
    delais.demarrage = 1000;
    tableur.definirDelais(delais);
    tableur.definirProgramme(programme.fileName());
    QCOMPARE(echec([&] { tableur.ajouter(); }), raison);
    tableur.definirDelais({});
    tableur.definirProgramme({});
    verifierQuElleSert(tableur);
}

QTEST_GUILESS_MAIN(TestTableurFige)
#include "test_tableur_fige.moc"
