#include "analysis/EtudeBrute.h"
#include "analysis/ModeleDonneesBrutes.h"
#include "analysis/OrdreDonneesBrutes.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

class TestModeleDonneesBrutes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void contrat();
    void contenu();
    void parPages();
    void baseAbsente();
};

// The rules of a model, at every change that the screen makes.
void TestModeleDonneesBrutes::contrat()
{
    const EtudeBrute e;
    ModeleDonneesBrutes modele(e.donnees);
    const QAbstractItemModelTester gardien(&modele, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(modele.rowCount(), 0);
    const auto jeu = e.lire();
    modele.montrer(jeu);
    QCOMPARE(modele.rowCount(), 6);
    QCOMPARE(modele.columnCount(), 14);
    QCOMPARE(modele.rowCount(modele.index(0, 0)), 0);
    modele.montrer(jeu, {5, 4, 3, 2, 1, 0});
    QCOMPARE(modele.numAnaPC(0), e.glyphosate);
    DemandeDonneesBrutes rien;
    rien.station = QStringLiteral("absente");
    modele.montrer(e.lire(rien));
    QCOMPARE(modele.rowCount(), 0);
    modele.montrer(nullptr);
    QCOMPARE(modele.rowCount(), 0);
}

void TestModeleDonneesBrutes::contenu()
{
    const EtudeBrute e;
    e.sql(QStringLiteral(
        "UPDATE STATION_QUALITE SET NomStationM = '<b>x</b>' WHERE CodeSandreStationM = '04211950'"));
    ModeleDonneesBrutes modele(e.donnees);
    modele.montrer(e.lire());
    const auto texte = [&modele](int ligne, ColonneBrute colonne, int role = Qt::DisplayRole) {
        return modele.index(ligne, static_cast<int>(colonne)).data(role).toString();
    };
    QCOMPARE(texte(1, ColonneBrute::Resultat), QStringLiteral("12,25"));
    QCOMPARE(texte(4, ColonneBrute::Station), QStringLiteral("<b>x</b>"));
    QCOMPARE(texte(4, ColonneBrute::Station, Qt::ToolTipRole), QStringLiteral("<p>&lt;b&gt;x&lt;/b&gt;</p>"));
    QCOMPARE(texte(4, ColonneBrute::Remarque, Qt::ToolTipRole),
             QStringLiteral("Résultat inférieur au seuil de quantification"));
    QCOMPARE(modele.headerData(6, Qt::Horizontal).toString(), QStringLiteral("Résultat"));
    QCOMPARE(modele.headerData(0, Qt::Vertical).toString(), QStringLiteral("1"));
    QCOMPARE(modele.ligneDe(e.carbone), 2);
    QCOMPARE(modele.ligneDe(123456), -1);
    QCOMPARE(modele.numAnaPC(-1), 0);
    QCOMPARE(modele.numAnaPC(6), 0);
}

// Rows are read once for a page of them, however often they are drawn.
void TestModeleDonneesBrutes::parPages()
{
    const EtudeBrute e;
    for (int i = 0; i < 1000; ++i)
        e.ajouterMesure(e.p1, QStringLiteral("1340"), i);
    ModeleDonneesBrutes modele(e.donnees);
    modele.montrer(e.lire());
    const QSignalSpy lues(&modele, &ModeleDonneesBrutes::pageLue);
    for (int fois = 0; fois < 3; ++fois)
        for (int ligne = 0; ligne < 100; ++ligne)
            for (int colonne = 0; colonne < modele.columnCount(); ++colonne)
                QVERIFY(modele.index(ligne, colonne).data().isValid());
    QCOMPARE(lues.count(), 1);
    QVERIFY(!modele.index(1005, 6).data().toString().isEmpty());
    QCOMPARE(lues.count(), 2);
}

// A base that cannot be read at this moment leaves the cells empty, and they are read again afterwards.
void TestModeleDonneesBrutes::baseAbsente()
{
    EtudeBrute e;
    ModeleDonneesBrutes modele(e.donnees);
    modele.montrer(e.lire());
    e.donnees.liberer();
    QVERIFY(!modele.index(1, 6).data().isValid());
    e.donnees.ouvrir(e.chemin);
    QCOMPARE(modele.index(1, 6).data().toString(), QStringLiteral("12,25"));
}

QTEST_GUILESS_MAIN(TestModeleDonneesBrutes)
#include "test_modele_donnees_brutes.moc"
