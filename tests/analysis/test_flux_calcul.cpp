// The steps of a flux, each against values worked out by hand.
//
// The series of January 2008 that several tests share: samples on 28/12/2007 (20 mg/l, before the window), 07/01/2008
// (40), 17/01/2008 (30) and 06/02/2008 (50, after it). Ten days from 20 to 40 make 2 mg/l a day, ten from 40 to 30 make
// -1, twenty from 30 to 50 make 1:
//
//     1 to 7 January     28 30 32 34 36 38 40     sum  238
//     8 to 17 January    39 38 ... 30             sum  345   (10 x 34.5)
//     18 to 31 January   31 32 ... 44             sum  525   (14 x 37.5)
//                                                     1108 mg/l x days
//
// With 1000 l/s all along, 86 400 000 l a day: 1108 x 86.4e6 = 95 731 200 000 mg = 95.7312 t of nitrate.
#include "analysis/FluxAgregation.h"
#include "analysis/FluxConversion.h"

#include <QTest>

namespace
{
const BornesFlux JANVIER{QDate(2008, 1, 1), QDate(2008, 2, 1)};

const QList<ConcentrationDuJour> SERIE{
    {QDate(2007, 12, 28), 20}, {QDate(2008, 1, 7), 40}, {QDate(2008, 1, 17), 30}, {QDate(2008, 2, 6), 50}};

QList<DebitDuJour> debitConstant(const BornesFlux &bornes, double debitLS)
{
    QList<DebitDuJour> debits;
    for (QDate jour = bornes.debut; jour < bornes.fin; jour = jour.addDays(1))
        debits << DebitDuJour{jour, debitLS};
    return debits;
}

bool proche(double a, double b)
{
    return qAbs(a - b) <= 1e-12 * qMax(qAbs(a), qAbs(b));
}
} // namespace

class TestFluxCalcul : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void bornes()
    {
        // The last month named is included, whatever its length, and the last year to its end.
        QCOMPARE(bornesMois(QDate(2008, 1, 1), QDate(2008, 2, 1)),
                 (BornesFlux{QDate(2008, 1, 1), QDate(2008, 3, 1)}));
        QCOMPARE(bornesMois(QDate(2008, 1, 1), QDate(2008, 2, 1)).jours(), 60);
        QCOMPARE(bornesMois(QDate(2009, 12, 1), QDate(2009, 12, 1)),
                 (BornesFlux{QDate(2009, 12, 1), QDate(2010, 1, 1)}));
        QCOMPARE(bornesAnnees(2008, 2009, ModeAnnee::Civile),
                 (BornesFlux{QDate(2008, 1, 1), QDate(2010, 1, 1)}));
        QCOMPARE(bornesAnnees(2008, 2009, ModeAnnee::Hydrologique),
                 (BornesFlux{QDate(2008, 10, 1), QDate(2010, 10, 1)}));
        // 30 September is the last day.
        QVERIFY(QDate(2010, 9, 30) < bornesAnnees(2008, 2009, ModeAnnee::Hydrologique).fin);
    }

    void fenetre()
    {
        // 01/01/2008 less 15 days is 17/12/2007: from 01/12/2007; 01/02/2008 and two months: before 01/04/2008.
        QCOMPARE(fenetreConcentrations(JANVIER), (BornesFlux{QDate(2007, 12, 1), QDate(2008, 4, 1)}));
        QCOMPARE(fenetreConcentrations(bornesAnnees(2008, 2008, ModeAnnee::Hydrologique)),
                 (BornesFlux{QDate(2008, 9, 1), QDate(2009, 12, 1)}));
        // Over a change of year at the end.
        QCOMPARE(fenetreConcentrations(bornesMois(QDate(2008, 12, 1), QDate(2008, 12, 1))),
                 (BornesFlux{QDate(2008, 11, 1), QDate(2009, 3, 1)}));
    }

    void interpolation()
    {
        const auto valeurs = interpolerConcentrations(JANVIER, SERIE);
        QCOMPARE(valeurs.size(), 31);
        const QList<std::pair<int, double>> attendues{{1, 28},  {2, 30},  {6, 38},  {7, 40}, {8, 39},
                                                      {16, 31}, {17, 30}, {18, 31}, {31, 44}};
        for (const auto &[jour, attendue] : attendues) {
            QVERIFY(valeurs[jour - 1].has_value());
            QCOMPARE(*valeurs[jour - 1], attendue);
        }
    }

    void horsDesPrelevements()
    {
        // Nothing before the first sample nor after the last; its own value on the day of each.
        const auto valeurs = interpolerConcentrations(JANVIER, SERIE.mid(1, 2));
        QVERIFY(!valeurs[5]);
        QCOMPARE(*valeurs[6], 40.0);
        QCOMPARE(*valeurs[16], 30.0);
        QVERIFY(!valeurs[17]);
        // One sample alone gives its own day.
        const auto seul = interpolerConcentrations(JANVIER, SERIE.mid(1, 1));
        QCOMPARE(std::count_if(seul.begin(), seul.end(), [](const auto &v) { return v.has_value(); }), 1);
        QCOMPARE(*seul[6], 40.0);
        // Samples all before, or none: nothing.
        for (const auto &mesures : {SERIE.mid(0, 1), QList<ConcentrationDuJour>()}) {
            for (const auto &valeur : interpolerConcentrations(JANVIER, mesures))
                QVERIFY(!valeur);
        }
    }

    void interpolationAnneeBissextile()
    {
        // 27/02/2008 to 03/03/2008 are five days, the 29th being one: 10, 12, 14, 16, 18, 20.
        const BornesFlux bornes{QDate(2008, 2, 27), QDate(2008, 3, 4)};
        const auto valeurs =
            interpolerConcentrations(bornes, {{QDate(2008, 2, 27), 10}, {QDate(2008, 3, 3), 20}});
        QCOMPARE(valeurs.size(), 6);
        for (int i = 0; i < 6; ++i)
            QCOMPARE(*valeurs[i], 10.0 + 2 * i);
    }

    void plusieursLeMemeJour()
    {
        const QDate jour(2008, 1, 7);
        const QList<ConcentrationDuJour> mesures =
            parJour(QList<ConcentrationDuJour>{{jour.addDays(3), 9}, {jour, 10}, {jour, 40}, {jour, 40}});
        QCOMPARE(mesures, (QList<ConcentrationDuJour>{{jour, 30}, {jour.addDays(3), 9}}));
        QCOMPARE(parJour(QList<DebitDuJour>{{jour, 100}, {jour, 300}}), (QList<DebitDuJour>{{jour, 200}}));
    }

    void volume() { QCOMPARE(volumeJourL(2.5), 216000.0); }

    void fluxDuJour()
    {
        // 07/01: 40 mg/l x 1000 l/s x 86 400 s = 3 456 000 000 mg. The 8th has no flow; the sample is of the 7th.
        QList<DebitDuJour> debits = debitConstant(JANVIER, 1000);
        debits.removeAt(7);
        const auto jours = fluxJournaliers(JANVIER, SERIE, debits);
        QCOMPARE(jours.size(), 31);
        QCOMPARE(jours[6].jour, QDate(2008, 1, 7));
        QCOMPARE(*jours[6].debitLS, 1000.0);
        QCOMPARE(*jours[6].volumeJourL, 86400000.0);
        QCOMPARE(*jours[6].fluxMg, 3456000000.0);
        QVERIFY(!jours[7].debitLS && !jours[7].volumeJourL && !jours[7].fluxMg);
        QCOMPARE(*jours[7].concentrationMgL, 39.0);
        // A flow without a concentration: a volume and no flux.
        const auto sansMesure = fluxJournaliers(JANVIER, {}, debits);
        QVERIFY(sansMesure[6].volumeJourL && !sansMesure[6].fluxMg);
        // A flow of zero is a flow.
        const auto assec = fluxJournaliers(JANVIER, SERIE, debitConstant(JANVIER, 0));
        QCOMPARE(*assec[6].fluxMg, 0.0);
        // Flows outside the period change nothing.
        const auto large =
            fluxJournaliers(JANVIER, SERIE, debitConstant({QDate(2007, 12, 1), QDate(2008, 4, 1)}, 1000));
        QCOMPARE(large.size(), 31);
        QCOMPARE(*large[0].fluxMg, 28.0 * 86400000);
    }

    void mensuel()
    {
        const auto mois = fluxMensuels(fluxJournaliers(JANVIER, SERIE, debitConstant(JANVIER, 1000)));
        QCOMPARE(mois.size(), 1);
        QCOMPARE(mois[0].debut, QDate(2008, 1, 1));
        QCOMPARE(mois[0].intitule, QStringLiteral("01/2008"));
        QCOMPARE(mois[0].jours, 31);
        QCOMPARE(mois[0].joursAvecDebit, 31);
        QVERIFY(!mois[0].debitIncomplet());
        QVERIFY(proche(*mois[0].fluxMg, 95731200000.0));
        QVERIFY(proche(*mois[0].volumeL, 31 * 86400000.0));
    }

    // Three months at 1000 l/s: January lacks the flows of the 1st, 2nd and 31st (28 + 30 + 44 = 102, so 1006 mg/l x days
    // remain over 28 days), February has none, March (50 mg/l from 06/02 to 01/04) has all.
    void moisIncomplets()
    {
        const BornesFlux trimestre = bornesMois(QDate(2008, 1, 1), QDate(2008, 3, 1));
        QList<ConcentrationDuJour> mesures = SERIE;
        mesures << ConcentrationDuJour{QDate(2008, 4, 1), 50};
        QList<DebitDuJour> debits = debitConstant({QDate(2008, 1, 3), QDate(2008, 1, 31)}, 1000) +
                                    debitConstant({QDate(2008, 3, 1), QDate(2008, 4, 1)}, 1000);
        const auto mois = fluxMensuels(fluxJournaliers(trimestre, mesures, debits));
        QCOMPARE(mois.size(), 3);
        QCOMPARE(mois[0].joursAvecDebit, 28);
        QVERIFY(mois[0].debitIncomplet());
        QVERIFY(proche(*mois[0].fluxMg, 1006 * 86400000.0));
        QCOMPARE(mois[1].jours, 29);
        QCOMPARE(mois[1].joursAvecDebit, 0);
        QVERIFY(!mois[1].fluxMg && !mois[1].volumeL);
        QVERIFY(proche(*mois[2].fluxMg, 31 * 50 * 86400000.0));

        const auto cumul = cumuler(mois);
        QCOMPARE(*cumul[0].fluxMg, *mois[0].fluxMg);
        QVERIFY(!cumul[1].fluxMg && !cumul[1].volumeL);
        QVERIFY(proche(*cumul[2].fluxMg, (1006 + 1550) * 86400000.0));
        QVERIFY(proche(*cumul[2].volumeL, 59 * 86400000.0));
        QCOMPARE(cumul[0].joursAvecDebit, 28);
    }

    void annuel_data()
    {
        QTest::addColumn<bool>("hydrologique");
        QTest::addColumn<QStringList>("intitules");
        QTest::addColumn<QList<int>>("jours");
        QTest::newRow("civil") << false << QStringList{"2008", "2009"} << QList<int>{366, 365};
        QTest::newRow("hydrological")
            << true << QStringList{"2008-2009", "2009-2010"} << QList<int>{365, 365};
    }

    // 20 mg/l and 500 l/s all along: 20 x 43 200 000 l = 864 000 000 mg a day.
    void annuel()
    {
        QFETCH(bool, hydrologique);
        QFETCH(QStringList, intitules);
        QFETCH(QList<int>, jours);
        const ModeAnnee mode = hydrologique ? ModeAnnee::Hydrologique : ModeAnnee::Civile;
        const BornesFlux bornes = bornesAnnees(2008, 2009, mode);
        const QList<ConcentrationDuJour> mesures{{QDate(2007, 12, 15), 20}, {QDate(2010, 11, 3), 20}};
        const auto annees = fluxAnnuels(fluxJournaliers(bornes, mesures, debitConstant(bornes, 500)), mode);
        QCOMPARE(annees.size(), 2);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(annees[i].intitule, intitules[i]);
            QCOMPARE(annees[i].jours, jours[i]);
            QVERIFY(proche(*annees[i].fluxMg, jours[i] * 864000000.0));
        }
    }

    void conversion()
    {
        // 95 731 200 000 mg: 95.7312 t. Over 120 km2 (12 000 ha): 95 731.2 kg / 12 000 = 7.9776 kg/ha. In nitrogen,
        // 95.7312 / 4.42 = 21.658642533936..., 7.9776 / 4.42 = 1.804886877828...
        const double mg = 95731200000.0;
        QVERIFY(proche(convertirFlux(mg, {}), 95.7312));
        QVERIFY(proche(convertirFlux(mg, {120.0, false}), 7.9776));
        QVERIFY(qAbs(convertirFlux(mg, {std::nullopt, true}) - 21.658642533936) < 1e-11);
        QVERIFY(qAbs(convertirFlux(mg, {120.0, true}) - 1.804886877828) < 1e-11);
        QVERIFY(proche(convertirFlux(mg, {}) / convertirFlux(mg, {std::nullopt, true}), 4.42));
        QCOMPARE(volumeM3(86400000), 86400.0);
    }

    void unites()
    {
        QCOMPARE(nomUniteFlux(false, true), QStringLiteral("T de N-No3"));
        QCOMPARE(nomUniteFlux(true, true), QStringLiteral("kg de N-No3/ha"));
        QCOMPARE(nomUniteFlux(false, false), QStringLiteral("Tonnes"));
        QCOMPARE(nomUniteFlux(true, false), QStringLiteral("Kg/ha"));
    }
};

QTEST_GUILESS_MAIN(TestFluxCalcul)
#include "test_flux_calcul.moc"
