// The program that makes the bases: same content on each run, big bases as asked, failures told.
#include "database/DataEnvironment1.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestCreerBases : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void memeContenuAChaqueFois_data();
    void memeContenuAChaqueFois();
    void grandesBases();
    void elementsSansResultat();
    void refus_data();
    void refus();

private:
    static int lancer(const QStringList &arguments, QByteArray *erreurs = nullptr);
    static QByteArray lire(const QString &fichier);
    QTemporaryDir m_dossier;
};

int TestCreerBases::lancer(const QStringList &arguments, QByteArray *erreurs)
{
    QProcess programme;
    programme.start(DOSSIER_CONSTRUCTION "/bin/creer_bases",
                    QStringList{"--donnees", QDir::cleanPath(DONNEES_TESTS "/../../donnees")} + arguments);
    if (!programme.waitForFinished(60000))
        return -1;
    if (erreurs)
        *erreurs = programme.readAllStandardError();
    return programme.exitStatus() == QProcess::NormalExit ? programme.exitCode() : -1;
}

QByteArray TestCreerBases::lire(const QString &fichier)
{
    QFile f(fichier);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void TestCreerBases::memeContenuAChaqueFois_data()
{
    QTest::addColumn<QString>("commande");
    QTest::newRow("vierge") << "vierge";
    QTest::newRow("demonstration") << "demonstration";
}

void TestCreerBases::memeContenuAChaqueFois()
{
    QFETCH(const QString, commande);
    const QString une = m_dossier.filePath("une.mdb"), deux = m_dossier.filePath("deux.mdb");
    QCOMPARE(lancer({commande, une}), 0);
    QCOMPARE(lancer({commande, deux}), 0);
    QVERIFY(lire(une).size() > 100000);
    QVERIFY(lire(une) == lire(deux));
    QVERIFY(lire(une) == lire(DOSSIER_CONSTRUCTION "/installation/Projet/Base/" + commande + ".mdb"));
    // Run again over an existing file: replaced, nothing left beside it.
    QCOMPARE(lancer({commande, une}), 0);
    QVERIFY(lire(une) == lire(deux));
    QCOMPARE(QDir(m_dossier.path()).entryList(QDir::Files), (QStringList{"deux.mdb", "une.mdb"}));
    QFile::remove(une);
    QFile::remove(deux);
}

void TestCreerBases::grandesBases()
{
    const QString suivie =
        "SELECT group_concat(DatePrel || ' ' || ResultatAnaPC || ' ' || CodeRemarqueAnaPC) FROM "
        "PRELEVEMENT JOIN MESURE_PHYSICO USING (NumPrel) WHERE CodeSandreStationM = '04999010' AND "
        "CodeParam = '1340'";
    QString premiere;
    for (const int n : {1000, 30000}) {
        const QString fichier = m_dossier.filePath(QString::number(n));
        QCOMPARE(lancer({"resultats", QString::number(n), fichier}), 0);
        DataEnvironment1 base;
        base.ouvrir(fichier);
        const auto valeur = [&](const QString &sql) {
            Requete r = base.executer(sql);
            r.suivant();
            return r.valeur(0);
        };
        QCOMPARE(valeur("SELECT COUNT(*) FROM MESURE_PHYSICO"), n);
        QCOMPARE(valeur("SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CodeParam = '1340'"), 120);
        QCOMPARE(valeur("SELECT COUNT(*) FROM pragma_foreign_key_check"), 0);
        QCOMPARE(
            valeur(
                "SELECT COUNT(*) FROM MESURE_PHYSICO WHERE NumPrel NOT IN (SELECT NumPrel FROM PRELEVEMENT)"),
            0);
        // 2008 to 2017: 3653 days.
        QCOMPARE(valeur("SELECT COUNT(DebitJourMesureHM) FROM MESURE_HYDRO"), 3653);
        QCOMPARE(
            valeur("SELECT COUNT(*) FROM (SELECT 1 FROM PRELEVEMENT GROUP BY CodeSandreStationM, DatePrel, "
                   "HeurePrel, CodeSandrePrelev HAVING COUNT(*) > 1)"),
            0);
        const QString serie = valeur(suivie).toString();
        QVERIFY(serie.startsWith("2008-01-08 "));
        if (premiere.isEmpty())
            premiere = serie;
        QCOMPARE(serie, premiere);
        base.liberer();
    }
}

void TestCreerBases::elementsSansResultat()
{
    const QString fichier = m_dossier.filePath("elements.mdb");
    QCOMPARE(lancer({"elements", fichier}), 0);
    DataEnvironment1 base;
    base.ouvrir(fichier);
    Requete r =
        base.executer("SELECT (SELECT COUNT(*) FROM MESURE_PHYSICO), (SELECT COUNT(*) FROM STATION_QUALITE), "
                      "(SELECT COUNT(*) FROM INTERVENANT), (SELECT COUNT(*) FROM RESEAU_MESURE)");
    QVERIFY(r.suivant());
    QCOMPARE(r.valeur(0), 0);
    QCOMPARE(r.valeur(1), 101);
    QCOMPARE(r.valeur(2), 7);
    QCOMPARE(r.valeur(3), 2);
}

void TestCreerBases::refus_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString fichier = "refus.mdb";
    QTest::newRow("sans commande") << QStringList();
    QTest::newRow("commande inconnue") << QStringList{"autre", fichier};
    QTest::newRow("sans fichier") << QStringList{"vierge"};
    QTest::newRow("nombre illisible") << QStringList{"resultats", "beaucoup", fichier};
    QTest::newRow("dossier absent") << QStringList{"vierge", "/nulle/part/" + fichier};
}

void TestCreerBases::refus()
{
    QFETCH(const QStringList, arguments);
    QByteArray erreurs;
    QCOMPARE(lancer(arguments, &erreurs), 1);
    QVERIFY(erreurs.startsWith("creer_bases : "));
    QVERIFY(!QFile::exists("refus.mdb"));
}

QTEST_GUILESS_MAIN(TestCreerBases)
#include "test_creer_bases.moc"
