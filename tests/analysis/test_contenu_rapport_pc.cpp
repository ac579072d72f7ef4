#include "analysis/ContenuRapportPC.h"

#include <QTest>

namespace
{
const QString UNITE = QStringLiteral("mg(NO3)/L");

QList<Annee> civiles(int premiere, int nombre)
{
    return decouperEnAnnees(QDate(premiere, 1, 1), QDate(premiere + nombre - 1, 12, 31), ModeAnnee::Civile);
}

StatistiquesAnnee anneeDe(qint64 effectif)
{
    StatistiquesAnnee annee;
    annee.vide = false;
    annee.effectif = effectif;
    return annee;
}
} // namespace

class TestContenuRapportPC : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titre()
    {
        QCOMPARE(
            ContenuRapportPC::titre(ModeAnnee::Civile),
            QStringLiteral("RAPPORT STATISTIQUE - Données physico-chimiques\nles calculs sont effectués sur "
                           "l'année civile"));
        QVERIFY(ContenuRapportPC::titre(ModeAnnee::Hydrologique)
                    .endsWith(QStringLiteral("\nles calculs sont effectués "
                                             "sur l'année hydrologique")));
    }

    void sources()
    {
        QCOMPARE(ContenuRapportPC::sources({}), QString());
        QCOMPARE(ContenuRapportPC::sources({"Agence de l'eau", "DREAL"}),
                 QStringLiteral("Source des données utilisées : Agence de l'eau, DREAL"));
    }

    // Objectives that exist stand in the label, with a comma and no padding zeros.
    void libellesAvecObjectifs()
    {
        Limites limites;
        limites.objectifMoyen = 25;
        limites.objectifMaximum = 0.75;
        limites.seuil = 0;
        const QStringList periode = ContenuRapportPC::libellesPeriode(UNITE, limites);
        QCOMPARE(periode,
                 QStringList({"Nombre de mesure(s)", "Moyenne (mg(NO3)/L)",
                              "Maximum observé sur la période (mg(NO3)/L)",
                              "Minimum observé sur la période (mg(NO3)/L)",
                              "Fréquence de dépassement de l'objectif moyen du BV (25 mg(NO3)/L)",
                              "Fréquence de dépassement de l'objectif maximum du BV (0,75 mg(NO3)/L)",
                              "Quantile 90 (mg(NO3)/L)", "Quantile 10 (mg(NO3)/L)", "Ecart-Type (mg(NO3)/L)",
                              "Médiane (mg(NO3)/L)"}));
        const QStringList annee = ContenuRapportPC::libellesAnnee(UNITE, limites);
        QCOMPARE(annee.size(), 13);
        QCOMPARE(annee[8], QStringLiteral("Fréquence de dépassement du seuil (0 mg(NO3)/L)"));
    }

    void libellesSansObjectifs()
    {
        QCOMPARE(
            ContenuRapportPC::libellesAnnee(UNITE, {}),
            QStringList({"Nombre de mesure(s)", "Evolution des moyennes annuelles", "Quantile 90 (mg(NO3)/L)",
                         "Maximum (mg(NO3)/L)", "Quantile 10 (mg(NO3)/L)", "Minimum (mg(NO3)/L)",
                         "Fréquence de dépassement de l'objectif moyen du BV (inexistant)",
                         "Fréquence de dépassement de l'objectif maximum du BV (inexistant)",
                         "Fréquence de dépassement du seuil (inexistant)", "Médiane (mg(NO3)/L)",
                         "Ecart-Type (mg(NO3)/L)", "Moyenne pondérée annuelle (mg(NO3)/L)", "Classe SEQ"}));
    }

    // Rounded to two decimals, ties to even (0.125 and 0.375 are exact in binary); frequencies as French texts.
    void figuresDUneAnnee()
    {
        StatistiquesAnnee annee = anneeDe(12);
        annee.moyenne = 0.125;
        annee.quantile90 = 0.375;
        annee.maximum = 33.3333;
        annee.depassements.objectifMoyen = 100.0 / 12;
        annee.depassements.objectifMaximum = 50;
        annee.depassements.seuil = 0;
        annee.couleurClasse = 34;
        QCOMPARE(ContenuRapportPC::figuresAnnee(annee),
                 QVariantList({12.0, 0.12, 0.38, 33.33, "-", "-", "8,33 %", "50 %", "0 %", "-", "-", "-",
                               QVariant()}));
    }

    void anneeVide()
    {
        QCOMPARE(ContenuRapportPC::figuresAnnee({}), QVariantList(13, QString("-")));
        QCOMPARE(ContenuRapportPC::figuresPeriode({}), QVariantList(10, QString("-")));
    }

    // The extremes of the period are not rounded, all else is; a maximum of 0 stays a number.
    void figuresDeLaPeriode()
    {
        StatistiquesPeriode periode;
        periode.vide = false;
        periode.effectif = 999999;
        periode.moyenne = 0.0049;
        periode.maximum = 12.3456;
        periode.minimum = 0.0012;
        periode.depassements.objectifMoyen = 200.0 / 3;
        periode.quantile10 = 1.239;
        periode.ecartType = 2.005;
        periode.mediane = 0;
        QCOMPARE(ContenuRapportPC::figuresPeriode(periode),
                 QVariantList({999999.0, 0.0, 12.3456, 0.0012, "66,67 %", "-", "-", 1.24, 2.0, 0.0}));
        periode.maximum = 0;
        QCOMPARE(ContenuRapportPC::figuresPeriode(periode)[2], QVariant(0.0));
    }

    // Seven years: five in the first block, two in the second, whose header is fifteen rows further.
    void deuxBlocs()
    {
        QList<StatistiquesAnnee> figures;
        for (int k = 0; k < 7; ++k)
            figures << anneeDe(10 + k);
        const Valeurs valeurs =
            ContenuRapportPC::blocs(civiles(2001, 7), figures, ContenuRapportPC::libellesAnnee(UNITE, {}));
        QCOMPARE(valeurs.size(), 29);
        QCOMPARE(valeurs[0], QVector<QVariant>({QVariant(), 2001.0, 2002.0, 2003.0, 2004.0, 2005.0}));
        QCOMPARE(valeurs[1], QVector<QVariant>({"Nombre de mesure(s)", 10.0, 11.0, 12.0, 13.0, 14.0}));
        QCOMPARE(valeurs[14], QVector<QVariant>(6));
        QCOMPARE(valeurs[15],
                 QVector<QVariant>({QVariant(), 2006.0, 2007.0, QVariant(), QVariant(), QVariant()}));
        QCOMPARE(valeurs[16],
                 QVector<QVariant>({"Nombre de mesure(s)", 15.0, 16.0, QVariant(), QVariant(), QVariant()}));
        QCOMPARE(valeurs[28][0], QVariant("Classe SEQ"));
    }

    // A multiple of five opens no empty block.
    void cinqAnnees()
    {
        const QList<StatistiquesAnnee> figures(5, anneeDe(1));
        QCOMPARE(
            ContenuRapportPC::blocs(civiles(2001, 5), figures, ContenuRapportPC::libellesAnnee(UNITE, {}))
                .size(),
            14);
    }

    void anneeHydrologiqueEnTexte()
    {
        const QList<Annee> annees =
            decouperEnAnnees(QDate(2007, 10, 1), QDate(2008, 9, 30), ModeAnnee::Hydrologique);
        const Valeurs valeurs =
            ContenuRapportPC::blocs(annees, {anneeDe(1)}, ContenuRapportPC::libellesAnnee(UNITE, {}));
        QCOMPARE(valeurs[0][1], QVariant("2007-2008"));
    }
};

QTEST_APPLESS_MAIN(TestContenuRapportPC)
#include "test_contenu_rapport_pc.moc"
