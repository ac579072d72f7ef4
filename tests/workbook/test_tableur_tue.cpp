// The hidden instance killed, at rest, during a call and at random; the program killed with its instance running.
#include "workbook/EssaiTableur.h"

#include <csignal>
#include <QProcess>
#include <random>
#include <thread>

class TestTableurTue : public EssaiTableur
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(preparer()); }
    void cleanup() { QCOMPARE(restes(), QString()); } // after every test, whatever happened in it
    void tueeAuRepos();
    void tueePendantUnAppel();
    void tueeNImporteQuand();
    void programmeTermine_data();
    void programmeTermine();
};

void TestTableurTue::tueeAuRepos()
{
    Tableur tableur;
    verifierQuElleSert(tableur);
    const qint64 numero = tableur.numeroProcessus();
    tableur.tuer();
    verifierQuElleSert(tableur);
    QVERIFY(tableur.numeroProcessus() != numero);
}

void TestTableurTue::tueePendantUnAppel()
{
    Tableur tableur;
    {
        const auto classeur = tableur.ajouter();
        const Feuille feuille = classeur->feuille(1);
        const qint64 numero = tableur.numeroProcessus();
        std::thread bourreau([numero] {
            QTest::qSleep(100);
            kill(static_cast<pid_t>(numero), SIGKILL);
        });
        const QString raison = echec([&feuille] {
            for (;;)
                feuille.cellule(1, 1).ecrire(1.0);
        });
        bourreau.join();
        QCOMPARE(raison, QStringLiteral("LibreOffice Calc s'est arrêté brusquement."));
        // The handles stay harmless, and say why.
        QCOMPARE(echec([&feuille] { feuille.nom(); }), raison);
    }
    verifierQuElleSert(tableur);
}

void TestTableurTue::tueeNImporteQuand()
{
    const auto graine = static_cast<quint32>(QDateTime::currentMSecsSinceEpoch());
    qInfo("graine %u", graine);
    std::mt19937 hasard(graine);
    Tableur tableur;
    const QString chemin = m_dossier.filePath(QStringLiteral("essai.xls"));
    for (int essai = 0; essai < 4; ++essai) {
        tableur.quitter();
        tableur.demarrerEnAvance();
        const qint64 numero = tableur.numeroProcessus();
        QVERIFY(numero > 0);
        // The start lasts about a second; then 300 rounds of writing and saving are under way.
        const auto delai = std::uniform_int_distribution<int>(0, 2000)(hasard);
        std::thread bourreau([numero, delai] {
            QTest::qSleep(delai);
            kill(static_cast<pid_t>(numero), SIGKILL);
        });
        // Any exception but ErreurTableur fails the test.
        const QString raison = echec([&] {
            for (;;) {
                const auto classeur = tableur.ajouter();
                if (tableur.numeroProcessus() != numero)
                    throw ErreurTableur(0, QStringLiteral("remplacée")); // killed between two rounds
                classeur->feuille(1).plage(1, 1, 100, 10).ecrire(QVariant(1.5));
                classeur->enregistrerSous(chemin);
            }
        });
        bourreau.join();
        QVERIFY2(!raison.isEmpty(), qPrintable(QString::number(delai)));
        verifierQuElleSert(tableur);
    }
    QFile::remove(chemin);
}

void TestTableurTue::programmeTermine_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("pendantLeDemarrage");
    QTest::newRow("tué") << SIGKILL << false;
    QTest::newRow("tué pendant le démarrage du tableur") << SIGKILL << true;
    QTest::newRow("planté") << SIGSEGV << false;
    QTest::newRow("interrompu") << SIGTERM << false;
}

void TestTableurTue::programmeTermine()
{
    QFETCH(int, signal);
    QFETCH(bool, pendantLeDemarrage);
    QProcess programme;
    programme.start(QCoreApplication::applicationFilePath(),
                    {pendantLeDemarrage ? QStringLiteral("--enfant-presse") : QStringLiteral("--enfant")});
    QVERIFY(programme.waitForReadyRead(30'000));
    const qint64 instance = programme.readLine().trimmed().toLongLong();
    QVERIFY(instance > 0);
    // Between its fork and its exec the process still bears our own name.
    QTRY_VERIFY(TracesCalc::processusNommant(m_dossier.path()).contains(instance));
    if (pendantLeDemarrage)
        QTest::qSleep(300);
    const QStringList prises = TracesCalc::prises(instance);
    QVERIFY(pendantLeDemarrage || prises.size() == 2);

    kill(static_cast<pid_t>(programme.processId()), signal);
    QVERIFY(programme.waitForFinished());
    QCOMPARE(programme.exitStatus(), QProcess::CrashExit);
    QCOMPARE(TracesCalc::restes(m_dossier.path(), prises, 5000), QString());
}

// The program of `programmeTermine`: an instance in use, its number told, then a wait for the end.
static int enfant(QCoreApplication &application, bool presse)
{
    Tableur tableur;
    tableur.demarrerEnAvance();
    const auto classeur = presse ? nullptr : tableur.ajouter();
    fprintf(stdout, "%lld\n", static_cast<long long>(tableur.numeroProcessus()));
    fflush(stdout);
    return application.exec();
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && qstrncmp(argv[1], "--enfant", 8) == 0)
        return enfant(application, qstrcmp(argv[1], "--enfant-presse") == 0);
    TestTableurTue test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_tableur_tue.moc"
