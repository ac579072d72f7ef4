// The upgrades of former structures, on stores: each step, each state that an interrupted run can leave, the cascades.
#include "BaseDEssai.h"
#include "DialogueDEssai.h"

#include "database/DefinitionTable.h"
#include "database/M_Structure_2002.h"
#include "platform/Erreur.h"

#include <QtTest>

class TestStructure2002 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void version401();
    void cascades();
    void colonneProvisoire_data();
    void colonneProvisoire();
    void tablesAbsentes();
    void contrainteDejaRetiree();
    void corrections();
    void correctionsDejaPrises();
    void sansLigneDbVersion();
    void transpositionRefusee();
    void transpositionAcceptee();
    void transpositionDesReseaux();
    void transpositionEnEchec();
    void transposerPrelevements();
};

namespace
{
// The study of BaseDEssai as the version before left it: foreign keys without cascades, comments of 50 characters.
void reculer(const BaseDEssai &base)
{
    const QSqlDatabase &connexion = base.donnees.Connect_Bdd();
    for (const char *nom : {"MESURE_PHYSICO", "PRELEVEMENTRSX"}) {
        DefinitionTable d = DefinitionTable::lire(connexion, nom);
        for (DefinitionTable::CleEtrangere &e : d.clesEtrangeres)
            e.majEnCascade = e.suppressionEnCascade = false;
        for (DefinitionTable::Colonne &c : d.colonnes)
            if (c.nom.startsWith("Comm"))
                c.type = "VARCHAR(50)";
        d.reconstruire(connexion);
    }
    base.sql("UPDATE APPLICATIONPROPERTIES SET PROPERTYVALUE = '4.0.0'");
}

QString version(const BaseDEssai &base)
{
    return base.valeur("SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES WHERE PROPERTYNAME = 'DbVersion'")
        .toString();
}

QString type(const BaseDEssai &base, const QString &table, const QString &colonne)
{
    return base.valeur("SELECT type FROM pragma_table_info(?) WHERE name = ?", {table, colonne}).toString();
}

// The old format: network codes are numbers, no TECHNIQUE, stations without the later columns.
void vieillir(const BaseDEssai &base)
{
    base.sql("DROP TABLE TECHNIQUE");
    base.sql("PRAGMA foreign_keys = OFF");
    base.sql("DROP TABLE RESEAU_MESURE");
    base.sql(
        "CREATE TABLE RESEAU_MESURE (CodeReseau INTEGER, LibelleReseau VARCHAR(50), FinaliteReseau VARCHAR(50), "
        "CONSTRAINT PK PRIMARY KEY (CodeReseau))");
    base.sql("CREATE INDEX IX_LIBELLE ON RESEAU_MESURE (LibelleReseau)");
    base.sql(
        "INSERT INTO RESEAU_MESURE VALUES (1, 'Réseau national', 'Suivi'), (2, 'Réseau d''Armor', NULL)");
    base.sql("DROP TABLE PRELEVEMENTRSX");
    base.sql("CREATE TABLE PRELEVEMENTRSX (NumPrel INTEGER, CodeReseau INTEGER, "
             "CONSTRAINT PRELEVEMENTPRELEVEMENTRSX FOREIGN KEY (NumPrel) REFERENCES PRELEVEMENT (NumPrel), "
             "CONSTRAINT RESEAUX FOREIGN KEY (CodeReseau) REFERENCES RESEAU_MESURE (CodeReseau))");
    base.sql("PRAGMA foreign_keys = ON");
    const QSqlDatabase &connexion = base.donnees.Connect_Bdd();
    DefinitionTable stations = DefinitionTable::lire(connexion, "STATION_QUALITE");
    for (const char *colonne :
         {"FinaliteStationM", "LocalisationGlobaleStationM", "LocalisationPreciseStationM",
          "AltPointCarStationM", "Mois1EtiageStationM", "PkPointCarStationM", "ArretActiviteStationM",
          "DateMAJStationM", "ObtentionCoorStationM"})
        stations.colonnes.removeAt(stations.position(colonne));
    stations.colonnes[stations.position("CodeReseau")].type = "INTEGER";
    stations.colonnes[stations.position("CoorXStationM")].type = "INTEGER";
    stations.reconstruire(connexion);
    base.sql("UPDATE STATION_QUALITE SET CodeReseau = 1, CoorXStationM = 312000");
}

const QString QUESTION = "La base de donnée choisie a un format ancien\n\n"
                         "Si vous ne disposez pas de sauvegarde à jour \n"
                         "     tapez sur Non \n"
                         "     le programme s'arrêtera et vous pourrez alors affectuer une sauvegarde\n"
                         "     et relancer l'application\n\n"
                         "En tapant sur Oui la modification de structure sera effectuée automatiquement";
} // namespace

void TestStructure2002::version401()
{
    const BaseDEssai base;
    reculer(base);
    const qint64 prelevement = base.ajouterPrelevement("04211940", QDate(2009, 3, 1), QTime(10, 0));
    const qint64 mesure = base.ajouterMesure(prelevement, "1340", 38.5);
    base.sql("UPDATE MESURE_PHYSICO SET CommAnaPC = 'Prélèvement sous l''orage', CommResAnaPC = ''");

    M_Structure_2002::MettreAJourVersion(base.donnees);

    QCOMPARE(version(base), "4.0.1");
    for (const auto &[table, colonne] : {std::pair{"MESURE_PHYSICO", "CommAnaPC"},
                                         {"MESURE_PHYSICO", "CommResAnaPC"},
                                         {"Temp_mesure_physico", "CommAna"},
                                         {"Temp_mesure_physico", "CommRes"},
                                         {"Temp_mesure_phyto", "Comment"},
                                         {"MESURE_PLUVIO", "CommMesurePM"},
                                         {"Temp_mesure_pluvio", "Comment"}}) {
        QCOMPARE(type(base, table, colonne), "VARCHAR(255)");
        QVERIFY(!Structure::colonneExiste(base.donnees.Connect_Bdd(), table, QString(colonne) + "_Nouv"));
    }
    QCOMPARE(base.valeur("SELECT CommAnaPC FROM MESURE_PHYSICO WHERE NumAnaPC = ?", {mesure}),
             "Prélèvement sous l'orage");
    // An empty text stays one, and is not null.
    QCOMPARE(base.valeur("SELECT CommResAnaPC IS NOT NULL AND CommResAnaPC = '' FROM MESURE_PHYSICO"), 1);
    QCOMPARE(base.valeur("SELECT ResultatAnaPC FROM MESURE_PHYSICO"), 38.5);
    // The indexes of the retyped columns stand.
    QCOMPARE(Structure::index(base.donnees.Connect_Bdd(), "MESURE_PHYSICO").size(),
             Structure::index(BaseDEssai(true).donnees.Connect_Bdd(), "MESURE_PHYSICO").size());
    // A base that is at 255 already goes through it with its contents unchanged.
    M_Structure_2002::MettreAJourVersion(base.donnees);
    QCOMPARE(base.valeur("SELECT CommAnaPC FROM MESURE_PHYSICO"), "Prélèvement sous l'orage");
}

void TestStructure2002::cascades()
{
    const BaseDEssai base;
    reculer(base);
    const qint64 p1 = base.ajouterPrelevement("04211940", QDate(2009, 3, 1));
    const qint64 p2 = base.ajouterPrelevement("04211940", QDate(2009, 4, 1));
    base.ajouterMesure(p1, "1340", 38.5, "1", "17");
    base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001'), (?, '0400000002')", {p1, p2});
    QVERIFY_EXCEPTION_THROWN(base.sql("UPDATE PARAMETRE SET CodeParam = '9340' WHERE CodeParam = '1340'"),
                             Erreur);

    M_Structure_2002::MettreAJourVersion(base.donnees);

    base.sql("UPDATE PARAMETRE SET CodeParam = '9340' WHERE CodeParam = '1340'");
    QCOMPARE(base.valeur("SELECT CodeParam FROM MESURE_PHYSICO"), "9340");
    base.sql("UPDATE INTERVENANT SET CodeSandreInterv = '0017' WHERE CodeSandreInterv = '17'");
    QCOMPARE(base.valeur("SELECT CodeSandreGest FROM MESURE_PHYSICO"), "0017");
    base.sql("DELETE FROM PRELEVEMENT WHERE NumPrel = ?", {p2});
    QCOMPARE(base.valeur("SELECT group_concat(NumPrel) FROM PRELEVEMENTRSX"), QString::number(p1));
    base.sql("UPDATE PRELEVEMENT SET NumPrel = 900 WHERE NumPrel = ?", {p1});
    QCOMPARE(base.valeur("SELECT NumPrel FROM PRELEVEMENTRSX"), 900);
}

void TestStructure2002::colonneProvisoire_data()
{
    QTest::addColumn<QString>("etat");
    QTest::addColumn<QString>("attendu");
    // Where an interrupted run can have stopped; the comment was "orage" before it.
    QTest::newRow("ajoutee, vide") << "ALTER TABLE MESURE_PHYSICO ADD COLUMN CommAnaPC_Nouv VARCHAR(255)"
                                   << "orage";
    QTest::newRow("copiee") << "ALTER TABLE MESURE_PHYSICO ADD COLUMN CommAnaPC_Nouv VARCHAR(255); "
                               "UPDATE MESURE_PHYSICO SET CommAnaPC_Nouv = CommAnaPC"
                            << "orage";
    QTest::newRow("ancienne retiree")
        << "ALTER TABLE MESURE_PHYSICO RENAME COLUMN CommAnaPC TO CommAnaPC_Nouv"
        << "orage";
    QTest::newRow("nouvelle vide") << "ALTER TABLE MESURE_PHYSICO RENAME COLUMN CommAnaPC TO CommAnaPC_Nouv; "
                                      "ALTER TABLE MESURE_PHYSICO ADD COLUMN CommAnaPC VARCHAR(255)"
                                   << "orage";
    QTest::newRow("recopiee") << "ALTER TABLE MESURE_PHYSICO ADD COLUMN CommAnaPC_Nouv VARCHAR(255); "
                                 "UPDATE MESURE_PHYSICO SET CommAnaPC_Nouv = 'perime', CommAnaPC = 'orage'"
                              << "orage";
    QTest::newRow("les deux absentes") << "ALTER TABLE MESURE_PHYSICO DROP COLUMN CommAnaPC"
                                       << "";
}

void TestStructure2002::colonneProvisoire()
{
    QFETCH(QString, etat);
    QFETCH(QString, attendu);
    const BaseDEssai base;
    reculer(base);
    base.ajouterMesure(base.ajouterPrelevement("04211940", QDate(2009, 3, 1)), "1340", 1);
    base.sql("UPDATE MESURE_PHYSICO SET CommAnaPC = 'orage'");
    for (const QString &instruction : etat.split("; "))
        base.sql(instruction);
    M_Structure_2002::MettreAJourVersion(base.donnees);
    QCOMPARE(version(base), "4.0.1");
    QCOMPARE(base.valeur("SELECT CommAnaPC FROM MESURE_PHYSICO").toString(), attendu);
    QVERIFY(!Structure::colonneExiste(base.donnees.Connect_Bdd(), "MESURE_PHYSICO", "CommAnaPC_Nouv"));
    QCOMPARE(type(base, "MESURE_PHYSICO", "CommAnaPC"), "VARCHAR(255)");
}

void TestStructure2002::tablesAbsentes()
{
    const BaseDEssai base;
    reculer(base);
    base.sql("PRAGMA foreign_keys = OFF");
    for (const char *table : {"Temp_mesure_phyto", "Temp_mesure_physico", "Temp_mesure_pluvio",
                              "MESURE_PLUVIO", "PRELEVEMENTRSX", "RESEAU_MESURE", "INTERVENANT"})
        base.sql(QString("DROP TABLE [%1]").arg(table));
    base.sql("PRAGMA foreign_keys = ON");
    M_Structure_2002::MettreAJourVersion(base.donnees);
    QCOMPARE(version(base), "4.0.1");
    QVERIFY(!Structure::tableExiste(base.donnees.Connect_Bdd(), "Temp_mesure_phyto"));
    // Without actors, a result can still be written: no key refers to a table that is not there.
    base.ajouterMesure(base.ajouterPrelevement("04211940", QDate(2009, 3, 1)), "1340", 1);
    QCOMPARE(base.compter("MESURE_PHYSICO"), 1);
}

void TestStructure2002::contrainteDejaRetiree()
{
    const BaseDEssai base;
    reculer(base);
    for (const char *table : {"MESURE_PHYSICO", "PRELEVEMENTRSX"}) {
        DefinitionTable d = DefinitionTable::lire(base.donnees.Connect_Bdd(), table);
        d.clesEtrangeres.clear();
        d.reconstruire(base.donnees.Connect_Bdd());
    }
    // Nor is the actors' code known as unique any more.
    DefinitionTable intervenants = DefinitionTable::lire(base.donnees.Connect_Bdd(), "INTERVENANT");
    intervenants.uniques.clear();
    intervenants.reconstruire(base.donnees.Connect_Bdd());
    M_Structure_2002::MettreAJourVersion(base.donnees);
    base.ajouterMesure(base.ajouterPrelevement("04211940", QDate(2009, 3, 1)), "1340", 1, "1", "17");
    base.sql("UPDATE INTERVENANT SET CodeSandreInterv = '0017' WHERE CodeSandreInterv = '17'");
    QCOMPARE(base.valeur("SELECT CodeSandreGest FROM MESURE_PHYSICO"), "0017");
    const DefinitionTable d = DefinitionTable::lire(base.donnees.Connect_Bdd(), "MESURE_PHYSICO");
    QCOMPARE(d.clesEtrangeres.size(), 2);
    QCOMPARE(d.clesEtrangeres[0].nom, "PARAMETREMESURE_PHYSICO");
    QCOMPARE(d.clesEtrangeres[1].nom, "INTERVENANTMESURE_PHYSICO");
}

void TestStructure2002::corrections()
{
    const BaseDEssai base;
    reculer(base);
    base.sql("INSERT INTO RESEAU_MESURE VALUES ('3', 'BV Sélune', 'Suivi')");
    base.sql(
        "INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv, StatutInterv, VilleInterv) VALUES "
        "('24560051500010', 'CC Baud', 'Provisoire', 'Baud'), ('25220020900010', 'Ancien', 'Provisoire', 'L')");
    const qint64 p = base.ajouterPrelevement("04211940", QDate(2009, 3, 1));
    base.ajouterMesure(p, "1340", 38.5, "1", "25220020900010");
    base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, '3')", {p});

    M_Structure_2002::MettreAJourVersion(base.donnees);

    QCOMPARE(base.valeur("SELECT CodeReseau FROM RESEAU_MESURE WHERE LibelleReseau = 'BV Sélune'"),
             "0400003044");
    QCOMPARE(base.valeur("SELECT CodeReseau FROM PRELEVEMENTRSX"), "0400003044");
    QCOMPARE(
        base.valeur(
            "SELECT NomInterv || '|' || LibelleSandreInterv || '|' || StatutInterv || '|' || VilleInterv "
            "FROM INTERVENANT WHERE CodeSandreInterv = '24560051500010'"),
        "CdC Pays de Baud|Communauté de Communes du Pays de Baud|Validé|Baud");
    QCOMPARE(
        base.valeur("SELECT NomInterv || '|' || LibelleSandreInterv || '|' || StatutInterv FROM INTERVENANT "
                    "WHERE CodeSandreInterv = '25220020900028'"),
        "SIAEPPIL|Syndicat intercommunal d'alimentation en eau potable de la presqu'île de Lézardrieux|Validé");
    QCOMPARE(base.valeur("SELECT count(*) FROM INTERVENANT WHERE CodeSandreInterv = '25220020900010'"), 0);
    QCOMPARE(base.valeur("SELECT CodeSandreGest FROM MESURE_PHYSICO"), "25220020900028");
}

// The codes that the corrections give are there already, with rows of their own.
void TestStructure2002::correctionsDejaPrises()
{
    const BaseDEssai base;
    reculer(base);
    base.sql(
        "INSERT INTO RESEAU_MESURE VALUES ('3', 'BV Sélune', 'Suivi'), ('0400003044', 'Sélune', 'Autre')");
    base.sql("INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv) VALUES ('25220020900010', 'Ancien'), "
             "('25220020900028', 'Nouveau')");
    const qint64 p1 = base.ajouterPrelevement("04211940", QDate(2009, 3, 1));
    const qint64 p2 = base.ajouterPrelevement("04211940", QDate(2009, 4, 1));
    base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, '3'), (?, '0400003044'), (?, '3')", {p1, p1, p2});
    base.ajouterMesure(p1, "1340", 38.5, "1", "25220020900010");

    M_Structure_2002::MettreAJourVersion(base.donnees);

    QCOMPARE(version(base), "4.0.1");
    QCOMPARE(base.valeur("SELECT count(*) FROM RESEAU_MESURE WHERE CodeReseau IN ('3', '0400003044')"), 1);
    // One membership each: the sampling that was in both has not two.
    QCOMPARE(base.valeur("SELECT group_concat(NumPrel || ':' || CodeReseau) FROM "
                         "(SELECT * FROM PRELEVEMENTRSX ORDER BY NumPrel)"),
             QString("%1:0400003044,%2:0400003044").arg(p1).arg(p2));
    QCOMPARE(base.valeur("SELECT CodeSandreGest FROM MESURE_PHYSICO"), "25220020900028");
    QCOMPARE(base.valeur("SELECT NomInterv FROM INTERVENANT WHERE CodeSandreInterv = '25220020900028'"),
             "SIAEPPIL");
}

// APPLICATIONPROPERTIES without its row: the upgrade runs, and will run again.
void TestStructure2002::sansLigneDbVersion()
{
    const BaseDEssai base;
    reculer(base);
    base.sql("DELETE FROM APPLICATIONPROPERTIES");
    M_Structure_2002::MettreAJourVersion(base.donnees);
    QCOMPARE(base.compter("APPLICATIONPROPERTIES"), 0);
    QCOMPARE(type(base, "MESURE_PHYSICO", "CommAnaPC"), "VARCHAR(255)");
}

void TestStructure2002::transpositionRefusee()
{
    const BaseDEssai base;
    vieillir(base);
    DialogueDEssai dialogue;
    dialogue.reponses.enqueue(Reponse::Non);
    QVERIFY(!M_Structure_2002::TransposerStructure(base.donnees, {dialogue, {}, {}}));
    QCOMPARE(dialogue.questions.size(), 1);
    QCOMPARE(dialogue.questions[0].texte, QUESTION);
    QCOMPARE(dialogue.questions[0].titre, "Transposer la base?");
    QCOMPARE(dialogue.questions[0].choix, (QList<Reponse>{Reponse::Oui, Reponse::Non}));
    QCOMPARE(dialogue.questions[0].defaut, Reponse::Non);
    QVERIFY(!Structure::tableExiste(base.donnees.Connect_Bdd(), "TECHNIQUE"));
    QCOMPARE(type(base, "RESEAU_MESURE", "CodeReseau"), "INTEGER");
    QCOMPARE(dialogue.progression(FenetreProgression::FProgress3).fois, 0);
}

void TestStructure2002::transpositionAcceptee()
{
    const BaseDEssai base;
    vieillir(base);
    const qint64 p = base.ajouterPrelevement("04211940", QDate(2009, 3, 1));
    base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, 2)", {p});
    const QStringList avant = Structure::colonnes(base.donnees.Connect_Bdd(), "STATION_QUALITE");
    DialogueDEssai dialogue;
    dialogue.reponses.enqueue(Reponse::Oui);
    bool appele = false;
    QVERIFY(M_Structure_2002::TransposerStructure(
        base.donnees,
        {dialogue, base.dossier.filePath("corresp_reseaux.xls"), [&](const QString &) { appele = true; }}));
    QVERIFY(!appele); // the file is not there

    QCOMPARE(base.valeur("SELECT group_concat(VERSION) FROM TECHNIQUE"), "2L");
    QCOMPARE(type(base, "RESEAU_MESURE", "CodeReseau"), "VARCHAR(10)");
    QCOMPARE(type(base, "RESEAU_MESURE", "FinaliteReseau"), "VARCHAR(255)");
    QCOMPARE(base.valeur("SELECT group_concat(quote(CodeReseau)) FROM RESEAU_MESURE"), "'1','2'");
    const DefinitionTable reseaux = DefinitionTable::lire(base.donnees.Connect_Bdd(), "RESEAU_MESURE");
    QCOMPARE(reseaux.nomCle, "PrimaryKey");
    QCOMPARE(reseaux.cle, QStringList{"CodeReseau"});
    const QList<Structure::Index> index = Structure::index(base.donnees.Connect_Bdd(), "RESEAU_MESURE");
    QCOMPARE(index.size(), 1);
    QCOMPARE(index[0].nom, "CodeReseau");
    QVERIFY_EXCEPTION_THROWN(base.sql("INSERT INTO RESEAU_MESURE VALUES ('1', 'x', '')"), Erreur);
    base.sql("INSERT INTO RESEAU_MESURE VALUES ('0400000009', 'x', '')"); // an empty purpose is allowed
    // The relation onto the networks has gone, the other one stands.
    const DefinitionTable liens = DefinitionTable::lire(base.donnees.Connect_Bdd(), "PRELEVEMENTRSX");
    QCOMPARE(liens.clesEtrangeres.size(), 1);
    QCOMPARE(liens.clesEtrangeres[0].nom, "PRELEVEMENTPRELEVEMENTRSX");
    // Stations: the retyped columns keep their place and values, the nine come in their order.
    const QStringList apres = Structure::colonnes(base.donnees.Connect_Bdd(), "STATION_QUALITE");
    QCOMPARE(apres.mid(0, avant.size()), avant);
    QCOMPARE(apres.mid(avant.size()),
             (QStringList{"FinaliteStationM", "LocalisationGlobaleStationM", "LocalisationPreciseStationM",
                          "AltPointCarStationM", "Mois1EtiageStationM", "PkPointCarStationM",
                          "ArretActiviteStationM", "DateMAJStationM", "ObtentionCoorStationM"}));
    QCOMPARE(base.valeur("SELECT quote(CodeReseau) FROM STATION_QUALITE"), "'1'");
    QCOMPARE(base.valeur("SELECT quote(CoorXStationM) FROM STATION_QUALITE"), "312000.0");
    QCOMPARE(type(base, "MESURE_PHYSICO", "CodeReseau"), "VARCHAR(10)");
    const ProgressionDEssai &attente = dialogue.progression(FenetreProgression::FProgress3);
    QCOMPARE(attente.textes, QStringList{"Modification de structure en cours"});
    QCOMPARE(attente.dernierMaximum, 0);
    QVERIFY(!attente.visible);
    QCOMPARE(base.valeur("SELECT count(*) FROM pragma_foreign_key_check"), 0);
}

void TestStructure2002::transpositionDesReseaux()
{
    const BaseDEssai base;
    vieillir(base);
    const QString fichier = base.dossier.filePath("corresp_reseaux.xls");
    QFile(fichier).open(QIODevice::WriteOnly);
    DialogueDEssai dialogue;
    dialogue.reponses.enqueue(Reponse::Oui);
    QStringList appels;
    QVERIFY(M_Structure_2002::TransposerStructure(base.donnees,
                                                  {dialogue, fichier, [&](const QString &f) {
                                                       appels << f;
                                                       // The new structure is in place by then.
                                                       base.sql("UPDATE RESEAU_MESURE SET CodeReseau = "
                                                                "'0400000124' WHERE CodeReseau = '1'");
                                                   }}));
    QCOMPARE(appels, QStringList{fichier});
}

// The structure changes as a whole or not at all.
void TestStructure2002::transpositionEnEchec()
{
    const BaseDEssai base;
    vieillir(base);
    base.sql("PRAGMA foreign_keys = OFF");
    base.sql("DROP TABLE RESEAU_MESURE");
    base.sql(
        "CREATE TABLE RESEAU_MESURE (CodeReseau INTEGER, LibelleReseau VARCHAR(50), FinaliteReseau VARCHAR(50))");
    base.sql("INSERT INTO RESEAU_MESURE VALUES (1, 'a', ''), (1, 'b', '')"); // no key can be made
    DialogueDEssai dialogue;
    dialogue.reponses.enqueue(Reponse::Oui);
    const M_Structure_2002::Transposition transposition{dialogue, {}, {}};
    QVERIFY_EXCEPTION_THROWN(M_Structure_2002::TransposerStructure(base.donnees, transposition), Erreur);
    QVERIFY(!Structure::tableExiste(base.donnees.Connect_Bdd(), "TECHNIQUE"));
    QCOMPARE(type(base, "RESEAU_MESURE", "CodeReseau"), "INTEGER");
    QCOMPARE(DefinitionTable::lire(base.donnees.Connect_Bdd(), "PRELEVEMENTRSX").clesEtrangeres.size(), 2);
    QVERIFY(!dialogue.progression(FenetreProgression::FProgress3).visible);
}

void TestStructure2002::transposerPrelevements()
{
    const BaseDEssai base;
    const qint64 p1 = base.ajouterPrelevement("04211940", QDate(2009, 3, 1));
    const qint64 p2 = base.ajouterPrelevement("04211940", QDate(2009, 4, 1));
    const qint64 p3 = base.ajouterPrelevement("04211940", QDate(2009, 5, 1));
    base.sql("INSERT INTO PRELEVEMENTRSX VALUES (?, 'A'), (?, 'B'), (?, 'A'), (?, 'B')", {p1, p1, p2, p3});
    M_Structure_2002::TransposerPrelevements(base.donnees, "A", "B");
    QCOMPARE(base.valeur(
                 "SELECT group_concat(NumPrel || CodeReseau) FROM (SELECT * FROM PRELEVEMENTRSX ORDER BY 1)"),
             QString("%1B,%2B,%3B").arg(p1).arg(p2).arg(p3));
}

QTEST_GUILESS_MAIN(TestStructure2002)
#include "test_structure_2002.moc"
