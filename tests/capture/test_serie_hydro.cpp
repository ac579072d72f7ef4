// The series of flows of a station: read, checked, saved, deleted.
#include "BaseDEssai.h"
#include "capture/SerieHydro.h"

#include <QTest>

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

const QString STATION = QStringLiteral("J7010610");

// The station's rows as "date time daily monthly", in the order of their numbers; "-" for null.
QStringList flots(const BaseDEssai &base, const QString &station = STATION)
{
    QStringList lignes;
    Requete r = base.donnees.executer(
        s("SELECT DateMesureHM || ' ' || coalesce(HeureMesureHM, '-') || ' ' || coalesce(DebitJourMesureHM, '-') "
          "|| ' ' || coalesce(DebitMoisMesureHM, '-') FROM MESURE_HYDRO WHERE CodeStationHM = ? "
          "ORDER BY NumMesureHM"),
        {station});
    while (r.suivant())
        lignes << r.texte(0);
    return lignes;
}

void ajouterMois(const BaseDEssai &base, const char *date, double debit)
{
    base.sql(s("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitMoisMesureHM) VALUES (?, ?, ?)"),
             {STATION, s(date), debit});
}
} // namespace

class TestSerieHydro : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void existence();
    void lectureEtEnregistrement();
    void familleVide();
    void ligneDesDeuxDebits();
    void incomplete();
    void suppression();
    void colonnes_data();
    void colonnes();
    void grille();
    void collage();
};

void TestSerieHydro::existence()
{
    BaseDEssai base;
    QVERIFY(!SerieHydro::existe(base.donnees, STATION));
    // A row without any flow is no measure.
    base.sql(s("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM) VALUES (?, '2009-01-01')"), {STATION});
    QVERIFY(!SerieHydro::existe(base.donnees, STATION));
    ajouterMois(base, "2009-01-01", 0);
    QVERIFY(SerieHydro::existe(base.donnees, STATION));
    QVERIFY(!SerieHydro::existe(base.donnees, s("x' OR '1'='1")));
    const ListeChoix stations = SerieHydro::stations(base.donnees);
    QCOMPARE(stations, (ListeChoix{{STATION, STATION, s("Le Meu à Quédillac")}}));
}

void TestSerieHydro::lectureEtEnregistrement()
{
    BaseDEssai base;
    base.ajouterDebitJour(STATION, QDate(2009, 3, 2), 12.34567);
    base.ajouterDebitJour(STATION, QDate(2009, 3, 1), 10);
    base.sql(s("UPDATE MESURE_HYDRO SET HeureMesureHM = '08:30:00' WHERE DateMesureHM = '2009-03-02'"));
    ajouterMois(base, "2009-03-01", 11);
    base.sql(s("INSERT INTO STATION_HYDRO (CodeStationHM, IntituleStationHM) VALUES ('AUTRE', 'Autre')"));
    base.ajouterDebitJour(s("AUTRE"), QDate(2009, 3, 1), 99);
    // What an earlier run has left behind goes.
    base.sql(s("INSERT INTO Temp_mesure_hydro_jour (DateMesure, DebitJour) VALUES ('1990-01-01', 1)"));

    SerieHydro::remplir(base.donnees, STATION);
    QCOMPARE(base.compter(s("Temp_mesure_hydro_jour")), 2);
    QCOMPARE(base.compter(s("Temp_mesure_hydro_mois")), 1);
    QVERIFY(SerieHydro::complete(base.donnees));
    SerieHydro::enregistrer(base.donnees, STATION);
    // Four decimals are kept; the rows come in the order of their dates.
    QCOMPARE(flots(base), (QStringList{s("2009-03-01 - 10.0 -"), s("2009-03-02 08:30:00 12.3457 -"),
                                       s("2009-03-01 - - 11.0")}));
    QCOMPARE(flots(base, s("AUTRE")), (QStringList{s("2009-03-01 - 99.0 -")}));
}

void TestSerieHydro::familleVide()
{
    // A family left empty in the grid keeps its rows in the base.
    BaseDEssai base;
    base.ajouterDebitJour(STATION, QDate(2009, 3, 1), 10);
    ajouterMois(base, "2009-03-01", 11);
    base.sql(s("INSERT INTO Temp_mesure_hydro_jour (DateMesure, DebitJour) VALUES ('2010-01-01', 7)"));
    QVERIFY(SerieHydro::complete(base.donnees));
    SerieHydro::enregistrer(base.donnees, STATION);
    QCOMPARE(flots(base), (QStringList{s("2009-03-01 - - 11.0"), s("2010-01-01 - 7.0 -")}));

    base.sql(s("DELETE FROM Temp_mesure_hydro_jour"));
    base.sql(s("INSERT INTO Temp_mesure_hydro_mois (DateMesure, DebitMois) VALUES ('2010-02-01', 8)"));
    SerieHydro::enregistrer(base.donnees, STATION);
    QCOMPARE(flots(base), (QStringList{s("2010-01-01 - 7.0 -"), s("2010-02-01 - - 8.0")}));
}

void TestSerieHydro::ligneDesDeuxDebits()
{
    // One row that holds a daily and a monthly flow: saving the days must not lose the month.
    BaseDEssai base;
    base.sql(s("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitJourMesureHM, DebitMoisMesureHM) "
               "VALUES (?, '2009-03-01', 10, 11)"),
             {STATION});
    base.sql(s("INSERT INTO Temp_mesure_hydro_jour (DateMesure, DebitJour) VALUES ('2010-01-01', 7)"));
    SerieHydro::enregistrer(base.donnees, STATION);
    QCOMPARE(flots(base), (QStringList{s("2009-03-01 - - 11.0"), s("2010-01-01 - 7.0 -")}));
    // With both read and saved, each becomes a row of its own.
    base.sql(s("UPDATE MESURE_HYDRO SET DebitJourMesureHM = 10 WHERE DebitMoisMesureHM = 11"));
    SerieHydro::remplir(base.donnees, STATION);
    SerieHydro::enregistrer(base.donnees, STATION);
    QCOMPARE(flots(base),
             (QStringList{s("2009-03-01 - 10.0 -"), s("2010-01-01 - 7.0 -"), s("2009-03-01 - - 11.0")}));
}

void TestSerieHydro::incomplete()
{
    BaseDEssai base;
    QVERIFY(!SerieHydro::complete(base.donnees)); // nothing at all
    base.sql(s("INSERT INTO Temp_mesure_hydro_jour (DateMesure, DebitJour) VALUES ('2010-01-01', 0)"));
    QVERIFY(SerieHydro::complete(base.donnees)); // a flow of 0 is a flow
    base.sql(s("INSERT INTO Temp_mesure_hydro_mois (DateMesure) VALUES ('2010-01-01')"));
    QVERIFY(!SerieHydro::complete(base.donnees));
    base.sql(s("UPDATE Temp_mesure_hydro_mois SET DebitMois = 4, DateMesure = NULL"));
    QVERIFY(!SerieHydro::complete(base.donnees));
    base.sql(s("DELETE FROM Temp_mesure_hydro_mois"));
    base.sql(s("INSERT INTO Temp_mesure_hydro_jour (HeureMesure) VALUES ('10:00:00')"));
    QVERIFY(!SerieHydro::complete(base.donnees));
}

void TestSerieHydro::suppression()
{
    BaseDEssai base;
    base.ajouterDebitJour(STATION, QDate(2009, 3, 1), 10);
    ajouterMois(base, "2009-03-01", 11);
    SerieHydro::supprimer(base.donnees, s("AUTRE"));
    QCOMPARE(flots(base).size(), 2);
    SerieHydro::supprimer(base.donnees, STATION);
    QCOMPARE(base.compter(s("MESURE_HYDRO")), 0);
}

void TestSerieHydro::colonnes_data()
{
    // table (0 days, 1 months), column, typed, whether taken, shown
    QTest::addColumn<int>("famille");
    QTest::addColumn<int>("colonne");
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("montre"); // null: refused
    QTest::newRow("date") << 0 << 0 << s("01/03/2009") << s("01/03/2009");
    QTest::newRow("short date") << 0 << 0 << s("1/3/09") << s("01/03/2009");
    QTest::newRow("iso date") << 0 << 0 << s("2009-03-01") << QString();
    QTest::newRow("no such day") << 0 << 0 << s("29/02/2009") << QString();
    QTest::newRow("quotes") << 0 << 0 << s("'; DROP TABLE MESURE_HYDRO;--") << QString();
    QTest::newRow("10 000 characters") << 0 << 0 << QString(10'000, u'9') << QString();
    QTest::newRow("emoji") << 0 << 1 << s("🕗") << QString();
    QTest::newRow("control characters") << 0 << 2 << s("1\x01\x02") << QString();
    QTest::newRow("time") << 0 << 1 << s("08:30") << s("08:30:00");
    QTest::newRow("whole time") << 0 << 1 << s("08:30:15") << s("08:30:15");
    QTest::newRow("the bounds of old") << 0 << 1 << s("24:60") << s("24:60:00");
    QTest::newRow("wrong time") << 0 << 1 << s("25:00") << QString();
    QTest::newRow("flow, comma") << 0 << 2 << s("12,5") << s("12,5");
    QTest::newRow("flow, point") << 0 << 2 << s("12.5") << s("12,5");
    QTest::newRow("flow, five decimals, ties to even") << 0 << 2 << s("0,00025") << s("0,0002");
    QTest::newRow("flow, too large") << 0 << 2 << s("1e400") << QString();
    QTest::newRow("flow, words") << 0 << 2 << s("nan") << QString();
    QTest::newRow("first of the month") << 1 << 0 << s("01/03/2009") << s("01/03/2009");
    QTest::newRow("another day") << 1 << 0 << s("15/03/2009") << QString();
    QTest::newRow("monthly flow") << 1 << 1 << s(" 845 ") << s("845");
    QTest::newRow("monthly flow, words") << 1 << 1 << s("845 l/s") << QString();
    QTest::newRow("blank") << 0 << 0 << s("   ") << s("");
}

void TestSerieHydro::colonnes()
{
    QFETCH(int, famille);
    QFETCH(int, colonne);
    QFETCH(QString, texte);
    QFETCH(QString, montre);
    BaseDEssai base;
    TableTravail table(base.donnees,
                       QString::fromUtf16(famille == 0 ? SerieHydro::TABLE_JOUR : SerieHydro::TABLE_MOIS),
                       famille == 0 ? SerieHydro::colonnesJour() : SerieHydro::colonnesMois());
    QStringList messages;
    connect(&table, &TableTravail::refus, this,
            [&](const QModelIndex &, const QString &message, const QString &titre) {
                messages << message;
                QCOMPARE(titre, s("Erreur de type"));
            });
    QVERIFY(table.insertRow(0));
    const QModelIndex cellule = table.index(0, colonne);
    const bool prise = !montre.isNull();
    QCOMPARE(table.setData(cellule, texte), prise);
    QCOMPARE(cellule.data().toString(), prise ? montre : QString());
    QCOMPARE(messages.size(), prise ? 0 : 1);
    QCOMPARE(base.compter(s("MESURE_HYDRO")), 0);
}

void TestSerieHydro::grille()
{
    // The grid writes through: another look at the table finds what was typed, and nothing of a removed row.
    BaseDEssai base;
    base.ajouterDebitJour(STATION, QDate(2009, 3, 1), 10);
    base.ajouterDebitJour(STATION, QDate(2009, 3, 2), 20);
    SerieHydro::remplir(base.donnees, STATION);
    TableTravail table(base.donnees, QString::fromUtf16(SerieHydro::TABLE_JOUR), SerieHydro::colonnesJour());
    table.relire(SerieHydro::ordreJour());
    QCOMPARE(table.rowCount(), 2);
    QCOMPARE(table.index(1, 2).data().toString(), s("20"));
    QVERIFY(table.insertRows(2, 2));
    QVERIFY(table.setData(table.index(2, 0), s("03/03/2009")));
    QVERIFY(table.setData(table.index(2, 2), s("30")));
    QVERIFY(table.removeRows(0, 1));
    table.retirerLignesVides();
    QCOMPARE(table.rowCount(), 2);
    QVERIFY(table.setData(table.index(0, 2), QString())); // an emptied cell is null
    QCOMPARE(base.valeur(s("SELECT count(*) FROM Temp_mesure_hydro_jour WHERE DebitJour IS NULL")).toInt(),
             1);
    table.setData(table.index(0, 2), s("21"));
    SerieHydro::enregistrer(base.donnees, STATION);
    QCOMPARE(flots(base), (QStringList{s("2009-03-02 - 21.0 -"), s("2009-03-03 - 30.0 -")}));
    table.vider();
    QCOMPARE(base.compter(s("Temp_mesure_hydro_jour")), 0);
    QCOMPARE(table.rowCount(), 0);
    QVERIFY(!table.removeRows(0, 1));
    QVERIFY(!table.insertRows(1, 1));
}

void TestSerieHydro::collage()
{
    BaseDEssai base;
    TableTravail table(base.donnees, QString::fromUtf16(SerieHydro::TABLE_JOUR), SerieHydro::colonnesJour());
    QVERIFY(table.insertRow(0));
    const QModelIndexList refusees =
        table.coller(0, 0,
                     {{s("01/01/2010"), s("10:00"), s("5"), s("beyond the last column")},
                      {s("02/13/2010"), QString(), s("6")}});
    QCOMPARE(table.rowCount(), 2);
    QCOMPARE(refusees, (QModelIndexList{table.index(1, 0)}));
    QCOMPARE(table.index(1, 0).data().toString(), QString());
    QCOMPARE(table.index(1, 2).data().toString(), s("6"));
    QCOMPARE(base.valeur(s("SELECT HeureMesure FROM Temp_mesure_hydro_jour WHERE DateMesure = '2010-01-01'"))
                 .toString(),
             s("10:00:00"));
}

QTEST_GUILESS_MAIN(TestSerieHydro)
#include "test_serie_hydro.moc"
