// The texts of the evolution charts, letter for letter.
#include "analysis/TexteEvolution.h"

#include <QTest>

namespace
{
EnTeteRapport courbe(const char *parametre, const char *fraction = "")
{
    EnTeteRapport c;
    c.bassin = QStringLiteral("La Landrezelle");
    c.codeAffiche = QStringLiteral("04999010");
    c.riviere = QStringLiteral("Le Landrezelle");
    c.station = QStringLiteral("Pont de l'Ile");
    c.parametre = QString::fromUtf8(parametre);
    c.libelleFraction = QString::fromUtf8(fraction);
    if (*fraction)
        c.parametre = c.libelleFraction + QStringLiteral(" - ") + c.parametre;
    c.unite = QStringLiteral("mg/L");
    return c;
}

DemandeEvolution demande()
{
    DemandeEvolution d;
    d.selection.debut = QDate(2010, 2, 15);
    d.selection.fin = QDate(2014, 8, 31);
    return d;
}
} // namespace

class TestTexteEvolution : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titreDUneCourbe()
    {
        EnTeteEvolution enTete;
        enTete.courbes = {courbe("Nitrates")};
        QCOMPARE(TexteEvolution::titre(enTete, demande()),
                 QStringLiteral("BASSIN VERSANT :  La Landrezelle\n"
                                "Evolution des teneurs en Nitrates à la station de mesure : 04999010\n"
                                "Cours d'eau : Le Landrezelle  -  Lieu-dit : Pont de l'Ile\n"
                                "Période : février 2010 - août 2014"));
        enTete.courbes = {courbe("Carbone Organique", "Eau brute")};
        QVERIFY(TexteEvolution::titre(enTete, demande())
                    .contains(QStringLiteral("teneurs en Eau brute - Carbone Organique à la station")));
    }

    // Organic carbon goes by its fraction beside another curve; without one, by its name.
    void titreDeDeuxCourbes()
    {
        EnTeteEvolution enTete;
        enTete.courbes = {courbe("Nitrates"), courbe("Carbone Organique", "Eau brute")};
        QCOMPARE(TexteEvolution::titre(enTete, demande()),
                 QStringLiteral(
                     "BASSIN VERSANT :  La Landrezelle\n"
                     "Evolution des teneurs en Nitrates et Eau brute à la station de mesure : 04999010\n"
                     "   Cours d'eau : Le Landrezelle  -  Lieu-dit : Pont de l'Ile\n"
                     "Période : février 2010 - août 2014"));
        enTete.courbes = {courbe("Carbone Organique"), courbe("Carbone Organique", "Phase aqueuse")};
        QVERIFY(TexteEvolution::titre(enTete, demande())
                    .contains(QStringLiteral("teneurs en Carbone Organique et Phase aqueuse à la station")));
    }

    void figures()
    {
        StatistiquesEvolution f;
        f.effectif = 120;
        f.maximum = 52.1234;
        f.minimum = 0.5;
        f.moyenne = 25.125; // ties to the even digit
        f.ecartType = 8;
        f.depassementMoyen = 100.0 / 3;
        f.depassementMaximal = 12.5;
        DemandeEvolution d = demande();
        const QString ligne =
            QStringLiteral("Nombre de prélèvements : 120   Maximum : 52,1234 mg/L   Minimum : 0,5 mg/L   "
                           "Valeur Moyenne : 25,12 mg/L   Ecart Type : 8 mg/L");
        QCOMPARE(TexteEvolution::figures(f, QStringLiteral("mg/L"), d, {}), QStringList{ligne});
        // A frequency is told of an objective that is drawn.
        d.frequenceMoyen = true;
        QCOMPARE(TexteEvolution::figures(f, QStringLiteral("mg/L"), d, {}), QStringList{ligne});
        d.objectifMoyen = 25;
        d.objectifMaximal = 50;
        const QStringList avecMoyen{ligne,
                                    QStringLiteral(" Fréquence de dépassement de l'objectif moyen : 33,33 %"),
                                    QStringLiteral("Source de données : Agence, Syndicat")};
        QCOMPARE(TexteEvolution::figures(f, QStringLiteral("mg/L"), d,
                                         {QStringLiteral("Agence"), QStringLiteral("Syndicat")}),
                 avecMoyen);
        d.frequenceMaximal = true;
        QCOMPARE(TexteEvolution::figures(f, QStringLiteral("mg/L"), d, {}).value(1),
                 QStringLiteral(" Fréquence de dépassement de l'objectif moyen : 33,33 %   Fréquence de "
                                "dépassement de l'objectif maximal : 12,5 %"));
    }

    void axesEtSeries()
    {
        QCOMPARE(TexteEvolution::axe(QStringLiteral("mg/L")), QStringLiteral(" ( mg/L ) "));
        QCOMPARE(TexteEvolution::axeDebit(), QStringLiteral(" ( Débit l/s ) "));
        QCOMPARE(TexteEvolution::axePluie(), QStringLiteral(" ( Précipitations mm ) "));
        QCOMPARE(TexteEvolution::niveau(QStringLiteral("Seuil"), 37.5, QStringLiteral("mg/L")),
                 QStringLiteral("Seuil (37,5 mg/L)"));
        QCOMPARE(
            TexteEvolution::echelleTropPetite(52.5),
            QStringLiteral("La valeur maximale saisie est inférieure à la valeur maximale trouvée (52,5). Il "
                           "manquera probablement des points sur le graphique !"));
    }
};

QTEST_GUILESS_MAIN(TestTexteEvolution)
#include "test_texte_evolution.moc"
