// The searches of measures: by date, time and codes.
#include "BaseDEssai.h"
#include "database/M_Element_Existant_OVRA.h"
#include "database/M_Reseaux.h"

#include <QTest>

using namespace M_Element_Existant_OVRA;

namespace
{
const QString STATION = QStringLiteral("04211940");
const QString HYDRO = QStringLiteral("J7010610");
const QDate JOUR(2009, 3, 1);
} // namespace

class TestElementExistant : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void prelevement();
    void analyseDUnPrelevement();
    void analyseParDate();
    void mesureHydro();
    void mesurePluvio();
    void reseauxDesMesures();
    void reseauxDUnSeulPrelevement();
};

void TestElementExistant::prelevement()
{
    const BaseDEssai base;
    const QString preleveur = QStringLiteral("19");
    const qint64 sansHeure = base.ajouterPrelevement(STATION, JOUR);
    const auto numero = [&](const QString &heure, const QString &p) {
        return NumeroPrelevement(base.donnees, JOUR, heure, STATION, p);
    };
    // An empty time is midnight, not a null time.
    QCOMPARE(numero(QString(), preleveur), ABSENT);
    const qint64 minuit = base.ajouterPrelevement(STATION, JOUR, QTime(0, 0));
    QVERIFY(minuit != sansHeure);
    QCOMPARE(numero(QString(), preleveur), minuit);
    const qint64 dixHeures = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0));
    QCOMPARE(numero(QStringLiteral("10:00:00"), preleveur), dixHeures);
    QCOMPARE(numero(QStringLiteral("10:00"), preleveur), dixHeures);
    QCOMPARE(numero(QStringLiteral("10:00:01"), preleveur), ABSENT);
    QCOMPARE(numero(QStringLiteral("10:00:00"), QStringLiteral("17")), ABSENT);
    QCOMPARE(NumeroPrelevement(base.donnees, JOUR.addDays(1), QStringLiteral("10:00"), STATION, preleveur),
             ABSENT);
    QCOMPARE(
        NumeroPrelevement(base.donnees, JOUR, QStringLiteral("10:00"), QStringLiteral("O'Neil"), preleveur),
        ABSENT);
}

void TestElementExistant::analyseDUnPrelevement()
{
    const BaseDEssai base;
    const qint64 prel = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0));
    const QString nitrates = QStringLiteral("1340");
    const QString brute = QStringLiteral("23");
    const qint64 ana = base.ajouterMesure(prel, nitrates, 25.5);
    QCOMPARE(NumeroAnalyseParGest(base.donnees, prel, nitrates, QStringLiteral("17"), brute), ana);
    QCOMPARE(NumeroAnalyseParGest(base.donnees, prel, nitrates, QStringLiteral("19"), brute), ABSENT);
    QCOMPARE(NumeroAnalyseParGest(base.donnees, prel, nitrates, QStringLiteral("17"), QStringLiteral("3")),
             ABSENT);
    QCOMPARE(NumeroAnalyseParGest(base.donnees, prel + 1, nitrates, QStringLiteral("17"), brute), ABSENT);
    QCOMPARE(NumeroAnalyseParLabo(base.donnees, prel, nitrates, QStringLiteral("18"), brute), ana);
    QCOMPARE(NumeroAnalyseParLabo(base.donnees, prel, nitrates, QStringLiteral("17"), brute), ABSENT);
}

void TestElementExistant::analyseParDate()
{
    const BaseDEssai base;
    const qint64 prel = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0));
    const qint64 premiere = base.ajouterMesure(prel, QStringLiteral("1340"), 25.5);
    const qint64 autreGest =
        base.ajouterMesure(prel, QStringLiteral("1340"), 26, QStringLiteral("1"), QStringLiteral("18"));
    const auto numero = [&](const QString &heure, const QString &gest) {
        return NumeroAnalyseParDate(base.donnees, JOUR, heure, QStringLiteral("1340"), STATION, gest,
                                    QStringLiteral("23"));
    };
    QCOMPARE(numero(QStringLiteral("10:00:00"), QStringLiteral("17")), premiere);
    // Two analyses that differ by their manager alone are two.
    QCOMPARE(numero(QStringLiteral("10:00:00"), QStringLiteral("18")), autreGest);
    QCOMPARE(numero(QString(), QStringLiteral("17")), ABSENT);
    QCOMPARE(numero(QStringLiteral("10:00:00"), QStringLiteral("19")), ABSENT);
}

void TestElementExistant::mesureHydro()
{
    const BaseDEssai base;
    const auto numero = [&](const QString &heure, const QString &grandeur) {
        return NumeroMesureHydro(base.donnees, JOUR, heure, HYDRO, grandeur);
    };
    const QString qjo = QStringLiteral("QJO");
    const QString qme = QStringLiteral("QME");
    QCOMPARE(numero(QString(), qjo), ABSENT);
    const qint64 jour = base.ajouterDebitJour(HYDRO, JOUR, 120);
    QCOMPARE(numero(QString(), qjo), jour);
    // A daily and a monthly flow at one moment are two rows.
    QCOMPARE(numero(QString(), qme), ABSENT);
    base.sql(QStringLiteral(
                 "INSERT INTO MESURE_HYDRO (NumMesureHM, CodeStationHM, DateMesureHM, DebitMoisMesureHM) "
                 "VALUES (500, ?, ?, 90)"),
             {HYDRO, JOUR});
    QCOMPARE(numero(QString(), qme), 500);
    QCOMPARE(numero(QString(), qjo), jour);
    // An empty time is a null time, not midnight.
    base.sql(
        QStringLiteral("INSERT INTO MESURE_HYDRO (NumMesureHM, CodeStationHM, DateMesureHM, HeureMesureHM, "
                       "DebitJourMesureHM) VALUES (501, ?, ?, '00:00:00', 90)"),
        {HYDRO, JOUR});
    QCOMPARE(numero(QString(), qjo), jour);
    QCOMPARE(numero(QStringLiteral("00:00:00"), qjo), 501);
    QCOMPARE(numero(QStringLiteral("00:00"), qjo), 501);
}

void TestElementExistant::mesurePluvio()
{
    const BaseDEssai base;
    base.sql(
        QStringLiteral("INSERT INTO MESURE_PLUVIO (NumMesurePM, CodeStationPM, DateMesurePM, JourMesurePM, "
                       "CodeSandreGest) VALUES (7, '35228001', ?, 12.5, '17')"),
        {JOUR});
    const QString station = QStringLiteral("35228001");
    QCOMPARE(NumeroMesurePluvio(base.donnees, JOUR, station, QStringLiteral("17")), 7);
    QCOMPARE(NumeroMesurePluvio(base.donnees, JOUR, station, QStringLiteral("18")), ABSENT);
    QCOMPARE(NumeroMesurePluvio(base.donnees, JOUR.addDays(-1), station, QStringLiteral("17")), ABSENT);
}

void TestElementExistant::reseauxDesMesures()
{
    const BaseDEssai base;
    const qint64 deux = base.ajouterPrelevement(STATION, JOUR);
    const qint64 aucun = base.ajouterPrelevement(STATION, JOUR.addDays(1));
    // Two results, so that the join gives each network twice; one network has no label.
    base.ajouterMesure(deux, QStringLiteral("1340"), 1);
    base.ajouterMesure(deux, QStringLiteral("1302"), 7);
    base.ajouterMesure(aucun, QStringLiteral("1340"), 1);
    for (const char *code : {"0400000002", "0400000001", "0499999999"})
        base.sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, ?)"),
                 {deux, QString::fromLatin1(code)});
    base.sql(QStringLiteral("INSERT INTO Temp_mesures_reseaux VALUES (999, 'reste')"));
    Requete mesures = base.donnees.executer(
        QStringLiteral("SELECT PRELEVEMENT.NumPrel, CodeReseau FROM (PRELEVEMENT INNER JOIN MESURE_PHYSICO "
                       "ON PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel) LEFT JOIN PRELEVEMENTRSX "
                       "ON PRELEVEMENT.NumPrel = PRELEVEMENTRSX.NumPrel "
                       "ORDER BY PRELEVEMENT.NumPrel, CodeReseau DESC, MESURE_PHYSICO.NumAnaPC"));
    QCOMPARE(M_Reseaux::ReseauxMesures(base.donnees, mesures), QString());
    Requete r = base.donnees.commande(QStringLiteral("Temp_mesures_reseaux"));
    QVERIFY(r.suivant());
    QCOMPARE(r.valeur(QStringLiteral("NumPrel")).toLongLong(), deux);
    QCOMPARE(r.texte(QStringLiteral("CodeReseau")), QStringLiteral("Réseau d'Armor | Réseau national"));
    QVERIFY(r.suivant());
    QCOMPARE(r.valeur(QStringLiteral("NumPrel")).toLongLong(), aucun);
    QCOMPARE(r.texte(QStringLiteral("CodeReseau")), QString());
    QVERIFY(!r.valeur(QStringLiteral("CodeReseau")).isNull());
    QVERIFY(!r.suivant());
}

void TestElementExistant::reseauxDUnSeulPrelevement()
{
    const BaseDEssai base;
    const qint64 prel = base.ajouterPrelevement(STATION, JOUR);
    base.sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001')"), {prel});
    Requete mesures = base.donnees.executer(QStringLiteral("SELECT NumPrel, CodeReseau FROM PRELEVEMENTRSX"));
    QCOMPARE(M_Reseaux::ReseauxMesures(base.donnees, mesures), QStringLiteral("Réseau national"));
    Requete rien =
        base.donnees.executer(QStringLiteral("SELECT NumPrel, CodeReseau FROM PRELEVEMENTRSX WHERE 0"));
    QCOMPARE(M_Reseaux::ReseauxMesures(base.donnees, rien), QString());
    QCOMPARE(base.compter(QStringLiteral("Temp_mesures_reseaux")), 0);
}

QTEST_GUILESS_MAIN(TestElementExistant)
#include "test_element_existant.moc"
