// The life of the hidden instance: started, kept, ended, and what it leaves.
#include "platform/Processus.h"
#include "workbook/EssaiTableur.h"

#include <QProcess>

class TestVieTableur : public EssaiTableur
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(preparer()); }
    void cleanup() { QCOMPARE(restes(), QString()); } // after every test, whatever happened in it
    void rienNeReste();
    void gardeeEntreDeuxClasseurs();
    void quitteeClasseurOuvert();
    void deuxCoteACote();
    void instanceDeLUtilisateurIntacte();
};

void TestVieTableur::rienNeReste()
{
    QStringList prises;
    {
        Tableur tableur;
        QCOMPARE(tableur.numeroProcessus(), 0);
        verifierQuElleSert(tableur);
        QVERIFY(TracesCalc::processusNommant(m_dossier.path()).contains(tableur.numeroProcessus()));
        prises = TracesCalc::prises(tableur.numeroProcessus());
        QCOMPARE(prises.size(), 2); // so that their absence below means something
    }
    QCOMPARE(TracesCalc::restes(m_dossier.path(), prises), QString());
}

void TestVieTableur::gardeeEntreDeuxClasseurs()
{
    Tableur tableur;
    tableur.demarrerEnAvance();
    verifierQuElleSert(tableur);
    const qint64 numero = tableur.numeroProcessus();
    tableur.demarrerEnAvance();
    verifierQuElleSert(tableur);
    QCOMPARE(tableur.numeroProcessus(), numero);
    tableur.quitter();
    QCOMPARE(tableur.numeroProcessus(), 0);
    QVERIFY(!ProcessusActif(numero));
    verifierQuElleSert(tableur);
    QVERIFY(tableur.numeroProcessus() != numero);
}

void TestVieTableur::quitteeClasseurOuvert()
{
    Tableur tableur;
    const auto classeur = tableur.ajouter();
    tableur.quitter();
    QCOMPARE(echec([&] { classeur->feuilles(); }), QStringLiteral("LibreOffice Calc a été arrêté."));
}

void TestVieTableur::deuxCoteACote()
{
    Tableur premier;
    premier.demarrerEnAvance();
    {
        Tableur second;
        second.demarrerEnAvance();
        verifierQuElleSert(premier);
        verifierQuElleSert(second);
        QVERIFY(premier.numeroProcessus() != second.numeroProcessus());
    }
    verifierQuElleSert(premier);
}

void TestVieTableur::instanceDeLUtilisateurIntacte()
{
    // The user's own instance: the default profile, in a home of this test's.
    QTemporaryDir maison(QStringLiteral("/tmp/ovralis-maison-XXXXXX"));
    QProcess utilisateur;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(QStringLiteral("HOME"), maison.path());
    variables.insert(QStringLiteral("TMPDIR"), maison.path());
    utilisateur.setProcessEnvironment(variables);
    const QString profil = maison.path() + QStringLiteral("/profil");
    const QString tube = QStringLiteral("utilisateur%1").arg(QCoreApplication::applicationPid());
    QDir().mkpath(profil);
    InstallationCalc::chercher({}).ecrireProfil(profil);
    utilisateur.start(InstallationCalc::chercher({}).programme,
                      {QStringLiteral("-env:UserInstallation=file://") + profil, QStringLiteral("--headless"),
                       QStringLiteral("--norestore"),
                       QStringLiteral("--accept=pipe,name=%1;urp;").arg(tube)});
    QVERIFY(utilisateur.waitForStarted());
    QTRY_COMPARE_WITH_TIMEOUT(TracesCalc::prises(utilisateur.processId()).size(), 2, 20'000);
    const QStringList prises = TracesCalc::prises(utilisateur.processId());
    {
        Tableur tableur;
        verifierQuElleSert(tableur);
        QVERIFY(tableur.numeroProcessus() != utilisateur.processId());
        tableur.tuer();
        verifierQuElleSert(tableur);
    }
    QVERIFY(!utilisateur.waitForFinished(500));
    QCOMPARE(utilisateur.state(), QProcess::Running);
    for (const QString &prise : prises)
        QVERIFY(QFile::exists(prise));
    utilisateur.kill();
    utilisateur.waitForFinished();
    for (const QString &prise : prises)
        QFile::remove(prise);
}

QTEST_GUILESS_MAIN(TestVieTableur)
#include "test_vie_tableur.moc"
