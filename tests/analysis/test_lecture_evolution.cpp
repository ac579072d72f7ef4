#include "analysis/LectureEvolution.h"
#include "BaseDEssai.h"

#include <QTest>

namespace
{
const QString STATION = QStringLiteral("04211940");

DemandeEvolution demande(const QList<CourbeDemandee> &courbes)
{
    DemandeEvolution d;
    d.selection.codeStation = STATION;
    d.selection.debut = QDate(2010, 1, 1);
    d.selection.fin = QDate(2010, 12, 31);
    d.courbes = courbes;
    return d;
}

const CourbeDemandee NITRATES{QStringLiteral("Nitrates"), {}};
const CourbeDemandee CARBONE{QStringLiteral("Carbone Organique"), {}};
const CourbeDemandee CARBONE_BRUT{QStringLiteral("Carbone Organique"), QStringLiteral("23 - Eau brute")};
const CourbeDemandee CARBONE_AQUEUX{QStringLiteral("Carbone Organique"), QStringLiteral("3 - Phase aqueuse")};

QList<double> valeurs(const BaseDEssai &base, const DemandeEvolution &d, qsizetype courbe = 0)
{
    const EnTeteEvolution enTete = lireEnTeteEvolution(base.donnees, d);
    QList<double> liste;
    for (const EnregistrementPC &e : lireCourbe(base.donnees, d, enTete.courbes[courbe], courbe, [] {}))
        liste << e.valeur;
    return liste;
}
} // namespace

class TestLectureEvolution : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void grille()
    {
        const BaseDEssai base;
        base.sql(
            "INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ, Valeur3BisSEQ) "
            "VALUES ('1340', 2, 10, 25, 50, 15), ('1841', 5, 7, 10, 12, NULL)");
        DemandeEvolution d = demande({NITRATES});
        QVERIFY(!lireEnTeteEvolution(base.donnees, d).grille); // not asked for
        d.fondSEQ = true;
        QCOMPARE(lireEnTeteEvolution(base.donnees, d).grille, (BornesSEQ{2, 10, 25, 15, 50, 0}));
        // Of organic carbon, for one fraction alone, which is to be told.
        d.courbes = {CARBONE_BRUT};
        QCOMPARE(lireEnTeteEvolution(base.donnees, d).grille, (BornesSEQ{5, 7, 10, 0, 12, 0}));
        for (const CourbeDemandee &courbe : {CARBONE_AQUEUX, CARBONE}) {
            d.courbes = {courbe};
            QVERIFY(!lireEnTeteEvolution(base.donnees, d).grille);
        }
        // Nor behind two curves.
        d.courbes = {NITRATES, CARBONE_BRUT};
        QVERIFY(!lireEnTeteEvolution(base.donnees, d).grille);
        base.sql("DELETE FROM GRILLE_SEQ");
        d.courbes = {NITRATES};
        QVERIFY(!lireEnTeteEvolution(base.donnees, d).grille);
    }

    void norme()
    {
        const BaseDEssai base;
        DemandeEvolution d = demande({NITRATES});
        d.norme = true;
        QVERIFY(!lireEnTeteEvolution(base.donnees, d).norme);
        base.sql("INSERT INTO NORME_AEP (CodeParam, CD_FRACTION, ValeurNorme) VALUES ('1340', '0', 50), "
                 "('1841', '23', 10), ('1841', '3', 4.5)");
        QCOMPARE(lireEnTeteEvolution(base.donnees, d).norme, std::optional<double>(50));
        d.courbes = {CARBONE_AQUEUX};
        QCOMPARE(lireEnTeteEvolution(base.donnees, d).norme, std::optional<double>(4.5));
        d.courbes = {NITRATES, CARBONE_BRUT};
        QVERIFY(!lireEnTeteEvolution(base.donnees, d).norme);
        d.courbes = {NITRATES};
        d.norme = false;
        QVERIFY(!lireEnTeteEvolution(base.donnees, d).norme);
    }

    void unites()
    {
        const BaseDEssai base;
        base.sql("UPDATE PARAMETRE SET CodeUnite = NULL");
        const EnTeteEvolution enTete = lireEnTeteEvolution(base.donnees, demande({NITRATES, CARBONE_BRUT}));
        QCOMPARE(enTete.courbes[0].unite, QStringLiteral("non définie"));
        QCOMPARE(enTete.courbes[1].unite, QStringLiteral("non défini"));
        QCOMPARE(enTete.courbes[1].parametre, QStringLiteral("Eau brute - Carbone Organique"));
        QCOMPARE(enTete.courbes[1].libelleFraction, QStringLiteral("Eau brute"));
    }

    // Each curve reads its own parameter and fraction, over the whole period, by date.
    void courbes()
    {
        const BaseDEssai base;
        for (const auto &[jour, nitrates, brut, aqueux] : {std::tuple(QDate(2010, 12, 31), 3.0, 30.0, 300.0),
                                                           std::tuple(QDate(2010, 1, 1), 1.0, 10.0, 100.0),
                                                           std::tuple(QDate(2010, 6, 1), 2.0, 20.0, 200.0),
                                                           std::tuple(QDate(2011, 1, 1), 9.0, 90.0, 900.0)}) {
            const qint64 prel = base.ajouterPrelevement(STATION, jour);
            base.ajouterMesure(prel, "1340", nitrates);
            base.ajouterMesure(prel, "1841", brut, "1", "17", "23");
            base.ajouterMesure(prel, "1841", aqueux, "1", "17", "3");
        }
        const DemandeEvolution fractions = demande({CARBONE_AQUEUX, CARBONE_BRUT});
        QCOMPARE(valeurs(base, fractions, 0), QList<double>({100, 200, 300}));
        QCOMPARE(valeurs(base, fractions, 1), QList<double>({10, 20, 30}));
        QCOMPARE(valeurs(base, demande({NITRATES, CARBONE_BRUT}), 0), QList<double>({1, 2, 3}));
        QCOMPARE(valeurs(base, demande({CARBONE})).size(), 6); // all fractions
    }

    // Both ends of the period; days without a value and other stations left out; by date.
    void debits()
    {
        const BaseDEssai base;
        base.ajouterDebitJour("J7010610", QDate(2010, 12, 31), 3.5);
        base.ajouterDebitJour("J7010610", QDate(2010, 1, 1), 1);
        base.ajouterDebitJour("J7010610", QDate(2009, 12, 31), 99);
        base.ajouterDebitJour("J7010610", QDate(2011, 1, 1), 99);
        base.ajouterDebitJour("J9999999", QDate(2010, 2, 1), 99);
        base.sql("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitMoisMesureHM) "
                 "VALUES ('J7010610', '2010-03-01', 500)");
        DemandeEvolution d = demande({NITRATES});
        QVERIFY(lireDebits(base.donnees, d, [] {}).isEmpty());
        d.selection.stationDebit = QStringLiteral("J7010610");
        QCOMPARE(lireDebits(base.donnees, d, [] {}),
                 QList<ValeurDuJour>({{QDate(2010, 1, 1), 1}, {QDate(2010, 12, 31), 3.5}}));
        QCOMPARE(lireEnTeteEvolution(base.donnees, d).debit.nom, QStringLiteral("Le Meu à Quédillac"));
        d.selection.stationDebit = QStringLiteral("J9999999");
        QCOMPARE(lireEnTeteEvolution(base.donnees, d).debit.nom, QStringLiteral("J9999999"));
    }

    void pluies()
    {
        const BaseDEssai base;
        base.sql("INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM) VALUES "
                 "('35228001', '2010-05-02', 12.25), ('35228001', '2010-05-01', 0), "
                 "('35228001', '2010-05-03', NULL), ('99999999', '2010-05-01', 9), "
                 "('35228001', '2011-01-01', 9)");
        DemandeEvolution d = demande({NITRATES});
        d.stationPluie = QStringLiteral("35228001");
        QCOMPARE(lirePluies(base.donnees, d, [] {}),
                 QList<ValeurDuJour>({{QDate(2010, 5, 1), 0}, {QDate(2010, 5, 2), 12.25}}));
        QCOMPARE(lireEnTeteEvolution(base.donnees, d).pluie.nom, QStringLiteral("Quédillac bourg"));
    }

    // A flow statement goes through its index, not through the whole table.
    void parLIndex()
    {
        const BaseDEssai base;
        for (const char *sql :
             {"SELECT DateMesureHM FROM MESURE_HYDRO WHERE CodeStationHM = 'a' AND DateMesureHM >= 'b' AND "
              "DateMesureHM <= 'c' AND DebitJourMesureHM IS NOT NULL ORDER BY DateMesureHM",
              "SELECT DateMesurePM FROM MESURE_PLUVIO WHERE CodeStationPM = 'a' AND DateMesurePM >= 'b' AND "
              "DateMesurePM <= 'c' AND JourMesurePM IS NOT NULL ORDER BY DateMesurePM"}) {
            Requete plan = base.donnees.executer(QStringLiteral("EXPLAIN QUERY PLAN ") + QLatin1String(sql));
            QVERIFY(plan.suivant());
            QVERIFY2(plan.texte(QStringLiteral("detail")).contains(QStringLiteral("USING INDEX")),
                     qPrintable(plan.texte(QStringLiteral("detail"))));
            QVERIFY2(!plan.suivant(), "no sort of its own");
        }
    }
};

QTEST_GUILESS_MAIN(TestLectureEvolution)
#include "test_lecture_evolution.moc"
