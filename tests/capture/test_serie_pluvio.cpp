// The series of rainfall of a station: read, checked, saved, deleted; managers and comments stay with their values.
#include "BaseDEssai.h"
#include "capture/SeriePluvio.h"

#include <QTest>

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

const QString STATION = QStringLiteral("35228001");

void ajouter(const BaseDEssai &base, const char *date, double pluie, const QVariant &gest,
             const QVariant &commentaire = {})
{
    base.sql(
        s("INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM, CommMesurePM, CodeSandreGest) "
          "VALUES (?, ?, ?, ?, ?)"),
        {STATION, s(date), pluie, commentaire, gest});
}

// "date height manager comment", in the order of their numbers; "-" for null.
QStringList pluies(const BaseDEssai &base)
{
    QStringList lignes;
    Requete r = base.donnees.executer(
        s("SELECT DateMesurePM || ' ' || JourMesurePM || ' ' || coalesce(CodeSandreGest, '-') || ' ' || "
          "coalesce(CommMesurePM, '-') FROM MESURE_PLUVIO WHERE CodeStationPM = ? ORDER BY NumMesurePM"),
        {STATION});
    while (r.suivant())
        lignes << r.texte(0);
    return lignes;
}
} // namespace

class TestSeriePluvio : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void existence();
    void gestionnairesGardes();
    void gestionnaireDuMemeJour();
    void numeroRepris();
    void incomplete();
    void suppression();
};

void TestSeriePluvio::existence()
{
    BaseDEssai base;
    QVERIFY(!SeriePluvio::existe(base.donnees, STATION));
    ajouter(base, "2009-01-01", 0, {});
    QVERIFY(SeriePluvio::existe(base.donnees, STATION));
    QCOMPARE(SeriePluvio::stations(base.donnees), (ListeChoix{{STATION, STATION, s("Quédillac bourg")}}));
}

void TestSeriePluvio::gestionnairesGardes()
{
    // Two managers on one day; the value and the date of read rows are changed: each keeps its own.
    BaseDEssai base;
    ajouter(base, "2009-01-01", 5, s("17"), s("Relevé l'après-midi"));
    ajouter(base, "2009-01-01", 6, s("18"));
    ajouter(base, "2009-01-02", 7, {});
    SeriePluvio::remplir(base.donnees, STATION);
    TableTravail table(base.donnees, QString::fromUtf16(SeriePluvio::TABLE), SeriePluvio::colonnes());
    table.relire(SeriePluvio::ordre());
    QVERIFY(table.setData(table.index(1, 0), s("03/01/2009")));
    QVERIFY(table.setData(table.index(1, 1), s("6,5")));
    QVERIFY(SeriePluvio::complete(base.donnees));
    SeriePluvio::enregistrer(base.donnees, STATION);
    QCOMPARE(pluies(base), (QStringList{s("2009-01-01 5.0 17 Relevé l'après-midi"), s("2009-01-02 7.0 - -"),
                                        s("2009-01-03 6.5 18 -")}));
}

void TestSeriePluvio::gestionnaireDuMemeJour()
{
    // The old series was not asked to be seen and is typed anew: the manager of the same day is kept, in turn.
    BaseDEssai base;
    ajouter(base, "2009-01-01", 5, s("17"));
    ajouter(base, "2009-01-01", 6, s("18"));
    TableTravail table(base.donnees, QString::fromUtf16(SeriePluvio::TABLE), SeriePluvio::colonnes());
    QVERIFY(table
                .coller(0, 0,
                        {{s("01/01/2009"), s("1")},
                         {s("01/01/2009"), s("2")},
                         {s("01/01/2009"), s("3")},
                         {s("02/01/2009"), s("4")}})
                .isEmpty());
    SeriePluvio::enregistrer(base.donnees, STATION);
    QCOMPARE(pluies(base), (QStringList{s("2009-01-01 1.0 17 -"), s("2009-01-01 2.0 18 -"),
                                        s("2009-01-01 3.0 - -"), s("2009-01-02 4.0 - -")}));
}

void TestSeriePluvio::numeroRepris()
{
    // The last row read is taken out and another day is typed: it is a new row, without the old one's manager.
    BaseDEssai base;
    ajouter(base, "2009-01-01", 5, s("17"));
    ajouter(base, "2009-01-02", 6, s("18"));
    SeriePluvio::remplir(base.donnees, STATION);
    TableTravail table(base.donnees, QString::fromUtf16(SeriePluvio::TABLE), SeriePluvio::colonnes());
    table.relire(SeriePluvio::ordre());
    QVERIFY(table.removeRow(1));
    QVERIFY(table.insertRow(1));
    QVERIFY(table.setData(table.index(1, 0), s("09/01/2009")));
    QVERIFY(table.setData(table.index(1, 1), s("9")));
    SeriePluvio::enregistrer(base.donnees, STATION);
    QCOMPARE(pluies(base), (QStringList{s("2009-01-01 5.0 17 -"), s("2009-01-09 9.0 - -")}));
}

void TestSeriePluvio::incomplete()
{
    BaseDEssai base;
    QVERIFY(!SeriePluvio::complete(base.donnees));
    base.sql(s("INSERT INTO Temp_mesure_pluvio (DateMesure, Resultat) VALUES ('2010-01-01', 0)"));
    QVERIFY(SeriePluvio::complete(base.donnees));
    base.sql(s("INSERT INTO Temp_mesure_pluvio (Resultat) VALUES (3)"));
    QVERIFY(!SeriePluvio::complete(base.donnees));
    base.sql(
        s("UPDATE Temp_mesure_pluvio SET DateMesure = '2010-01-02', Resultat = NULL WHERE Resultat = 3"));
    QVERIFY(!SeriePluvio::complete(base.donnees));
}

void TestSeriePluvio::suppression()
{
    BaseDEssai base;
    ajouter(base, "2009-01-01", 5, s("17"));
    SeriePluvio::supprimer(base.donnees, s("x"));
    QCOMPARE(pluies(base).size(), 1);
    SeriePluvio::supprimer(base.donnees, STATION);
    QCOMPARE(base.compter(s("MESURE_PLUVIO")), 0);
}

QTEST_GUILESS_MAIN(TestSeriePluvio)
#include "test_serie_pluvio.moc"
