#include "analysis/Annees.h"

#include <QTest>

// Each expected table is worked out by hand from the rule: first day of each year, then the day after the last.
class TestAnnees : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void moisEntreDeuxDates_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<int>("mois");
        QTest::newRow("days do not count") << QDate(2008, 1, 15) << QDate(2010, 1, 10) << 24;
        QTest::newRow("same month") << QDate(2008, 1, 1) << QDate(2008, 1, 31) << 0;
        QTest::newRow("across a year") << QDate(2008, 11, 30) << QDate(2009, 2, 1) << 3;
        QTest::newRow("two civil years") << QDate(2008, 1, 1) << QDate(2009, 12, 31) << 23;
    }

    void moisEntreDeuxDates()
    {
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QTEST(moisEntiers(debut, fin), "mois");
    }

    void decoupage_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<ModeAnnee>("mode");
        QTest::addColumn<QList<Annee>>("annees");
        const auto civile = ModeAnnee::Civile;
        const auto hydro = ModeAnnee::Hydrologique;

        QTest::newRow("one day") << QDate(2008, 3, 5) << QDate(2008, 3, 5) << civile
                                 << QList<Annee>{{QDate(2008, 3, 5), QDate(2008, 3, 5), "2008"}};
        QTest::newRow("civil, both ends cut")
            << QDate(2008, 3, 5) << QDate(2010, 2, 28) << civile
            << QList<Annee>{{QDate(2008, 3, 5), QDate(2008, 12, 31), "2008"},
                            {QDate(2009, 1, 1), QDate(2009, 12, 31), "2009"},
                            {QDate(2010, 1, 1), QDate(2010, 2, 28), "2010"}};
        QTest::newRow("civil, one day over the boundary")
            << QDate(2008, 12, 31) << QDate(2009, 1, 1) << civile
            << QList<Annee>{{QDate(2008, 12, 31), QDate(2008, 12, 31), "2008"},
                            {QDate(2009, 1, 1), QDate(2009, 1, 1), "2009"}};
        // 23 whole months: 23 / 12 + 2 = 3 dates, so two years, the first widened back to 01/10/2007.
        QTest::newRow("hydrological, two civil years")
            << QDate(2008, 1, 1) << QDate(2009, 12, 31) << hydro
            << QList<Annee>{{QDate(2007, 10, 1), QDate(2008, 9, 30), "2007-2008"},
                            {QDate(2008, 10, 1), QDate(2009, 12, 31), "2008-2009"}};
        QTest::newRow("hydrological, from October")
            << QDate(2007, 10, 1) << QDate(2009, 9, 30) << hydro
            << QList<Annee>{{QDate(2007, 10, 1), QDate(2008, 9, 30), "2007-2008"},
                            {QDate(2008, 10, 1), QDate(2009, 9, 30), "2008-2009"}};
        // A start after October is kept as it is; 13 months give two years.
        QTest::newRow("hydrological, from November")
            << QDate(2007, 11, 15) << QDate(2008, 12, 2) << hydro
            << QList<Annee>{{QDate(2007, 11, 15), QDate(2008, 9, 30), "2007-2008"},
                            {QDate(2008, 10, 1), QDate(2008, 12, 2), "2008-2009"}};
        // 11 months: one year only, although 1 October was crossed.
        QTest::newRow("hydrological, boundary crossed within twelve months")
            << QDate(2007, 11, 15) << QDate(2008, 10, 20) << hydro
            << QList<Annee>{{QDate(2007, 11, 15), QDate(2008, 10, 20), "2007-2008"}};
        // 8 months from February: one year, widened back, running past 30 September to the end asked for.
        QTest::newRow("hydrological, inside one civil year")
            << QDate(2008, 2, 1) << QDate(2008, 10, 31) << hydro
            << QList<Annee>{{QDate(2007, 10, 1), QDate(2008, 10, 31), "2007-2008"}};
    }

    void decoupage()
    {
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(ModeAnnee, mode);
        QTEST(decouperEnAnnees(debut, fin, mode), "annees");
    }

    // Ten civil years, for reports of several blocks.
    void dixAnnees()
    {
        const QList<Annee> annees =
            decouperEnAnnees(QDate(2001, 1, 1), QDate(2010, 12, 31), ModeAnnee::Civile);
        QCOMPARE(annees.size(), 10);
        QCOMPARE(annees.last().intitule, QStringLiteral("2010"));
        for (qsizetype i = 1; i < annees.size(); ++i)
            QCOMPARE(annees[i].debut, annees[i - 1].fin.addDays(1));
    }
};

QTEST_APPLESS_MAIN(TestAnnees)
#include "test_annees.moc"
