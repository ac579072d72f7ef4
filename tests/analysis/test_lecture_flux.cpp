// Which samples and flows enter a flux.
#include "analysis/LectureFlux.h"
#include "BaseDEssai.h"

#include <QTest>

namespace
{
const QString STATION = QStringLiteral("04211940");
const BornesFlux ANNEE{QDate(2008, 1, 1), QDate(2009, 1, 1)};

DemandeFlux demande()
{
    DemandeFlux d;
    d.codeStation = STATION;
    d.codeDebit = QStringLiteral("J7010610");
    d.codeParametre = QStringLiteral("1340");
    return d;
}
} // namespace

class TestLectureFlux : public QObject
{
    Q_OBJECT

private:
    // Adds a sampling of nitrates at the station.
    static qint64 ajouter(const BaseDEssai &base, QDate jour, double valeur, const char *remarque = "1",
                          const char *gestionnaire = "17", const char *protocole = "0")
    {
        const qint64 prelevement =
            base.ajouterPrelevement(STATION, jour, {}, QStringLiteral("19"), QString::fromLatin1(protocole));
        base.ajouterMesure(prelevement, QStringLiteral("1340"), valeur, QString::fromLatin1(remarque),
                           QString::fromLatin1(gestionnaire));
        return prelevement;
    }
    static QList<double> valeurs(const BaseDEssai &base, const DemandeFlux &d,
                                 const BornesFlux &bornes = ANNEE)
    {
        QList<double> lues;
        for (const ConcentrationDuJour &mesure : lireConcentrationsFlux(base.donnees, d, bornes))
            lues << mesure.concentrationMgL;
        return lues;
    }

private Q_SLOTS:
    // Codes 1 and 2 alone, a code 2 as stored and not halved; nothing without a value.
    void codesRemarque()
    {
        const BaseDEssai base;
        ajouter(base, QDate(2008, 1, 1), 11, "1");
        ajouter(base, QDate(2008, 2, 1), 12, "2");
        ajouter(base, QDate(2008, 3, 1), 13, "0");
        ajouter(base, QDate(2008, 4, 1), 14, "3");
        ajouter(base, QDate(2008, 5, 1), 15, "10");
        ajouter(base, QDate(2008, 6, 1), 16, "");
        ajouter(base, QDate(2008, 7, 1), 17);
        ajouter(base, QDate(2008, 8, 1), 18);
        base.sql("UPDATE MESURE_PHYSICO SET CodeRemarqueAnaPC = NULL WHERE ResultatAnaPC = 17");
        base.sql("UPDATE MESURE_PHYSICO SET ResultatAnaPC = NULL WHERE ResultatAnaPC = 18");
        QCOMPARE(valeurs(base, demande()), (QList<double>{11, 12}));
    }

    // The window's first day is in, its last is out; by date, whatever the order of the rows.
    void fenetre()
    {
        const BaseDEssai base;
        ajouter(base, QDate(2009, 1, 1), 5);
        ajouter(base, QDate(2008, 12, 31), 4);
        ajouter(base, QDate(2008, 1, 1), 3);
        ajouter(base, QDate(2007, 12, 31), 2);
        base.sql("INSERT INTO PRELEVEMENT (CodeSandreStationM) VALUES ('04211940')"); // no date
        QCOMPARE(valeurs(base, demande()), (QList<double>{3, 4}));
    }

    void autres()
    {
        const BaseDEssai base;
        const qint64 prelevement = ajouter(base, QDate(2008, 1, 1), 11);
        base.ajouterMesure(prelevement, QStringLiteral("1302"), 7);
        const qint64 ailleurs = base.ajouterPrelevement(QStringLiteral("04211950"), QDate(2008, 1, 2));
        base.ajouterMesure(ailleurs, QStringLiteral("1340"), 99);
        QCOMPARE(valeurs(base, demande()), QList<double>{11});
        // A parameter of the pesticides' group gives nothing.
        base.ajouterMesure(prelevement, QStringLiteral("1506"), 0.1);
        DemandeFlux d = demande();
        d.codeParametre = QStringLiteral("1506");
        QVERIFY(valeurs(base, d).isEmpty());
    }

    void filtres()
    {
        const BaseDEssai base;
        const qint64 p1 = ajouter(base, QDate(2008, 1, 1), 11, "1", "17", "1");
        ajouter(base, QDate(2008, 2, 1), 12, "1", "18", "2");
        ajouter(base, QDate(2008, 3, 1), 13, "1", "19", "2");
        base.sql("UPDATE MESURE_PHYSICO SET CodeSandreGest = NULL WHERE ResultatAnaPC = 13");
        // A sampling in both networks counts once.
        base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001'), (?, '0400000002')", {p1, p1});
        DemandeFlux d = demande();
        d.gestionnaires = QStringList{"18"};
        QCOMPARE(valeurs(base, d), QList<double>{12});
        d.gestionnaires = QStringList{"17", "18"};
        QCOMPARE(valeurs(base, d), (QList<double>{11, 12}));
        d = demande();
        d.reseaux = QStringList{"0400000001", "0400000002"};
        QCOMPARE(valeurs(base, d), QList<double>{11});
        d = demande();
        d.protocole = QStringLiteral("Suivi pluie"); // 2
        QCOMPARE(valeurs(base, d), (QList<double>{12, 13}));
        d.gestionnaires = QStringList{"18"};
        QCOMPARE(valeurs(base, d), QList<double>{12});
        d = demande();
        d.codeStation = QStringLiteral("' OR '1'='1");
        QVERIFY(valeurs(base, d).isEmpty());
    }

    void debits()
    {
        const BaseDEssai base;
        const QString station = QStringLiteral("J7010610");
        for (const QDate jour :
             {QDate(2009, 1, 1), QDate(2008, 12, 31), QDate(2008, 1, 1), QDate(2007, 12, 31)})
            base.ajouterDebitJour(station, jour, jour.day());
        base.sql("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitMoisMesureHM) VALUES "
                 "('J7010610', '2008-06-01', 500)");
        const QList<DebitDuJour> lus = lireDebitsFlux(base.donnees, station, ANNEE);
        QCOMPARE(lus, (QList<DebitDuJour>{{QDate(2008, 1, 1), 1}, {QDate(2008, 12, 31), 31}}));
        QVERIFY(lireDebitsFlux(base.donnees, QStringLiteral("J0000000"), ANNEE).isEmpty());
    }

    void enTete()
    {
        const BaseDEssai base;
        const QString debit = QStringLiteral("J7010610");
        EnTeteFlux lu = lireEnTeteFlux(base.donnees, STATION, debit);
        QCOMPARE(lu.bassin, QStringLiteral("BV d'essai"));
        QCOMPARE(lu.station, QStringLiteral("Pont de l'Ile"));
        QCOMPARE(lu.stationDebit, QStringLiteral("Le Meu à Quédillac"));
        QCOMPARE(lu.surfaceKm2, std::optional(120.0));
        QVERIFY(lu.surfaceUtilisable());
        base.sql("UPDATE STATION_HYDRO SET SurfReelStationHM = 0");
        lu = lireEnTeteFlux(base.donnees, STATION, debit);
        QCOMPARE(lu.surfaceKm2, std::optional(0.0));
        QVERIFY(!lu.surfaceUtilisable());
        base.sql("UPDATE STATION_HYDRO SET SurfReelStationHM = NULL, IntituleStationHM = NULL");
        base.sql("UPDATE STATION_QUALITE SET NomStationM = NULL, NumBV = NULL");
        lu = lireEnTeteFlux(base.donnees, STATION, debit);
        QCOMPARE(lu.surfaceKm2, std::nullopt);
        QCOMPARE(lu.station, STATION);
        QCOMPARE(lu.stationDebit, debit);
        QCOMPARE(lu.bassin, QString());
    }

    void etendues()
    {
        const BaseDEssai base;
        ajouter(base, QDate(2008, 3, 1), 11);
        ajouter(base, QDate(2010, 4, 2), 12, "2");
        ajouter(base, QDate(2011, 5, 3), 13, "10");
        const Etendue mesures = etendueConcentrations(base.donnees, STATION, QStringLiteral("1340"));
        QCOMPARE(mesures.premier, QDate(2008, 3, 1));
        QCOMPARE(mesures.dernier, QDate(2010, 4, 2));
        QVERIFY(etendueDebits(base.donnees, QStringLiteral("J7010610")).premier.isNull());
    }
};

QTEST_GUILESS_MAIN(TestLectureFlux)
#include "test_lecture_flux.moc"
