#include "analysis/OrdreDonneesBrutes.h"

#include <numeric>
#include <QRandomGenerator>
#include <QTest>

class TestOrdreDonneesBrutes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void commeUnTriStable();
    void nombres();
    void rangs();
};

// Against the library's stable sort, on keys of every width, with many equal ones.
void TestOrdreDonneesBrutes::commeUnTriStable()
{
    QRandomGenerator hasard(20260131);
    for (const int bits : {1, 7, 16, 17, 33, 48, 64}) {
        for (const std::size_t nombre : {0U, 1U, 2U, 1000U, 70'000U}) {
            std::vector<quint64> cles(nombre);
            for (quint64 &cle : cles)
                cle = hasard.generate64() >> (64 - bits);
            std::vector<quint32> attendu(nombre);
            std::iota(attendu.begin(), attendu.end(), 0);
            std::stable_sort(attendu.begin(), attendu.end(),
                             [&](quint32 a, quint32 b) { return cles[a] < cles[b]; });
            QVERIFY(OrdreDonneesBrutes::ordonner(cles, false) == attendu);
            std::iota(attendu.begin(), attendu.end(), 0);
            std::stable_sort(attendu.begin(), attendu.end(),
                             [&](quint32 a, quint32 b) { return cles[a] > cles[b]; });
            QVERIFY(OrdreDonneesBrutes::ordonner(cles, true) == attendu);
        }
    }
}

void TestOrdreDonneesBrutes::nombres()
{
    JeuDonneesBrutes jeu;
    // In order; the two zeros are one.
    jeu.valeurs = {
        std::numeric_limits<double>::quiet_NaN(), -1e300, -2.5, -1e-300, -0.0, 0.0, 1e-300, 0.05, 7, 1e300};
    jeu.resultats.resize(jeu.valeurs.size());
    const std::vector<quint64> cles = OrdreDonneesBrutes::cles(jeu, ColonneBrute::Resultat);
    for (std::size_t i = 1; i < cles.size(); ++i)
        QVERIFY2(i == 5 ? cles[i - 1] == cles[i] : cles[i - 1] < cles[i], qPrintable(QString::number(i)));
}

void TestOrdreDonneesBrutes::rangs()
{
    // Nothing is 0; numbers by their value, leading zeros apart, before texts; case makes no difference.
    QCOMPARE(Lexique::rangs({QStringLiteral("Été"),
                             QStringLiteral("10"),
                             {},
                             QStringLiteral("2"),
                             QStringLiteral("002"),
                             QStringLiteral("eau"),
                             QStringLiteral("EAU"),
                             QStringLiteral("zinc")}),
             (QList<quint32>{4, 2, 0, 1, 1, 3, 3, 5}));
    Lexique lexique(QHash<QString, QString>{{QStringLiteral("ab"), QStringLiteral("Zone")}});
    QCOMPARE(lexique.numero("AB"), 0);
    QCOMPARE(lexique.numero("x"), 1);
    QCOMPARE(lexique.numero("AB"), 0);
    QCOMPARE(lexique.numero(""), Lexique::AUCUN);
    QCOMPARE(lexique.libelle(0), QStringLiteral("Zone"));
    QCOMPARE(lexique.libelle(1), QStringLiteral("x"));
    QCOMPARE(lexique.libelle(Lexique::AUCUN), QString());
    QCOMPARE(lexique.rangs(Lexique::Par::Code), (QList<quint32>{1, 2}));
    QCOMPARE(lexique.rangs(Lexique::Par::Libelle), (QList<quint32>{2, 1}));
}

QTEST_GUILESS_MAIN(TestOrdreDonneesBrutes)
#include "test_ordre_donnees_brutes.moc"
