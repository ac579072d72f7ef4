// The pure part of the evolution charts. Expected values are worked out by hand in the comments.
#include "analysis/CalculEvolution.h"

#include <QTest>

namespace
{
const QDate J1(2010, 3, 1);
const QDate J2(2010, 3, 2);
const QDate J3(2010, 3, 3);

MesureTracee mesure(QDate jour, double valeur, const char *code = "1")
{
    return {jour, valeur, QString::fromLatin1(code)};
}

QList<MesureTracee> mesures(const QList<double> &valeurs)
{
    QList<MesureTracee> liste;
    for (const double valeur : valeurs)
        liste << mesure(J1.addDays(liste.size()), valeur);
    return liste;
}

// "01/03 12.5(2) - F7 P-": date, first curve with its code, second, flow, rain.
QString enTexte(const LigneEvolution &l)
{
    const auto courbe = [&l](size_t i) {
        return l.valeurs[i] ? QString::number(*l.valeurs[i]) + u'(' + l.codes[i] + u')' : QStringLiteral("-");
    };
    const auto jour = [](const char *nom, const std::optional<double> &v) {
        return QLatin1String(nom) + (v ? QString::number(*v) : QStringLiteral("-"));
    };
    return QStringList{l.date.toString(QStringLiteral("dd/MM")), courbe(0), courbe(1), jour("F", l.debit),
                       jour("P", l.pluie)}
        .join(u' ');
}

QStringList enTexte(const QList<LigneEvolution> &lignes)
{
    QStringList textes;
    for (const LigneEvolution &ligne : lignes)
        textes << enTexte(ligne);
    return textes;
}
} // namespace

class TestCalculEvolution : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Code 0 and what the filters refuse are not shown; an empty code or a text is a value as any other.
    void mesuresMontrees()
    {
        const auto lu = [](double valeur, const char *code, const char *gest, const char *comment) {
            return EnregistrementPC{J1, valeur, QString::fromLatin1(code), QString::fromLatin1(gest),
                                    QString::fromLatin1(comment)};
        };
        const QList<EnregistrementPC> lus{lu(1, "1", "17", ""), lu(2, "0", "18", ""), lu(3, "", "19", "crue"),
                                          lu(4, "10", "17", ""), lu(5, "x", "", "")};
        QList<double> valeurs;
        for (const MesureTracee &m : mesuresTracees(lus, {}))
            valeurs << m.valeur;
        QCOMPARE(valeurs, QList<double>({1, 3, 4, 5}));
        QCOMPARE(producteursTraces(lus, {}), QStringList({"17", "19"}));
        QCOMPARE(mesuresTracees(lus, {{"17"}, {}}).size(), 2);
        QCOMPARE(mesuresTracees(lus, {{}, {"crue"}}), QList<MesureTracee>({mesure(J1, 3, "")}));
        QCOMPARE(producteursTraces(lus, {{}, {""}}), QStringList{"17"});
    }

    // A measure and the flow of its day share a row.
    void unJourUneLigne()
    {
        SeriesEvolution s;
        s.courbes[0] = {mesure(J1, 12, "2"), mesure(J3, 14)};
        s.debits = {{J1, 7}, {J2, 8}};
        QCOMPARE(enTexte(fusionnerParDate(s)),
                 QStringList({"01/03 12(2) - F7 P-", "02/03 - - F8 P-", "03/03 14(1) - F- P-"}));
    }

    // Series come in any order and of any length; days come out in order.
    void toutesLesSeries()
    {
        SeriesEvolution s;
        s.courbes[0] = {mesure(J3, 1)};
        s.courbes[1] = {mesure(J1, 2, "3"), mesure(J3, 3)};
        s.debits = {{J2, 4}, {J3, 5}};
        s.pluies = {{J1, 6}, {J2, 7}};
        QCOMPARE(enTexte(fusionnerParDate(s)),
                 QStringList({"01/03 - 2(3) F- P6", "02/03 - - F4 P7", "03/03 1(1) 3(1) F5 P-"}));
    }

    // Two samples of a day take two rows, in the order read; the day's flow stands on the first.
    void deuxMesuresLeMemeJour()
    {
        SeriesEvolution s;
        s.courbes[0] = {mesure(J1, 9, "1"), mesure(J1, 8, "2"), mesure(J2, 7)};
        s.courbes[1] = {mesure(J1, 5)};
        s.debits = {{J1, 1}, {J1, 2}, {J1, 3}};
        QCOMPARE(enTexte(fusionnerParDate(s)), QStringList({"01/03 9(1) 5(1) F1 P-", "01/03 8(2) - F2 P-",
                                                            "01/03 - - F3 P-", "02/03 7(1) - F- P-"}));
    }

    void sansRien() { QVERIFY(fusionnerParDate({}).isEmpty()); }

    void points()
    {
        SeriesEvolution s;
        s.courbes[0] = {mesure(J1, 1, "2"), mesure(J2, 1, "10"), mesure(J3, 1, "3")};
        s.courbes[1] = {mesure(J2, 1, "2,0"), mesure(J3, 1, "abc")};
        s.debits = {{J1.addDays(-1), 5}}; // pushes every row down by one
        QCOMPARE(pointsMarques(fusionnerParDate(s)), QList<PointMarque>({{0, 1, 2}, {1, 2, 2}, {0, 3, 3}}));
    }

    // 2 4 4 4 5 5 7 9: mean 5, squared differences 9+1+1+1+0+0+4+16 = 32, over 8 is 4, deviation 2; median (4+5)/2.
    void figures()
    {
        const StatistiquesEvolution f = calculerEvolution(mesures({4, 9, 2, 5, 4, 7, 4, 5}), 4, 9);
        QCOMPARE(f.effectif, 8);
        QCOMPARE(f.moyenne, 5.0);
        QCOMPARE(f.ecartType, 2.0);
        QCOMPARE(f.mediane, 4.5);
        QCOMPARE(f.minimum, 2.0);
        QCOMPARE(f.maximum, 9.0);
        QVERIFY(!f.quantile90);
        QCOMPARE(*f.depassementMoyen, 50.0); // 5 5 7 9 of 8: a value equal to the objective is no exceedance
        QCOMPARE(*f.depassementMaximal, 0.0);
    }

    // Values of code 2 are taken as stored, in the mean too: (10 + 20) / 2.
    void codeDeuxTelQuel()
    {
        const StatistiquesEvolution f =
            calculerEvolution({mesure(J1, 10, "2"), mesure(J2, 20)}, std::nullopt, std::nullopt);
        QCOMPARE(f.moyenne, 15.0);
        QVERIFY(!f.depassementMoyen);
    }

    // Ten values have no quantile; of eleven it is at 11 x 0.9 + 0.5 = 10.4, the tenth: of 1 to 11, 10. Of twelve,
    // 12 x 0.9 + 0.5 = 11.3, the eleventh.
    void quantile()
    {
        const QList<double> dix{3, 1, 2, 10, 9, 8, 4, 5, 6, 7};
        QVERIFY(!calculerEvolution(mesures(dix), std::nullopt, std::nullopt).quantile90);
        QCOMPARE(*calculerEvolution(mesures(dix + QList<double>{11}), std::nullopt, std::nullopt).quantile90,
                 10.0);
        QCOMPARE(
            *calculerEvolution(mesures(dix + QList<double>{11, 12}), std::nullopt, std::nullopt).quantile90,
            11.0);
    }

    void uneSeuleMesure()
    {
        const StatistiquesEvolution f = calculerEvolution(mesures({0}), 5, std::nullopt);
        QCOMPARE(f.effectif, 1);
        QCOMPARE(f.ecartType, 0.0);
        QCOMPARE(f.maximum, 0.0);
        QCOMPARE(f.minimum, 0.0);
        QCOMPARE(*f.depassementMoyen, 0.0);
    }

    // 2, 10, 25, 50: 2 / 10-2 = 8 / 25-8-2 = 15 / 50-15-8-2 = 25, and 25 again at the top.
    void bandesSansBis()
    {
        QCOMPARE(hauteursDesBandes({2, 10, 25, 0, 50, 0}), BandesSEQ({2, 8, 15, 0, 25, 0, 25}));
    }

    // With 15 between the second and the third, 60 above the fourth: light yellow 15-8-2 = 5, yellow 25-5-8-2 = 10,
    // orange 50-5-10-8-2 = 25, dark orange 60-25-10-5-8-2 = 10.
    void bandesAvecBis()
    {
        QCOMPARE(hauteursDesBandes({2, 10, 25, 15, 50, 60}), BandesSEQ({2, 8, 10, 5, 25, 10, 25}));
        QCOMPARE(hauteursDesBandes({2, 10, 25, 0, 50, 60}), BandesSEQ({2, 8, 15, 0, 25, 10, 25}));
        QCOMPARE(hauteursDesBandes({2, 10, 25, 15, 50, 0}), BandesSEQ({2, 8, 10, 5, 25, 0, 25}));
    }

    // 0.1, 0.7, 1.4, 2 make 0.6, 0.7, 0.6, without the noise of binary differences.
    void bandesSansBruit()
    {
        const BandesSEQ bandes = hauteursDesBandes({0.1, 0.7, 1.4, 0, 2, 0});
        QVERIFY(bandes[1] == 0.6);
        QVERIFY(bandes[2] == 0.7);
        QVERIFY(bandes[4] == 0.6);
    }

    void numerosDeRemarque()
    {
        QCOMPARE(numeroRemarque(" 2 "), std::optional<double>(2));
        QCOMPARE(numeroRemarque("10,0"), std::optional<double>(10));
        QVERIFY(!numeroRemarque(QString()));
        QVERIFY(!numeroRemarque("<"));
    }
};

QTEST_GUILESS_MAIN(TestCalculEvolution)
#include "test_calcul_evolution.moc"
