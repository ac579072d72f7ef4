#include "analysis/LectureRapportPC.h"
#include "BaseDEssai.h"

#include <QTest>

namespace
{
const QString STATION = QStringLiteral("04211940");

DemandeRapport demande(const QString &parametre = QStringLiteral("Nitrates"), const QString &fraction = {})
{
    DemandeRapport d;
    d.codeStation = STATION;
    d.parametre = parametre;
    d.fraction = fraction;
    d.debut = QDate(2008, 1, 1);
    d.fin = QDate(2008, 12, 31);
    return d;
}

QList<double> valeurs(const AnneeLue &lue)
{
    QList<double> liste;
    for (const EnregistrementPC &e : lue.enregistrements)
        liste << e.valeur;
    return liste;
}

AnneeLue lire(const BaseDEssai &base, const DemandeRapport &d)
{
    LecteurMesuresPC lecteur(base.donnees, d, lireEnTete(base.donnees, d));
    return lecteur.lire({d.debut, d.fin, {}}, [] {});
}
} // namespace

class TestLectureRapportPC : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enTete()
    {
        const BaseDEssai base;
        base.sql("INSERT INTO OBJECTIF VALUES (1, '1340', '3', 25, 0)");
        base.sql("INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ) "
                 "VALUES ('1340', 2, 10, 25, 50)");
        DemandeRapport d = demande();
        d.afficherCodeUsuel = true;
        d.seuil = 12;
        const EnTeteRapport enTete = lireEnTete(base.donnees, d);
        QCOMPARE(enTete.bassin, QStringLiteral("BV d'essai"));
        QCOMPARE(enTete.codeAffiche, QStringLiteral("ESS1"));
        QCOMPARE(enTete.riviere, QStringLiteral("Ruisseau de l'Ile"));
        QCOMPARE(enTete.station, QStringLiteral("Pont de l'Ile"));
        QCOMPARE(enTete.parametre, QStringLiteral("Nitrates"));
        QCOMPARE(enTete.unite, QStringLiteral("mg(NO3)/L"));
        QCOMPARE(*enTete.limites.objectifMoyen, 25.0);
        QVERIFY(!enTete.limites.objectifMaximum); // 0 is none
        QCOMPARE(*enTete.limites.seuil, 12.0);
        QVERIFY(enTete.grille.has_value());
        QCOMPARE(enTete.grille->valeur3, 25.0);
    }

    // The box is ticked, but the station has no everyday code.
    void sansCodeUsuel()
    {
        const BaseDEssai base;
        DemandeRapport d = demande();
        d.codeStation = QStringLiteral("04211950");
        d.afficherCodeUsuel = true;
        QCOMPARE(lireEnTete(base.donnees, d).codeAffiche, QStringLiteral("04211950"));
        d = demande();
        QCOMPARE(lireEnTete(base.donnees, d).codeAffiche, STATION);
    }

    void uniteNonDefinie()
    {
        const BaseDEssai base;
        base.sql("UPDATE PARAMETRE SET CodeUnite = NULL WHERE CodeParam = '1340'");
        QCOMPARE(lireEnTete(base.donnees, demande()).unite, QStringLiteral("non définie"));
    }

    // Organic carbon: the objectives of the chosen fraction, the grid for fraction 23 or when none is chosen.
    void carboneOrganique()
    {
        const BaseDEssai base;
        base.sql("INSERT INTO OBJECTIF VALUES (1, '1841', '23', 5, 10), (1, '1841', '3', NULL, 4)");
        base.sql("INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ) "
                 "VALUES ('1841', 5, 7, 10, 12)");
        const QString nom = QStringLiteral("Carbone Organique");
        const EnTeteRapport brute = lireEnTete(base.donnees, demande(nom, QStringLiteral("23 - Eau brute")));
        QCOMPARE(brute.codeFraction, QStringLiteral("23"));
        QCOMPARE(brute.parametre, QStringLiteral("Eau brute - Carbone Organique"));
        QCOMPARE(*brute.limites.objectifMoyen, 5.0);
        QVERIFY(brute.grille.has_value());
        // The label may hold the separator itself.
        const EnTeteRapport aqueuse =
            lireEnTete(base.donnees, demande(nom, QStringLiteral("3 - Phase - filtrée")));
        QCOMPARE(aqueuse.codeFraction, QStringLiteral("3"));
        QCOMPARE(aqueuse.parametre, QStringLiteral("Phase - filtrée - Carbone Organique"));
        QVERIFY(!aqueuse.limites.objectifMoyen);
        QCOMPARE(*aqueuse.limites.objectifMaximum, 4.0);
        QVERIFY(!aqueuse.grille.has_value());
        const EnTeteRapport sans = lireEnTete(base.donnees, demande(nom));
        QVERIFY(sans.codeFraction.isEmpty());
        QCOMPARE(sans.parametre, nom);
        QVERIFY(sans.grille.has_value());
    }

    // A fraction is read for organic carbon alone.
    void fractionDUnAutreParametre()
    {
        const BaseDEssai base;
        const DemandeRapport d = demande(QStringLiteral("Nitrates"), QStringLiteral("3 - Phase aqueuse"));
        QVERIFY(lireEnTete(base.donnees, d).codeFraction.isEmpty());
        base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2008, 5, 1)), "1340", 7, "1", "17", "23");
        QCOMPARE(valeurs(lire(base, d)), QList<double>({7}));
    }

    // Both ends of the period are in it; other stations, parameters and the pesticides are not.
    void mesures()
    {
        const BaseDEssai base;
        base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2007, 12, 31)), "1340", 1);
        base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2008, 12, 31)), "1340", 3, "2", "18");
        const qint64 prel = base.ajouterPrelevement(STATION, QDate(2008, 1, 1), QTime(8, 0));
        const qint64 mesure = base.ajouterMesure(prel, "1340", 2.12345);
        base.sql("UPDATE MESURE_PHYSICO SET CommResAnaPC = 'crue' WHERE NumAnaPC = ?", {mesure});
        base.ajouterMesure(prel, "1302", 7);
        base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2009, 1, 1)), "1340", 4);
        base.ajouterMesure(base.ajouterPrelevement("04211950", QDate(2008, 6, 1)), "1340", 5);
        const AnneeLue lue = lire(base, demande());
        QCOMPARE(valeurs(lue), QList<double>({2.1234, 3})); // four decimals, the tie to the even digit
        QCOMPARE(lue.enregistrements[0].date, QDate(2008, 1, 1));
        QCOMPARE(lue.enregistrements[0].commentaire, QStringLiteral("crue"));
        QCOMPARE(lue.enregistrements[1].codeRemarque, QStringLiteral("2"));
        QCOMPARE(lue.enregistrements[1].gestionnaire, QStringLiteral("18"));
        QVERIFY(lue.enregistrements[1].commentaire.isEmpty());
        // A parameter of the pesticides is never read, even asked for by its name.
        base.ajouterMesure(prel, "1506", 0.1);
        QVERIFY(valeurs(lire(base, demande(QStringLiteral("Glyphosate")))).isEmpty());
    }

    // A null result reads as 0, a null producer and comment as empty ones.
    void nuls()
    {
        const BaseDEssai base;
        const qint64 prel = base.ajouterPrelevement(STATION, QDate(2008, 5, 1));
        base.sql("INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam) VALUES (?, '1340')", {prel});
        const AnneeLue lue = lire(base, demande());
        QCOMPARE(valeurs(lue), QList<double>({0}));
        QVERIFY(lue.enregistrements[0].codeRemarque.isEmpty());
        QVERIFY(lue.enregistrements[0].gestionnaire.isEmpty());
    }

    void filtresDeLaRequete()
    {
        const BaseDEssai base;
        const qint64 calendaire = base.ajouterPrelevement(STATION, QDate(2008, 3, 1), {}, "19", "1");
        const qint64 pluie = base.ajouterPrelevement(STATION, QDate(2008, 4, 1), {}, "19", "2");
        const qint64 sans = base.ajouterPrelevement(STATION, QDate(2008, 5, 1));
        base.ajouterMesure(calendaire, "1340", 1);
        base.ajouterMesure(pluie, "1340", 2);
        base.ajouterMesure(sans, "1340", 3);
        base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001'), (?, '0400000002'), (?, '0400000002')",
                 {calendaire, calendaire, pluie});
        DemandeRapport d = demande();
        d.protocole = QStringLiteral("Suivi pluie");
        QCOMPARE(valeurs(lire(base, d)), QList<double>({2}));
        d.protocole = QStringLiteral("Non spécifié");
        QCOMPARE(valeurs(lire(base, d)), QList<double>({3}));
        d = demande();
        d.reseaux = QStringList{"0400000002"};
        QCOMPARE(valeurs(lire(base, d)), QList<double>({1, 2}));
        d.reseaux = QStringList{"0400000001", "0400000002"};
        QCOMPARE(valeurs(lire(base, d)), QList<double>({1, 2}));
        d.reseaux = QStringList{"0400000001' OR '1'='1"};
        QVERIFY(valeurs(lire(base, d)).isEmpty());
    }

    // The flows of the days of the records: each row of a day, those without a daily flow left out, other stations too.
    void debits()
    {
        const BaseDEssai base;
        base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2008, 3, 1)), "1340", 1);
        base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2008, 3, 2)), "1340", 1);
        base.ajouterDebitJour("J7010610", QDate(2008, 3, 1), 10);
        base.ajouterDebitJour("J7010610", QDate(2008, 3, 1), 12.5);
        base.ajouterDebitJour("J9999999", QDate(2008, 3, 1), 99);
        base.sql("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitMoisMesureHM) "
                 "VALUES ('J7010610', '2008-03-01', 500)");
        DemandeRapport d = demande();
        QVERIFY(lire(base, d).debits.isEmpty());
        d.stationDebit = QStringLiteral("J7010610");
        const AnneeLue lue = lire(base, d);
        QList<double> duJour = lue.debits.value(QDate(2008, 3, 1));
        std::sort(duJour.begin(), duJour.end());
        QCOMPARE(duJour, QList<double>({10, 12.5}));
        QVERIFY(lue.debits.value(QDate(2008, 3, 2)).isEmpty());
    }

    void nomsDesGestionnaires()
    {
        const BaseDEssai base;
        QCOMPARE(lireNomsGestionnaires(base.donnees, {"18", "99", "17"}),
                 QStringList({"Laboratoire d'Armor", "Agence de l'eau"}));
    }

    // The short count gives what the named command gives: without pesticides, results whose sampling is gone or unknown,
    // or whose parameter has no group.
    void compteDeLaBase()
    {
        const BaseDEssai base;
        QCOMPARE(compterResultatsDeLaBase(base.donnees), 0);
        base.sql("INSERT INTO PARAMETRE (CodeParam, NomParam) VALUES ('9999', 'Sans groupe')");
        const qint64 prel = base.ajouterPrelevement(STATION, QDate(2008, 3, 1));
        base.ajouterMesure(prel, "1340", 1);
        base.ajouterMesure(prel, "1302", 1);
        base.ajouterMesure(prel, "1506", 1);
        base.ajouterMesure(prel, "9999", 1);
        base.ajouterMesure(prel + 1000, "1340", 1);
        base.ajouterMesure(prel + 1000, "1506", 1);
        base.sql("INSERT INTO MESURE_PHYSICO (CodeParam, ResultatAnaPC) VALUES ('1340', 1)");
        QCOMPARE(compterResultatsDeLaBase(base.donnees), 2);
        QCOMPARE(base.donnees.nombreLignes(QStringLiteral("Mesure_PC")), 2);
        // A hole in the numbers of the samplings, with results that stayed behind in it.
        const qint64 perdu = base.ajouterPrelevement(STATION, QDate(2008, 4, 1));
        base.ajouterMesure(perdu, "1340", 1);
        base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2008, 5, 1)), "1340", 1);
        base.sql("DELETE FROM PRELEVEMENT WHERE NumPrel = ?", {perdu});
        QCOMPARE(compterResultatsDeLaBase(base.donnees), 3);
        QCOMPARE(base.donnees.nombreLignes(QStringLiteral("Mesure_PC")), 3);
    }
};

QTEST_GUILESS_MAIN(TestLectureRapportPC)
#include "test_lecture_rapport_pc.moc"
