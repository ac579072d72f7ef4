// The reference content of the empty base, read back.
#include "BaseConstruite.h"
#include "database/Schema.h"

#include <QTest>

class TestReferentiel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chaqueLigneYEst_data();
    void chaqueLigneYEst();
    void ligneInconnueDesFractions();
    void nulBassinNulleStation();
    void uniteDeReferenceDeChaqueParametre();
    void secondesUnitesDeMemeValeur();
    void pesticides();
    void grillesCroissantes();
    void seuilsPublics_data();
    void seuilsPublics();
    void normesPubliques_data();
    void normesPubliques();
    void rienAAjouterALOuverture();

private:
    const BaseConstruite m_base{QStringLiteral("vierge.mdb")};
};

void TestReferentiel::chaqueLigneYEst_data()
{
    QTest::addColumn<QString>("csv");
    QTest::addColumn<QString>("table");
    QTest::newRow("fractions") << "fractions.csv"
                               << "FRACTION";
    QTest::newRow("unites") << "unites.csv"
                            << "UNITEREFERENCE";
    QTest::newRow("parametres") << "parametres.csv"
                                << "PARAMETRE";
    QTest::newRow("grilles") << "grilles_seq.csv"
                             << "GRILLE_SEQ";
    QTest::newRow("normes") << "normes_aep.csv"
                            << "NORME_AEP";
    QTest::newRow("departements") << "departements.csv"
                                  << "DEPARTEMENT";
}

void TestReferentiel::chaqueLigneYEst()
{
    QFETCH(const QString, csv);
    QFETCH(const QString, table);
    const auto lignes = lignesCsv(QStringLiteral("referentiel/") + csv);
    QVERIFY(lignes.size() > 10);
    QCOMPARE(m_base.compte(QStringLiteral("SELECT COUNT(*) FROM ") + table), lignes.size());
}

void TestReferentiel::ligneInconnueDesFractions()
{
    Requete r = m_base.donnees.executer(QStringLiteral("SELECT * FROM FRACTION WHERE CD_FRACTION = '0'"));
    QVERIFY(r.suivant());
    QCOMPARE(r.texte("LB_NOM_FRACTION"), QStringLiteral("Inconnu"));
    QCOMPARE(r.texte("LB_STATUT_FRACTION"), QStringLiteral("Validé"));
}

void TestReferentiel::nulBassinNulleStation()
{
    // The reference content alone: every other table of the schema is empty, but for the two marks of the versions.
    const QStringList remplies{
        "FRACTION",  "UNITEREFERENCE", "PARAMETRE",      "IMPORT_PAR_URF",        "GRILLE_SEQ",
        "NORME_AEP", "DEPARTEMENT",    "COULEURS_GRAPH", "APPLICATIONPROPERTIES", "TECHNIQUE"};
    for (const Schema::Table &table : Schema::tables())
        if (!remplies.contains(table.nom) && m_base.compte("SELECT COUNT(*) FROM [" + table.nom + "]") != 0)
            QFAIL(qPrintable(table.nom));
}

void TestReferentiel::uniteDeReferenceDeChaqueParametre()
{
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM PARAMETRE JOIN UNITEREFERENCE USING (CodeUnite)"),
             m_base.compte("SELECT COUNT(*) FROM PARAMETRE"));
    // Exactly one pair marked as ours for each parameter, and it is the reference unit.
    QCOMPARE(
        m_base.colonne("SELECT CodeParam FROM PARAMETRE p WHERE 1 <> (SELECT COUNT(*) FROM IMPORT_PAR_URF i "
                       "WHERE i.CodeParam = p.CodeParam AND ISOVL = -1 AND i.CodeUnite = p.CodeUnite)"),
        QStringList());
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM IMPORT_PAR_URF WHERE ISOVL = 0") > 0);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM IMPORT_PAR_URF WHERE ISOVL NOT IN (-1, 0)"), 0);
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM IMPORT_PAR_URF i LEFT JOIN UNITEREFERENCE u "
                           "ON i.CodeUnite = u.CodeUnite WHERE u.CodeUnite IS NULL"),
             0);
}

void TestReferentiel::secondesUnitesDeMemeValeur()
{
    // An import stores the number as it stands, so a second unit may not differ by a factor of a thousand: both begin
    // with the same multiple, or count things in the same volume.
    Requete r = m_base.donnees.executer(
        "SELECT p.NomParam, a.SymboleUnite AS ref, b.SymboleUnite AS autre FROM IMPORT_PAR_URF i "
        "JOIN PARAMETRE p ON p.CodeParam = i.CodeParam JOIN UNITEREFERENCE a ON a.CodeUnite = p.CodeUnite "
        "JOIN UNITEREFERENCE b ON b.CodeUnite = i.CodeUnite WHERE ISOVL = 0");
    while (r.suivant()) {
        const QString reference = r.texte("ref"), autre = r.texte("autre");
        const bool memeMultiple = reference.left(2) == autre.left(2);
        const bool memeVolume = reference.contains("100mL") && autre.contains("100mL");
        const bool turbidite = reference == "NFU" && autre == "NTU";
        QVERIFY2(memeMultiple || memeVolume || turbidite, qPrintable(r.texte(0) + " : " + autre));
    }
}

void TestReferentiel::pesticides()
{
    const QStringList vue = m_base.colonne("SELECT CodeParam FROM PARAMETRE_PHYTO");
    QVERIFY(vue.size() >= 12);
    QCOMPARE(vue.size(), m_base.compte("SELECT COUNT(*) FROM PARAMETRE WHERE CodeGroupeParam = 'PS'"));
    QVERIFY(vue.contains("1107"));
    QVERIFY(!vue.contains("1340"));
    QCOMPARE(m_base.colonne("SELECT DISTINCT CodeGroupeParam FROM PARAMETRE ORDER BY 1"),
             (QStringList{"PC", "PS"}));
    QCOMPARE(m_base.valeur("SELECT CodeParam FROM PARAMETRE WHERE NomParam = 'Total Pesticides'"), "6276");
}

void TestReferentiel::grillesCroissantes()
{
    QCOMPARE(m_base.colonne("SELECT CodeParam FROM GRILLE_SEQ WHERE NOT (Valeur1SEQ < Valeur2SEQ AND "
                            "Valeur2SEQ < Valeur3SEQ AND Valeur3SEQ < Valeur4SEQ)"),
             QStringList());
    QCOMPARE(m_base.colonne("SELECT CodeParam FROM GRILLE_SEQ WHERE NOT "
                            "(Valeur3BisSEQ > Valeur2SEQ AND Valeur3BisSEQ < Valeur3SEQ)"),
             QStringList());
    QCOMPARE(m_base.colonne("SELECT CodeParam FROM GRILLE_SEQ GROUP BY CodeParam HAVING COUNT(*) > 1"),
             QStringList());
    QCOMPARE(m_base.colonne("SELECT g.CodeParam FROM GRILLE_SEQ g LEFT JOIN PARAMETRE p USING (CodeParam) "
                            "WHERE p.CodeParam IS NULL"),
             QStringList());
    // Less is worse for oxygen: it can have no rising grid.
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM GRILLE_SEQ WHERE CodeParam IN ('1311', '1312')"), 0);
}

// Written here from the public grid, not from the table.
void TestReferentiel::seuilsPublics_data()
{
    QTest::addColumn<QList<double>>("seuils");
    QTest::newRow("1340") << QList<double>{2, 10, 25, 50};
    QTest::newRow("1335") << QList<double>{0.1, 0.5, 2, 5};
    QTest::newRow("1339") << QList<double>{0.03, 0.3, 0.5, 1};
    QTest::newRow("1350") << QList<double>{0.05, 0.2, 0.5, 1};
    QTest::newRow("1433") << QList<double>{0.1, 0.5, 1, 2};
    QTest::newRow("1313") << QList<double>{3, 6, 10, 25};
    QTest::newRow("1314") << QList<double>{20, 30, 40, 80};
    QTest::newRow("1841") << QList<double>{5, 7, 10, 15};
}

void TestReferentiel::seuilsPublics()
{
    QFETCH(const QList<double>, seuils);
    Requete r =
        m_base.donnees.executer("SELECT Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ FROM GRILLE_SEQ "
                                "WHERE CodeParam = ?",
                                {QString(QTest::currentDataTag())});
    QVERIFY(r.suivant());
    for (int i = 0; i < 4; ++i)
        QCOMPARE(r.valeur(i).toDouble(), seuils[i]);
}

void TestReferentiel::normesPubliques_data()
{
    QTest::addColumn<QString>("fraction");
    QTest::addColumn<double>("norme");
    QTest::newRow("1340") << "0" << 50.0;
    QTest::newRow("1339") << "0" << 0.5;
    QTest::newRow("1335") << "0" << 0.1;
    QTest::newRow("1107") << "0" << 0.1;
    QTest::newRow("1103") << "0" << 0.03;
    QTest::newRow("6276") << "0" << 0.5;
    QTest::newRow("1841") << "23" << 2.0;
}

void TestReferentiel::normesPubliques()
{
    QFETCH(const QString, fraction);
    QFETCH(const double, norme);
    QCOMPARE(m_base.colonne("SELECT ValeurNorme FROM NORME_AEP WHERE CodeParam = ? AND CD_FRACTION = ?",
                            {QString(QTest::currentDataTag()), fraction}),
             QStringList(QString::number(norme)));
}

void TestReferentiel::rienAAjouterALOuverture()
{
    QCOMPARE(
        m_base.valeur("SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES WHERE PROPERTYNAME = 'DbVersion'"),
        "4.0.1");
    QCOMPARE(m_base.valeur("SELECT VERSION FROM TECHNIQUE"), "2L");
    // The palette is there: entries 17 (153, 153, 255) to 56 (51, 51, 51) of the spreadsheet's colour table.
    QCOMPARE(
        m_base.colonne(
            "SELECT ordre || ':' || R || ',' || G || ',' || B FROM COULEURS_GRAPH WHERE ordre IN (1, 40) "
            "ORDER BY ordre"),
        (QStringList{"1:153,153,255", "40:51,51,51"}));
    QCOMPARE(m_base.compte("SELECT COUNT(*) FROM COULEURS_GRAPH"), 40);
    QVERIFY(m_base.compte("SELECT COUNT(*) FROM pragma_table_info('STATION_QUALITE') WHERE name IN "
                          "('ALT_NO3', 'SuperficieStationM')") == 2);
}

QTEST_GUILESS_MAIN(TestReferentiel)
#include "test_referentiel.moc"
