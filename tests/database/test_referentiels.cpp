// Names to codes, existence, and the memory behind them.
#include "BaseDEssai.h"
#include "database/M_Element_Existant_OVRA.h"
#include "database/M_Referentiels.h"
#include "platform/Erreur.h"

#include <QProcess>
#include <QTest>

using namespace M_Referentiels;
using namespace M_Element_Existant_OVRA;

class TestReferentiels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chaqueNomDonneSonCode_data();
    void chaqueNomDonneSonCode();
    void vide_data() { chaqueNomDonneSonCode_data(); }
    void vide();
    void apostropheAccentEtCasse();
    void lePremierNomGagne();
    void unites();
    void uniteParametreConnue();
    void codeUsuel();
    void bassinReference();
    void dansListe();
    void existence();
    void unChangementSeVoitAussitot();
    void unChangementDUneAutreConnexionSeVoit();
    void uneTransactionDefaiteSeVoit();
    void unRetourEnArriereSeVoit();
    void uneTableVideeSeVoit();
    void colonneOuCommandeInconnue();

private:
    using Fonction = QString (*)(const DataEnvironment1 &, const QString &);
};

// The family, each on a name of the study of tests.
void TestReferentiels::chaqueNomDonneSonCode_data()
{
    QTest::addColumn<void *>("fonction");
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QString>("code");
    const auto ligne = [](const char *titre, Fonction f, const char *nom, const char *code) {
        QTest::newRow(titre) << reinterpret_cast<void *>(f) << QString::fromUtf8(nom)
                             << QString::fromUtf8(code);
    };
    ligne("CodeParametre", CodeParametre, "Carbone Organique", "1841");
    ligne("CodeDepartement", CodeDepartement, "Côtes-d'Armor", "22");
    ligne("CodeFraction", CodeFraction, "Eau brute", "23");
    ligne("CodeStationHydro", CodeStationHydro, "Le Meu à Quédillac", "J7010610");
    ligne("IntituleStationHydro", IntituleStationHydro, "J7010610", "Le Meu à Quédillac");
    ligne("CodeSousBassin", CodeSousBassin, "Haut du BV", "1");
    ligne("NumeroBassin", NumeroBassin, "BV d'essai", "1");
    ligne("NumeroCommune", NumeroCommune, "Saint-Brieuc", "22278");
    ligne("CodeGestionnaire", CodeGestionnaire, "Agence de l'eau", "17");
    ligne("CodePreleveur", CodePreleveur, "Préleveur de l'Ouest", "19");
    ligne("CodeLaboratoire", CodeLaboratoire, "Laboratoire d'Armor", "18");
    ligne("CodeReseauDeLibelle", CodeReseauDeLibelle, "Réseau d'Armor", "0400000002");
    ligne("LibelleReseauDeCode", LibelleReseauDeCode, "0400000002", "Réseau d'Armor");
    ligne("NomGestionnaire", NomGestionnaire, "17", "Agence de l'eau");
    ligne("CodeUsuelStation", CodeUsuelStation, "04211940", "ESS1");
}

void TestReferentiels::chaqueNomDonneSonCode()
{
    QFETCH(void *, fonction);
    QFETCH(QString, nom);
    QFETCH(QString, code);
    const auto f = reinterpret_cast<Fonction>(fonction);
    static const BaseDEssai base;
    QCOMPARE(f(base.donnees, nom), code);
    QCOMPARE(f(base.donnees, nom.toUpper()), code);
    QCOMPARE(f(base.donnees, nom.toLower()), code);
    QCOMPARE(f(base.donnees, nom + u'x'), QString());
}

void TestReferentiels::vide()
{
    QFETCH(void *, fonction);
    // Without an open base: an empty name opens no search.
    const DataEnvironment1 fermee;
    QCOMPARE(reinterpret_cast<Fonction>(fonction)(fermee, QString()), QString());
}

void TestReferentiels::apostropheAccentEtCasse()
{
    const BaseDEssai base;
    base.sql(QStringLiteral("INSERT INTO COMMUNE (NumCommune, NomCommune) VALUES ('35100', 'Étrelles')"));
    base.sql(QStringLiteral("INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv) VALUES ('20', ?)"),
             {QStringLiteral("Syndicat du \"Ruisseau de l'Ile\"")});
    QCOMPARE(NumeroCommune(base.donnees, QStringLiteral("étrelles")), QStringLiteral("35100"));
    QCOMPARE(NumeroCommune(base.donnees, QStringLiteral("ÉTRELLES")), QStringLiteral("35100"));
    // The same letters, composed and decomposed.
    QCOMPARE(NumeroCommune(base.donnees, QStringLiteral("E\u0301trelles")), QStringLiteral("35100"));
    QCOMPARE(NumeroCommune(base.donnees, QStringLiteral("Etrelles")), QString());
    QCOMPARE(CodeGestionnaire(base.donnees, QStringLiteral("SYNDICAT DU \"RUISSEAU DE L'ILE\"")),
             QStringLiteral("20"));
    QCOMPARE(CodeGestionnaire(base.donnees, QStringLiteral("' OR '1'='1")), QString());
}

// Actors come by code, "05" before "17".
void TestReferentiels::lePremierNomGagne()
{
    const BaseDEssai base;
    base.sql(QStringLiteral(
        "INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv) VALUES ('05', 'AGENCE DE L''EAU')"));
    QCOMPARE(CodeGestionnaire(base.donnees, QStringLiteral("Agence de l'eau")), QStringLiteral("05"));
}

void TestReferentiels::unites()
{
    const BaseDEssai base;
    base.sql(QStringLiteral(
        "INSERT INTO UNITEREFERENCE (CodeUnite, SymboleUnite) VALUES ('107', 'MS'), ('198', 'ms'), "
        "('199', 'mS')"));
    QCOMPARE(SymboleUniteDeCode(base.donnees, QStringLiteral("133")), QStringLiteral("µg/L"));
    QCOMPARE(SymboleUniteDeCode(base.donnees, QStringLiteral("9999")), QStringLiteral("-"));
    QCOMPARE(SymboleUniteDeCode(base.donnees, QString()), QStringLiteral("-"));
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QStringLiteral("MG(no3)/l")), QStringLiteral("173"));
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QStringLiteral("inconnue")), QString());
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QStringLiteral("inconnue"), QStringLiteral("0")),
             QStringLiteral("0"));
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QString()), QString());
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QString(), QStringLiteral("0")), QStringLiteral("0"));
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QStringLiteral("mS")), QStringLiteral("199"));
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QStringLiteral("ms")), QStringLiteral("198"));
    QCOMPARE(CodeUniteDeSymbole(base.donnees, QStringLiteral("Ms")), QStringLiteral("107"));
}

void TestReferentiels::uniteParametreConnue()
{
    const BaseDEssai base;
    const auto connue = [&](const char *param, const char *code, const char *symbole) {
        return UniteParametreConnue(base.donnees, QString::fromUtf8(param), QString::fromUtf8(code),
                                    QString::fromUtf8(symbole));
    };
    QCOMPARE(connue("1340", "173", ""), 1);
    QCOMPARE(connue("1340", "162", ""), 2);
    QCOMPARE(connue("1340", "", "mg(NO3)/L"), 1);
    QCOMPARE(connue("1340", "", "mg/L"), 2);
    QCOMPARE(connue("1340", "", "MG/l"), 2);
    QCOMPARE(connue("1340", "133", ""), 0); // the parameter is there, the unit is not
    QCOMPARE(connue("1340", "133", "µg/L"), 0);
    QCOMPARE(connue("1340", "mg/L", "mg/L"), 2); // an import gives its text as both
    QCOMPARE(connue("1302", "173", ""), 0);
    QCOMPARE(connue("", "173", "mg(NO3)/L"), 0);
    QCOMPARE(connue("1340", "", ""), 0);
    QCOMPARE(ParamUniteAssociee(base.donnees, QStringLiteral("1340"), QStringLiteral("162"), QString()), 2);
}

void TestReferentiels::codeUsuel()
{
    const BaseDEssai base;
    QCOMPARE(CodeUsuelStation(base.donnees, QStringLiteral("04211950")), QStringLiteral("Null"));
    QCOMPARE(CodeUsuelStation(base.donnees, QStringLiteral("00000000")), QString());
}

void TestReferentiels::bassinReference()
{
    const BaseDEssai base;
    QCOMPARE(BassinReference(base.donnees), QStringLiteral("BV d'essai"));
    const BaseDEssai vide(true);
    QCOMPARE(BassinReference(vide.donnees), QString());
}

void TestReferentiels::dansListe()
{
    const QStringList liste{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    QVERIFY(DansListe(QString(), liste, 3));
    QVERIFY(DansListe(QStringLiteral("b"), liste, 3));
    QVERIFY(DansListe(QStringLiteral("b"), liste, 2));
    QVERIFY(!DansListe(QStringLiteral("c"), liste, 2));
    QVERIFY(!DansListe(QStringLiteral("d"), liste, 3));
    QVERIFY(DansListe(QStringLiteral("c"), liste, 99));
    QVERIFY(!DansListe(QStringLiteral("a"), {}, 3));
}

void TestReferentiels::existence()
{
    const BaseDEssai base;
    const DataEnvironment1 &d = base.donnees;
    QVERIFY(ParametreExiste(d, QStringLiteral("1340")));
    QVERIFY(!ParametreExiste(d, QStringLiteral("134")));
    QVERIFY(!ParametreExiste(d, QString()));
    QVERIFY(StationExiste(d, QStringLiteral("04211950")));
    QVERIFY(!StationExiste(d, QStringLiteral("J7010610")));
    QVERIFY(IntervenantExiste(d, QStringLiteral("18")));
    QVERIFY(!IntervenantExiste(d, QStringLiteral("99")));
    QVERIFY(ReseauExiste(d, QStringLiteral("0400000001")));
    QVERIFY(!ReseauExiste(d, QStringLiteral("0400000009")));
    QVERIFY(CommuneExiste(d, QStringLiteral("35228")));
    QVERIFY(!CommuneExiste(d, QStringLiteral("35229")));
    base.sql(
        QStringLiteral("INSERT INTO COMMUNE (NumCommune, NomCommune) VALUES ('01004', 'Ambérieu-en-Bugey')"));
    QVERIFY(CommuneExiste(d, QStringLiteral("1004")));
    QVERIFY(FractionExiste(d, QStringLiteral("23")));
    QVERIFY(!FractionExiste(d, QStringLiteral("2")));
    QVERIFY(!FractionExiste(d, QString()));
    QVERIFY(PointExiste(d, QStringLiteral("04211940"), QStringLiteral("031")));
    QVERIFY(!PointExiste(d, QStringLiteral("04211940"), QStringLiteral("032")));
    QVERIFY(!PointExiste(d, QStringLiteral("04211950"), QStringLiteral("031")));
    const qint64 prel = base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1));
    base.sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000002')"), {prel});
    QVERIFY(ReseauPrelevementExiste(d, prel, QStringLiteral("0400000002")));
    QVERIFY(!ReseauPrelevementExiste(d, prel, QStringLiteral("0400000001")));
    QVERIFY(!ReseauPrelevementExiste(d, prel, QString()));
    QVERIFY(!ReseauPrelevementExiste(d, 0, QStringLiteral("0400000002")));
}

void TestReferentiels::unChangementSeVoitAussitot()
{
    const BaseDEssai base;
    QCOMPARE(CodeParametre(base.donnees, QStringLiteral("Nitrates")), QStringLiteral("1340"));
    base.sql(QStringLiteral("UPDATE PARAMETRE SET NomParam = 'Nitrates (NO3)' WHERE CodeParam = '1340'"));
    QCOMPARE(CodeParametre(base.donnees, QStringLiteral("Nitrates")), QString());
    QCOMPARE(CodeParametre(base.donnees, QStringLiteral("Nitrates (NO3)")), QStringLiteral("1340"));
    base.sql(QStringLiteral(
        "INSERT INTO PARAMETRE (CodeParam, NomParam, CodeUnite) VALUES ('1339', 'Nitrites', '162')"));
    QCOMPARE(CodeParametre(base.donnees, QStringLiteral("Nitrites")), QStringLiteral("1339"));
    // A measure changes nothing of it: the same rows are given.
    const auto avant = base.donnees.enMemoire(QStringLiteral("Parametre"));
    base.ajouterMesure(base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1)),
                       QStringLiteral("1339"), 1);
    QCOMPARE(base.donnees.enMemoire(QStringLiteral("Parametre")), avant);
    // The second table of the join.
    base.sql(QStringLiteral("UPDATE UNITEREFERENCE SET SymboleUnite = 'mg/l' WHERE CodeUnite = '162'"));
    QVERIFY(base.donnees.enMemoire(QStringLiteral("Parametre")) != avant);
    base.sql(QStringLiteral("DELETE FROM PARAMETRE WHERE CodeParam = '1506'"));
    QCOMPARE(CodeParametre(base.donnees, QStringLiteral("Glyphosate")), QString());
}

void TestReferentiels::unChangementDUneAutreConnexionSeVoit()
{
    const BaseDEssai base;
    QCOMPARE(CodeReseauDeLibelle(base.donnees, QStringLiteral("Autre réseau")), QString());
    DataEnvironment1 autre;
    autre.ouvrir(base.chemin);
    autre.executer(QStringLiteral("INSERT INTO RESEAU_MESURE VALUES ('0400000003', 'Autre réseau', '')"));
    QCOMPARE(CodeReseauDeLibelle(base.donnees, QStringLiteral("Autre réseau")), QStringLiteral("0400000003"));
    // Another program is noticed within a moment.
    QProcess outil;
    outil.start(QStringLiteral("sqlite3"),
                {base.chemin,
                 QStringLiteral(
                     "UPDATE RESEAU_MESURE SET LibelleReseau = 'Renommé' WHERE CodeReseau = '0400000003'")});
    QVERIFY(outil.waitForFinished());
    QTRY_COMPARE_WITH_TIMEOUT(LibelleReseauDeCode(base.donnees, QStringLiteral("0400000003")),
                              QStringLiteral("Renommé"), 1000);
}

void TestReferentiels::uneTransactionDefaiteSeVoit()
{
    const BaseDEssai base;
    base.sql(QStringLiteral("BEGIN"));
    base.sql(QStringLiteral("DELETE FROM RESEAU_MESURE WHERE CodeReseau = '0400000001'"));
    QCOMPARE(LibelleReseauDeCode(base.donnees, QStringLiteral("0400000001")), QString());
    base.sql(QStringLiteral("ROLLBACK"));
    QCOMPARE(LibelleReseauDeCode(base.donnees, QStringLiteral("0400000001")),
             QStringLiteral("Réseau national"));
}

// The engine does not tell what a return to a savepoint undoes.
void TestReferentiels::unRetourEnArriereSeVoit()
{
    const BaseDEssai base;
    const QString code = QStringLiteral("0400000001");
    QCOMPARE(LibelleReseauDeCode(base.donnees, code), QStringLiteral("Réseau national"));
    base.sql(QStringLiteral("SAVEPOINT s"));
    base.sql(QStringLiteral("UPDATE RESEAU_MESURE SET LibelleReseau = 'Passager'"));
    QCOMPARE(LibelleReseauDeCode(base.donnees, code), QStringLiteral("Passager"));
    base.sql(QStringLiteral("ROLLBACK TO s"));
    QCOMPARE(LibelleReseauDeCode(base.donnees, code), QStringLiteral("Réseau national"));
    base.sql(QStringLiteral("RELEASE s"));
    QCOMPARE(LibelleReseauDeCode(base.donnees, code), QStringLiteral("Réseau national"));
    // Kept again from the next commit on.
    base.sql(QStringLiteral("UPDATE RESEAU_MESURE SET LibelleReseau = 'Nouveau' WHERE CodeReseau = ?"),
             {code});
    const auto table = base.donnees.enMemoire(QStringLiteral("Reseau"));
    QCOMPARE(table->texte(0, QStringLiteral("LibelleReseau")), QStringLiteral("Nouveau"));
    QCOMPARE(base.donnees.enMemoire(QStringLiteral("Reseau")), table);
}

// The engine empties a whole table without announcing its rows.
void TestReferentiels::uneTableVideeSeVoit()
{
    const BaseDEssai base;
    QCOMPARE(CodeFraction(base.donnees, QStringLiteral("Eau brute")), QStringLiteral("23"));
    base.sql(QStringLiteral("DELETE FROM FRACTION"));
    QCOMPARE(CodeFraction(base.donnees, QStringLiteral("Eau brute")), QString());
}

void TestReferentiels::colonneOuCommandeInconnue()
{
    const BaseDEssai base;
    QVERIFY_THROWS_EXCEPTION(Erreur, base.donnees.enMemoire(QStringLiteral("Inconnue")));
    QVERIFY_THROWS_EXCEPTION(Erreur, base.donnees.commande(QStringLiteral("Inconnue")));
    QVERIFY_THROWS_EXCEPTION(Erreur, base.donnees.enMemoire(QStringLiteral("Fraction"))
                                         ->premiere(QStringLiteral("x"), QStringLiteral("y")));
    const DataEnvironment1 fermee;
    QVERIFY_THROWS_EXCEPTION(Erreur, CodeParametre(fermee, QStringLiteral("Nitrates")));
}

QTEST_GUILESS_MAIN(TestReferentiels)
#include "test_referentiels.moc"
