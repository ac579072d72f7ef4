#include "analysis/StatistiquesPC.h"

#include <QTest>

#include <cmath>

namespace
{
EnregistrementPC releve(int jour, double valeur, const char *code = "1", const char *gestionnaire = "G1",
                        const char *commentaire = "")
{
    return {QDate(2008, 1, jour), valeur, QString::fromLatin1(code), QString::fromLatin1(gestionnaire),
            QString::fromLatin1(commentaire)};
}

DonneesStatistiques uneAnnee(const QList<EnregistrementPC> &enregistrements)
{
    DonneesStatistiques donnees;
    donnees.annees = {AnneeLue{enregistrements, {}}};
    donnees.resultatsDeLaBase = enregistrements.size();
    return donnees;
}
} // namespace

// Expected figures are worked out in the comments.
class TestStatistiquesPC : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codesRemarque()
    {
        QVERIFY(effetRemarque("0") == EffetRemarque::Ecarte);
        QVERIFY(effetRemarque(" 00 ") == EffetRemarque::Ecarte);
        QVERIFY(effetRemarque("0,0") == EffetRemarque::Ecarte);
        QVERIFY(effetRemarque("2") == EffetRemarque::Moitie);
        for (const char *code : {"", "1", "3", "10", "20", "x", "<"})
            QVERIFY2(effetRemarque(QString::fromLatin1(code)) == EffetRemarque::TelQuel, code);
    }

    // A code 0 is in no figure at all, not even the maximum; but it was read, so its entry stays empty and takes one off
    // the count: 3 read, n = 2, mean (4 + 6) / 2.
    void codeZeroEcarte()
    {
        const auto annee =
            calculerStatistiques(uneAnnee({releve(1, 4), releve(2, 99, "0"), releve(3, 6)})).annees[0];
        QCOMPARE(annee.effectif, 2);
        QCOMPARE(*annee.moyenne, 5.0);
        QCOMPARE(*annee.maximum, 6.0);
    }

    void anneeDeCodesZero()
    {
        const ResultatStatistiques resultat =
            calculerStatistiques(uneAnnee({releve(1, 4, "0"), releve(2, 5, "0")}));
        QVERIFY(resultat.annees[0].vide);
        QVERIFY(resultat.surLaBase.vide);
        QVERIFY(resultat.surLesRetenues.vide);
        QCOMPARE(resultat.mesuresLues, 2);
        QCOMPARE(resultat.mesuresRetenues, 0);
    }

    // Code 2 is halved in the mean alone: 4 and 10 (halved: 5) give 4.5; the maximum, the median (7) and the exceedance of
    // 9 see 10; deviation sqrt((0.25 + 30.25) / 2).
    void codeDeux()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 4), releve(2, 10, "2")});
        donnees.limites.seuil = 9;
        const auto annee = calculerStatistiques(donnees).annees[0];
        QCOMPARE(*annee.moyenne, 4.5);
        QCOMPARE(*annee.maximum, 10.0);
        QCOMPARE(*annee.quantile90, 10.0);
        QCOMPARE(*annee.mediane, 7.0);
        QCOMPARE(*annee.depassements.seuil, 50.0);
        QCOMPARE(*annee.ecartType, std::sqrt(15.25));
    }

    // Strictly above alone is an exceedance: of 50, 51 and 25, only 51 passes 50; all pass 0, a threshold like another.
    // The frequencies are over the three accepted records, not over the count (five read, two refused: 4).
    void depassements()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 50), releve(2, 51), releve(3, 25),
                                                releve(4, 80, "1", "G2"), releve(5, 80, "1", "G2")});
        donnees.filtres.gestionnaires = {"G1"};
        donnees.limites.objectifMoyen = 25;
        donnees.limites.objectifMaximum = 50;
        donnees.limites.seuil = 0;
        const ResultatStatistiques resultat = calculerStatistiques(donnees);
        const auto &annee = resultat.annees[0];
        QCOMPARE(annee.effectif, 4);
        QCOMPARE(*annee.depassements.objectifMoyen, 200.0 / 3);
        QCOMPARE(*annee.depassements.objectifMaximum, 100.0 / 3);
        QCOMPARE(*annee.depassements.seuil, 100.0);
        QCOMPARE(*resultat.surLaBase.depassements.objectifMaximum, 100.0 / 3);
        QCOMPARE(*resultat.surLesRetenues.depassements.objectifMaximum, 100.0 / 3);
    }

    void sansLimite()
    {
        const auto annee = calculerStatistiques(uneAnnee({releve(1, 50)})).annees[0];
        QVERIFY(!annee.depassements.objectifMoyen);
        QVERIFY(!annee.depassements.objectifMaximum);
        QVERIFY(!annee.depassements.seuil);
    }

    void filtres()
    {
        FiltresMesures filtres;
        QVERIFY(filtres.accepte(releve(1, 1, "1", "")));
        filtres.gestionnaires = {"G1", "G3"};
        QVERIFY(filtres.accepte(releve(1, 1, "1", "G3")));
        QVERIFY(!filtres.accepte(releve(1, 1, "1", "G2")));
        QVERIFY(!filtres.accepte(releve(1, 1, "1", "")));
        filtres = {};
        filtres.commentaires = {""};
        QVERIFY(filtres.accepte(releve(1, 1)));
        QVERIFY(!filtres.accepte(releve(1, 1, "1", "G1", "trouble")));
        filtres.commentaires = {"", "trouble"};
        QVERIFY(filtres.accepte(releve(1, 1, "1", "G1", "trouble")));
        QVERIFY(!filtres.accepte(releve(1, 1, "1", "G1", "Trouble")));
    }

    // Zeros have neither a maximum nor a minimum in a year; over the period the maximum is the plain 0.
    void zeros()
    {
        const ResultatStatistiques resultat = calculerStatistiques(uneAnnee({releve(1, 0), releve(2, 0)}));
        QVERIFY(!resultat.annees[0].vide);
        QVERIFY(!resultat.annees[0].maximum);
        QVERIFY(!resultat.annees[0].minimum);
        QCOMPARE(*resultat.annees[0].quantile90, 0.0);
        QCOMPARE(*resultat.annees[0].moyenne, 0.0);
        QCOMPARE(resultat.surLaBase.maximum, 0.0);
        QVERIFY(!resultat.surLaBase.minimum);
    }

    void minimumStrictementPositif()
    {
        const auto annee =
            calculerStatistiques(uneAnnee({releve(1, 0), releve(2, 3), releve(3, -1)})).annees[0];
        QCOMPARE(*annee.minimum, 3.0);
        QCOMPARE(*annee.maximum, 3.0);
        QCOMPARE(*annee.quantile10, -1.0);
    }

    // (2 x 10 + 6 x 30) / 40 = 5.
    void moyennePonderee()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 2), releve(2, 6)});
        donnees.annees[0].debits = {{QDate(2008, 1, 1), {10}}, {QDate(2008, 1, 2), {30}}};
        QCOMPARE(*calculerStatistiques(donnees).annees[0].moyennePonderee, 5.0);
    }

    // Code 2 is not halved here, and two records of one day both find its flow.
    void moyennePondereeCodeDeuxEtMemeJour()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 2, "2"), releve(1, 6)});
        donnees.annees[0].debits = {{QDate(2008, 1, 1), {10}}};
        QCOMPARE(*calculerStatistiques(donnees).annees[0].moyennePonderee, 4.0);
    }

    // One day without a flow, and there is no weighted mean; nor when a day has two (three flows for two records).
    void moyennePondereeIncomplete()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 2), releve(2, 6)});
        donnees.annees[0].debits = {{QDate(2008, 1, 1), {10}}};
        QVERIFY(!calculerStatistiques(donnees).annees[0].moyennePonderee);
        donnees.annees[0].debits = {{QDate(2008, 1, 1), {10}}, {QDate(2008, 1, 2), {30, 40}}};
        QVERIFY(!calculerStatistiques(donnees).annees[0].moyennePonderee);
    }

    // It is the number of flows that counts: two for one day make up for none on the other, (2 x 10 + 2 x 30) / 40.
    void moyennePondereeParCompensation()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 2), releve(2, 6)});
        donnees.annees[0].debits = {{QDate(2008, 1, 1), {10, 30}}};
        QCOMPARE(*calculerStatistiques(donnees).annees[0].moyennePonderee, 2.0);
    }

    void moyennePondereeDebitsNuls()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 2)});
        donnees.annees[0].debits = {{QDate(2008, 1, 1), {0}}};
        QVERIFY(!calculerStatistiques(donnees).annees[0].moyennePonderee);
    }

    // A refused record needs no flow.
    void moyennePondereeDesRetenues()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 2), releve(2, 6, "0")});
        donnees.annees[0].debits = {{QDate(2008, 1, 1), {10}}};
        QCOMPARE(*calculerStatistiques(donnees).annees[0].moyennePonderee, 2.0);
    }

    void classeSEQ_data()
    {
        QTest::addColumn<double>("valeur");
        QTest::addColumn<int>("couleur");
        QTest::newRow("blue") << 1.5 << 34;
        QTest::newRow("blue, on its bound") << 2.0 << 34;
        QTest::newRow("green") << 2.01 << 35;
        QTest::newRow("yellow") << 25.0 << 6;
        QTest::newRow("orange") << 25.5 << 40;
        QTest::newRow("orange, on its bound") << 50.0 << 40;
        QTest::newRow("red") << 50.0001 << 3;
        QTest::newRow("zero") << 0.0 << 34;
    }

    void classeSEQ()
    {
        QFETCH(double, valeur);
        QTEST(couleurClasseSEQ(valeur, {2, 10, 25, 50}), "couleur");
    }

    // The bounds that are not read count as 0: they only show where the first ones stand below 0.
    void classeSEQBornesNonLues()
    {
        QCOMPARE(couleurClasseSEQ(-1, {-5, -4, 8, 9}), 36);
        QCOMPARE(couleurClasseSEQ(-1, {-5, -4, -3, -2}), 36);
        QCOMPARE(couleurClasseSEQ(1, {0, 0, 0, 0}), 3);
    }

    // The class follows the unrounded quantile: 2.004 would show as 2 and is beyond it.
    void classeDuQuantileNonArrondi()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 2.004)});
        donnees.grille = GrilleSEQ{2, 10, 25, 50};
        QCOMPARE(*calculerStatistiques(donnees).annees[0].couleurClasse, 35);
    }

    // No grid, or no quantile (its entry is empty): no class.
    void sansClasse()
    {
        DonneesStatistiques donnees = uneAnnee({releve(1, 5), releve(2, 5, "0"), releve(3, 5, "0")});
        QVERIFY(!calculerStatistiques(donnees).annees[0].couleurClasse);
        donnees.grille = GrilleSEQ{2, 10, 25, 50};
        QVERIFY(!calculerStatistiques(donnees).annees[0].quantile90);
        QVERIFY(!calculerStatistiques(donnees).annees[0].couleurClasse);
    }

    // Two years, 2 and 4 then 6 (code 2, halved: 3), in a base of 10 results. Over the base: 10 - 1 = 9, mean (2 + 4 + 3) / 9
    // = 1, the 9th entry is empty, position 1 is 2, median the empty 5th, squared differences 1 + 9 + 25, over 9. Over the
    // accepted: count 3, mean 3, quantiles 6 and 2, median 4, squared differences 1 + 1 + 9, over 3.
    void periode()
    {
        DonneesStatistiques donnees;
        donnees.annees = {AnneeLue{{releve(1, 4), releve(2, 2)}, {}}, AnneeLue{{releve(3, 6, "2")}, {}}};
        donnees.resultatsDeLaBase = 10;
        donnees.limites.objectifMoyen = 4;
        const ResultatStatistiques resultat = calculerStatistiques(donnees);
        QCOMPARE(resultat.annees.size(), 2);
        QCOMPARE(resultat.annees[0].effectif, 2);
        QCOMPARE(resultat.annees[1].effectif, 1);

        const StatistiquesPeriode &base = resultat.surLaBase;
        QCOMPARE(base.effectif, 9);
        QCOMPARE(*base.moyenne, 1.0);
        QCOMPARE(base.maximum, 6.0);
        QCOMPARE(*base.minimum, 2.0);
        QCOMPARE(*base.depassements.objectifMoyen, 100.0 / 3);
        QVERIFY(!base.depassements.objectifMaximum);
        QVERIFY(!base.quantile90);
        QCOMPARE(*base.quantile10, 2.0);
        QCOMPARE(*base.mediane, 0.0);
        QCOMPARE(*base.ecartType, std::sqrt(35.0 / 9));

        const StatistiquesPeriode &retenues = resultat.surLesRetenues;
        QCOMPARE(retenues.effectif, 3);
        QCOMPARE(*retenues.moyenne, 3.0);
        QCOMPARE(retenues.maximum, 6.0);
        QCOMPARE(*retenues.minimum, 2.0);
        QCOMPARE(*retenues.quantile90, 6.0);
        QCOMPARE(*retenues.quantile10, 2.0);
        QCOMPARE(*retenues.mediane, 4.0);
        QCOMPARE(*retenues.ecartType, std::sqrt(11.0 / 3));
    }

    // The base may hold nothing but the accepted records: the count is theirs, nothing is taken off.
    void baseSansAutreResultat()
    {
        QCOMPARE(calculerStatistiques(uneAnnee({releve(1, 4), releve(2, 2)})).surLaBase.effectif, 2);
    }

    void sourcesUneFoisChacune()
    {
        const auto resultat = calculerStatistiques(
            uneAnnee({releve(1, 1, "1", "G2"), releve(2, 1, "1", "G1"), releve(3, 1, "1", "G2"),
                      releve(4, 1, "1", ""), releve(5, 1, "0", "G9")}));
        QCOMPARE(resultat.sources, QStringList({"G2", "G1"}));
    }

    void anneeVideParmiDautres()
    {
        DonneesStatistiques donnees;
        donnees.annees = {AnneeLue{}, AnneeLue{{releve(1, 4)}, {}}};
        donnees.resultatsDeLaBase = 1;
        const ResultatStatistiques resultat = calculerStatistiques(donnees);
        QVERIFY(resultat.annees[0].vide);
        QVERIFY(!resultat.annees[1].vide);
        QCOMPARE(resultat.mesuresRetenues, 1);
    }
};

QTEST_APPLESS_MAIN(TestStatistiquesPC)
#include "test_statistiques_pc.moc"
