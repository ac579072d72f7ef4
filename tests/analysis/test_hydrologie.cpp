// The graph of flows and rainfall, without workbook nor base: scales, rows, texts, checks.
#include "analysis/EchellesHydrologie.h"
#include "analysis/ReglesHydrologie.h"
#include "analysis/SerieHydrologie.h"
#include "analysis/TexteHydrologie.h"

#include <cmath>
#include <QRandomGenerator>
#include <QTest>

using namespace SerieHydrologie;

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

bool graduationsRondes(const EchelleDepuisZero &echelle)
{
    const double nombre = echelle.maximum / echelle.pas;
    return std::abs(nombre - std::round(nombre)) < 1e-6 && nombre > 3.5 && nombre < 10.5;
}
} // namespace

class TestHydrologie : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void echelleRondes_data();
    void echelleRondes();
    void echellesSeparees_data();
    void echellesSeparees();
    void echellesAuHasard();
    void sommes();
    void fusion();
    void interruptions();
    void titres();
    void regles();
};

void TestHydrologie::echelleRondes_data()
{
    // By hand: the smallest multiple, by 4 to 10, of a step of 1, 2, 2.5 or 5 times a power of ten.
    QTest::addColumn<double>("valeur");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("pas");
    QTest::newRow("0") << 0.0 << 1.0 << 0.25;
    QTest::newRow("negative") << -3.0 << 1.0 << 0.25;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 1.0 << 0.25;
    QTest::newRow("1") << 1.0 << 1.0 << 0.1;        // 10 of 0.1
    QTest::newRow("7.5") << 7.5 << 8.0 << 1.0;      // 8 of 1 comes before 4 of 2; 10 of 0.5 only reach 5
    QTest::newRow("41") << 41.0 << 45.0 << 5.0;     // 9 of 5; of 10: 50
    QTest::newRow("92") << 92.0 << 100.0 << 10.0;   // 10 of 10
    QTest::newRow("101") << 101.0 << 120.0 << 20.0; // 6 of 20 = 120; 5 of 25 = 125
    QTest::newRow("tiny") << 0.0003 << 0.0003 << 0.00005;
    QTest::newRow("33 498") << 33498.0 << 35000.0 << 5000.0; // 7 of 5000; 4 of 10 000 = 40 000
}

void TestHydrologie::echelleRondes()
{
    QFETCH(double, valeur);
    QFETCH(double, maximum);
    QFETCH(double, pas);
    const EchelleDepuisZero echelle = echelleRonde(valeur);
    QVERIFY2(std::abs(echelle.maximum / maximum - 1) < 1e-9, qPrintable(QString::number(echelle.maximum)));
    QVERIFY2(std::abs(echelle.pas / pas - 1) < 1e-9, qPrintable(QString::number(echelle.pas)));
}

void TestHydrologie::echellesSeparees_data()
{
    QTest::addColumn<double>("debit");
    QTest::addColumn<double>("pluie");
    QTest::newRow("flood and storm") << 20099.0 << 43.0;
    QTest::newRow("brook and drizzle") << 0.004 << 0.2;
    QTest::newRow("river and deluge") << 3.2e6 << 412.0;
    QTest::newRow("round numbers") << 100.0 << 10.0;
    QTest::newRow("dry river") << 0.0 << 43.0;
    QTest::newRow("no rain") << 500.0 << 0.0;
    QTest::newRow("nothing") << 0.0 << 0.0;
}

void TestHydrologie::echellesSeparees()
{
    QFETCH(double, debit);
    QFETCH(double, pluie);
    const EchellesHydrologie echelles = echellesHydrologie(debit, pluie);
    // Both on the same day: the line's height and the column's depth, as parts of the plot, leave room between them.
    QVERIFY(debit / echelles.debit.maximum + pluie / echelles.pluie.maximum <=
            PART_DES_DEBITS + PART_DE_LA_PLUIE + 1e-9);
    QVERIFY(graduationsRondes(echelles.debit));
    QVERIFY(graduationsRondes(echelles.pluie));
}

void TestHydrologie::echellesAuHasard()
{
    QRandomGenerator hasard(20260121);
    for (int i = 0; i < 20'000; ++i) {
        const double debit = std::pow(10.0, hasard.bounded(10.0) - 4);
        const double pluie = std::pow(10.0, hasard.bounded(6.0) - 2);
        const EchellesHydrologie echelles = echellesHydrologie(debit, pluie);
        const double hauteur = debit / echelles.debit.maximum;
        const double profondeur = pluie / echelles.pluie.maximum;
        const QString lesquels = s("%1 l/s, %2 mm").arg(debit).arg(pluie);
        QVERIFY2(hauteur <= PART_DES_DEBITS + 1e-9 && hauteur >= PART_DES_DEBITS / 2, qPrintable(lesquels));
        QVERIFY2(profondeur <= PART_DE_LA_PLUIE + 1e-9 && profondeur >= PART_DE_LA_PLUIE / 2,
                 qPrintable(lesquels));
        QVERIFY2(graduationsRondes(echelles.debit) && graduationsRondes(echelles.pluie),
                 qPrintable(lesquels));
    }
}

void TestHydrologie::sommes()
{
    // 1.5 + 2 = 3.5 in January; February has no measure; 4 in March.
    const QList<Mesure> pluies{
        {QDate(2010, 1, 31), 2}, {QDate(2010, 1, 1), 1.5}, {QDate(2010, 3, 15), 4}, {QDate(2011, 1, 2), 7}};
    QCOMPARE(sommesMensuelles(pluies),
             (QList<Mesure>{{QDate(2010, 1, 1), 3.5}, {QDate(2010, 3, 1), 4}, {QDate(2011, 1, 1), 7}}));
    QVERIFY(sommesMensuelles({}).isEmpty());
    QCOMPARE(auPremierDuMois({{QDate(2010, 1, 31), 2}}), (QList<Mesure>{{QDate(2010, 1, 1), 2}}));
}

void TestHydrologie::fusion()
{
    // Two flows on 1 January (with times), rain that day and on the 3rd, a flow on the 2nd.
    const QList<Mesure> debits{{QDate(2010, 1, 1), 10}, {QDate(2010, 1, 1), 11}, {QDate(2010, 1, 2), 12}};
    const QList<Mesure> pluies{{QDate(2010, 1, 3), 3}, {QDate(2010, 1, 1), 1}};
    QCOMPARE(fusionner(debits, pluies), (QList<Ligne>{{QDate(2010, 1, 1), 10, 1},
                                                      {QDate(2010, 1, 1), 11, std::nullopt},
                                                      {QDate(2010, 1, 2), 12, std::nullopt},
                                                      {QDate(2010, 1, 3), std::nullopt, 3}}));
    QVERIFY(fusionner({}, {}).isEmpty());
}

void TestHydrologie::interruptions()
{
    const auto debit = [](QDate date) { return Ligne{date, 1, std::nullopt}; };
    const auto pluie = [](QDate date) { return Ligne{date, std::nullopt, 1}; };
    const auto trou = [](QDate date) { return Ligne{date, std::nullopt, std::nullopt}; };
    // Days: nothing to add while they follow each other, one row however long the gap, none where rain stands in it.
    QCOMPARE(avecInterruptions({debit(QDate(2010, 1, 1)), debit(QDate(2010, 1, 2)), debit(QDate(2010, 1, 9))},
                               Pas::Jour),
             (QList<Ligne>{debit(QDate(2010, 1, 1)), debit(QDate(2010, 1, 2)), trou(QDate(2010, 1, 3)),
                           debit(QDate(2010, 1, 9))}));
    const QList<Ligne> avecPluie{debit(QDate(2010, 1, 1)), pluie(QDate(2010, 1, 2)),
                                 debit(QDate(2010, 1, 3))};
    QCOMPARE(avecInterruptions(avecPluie, Pas::Jour), avecPluie);
    const QList<Ligne> memeJour{debit(QDate(2010, 1, 1)), debit(QDate(2010, 1, 1))};
    QCOMPARE(avecInterruptions(memeJour, Pas::Jour), memeJour);
    // Months.
    const QList<Ligne> suite{debit(QDate(2009, 12, 1)), debit(QDate(2010, 1, 1))};
    QCOMPARE(avecInterruptions(suite, Pas::Mois), suite);
    QCOMPARE(avecInterruptions({debit(QDate(2009, 12, 1)), debit(QDate(2010, 4, 1))}, Pas::Mois),
             (QList<Ligne>{debit(QDate(2009, 12, 1)), trou(QDate(2010, 1, 1)), debit(QDate(2010, 4, 1))}));
}

void TestHydrologie::titres()
{
    DemandeHydrologie d;
    d.debit = GenreDebit::Journalier;
    d.stationDebit = s("J7010610");
    d.stationPluie = s("35228001");
    d.debut = QDate(2010, 1, 1);
    d.fin = QDate(2014, 12, 31);
    const TexteHydrologie::Lieux lieux{s("Le Meu"), s("Le Meu à Quédillac"), s("Quédillac bourg")};
    const auto titre = [&](bool debit, bool pluie) {
        return TexteHydrologie::titre(d, lieux, debit, pluie).join(u'\n');
    };
    QCOMPARE(titre(true, false),
             s("BASSIN VERSANT :  Le Meu\n"
               "Evolution des débits moyens journaliers à la station de mesure : J7010610\n"
               "Cours d'eau et Lieu-dit : Le Meu à Quédillac\nPériode : janvier 2010 - décembre 2014"));
    d.debit = GenreDebit::Mensuel;
    QCOMPARE(
        titre(true, true),
        s("BASSIN VERSANT :  Le Meu\n"
          "Evolution des débits moyens mensuels (station J7010610) et de la pluviométrie (station 35228001)\n"
          "Cours d'eau et Lieu-dit : Le Meu à Quédillac\nPériode : janvier 2010 - décembre 2014"));
    QCOMPARE(titre(false, true),
             s("BASSIN VERSANT :  Le Meu\n"
               "Evolution des précipitations journalières à la station de mesure : 35228001\n"
               "Lieu-dit : Quédillac bourg\nPériode : janvier 2010 - décembre 2014"));
    QCOMPARE(TexteHydrologie::titreAxeDebit(), s(" Débit ( l/s ) "));
    QCOMPARE(TexteHydrologie::titreAxePluie(), s("Pluviométrie  ( mm ) "));
    QCOMPARE(TexteHydrologie::periode(QDate(2009, 8, 1), QDate(2009, 2, 1)), s("août 2009 - février 2009"));
}

void TestHydrologie::regles()
{
    using namespace ReglesHydrologie;
    DemandeHydrologie d;
    const auto refus = [&d] {
        const auto trouve = premierRefus(d);
        return trouve ? trouve->message : QString();
    };
    QCOMPARE(refus(), s("La période doit être entièrement renseignée"));
    d.debit = GenreDebit::Mensuel;
    d.pluie = true;
    QCOMPARE(refus(), s("Le code de la station hydrométrique doit être renseigné."));
    d.stationDebit = s("J7010610");
    QCOMPARE(refus(), s("Le code de la station pluviométrique doit être renseigné."));
    d.stationPluie = s("35228001");
    d.debut = QDate(2010, 1, 2);
    QCOMPARE(refus(), s("La période doit être entièrement renseignée"));
    QCOMPARE(premierRefus(d)->champ, Champ::DateFin);
    d.fin = QDate(2010, 1, 1);
    QCOMPARE(refus(), s("Vous devez saisir une date de fin supérieure ou égale à la date de début"));
    d.fin = d.debut;
    QCOMPARE(refus(), QString());
    d.debit = GenreDebit::Aucun;
    d.pluie = false;
    QCOMPARE(refus(), s("Vous devez cocher un débit ou la pluviométrie."));
}

QTEST_GUILESS_MAIN(TestHydrologie)
#include "test_hydrologie.moc"
