// How values go into the store and come back; prepared statements.
#include "BaseDEssai.h"
#include "platform/Erreur.h"

#include <QTest>

class TestRequete : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ceQuiEstEcrit_data();
    void ceQuiEstEcrit();
    void lecture();
    void erreurs();
    void instructionsPreparees();
    void lireEtEcrireEnMemeTemps();
};

// The text that any SQLite tool would show.
void TestRequete::ceQuiEstEcrit_data()
{
    QTest::addColumn<QVariant>("valeur");
    QTest::addColumn<QString>("colonne");
    QTest::addColumn<QString>("ecrit");
    const QString date = QStringLiteral("DT_CRE_FRACTION");
    const QString texte = QStringLiteral("CM_FRACTION");
    QTest::newRow("date") << QVariant(QDate(2009, 3, 1)) << date << "text:2009-03-01";
    QTest::newRow("heure") << QVariant(QTime(9, 5, 0, 250)) << date << "text:09:05:00";
    QTest::newRow("date et heure") << QVariant(QDateTime(QDate(2009, 3, 1), QTime(10, 0))) << date
                                   << "text:2009-03-01 10:00:00";
    QTest::newRow("minuit") << QVariant(QDateTime(QDate(2009, 3, 1), QTime(0, 0))) << date
                            << "text:2009-03-01";
    QTest::newRow("date invalide") << QVariant(QDate()) << date << "null:";
    QTest::newRow("heure invalide") << QVariant(QTime()) << date << "null:";
    QTest::newRow("moment invalide") << QVariant(QDateTime()) << date << "null:";
    QTest::newRow("rien") << QVariant() << texte << "null:";
    QTest::newRow("texte nul") << QVariant(QString()) << texte << "text:";
    QTest::newRow("texte vide") << QVariant(QLatin1String("")) << texte << "text:";
    QTest::newRow("apostrophe") << QVariant(QStringLiteral("l'île'); DROP TABLE FRACTION;--")) << texte
                                << "text:l'île'); DROP TABLE FRACTION;--";
    // A code keeps its zeros, even where it came as digits.
    QTest::newRow("code") << QVariant(QStringLiteral("0042")) << texte << "text:0042";
    QTest::newRow("nombre dans un texte") << QVariant(42) << texte << "text:42";
    QTest::newRow("vrai") << QVariant(true) << QStringLiteral("(ISOVL)") << "integer:-1";
    QTest::newRow("faux") << QVariant(false) << QStringLiteral("(ISOVL)") << "integer:0";
}

void TestRequete::ceQuiEstEcrit()
{
    QFETCH(QVariant, valeur);
    QFETCH(QString, colonne);
    QFETCH(QString, ecrit);
    const BaseDEssai base;
    QString lecture;
    if (colonne == u"(ISOVL)") {
        base.sql(QStringLiteral("DELETE FROM IMPORT_PAR_URF"));
        base.sql(QStringLiteral("INSERT INTO IMPORT_PAR_URF VALUES ('1340', '162', ?)"), {valeur});
        lecture = QStringLiteral("SELECT typeof(ISOVL) || ':' || ISOVL FROM IMPORT_PAR_URF");
    } else {
        base.sql(QStringLiteral("UPDATE FRACTION SET %1 = ? WHERE CD_FRACTION = '3'").arg(colonne), {valeur});
        lecture = QStringLiteral(
                      "SELECT typeof(%1) || ':' || coalesce(%1, '') FROM FRACTION WHERE CD_FRACTION = '3'")
                      .arg(colonne);
    }
    QCOMPARE(base.valeur(lecture).toString(), ecrit);
}

void TestRequete::lecture()
{
    const BaseDEssai base;
    base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1), QTime(10, 30));
    base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 2));
    Requete r = base.donnees.executer(QStringLiteral("SELECT * FROM PRELEVEMENT ORDER BY NumPrel"));
    QCOMPARE(r.colonnes().first(), QStringLiteral("NumPrel"));
    QVERIFY(r.suivant());
    QCOMPARE(r.date(QStringLiteral("DatePrel")), QDate(2009, 3, 1));
    QCOMPARE(r.heure(QStringLiteral("heureprel")), QTime(10, 30));
    QCOMPARE(r.texte(QStringLiteral("CDPOINT")), QStringLiteral("031"));
    QCOMPARE(r.valeur(0), r.valeur(QStringLiteral("NumPrel")));
    QVERIFY(r.suivant());
    QVERIFY(r.estNul(QStringLiteral("HeurePrel")));
    QVERIFY(!r.heure(QStringLiteral("HeurePrel")).isValid());
    QVERIFY(!r.suivant());
    Requete maj = base.donnees.executer(QStringLiteral("UPDATE PRELEVEMENT SET Protocole = '2'"));
    QCOMPARE(maj.lignesTouchees(), 2);
}

void TestRequete::erreurs()
{
    const BaseDEssai base;
    try {
        base.sql(QStringLiteral("SELECT * FROM ABSENTE"));
        QFAIL("a table that is not there");
    } catch (const Erreur &e) {
        QCOMPARE(e.numeroEtDescription(), QStringLiteral("1 - no such table: ABSENTE"));
    }
    try {
        base.sql(QStringLiteral("INSERT INTO DEPARTEMENT VALUES ('35', 'double')"));
        QFAIL("a key that is there already");
    } catch (const Erreur &e) {
        QCOMPARE(e.description(), QStringLiteral("UNIQUE constraint failed: DEPARTEMENT.NumDepartement"));
    }
    Requete r = base.donnees.executer(QStringLiteral("SELECT * FROM DEPARTEMENT"));
    QVERIFY(r.suivant());
    QVERIFY_THROWS_EXCEPTION(Erreur, r.valeur(QStringLiteral("Absente")));
    const DataEnvironment1 fermee;
    QVERIFY_THROWS_EXCEPTION(Erreur, fermee.executer(QStringLiteral("SELECT 1")));
    QVERIFY_THROWS_EXCEPTION(Erreur, fermee.valeur(QStringLiteral("SELECT 1")));
    QVERIFY_THROWS_EXCEPTION(Erreur, fermee.nombreLignes(QStringLiteral("Parametre")));
}

void TestRequete::instructionsPreparees()
{
    BaseDEssai base;
    const QString sql = QStringLiteral("SELECT NomParam FROM PARAMETRE WHERE CodeParam = ?");
    QCOMPARE(base.donnees.valeur(sql, {QStringLiteral("1340")}).toString(), QStringLiteral("Nitrates"));
    QCOMPARE(base.donnees.valeur(sql, {QStringLiteral("1506")}).toString(), QStringLiteral("Glyphosate"));
    QVERIFY(!base.donnees.valeur(sql, {QStringLiteral("0")}).isValid());
    QCOMPARE(&base.donnees.preparee(sql), &base.donnees.preparee(sql));
    QVERIFY_THROWS_EXCEPTION(Erreur, base.donnees.preparee(QStringLiteral("SELECT FROM")));
    // A statement outlives a change of its table.
    base.sql(QStringLiteral("ALTER TABLE PARAMETRE ADD COLUMN Essai INTEGER"));
    QCOMPARE(base.donnees.valeur(sql, {QStringLiteral("1340")}).toString(), QStringLiteral("Nitrates"));
    base.donnees.liberer();
    base.donnees.ouvrir(base.chemin);
    QCOMPARE(base.donnees.valeur(sql, {QStringLiteral("1340")}).toString(), QStringLiteral("Nitrates"));
}

// Rows are read on while others are written, and the memory of the lookups is filled meanwhile.
void TestRequete::lireEtEcrireEnMemeTemps()
{
    const BaseDEssai base;
    Requete r = base.donnees.commande(QStringLiteral("Parametre"));
    int lignes = 0;
    while (r.suivant()) {
        base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 1, 1).addDays(lignes));
        QCOMPARE(base.donnees.enMemoire(QStringLiteral("Parametre"))->nombreLignes(), 4);
        ++lignes;
    }
    QCOMPARE(lignes, 4);
    QCOMPARE(base.compter(QStringLiteral("PRELEVEMENT")), 4);
}

QTEST_GUILESS_MAIN(TestRequete)
#include "test_requete.moc"
