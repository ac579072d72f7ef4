// The demonstration study, read back: what it must hold for every product to have something to show.
#include "BaseConstruite.h"
#include "database/Schema.h"

#include <cmath>
#include <QDate>
#include <QFileInfo>
#include <QTest>

class TestDemonstration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bienFormee();
    void textesDansLeursLongueurs();
    void cascadesDeclarees();
    void nulleReferencePerdue_data();
    void nulleReferencePerdue();
    void elementsDuBassin();
    void codes();
    void organismesInventes();
    void prelevements();
    void reseaux();
    void debits();
    void pluie();
    void parametresSuivis();
    void codesRemarque();
    void resultatsCoherents();
    void vieDesStations();
    void nitratesDeSaison();
    void grandeursLiees();
    void objectifsAtteintsEtDepasses();
    void listesDesEcrans();

private:
    const BaseConstruite m_base{QStringLiteral("demonstration.mdb")};
};

void TestDemonstration::bienFormee()
{
    QCOMPARE(m_base.valeur("PRAGMA integrity_check"), "ok");
    QVERIFY(m_base.valeur("PRAGMA foreign_key_check").isNull());
    // One file, journal folded back.
    const QString origine = DOSSIER_CONSTRUCTION "/installation/Projet/Base/demonstration.mdb";
    QVERIFY(!QFileInfo::exists(origine + "-wal"));
    QVERIFY(!QFileInfo::exists(origine + "-journal"));
    QCOMPARE(m_base.valeur("SELECT Bassin_versant FROM LIEU_BASSIN_VERSANT"),
             m_base.valeur("SELECT NomBV FROM BASSIN_VERSANT WHERE NumBV = 1"));
}

void TestDemonstration::textesDansLeursLongueurs()
{
    for (const Schema::Table &table : Schema::tables())
        for (const Schema::Colonne &colonne : table.colonnes)
            if (colonne.genre == Schema::Genre::Texte && colonne.longueur > 0) {
                const int trop =
                    m_base.compte(QStringLiteral("SELECT COUNT(*) FROM [%1] WHERE length([%2]) > %3")
                                      .arg(table.nom, colonne.nom)
                                      .arg(colonne.longueur));
                QVERIFY2(trop == 0, qPrintable(table.nom + "." + colonne.nom));
            }
}

void TestDemonstration::cascadesDeclarees()
{
    const auto regle = [&](const QString &table, const QString &colonne, const QString &quand) {
        return m_base.valeur("SELECT " + quand +
                                 " FROM pragma_foreign_key_list(?) WHERE \"from\" = ? COLLATE NOCASE",
                             {table, colonne});
    };
    QCOMPARE(regle("MESURE_PHYSICO", "CodeParam", "on_update"), "CASCADE");
    QCOMPARE(regle("MESURE_PHYSICO", "CodeSandreGest", "on_update"), "CASCADE");
    QCOMPARE(regle("PRELEVEMENTRSX", "NumPrel", "on_update"), "CASCADE");
    QCOMPARE(regle("PRELEVEMENTRSX", "NumPrel", "on_delete"), "CASCADE");
}

// Links that the store does not enforce: each non-null code has its row.
void TestDemonstration::nulleReferencePerdue_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("colonne");
    QTest::addColumn<QString>("cible");
    QTest::addColumn<QString>("cle");
    const auto lien = [](const char *table, const char *colonne, const char *cible, const char *cle) {
        QTest::addRow("%s.%s", table, colonne) << table << colonne << cible << cle;
    };
    lien("MESURE_PHYSICO", "NumPrel", "PRELEVEMENT", "NumPrel");
    lien("MESURE_PHYSICO", "CodeParam", "PARAMETRE", "CodeParam");
    lien("MESURE_PHYSICO", "CodeSandreGest", "INTERVENANT", "CodeSandreInterv");
    lien("MESURE_PHYSICO", "CodeSandreLabo", "INTERVENANT", "CodeSandreInterv");
    lien("MESURE_PHYSICO", "CodeMethode", "METHODE", "CodeMéthode");
    lien("MESURE_PHYSICO", "Cd_Fraction", "FRACTION", "CD_FRACTION");
    lien("PRELEVEMENT", "CodeSandreStationM", "STATION_QUALITE", "CodeSandreStationM");
    lien("PRELEVEMENT", "CodeSandrePrelev", "INTERVENANT", "CodeSandreInterv");
    lien("PRELEVEMENTRSX", "CodeReseau", "RESEAU_MESURE", "CodeReseau");
    lien("LOCALISATION", "CodeSandreStationM", "STATION_QUALITE", "CodeSandreStationM");
    lien("STATION_QUALITE", "CodeReseau", "RESEAU_MESURE", "CodeReseau");
    lien("STATION_QUALITE", "NumBV", "BASSIN_VERSANT", "NumBV");
    lien("STATION_QUALITE", "CodeSSBV", "SOUS_BASSIN_VERSANT", "CodeSSBV");
    lien("SOUS_BASSIN_VERSANT", "NumBV", "BASSIN_VERSANT", "NumBV");
    lien("Rattachement_hydro_ mesure", "CodeStationHM", "STATION_HYDRO", "CodeStationHM");
    lien("Rattachement_hydro_ mesure", "CodeSandreStationM", "STATION_QUALITE", "CodeSandreStationM");
    lien("MESURE_HYDRO", "CodeStationHM", "STATION_HYDRO", "CodeStationHM");
    lien("MESURE_PLUVIO", "CodeStationPM", "STATION_PLUVIO", "CodeStationPM");
    lien("MESURE_PLUVIO", "CodeSandreGest", "INTERVENANT", "CodeSandreInterv");
    for (const char *table : {"StationMesureXGest", "StationHydroXGest", "StationPluvioXGest"})
        lien(table, "CodeSandreGest", "INTERVENANT", "CodeSandreInterv");
    for (const char *table :
         {"StationMesureXCommune", "StationHydroXCommune", "StationPluvioXCommune", "BVXCommune"})
        lien(table, "NumCommune", "COMMUNE", "NumCommune");
    lien("COMMUNE", "NumDepartement", "DEPARTEMENT", "NumDepartement");
    lien("OBJECTIF", "CodeParam", "PARAMETRE", "CodeParam");
    lien("OBJECTIF", "CD_FRACTION", "FRACTION", "CD_FRACTION");
    lien("OBJECTIF", "NumBV", "BASSIN_VERSANT", "NumBV");
}

void TestDemonstration::nulleReferencePerdue()
{
    QFETCH(const QString, table);
    QFETCH(const QString, colonne);
    QFETCH(const QString, cible);
    QFETCH(const QString, cle);
    QVERIFY(m_base.compte(
                QStringLiteral("SELECT COUNT(*) FROM [%1] WHERE [%2] IS NOT NULL").arg(table, colonne)) > 0);
    QCOMPARE(m_base.compte(QStringLiteral("SELECT COUNT(*) FROM [%1] WHERE [%2] IS NOT NULL AND [%2] NOT IN "
                                          "(SELECT [%3] FROM [%4])")
                               .arg(table, colonne, cle, cible)),
             0);
}

void TestDemonstration::elementsDuBassin()
{
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM STATION_QUALITE"), 8);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM STATION_HYDRO WHERE SurfReelStationHM > 0"), 2);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM STATION_PLUVIO"), 1);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM SOUS_BASSIN_VERSANT"), 4);
    // The sub-basins cut the basin into parts: 61.2 + 24.6 + 37.3 + 55.3 = 178.4 km2.
    QCOMPARE(m_base.valeur("SELECT round(SUM(SuperfSSBV), 1) FROM SOUS_BASSIN_VERSANT"),
             m_base.valeur("SELECT SuperfBV FROM BASSIN_VERSANT"));
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM COMMUNE"), 8);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM RESEAU_MESURE"), 4);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM INTERVENANT"), 8);
    // One sampling point a station, on the support and point that captures use.
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM LOCALISATION WHERE CdPoint = '031' AND CdSupport = '3'"), 8);
    QCOMPARE(m_base.compte("SELECT COUNT(DISTINCT CodeSandreStationM) FROM LOCALISATION"), 8);
    // Each kind of station that the maps tell apart.
    QCOMPARE(m_base.compte(
                 "SELECT COUNT(DISTINCT SituationStationM) FROM STATION_QUALITE WHERE SituationStationM IN "
                 "('Bilan', 'Evaluation', 'Référence', 'AEP', 'Drains', 'Impact', 'Retenue')"),
             7);
}

void TestDemonstration::codes()
{
    // Codes are texts; the leading zero of a station's is there.
    QCOMPARE(m_base.colonne("SELECT DISTINCT typeof(CodeSandreStationM) FROM PRELEVEMENT"),
             QStringList("text"));
    QCOMPARE(m_base.colonne("SELECT DISTINCT typeof(CodeParam) FROM MESURE_PHYSICO"), QStringList("text"));
    QCOMPARE(m_base.colonne("SELECT DISTINCT typeof(CodeReseau) FROM PRELEVEMENTRSX"), QStringList("text"));
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM STATION_QUALITE WHERE CodeSandreStationM LIKE '0%'"), 6);
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM PRELEVEMENT WHERE CodeSandreStationM = '04999010'") > 0);
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM STATION_QUALITE WHERE NomStationM LIKE '%''%'") > 0);
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM INTERVENANT WHERE NomInterv LIKE '%''%'") > 0);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM STATION_QUALITE WHERE CodeUsuelStationM IS NULL"), 1);
    QCOMPARE(m_base.compte("SELECT COUNT(DISTINCT CodeUsuelStationM) FROM STATION_QUALITE"), 7);
}

void TestDemonstration::organismesInventes()
{
    // Fourteen digits that fail the check of a real SIRET (Luhn), so that they can be nobody's.
    const QStringList codes =
        m_base.colonne("SELECT CodeSandreInterv FROM INTERVENANT WHERE length(CodeSandreInterv) = 14");
    QCOMPARE(codes.size(), 7);
    for (const QString &code : codes) {
        int somme = 0;
        for (qsizetype i = 0; i < code.size(); ++i) {
            const int chiffre = code[code.size() - 1 - i].digitValue() * (i % 2 == 0 ? 1 : 2);
            somme += chiffre > 9 ? chiffre - 9 : chiffre;
        }
        QVERIFY2(somme % 10 != 0, qPrintable(code));
    }
}

void TestDemonstration::prelevements()
{
    // By the calendar, from the tables of campaigns: monthly for eleven years is 132.
    const auto nombre = [&](const char *station, const char *heure) {
        return m_base.compte(
            "SELECT COUNT(*) FROM PRELEVEMENT WHERE CodeSandreStationM = ? AND HeurePrel = ?",
            {station, heure});
    };
    QCOMPARE(nombre("04999010", "09:20:00"), 132);
    QCOMPARE(nombre("04999010", "14:00:00"), 88); // October to May: 8 a year
    QCOMPARE(nombre("04999020", "10:40:00"), 132);
    QCOMPARE(nombre("04999030", "09:00:00"), 132);
    QCOMPARE(nombre("04999040", "11:15:00"), 132);
    QCOMPARE(nombre("04999050", "14:10:00"), 54); // every other month of 9 years
    QCOMPARE(nombre("04999060", "08:00:00"), 132);
    QCOMPARE(nombre("04999060", "10:00:00"), 42); // every other month of 7 years
    QCOMPARE(nombre("99010071", "11:00:00"), 132);
    // A null time is a valid sampling: 132 of the purification plant, 40 of the drains (4 in 2008, then 6 winters of 6).
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM PRELEVEMENT WHERE HeurePrel IS NULL"), 172);
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM PRELEVEMENT WHERE HeurePrel IN ('07:45:00', '08:30:00')") >=
            30);
    QCOMPARE(m_base.colonne("SELECT DISTINCT ifnull(Protocole, 'nul') FROM PRELEVEMENT ORDER BY 1"),
             (QStringList{"0", "1", "2", "nul"}));
    QVERIFY(m_base.compte("SELECT COUNT(DISTINCT CodeSandrePrelev) FROM PRELEVEMENT") >= 4);
    QCOMPARE(m_base.valeur(
                 "SELECT MIN(DatePrel) >= '2008-01-01' AND MAX(DatePrel) <= '2018-12-31' FROM PRELEVEMENT"),
             1);
    // The key by which a sampling is found again is single.
    QCOMPARE(m_base.compte(
                 "SELECT COUNT(*) FROM (SELECT 1 FROM PRELEVEMENT GROUP BY CodeSandreStationM, DatePrel, "
                 "HeurePrel, CodeSandrePrelev HAVING COUNT(*) > 1)"),
             0);
    // Physico-chemistry and pesticides of one day share the sampling.
    QVERIFY(m_base.compte(
                "SELECT COUNT(*) FROM (SELECT NumPrel FROM MESURE_PHYSICO JOIN PARAMETRE USING (CodeParam) "
                "GROUP BY NumPrel HAVING COUNT(DISTINCT CodeGroupeParam) = 2)") > 100);
}

void TestDemonstration::reseaux()
{
    const QString parPrelevement =
        "SELECT COUNT(*) FROM (SELECT COUNT(r.CodeReseau) AS n FROM PRELEVEMENT p LEFT JOIN "
        "PRELEVEMENTRSX r ON r.NumPrel = p.NumPrel GROUP BY p.NumPrel) WHERE n = ";
    QVERIFY(m_base.compte(parPrelevement + "0") >= 100);
    QVERIFY(m_base.compte(parPrelevement + "1") >= 100);
    QVERIFY(m_base.compte(parPrelevement + "2") >= 100);
    QCOMPARE(m_base.compte("SELECT COUNT(DISTINCT CodeReseau) FROM PRELEVEMENTRSX"), 4);
}

void TestDemonstration::debits()
{
    const auto jours = [&](const char *station) {
        return m_base.compte("SELECT COUNT(DebitJourMesureHM) FROM MESURE_HYDRO WHERE CodeStationHM = ?",
                             {station});
    };
    const auto mois = [&](const char *station) {
        return m_base.compte("SELECT COUNT(DebitMoisMesureHM) FROM MESURE_HYDRO WHERE CodeStationHM = ?",
                             {station});
    };
    // 2008 to 2018: 11 * 365 + 3 leap days = 4018. Missing at the outlet: 6 to 10 February 2010 (5), 1 to 4 July 2013
    // (4), 9 January 2016 (1), in three months. Upstream: 20 December 2012 to 12 January 2013 (12 + 12), in two.
    QCOMPARE(jours("J7999910"), 4018 - 5 - 4 - 1);
    QCOMPARE(mois("J7999910"), 132 - 3);
    QCOMPARE(jours("J7999920"), 4018 - 24);
    QCOMPARE(mois("J7999920"), 132 - 2);
    QCOMPARE(
        m_base.compte("SELECT COUNT(*) FROM MESURE_HYDRO WHERE (DebitJourMesureHM IS NULL) = "
                      "(DebitMoisMesureHM IS NULL) OR HeureMesureHM IS NOT NULL OR DebitJourMesureHM <= 0"),
        0);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM MESURE_HYDRO WHERE DebitMoisMesureHM IS NOT NULL AND "
                           "strftime('%d', DateMesureHM) <> '01'"),
             0);
    // A month's flow is the mean of its days: any month, reckoned apart.
    const double moyenne =
        m_base
            .valeur("SELECT AVG(DebitJourMesureHM) FROM MESURE_HYDRO WHERE CodeStationHM = "
                    "'J7999910' AND DateMesureHM BETWEEN '2014-02-01' AND '2014-02-28'")
            .toDouble();
    const double duMois =
        m_base
            .valeur("SELECT DebitMoisMesureHM FROM MESURE_HYDRO WHERE CodeStationHM = 'J7999910' "
                    "AND DateMesureHM = '2014-02-01' AND DebitMoisMesureHM IS NOT NULL")
            .toDouble();
    QVERIFY(std::abs(moyenne - duMois) <= 0.5);
    // Six stations are linked to a gauge. The gaps leave these years of nitrates without a flow for each sample: 8
    // February 2010 at the outlet and 9 February below the plant, 1 July 2013 at the intake, and the round of 8 and 9 January
    // 2013 at the three stations of the upstream gauge.
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM [Rattachement_hydro_ mesure]"), 6);
    QCOMPARE(
        m_base.colonne(
            "SELECT DISTINCT CodeSandreStationM || ' ' || DatePrel FROM PRELEVEMENT p JOIN MESURE_PHYSICO USING "
            "(NumPrel) JOIN [Rattachement_hydro_ mesure] r USING (CodeSandreStationM) WHERE CodeParam = '1340' AND "
            "NOT EXISTS (SELECT 1 FROM MESURE_HYDRO m WHERE m.CodeStationHM = r.CodeStationHM AND DateMesureHM = "
            "DatePrel AND DebitJourMesureHM IS NOT NULL) ORDER BY 1"),
        (QStringList{"04999010 2010-02-08", "04999020 2013-01-08", "04999030 2010-02-09",
                     "04999040 2013-01-09", "04999050 2013-01-09", "04999060 2013-07-01"}));
    // Winter carries the water: at least four times as much in January to March as in July to September.
    const QString moyenneDe =
        "SELECT AVG(DebitJourMesureHM) FROM MESURE_HYDRO WHERE CodeStationHM = 'J7999910' AND "
        "CAST(strftime('%m', DateMesureHM) AS INTEGER) BETWEEN ";
    QVERIFY(m_base.valeur(moyenneDe + "1 AND 3").toDouble() >
            4 * m_base.valeur(moyenneDe + "7 AND 9").toDouble());
}

void TestDemonstration::pluie()
{
    // 4018 days less 14 to 16 August 2011 and 1 May 2017.
    QCOMPARE(m_base.compte("SELECT COUNT(JourMesurePM) FROM MESURE_PLUVIO"), 4018 - 4);
    QCOMPARE(
        m_base.compte(
            "SELECT COUNT(*) FROM (SELECT 1 FROM MESURE_PLUVIO GROUP BY DateMesurePM HAVING COUNT(*) > 1)"),
        0);
    const auto annees =
        m_base.colonne("SELECT SUM(JourMesurePM) FROM MESURE_PLUVIO GROUP BY strftime('%Y', DateMesurePM)");
    QCOMPARE(annees.size(), 11);
    for (const QString &total : annees) // the west of France, mm a year
        QVERIFY2(total.toDouble() > 500 && total.toDouble() < 1200, qPrintable(total));
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM MESURE_PLUVIO WHERE CommMesurePM IS NOT NULL") > 0);
}

void TestDemonstration::parametresSuivis()
{
    const QString suivis =
        "SELECT COUNT(DISTINCT CodeParam) FROM MESURE_PHYSICO JOIN PARAMETRE USING (CodeParam) WHERE "
        "CodeGroupeParam = ?";
    QVERIFY(m_base.compte(suivis, {"PC"}) >= 12);
    QVERIFY(m_base.compte(suivis, {"PS"}) >= 12);
    QCOMPARE(
        m_base.colonne("SELECT DISTINCT Cd_Fraction FROM MESURE_PHYSICO WHERE CodeParam = '1841' ORDER BY 1"),
        (QStringList{"23", "3"}));
    for (const char *code : {"1301", "1302", "1303", "1305", "1311", "1312", "1313", "1314", "1335", "1339",
                             "1340", "1350", "1433", "1841"})
        QVERIFY2(m_base.compte(
                     "SELECT COUNT(DISTINCT strftime('%Y', DatePrel)) FROM MESURE_PHYSICO JOIN PRELEVEMENT "
                     "USING (NumPrel) WHERE CodeParam = ? AND CodeSandreStationM = '04999010'",
                     {code}) == 11,
                 code);
}

void TestDemonstration::codesRemarque()
{
    // Every code that captures accept, and none.
    for (const QStringList &ligne : lignesCsv("referentiel/codes_remarque.csv"))
        QVERIFY2(
            m_base.compte("SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CodeRemarqueAnaPC = ?", {ligne[0]}) > 0,
            qPrintable(ligne[0]));
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CodeRemarqueAnaPC IS NULL") > 0);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CodeRemarqueAnaPC NOT IN "
                           "('0', '1', '2', '3', '10')"),
             0);
    // No result under 0, the limit under the others.
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM MESURE_PHYSICO WHERE (ResultatAnaPC IS NULL) <> "
                           "(CodeRemarqueAnaPC IS '0')"),
             0);
    QCOMPARE(m_base.compte(
                 "SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CodeRemarqueAnaPC = '2' AND ResultatAnaPC <> LD"),
             0);
    QCOMPARE(
        m_base.compte(
            "SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CodeRemarqueAnaPC = '10' AND ResultatAnaPC <> LQ"),
        0);
    QCOMPARE(m_base.compte(
                 "SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CodeRemarqueAnaPC = '3' AND ResultatAnaPC <> LS"),
             0);
}

void TestDemonstration::resultatsCoherents()
{
    // One result for a sampling, parameter, fraction and manager.
    QCOMPARE(
        m_base.compte(
            "SELECT COUNT(*) FROM (SELECT 1 FROM MESURE_PHYSICO GROUP BY NumPrel, CodeParam, Cd_Fraction, "
            "CodeSandreGest HAVING COUNT(*) > 1)"),
        0);
    // A stored number has four decimals at most.
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM MESURE_PHYSICO WHERE abs(ResultatAnaPC * 10000 - "
                           "round(ResultatAnaPC * 10000)) > 1e-6 OR ResultatAnaPC < 0"),
             0);
    QVERIFY(m_base.compte("SELECT COUNT(DISTINCT CodeSandreLabo) FROM MESURE_PHYSICO") >= 2);
    QVERIFY(m_base.compte("SELECT COUNT(DISTINCT CodeSandreGest) FROM MESURE_PHYSICO") >= 3);
    QVERIFY(m_base.compte("SELECT COUNT(DISTINCT CommResAnaPC) FROM MESURE_PHYSICO") >= 3);
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM MESURE_PHYSICO WHERE CommAnaPC IS NOT NULL") > 0);
}

void TestDemonstration::vieDesStations()
{
    QCOMPARE(m_base.compte(
                 "SELECT COUNT(*) FROM PRELEVEMENT JOIN STATION_QUALITE USING (CodeSandreStationM) WHERE "
                 "DatePrel < CreationStationM OR DatePrel > ArretActiviteStationM"),
             0);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM STATION_QUALITE WHERE ArretActiviteStationM IS NOT NULL"),
             1);
}

void TestDemonstration::nitratesDeSaison()
{
    const QString nitrates =
        "SELECT %1 FROM PRELEVEMENT JOIN MESURE_PHYSICO USING (NumPrel) WHERE CodeParam = '1340' AND "
        "CodeSandreStationM = '04999010' AND ResultatAnaPC IS NOT NULL";
    const QString mois = " AND CAST(strftime('%m', DatePrel) AS INTEGER) ";
    QVERIFY(m_base.valeur(nitrates.arg("MIN(ResultatAnaPC)")).toDouble() >= 10);
    QVERIFY(m_base.valeur(nitrates.arg("MAX(ResultatAnaPC)")).toDouble() <= 45);
    const double hiver =
        m_base.valeur(nitrates.arg("AVG(ResultatAnaPC)") + mois + "BETWEEN 1 AND 3").toDouble();
    const double ete =
        m_base.valeur(nitrates.arg("AVG(ResultatAnaPC)") + mois + "BETWEEN 7 AND 9").toDouble();
    QVERIFY2(hiver > ete + 5, qPrintable(QStringLiteral("%1 %2").arg(hiver).arg(ete)));
}

void TestDemonstration::grandeursLiees()
{
    // Pairs measured in one sampling: what is a part of another is not above it (by more than a rounding).
    const auto depassements = [&](const QStringList &partie, const QStringList &tout, double facteur,
                                  double marge) {
        return m_base.compte(
            "SELECT COUNT(*) FROM MESURE_PHYSICO a JOIN MESURE_PHYSICO b USING (NumPrel) WHERE "
            "a.CodeParam = ? AND a.Cd_Fraction = ? AND b.CodeParam = ? AND b.Cd_Fraction = ? AND "
            "a.CodeRemarqueAnaPC = '1' AND b.CodeRemarqueAnaPC = '1' AND "
            "a.ResultatAnaPC / ? > b.ResultatAnaPC + ?",
            {partie[0], partie[1], tout[0], tout[1], facteur, marge});
    };
    QCOMPARE(depassements({"1841", "3"}, {"1841", "23"}, 1, 0), 0);         // dissolved within total carbon
    QCOMPARE(depassements({"1433", "3"}, {"1350", "23"}, 3.066, 0.005), 0); // PO4 within phosphorus
    QCOMPARE(depassements({"1335", "3"}, {"1319", "23"}, 1.288, 0.01),
             0); // ammonium within Kjeldahl nitrogen
    QCOMPARE(depassements({"6455", "23"}, {"1449", "23"}, 5, 0), 0);
}

void TestDemonstration::objectifsAtteintsEtDepasses()
{
    // The report of the outlet has something to say on each line: values on both sides of both objectives.
    const QString compte =
        "SELECT COUNT(*) FROM PRELEVEMENT JOIN MESURE_PHYSICO USING (NumPrel) JOIN OBJECTIF o ON "
        "o.CodeParam = MESURE_PHYSICO.CodeParam WHERE MESURE_PHYSICO.CodeParam = '1340' AND "
        "CodeSandreStationM = ? AND ResultatAnaPC ";
    QVERIFY(m_base.compte(compte + "> MoyObjf", {"04999010"}) > 20);
    QVERIFY(m_base.compte(compte + "<= MoyObjf", {"04999010"}) > 20);
    QVERIFY(m_base.compte(compte + "> MaxObjf", {"04999010"}) > 2);
    // Objectives with one bound only.
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM OBJECTIF WHERE MaxObjf IS NULL") > 0);
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM OBJECTIF WHERE MoyObjf IS NULL") > 0);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM OBJECTIF WHERE CodeParam = '1841'"), 2);
}

void TestDemonstration::listesDesEcrans()
{
    // The commands behind the selection screens give rows.
    for (const char *commande :
         {"Mesure_PC", "Mesure_PS", "Station_Qualité", "Protocole", "Protocole_PS", "GestMesure",
          "GestMesure_PS", "ReseauXMesure_physico", "Parametres_Mesures_PC", "Parametres_Mesures_PS",
          "Objectif_PC", "StationQualite_StationHydro"}) {
        Requete r = m_base.donnees.commande(QString::fromUtf8(commande));
        QVERIFY2(r.suivant(), commande);
    }
}

QTEST_GUILESS_MAIN(TestDemonstration)
#include "test_demonstration.moc"
