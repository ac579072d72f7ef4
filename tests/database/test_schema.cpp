// A new store, read back with the engine's own means.
#include "BaseDEssai.h"
#include "database/Schema.h"
#include "platform/Erreur.h"

#include <QProcess>
#include <QTest>

class TestSchema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chaqueTableAChaqueColonne_data();
    void chaqueTableAChaqueColonne();
    void aucuneAutreTable();
    void clesEtEntiers();
    void clesEtrangeres();
    void versions();
    void vueDesPesticides();
    void unParametreRenommeEmporteSesResultats();
    void unIntervenantRenommeEmporteSesResultats();
    void unPrelevementSupprimeEmporteSesReseaux();
    void unResultatSansParametreConnuEstRefuse();
    void textesSansCasse();
    void toutOutilSqliteOuvreLaBase();
    void unSeulFichierUneFoisFermee();
    void creerNEcraseRien();
};

// Letter for letter, in order; "|" parts a column's name from its declared type.
void TestSchema::chaqueTableAChaqueColonne_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("colonnes");
    const auto ligne = [](const char *table, const char *colonnes) {
        QTest::newRow(table) << QString::fromUtf8(table) << QString::fromUtf8(colonnes);
    };
    ligne("STATION_QUALITE",
          "CodeSandreStationM|VARCHAR(8) CodeUsuelStationM|VARCHAR(50) NomStationM|VARCHAR(80) "
          "RiviereStationM|VARCHAR(255) CreationStationM|DATE NatureStationM|VARCHAR(1) "
          "SituationStationM|VARCHAR(50) CoorXStationM|DOUBLE CoorYStationM|DOUBLE CoorXStationM_L93|DOUBLE "
          "CoorYStationM_L93|DOUBLE CodeHydrog|VARCHAR(50) CodeReseau|VARCHAR(10) CommStationM|VARCHAR(50) "
          "NumBV|INTEGER CodeSSBV|INTEGER SuperficieStationM|DOUBLE ImportBVStationM|VARCHAR(50) "
          "FinaliteStationM|VARCHAR(70) LocalisationGlobaleStationM|VARCHAR(60) "
          "LocalisationPreciseStationM|VARCHAR(80) AltPointCarStationM|INTEGER Mois1EtiageStationM|INTEGER "
          "PkPointCarStationM|DOUBLE ArretActiviteStationM|DATE DateMAJStationM|DATE "
          "ObtentionCoorStationM|VARCHAR(1) ALT_NO3|TINYINT CONC_MOY|REAL CONC_MAX|REAL CONC_AN1|REAL "
          "CONC_AN2|REAL CONC_AN3|REAL CONC|VARCHAR(50)");
    ligne("LOCALISATION",
          "CodeSandreStationM|VARCHAR(8) CdPoint|VARCHAR(3) CoorXPoint_L2E|DOUBLE "
          "CoorYPoint_L2E|DOUBLE CoorXPoint_L93|DOUBLE CoorYPoint_L93|DOUBLE CdSupport|VARCHAR(3)");
    ligne(
        "STATION_HYDRO",
        "CodeStationHM|VARCHAR(8) CodeSandreStationHM|VARCHAR(8) CodeHydroStationHM|VARCHAR(50) "
        "IntituleStationHM|VARCHAR(80) TypeStationHM|VARCHAR(50) CoorXStationHM|DOUBLE CoorYStationHM|DOUBLE "
        "EnServiceStationHM|DATE SurfReelStationHM|DOUBLE NumBV|INTEGER");
    ligne("STATION_PLUVIO",
          "CodeStationPM|VARCHAR(8) IntituleStationPM|VARCHAR(80) TypeStationPM|VARCHAR(50) "
          "CoorXStationPM|DOUBLE CoorYStationPM|DOUBLE EnServiceStationPM|DATE NumBV|INTEGER");
    ligne("StationMesureXGest", "CodeSandreStationM|VARCHAR(8) CodeSandreGest|VARCHAR(17)");
    ligne("StationMesureXCommune", "CodeSandreStationM|VARCHAR(8) NumCommune|VARCHAR(5)");
    ligne("StationHydroXGest", "CodeStationHM|VARCHAR(8) CodeSandreGest|VARCHAR(17)");
    ligne("StationHydroXCommune", "CodeStationHM|VARCHAR(8) NumCommune|VARCHAR(5)");
    ligne("StationPluvioXGest", "CodeStationPM|VARCHAR(8) CodeSandreGest|VARCHAR(17)");
    ligne("StationPluvioXCommune", "CodeStationPM|VARCHAR(8) NumCommune|VARCHAR(5)");
    ligne("BVXCommune", "NumBV|INTEGER NumCommune|VARCHAR(5)");
    ligne("Rattachement_hydro_ mesure", "CodeStationHM|VARCHAR(8) CodeSandreStationM|VARCHAR(8)");
    ligne(
        "PRELEVEMENT",
        "NumPrel|INTEGER CodeSandreStationM|VARCHAR(8) CdPoint|VARCHAR(3) DatePrel|DATE HeurePrel|TIME "
        "CdSupport|VARCHAR(3) CodeSandrePrelev|VARCHAR(17) CodeSandreProd|VARCHAR(17) Protocole|VARCHAR(255)");
    ligne("MESURE_PHYSICO",
          "NumAnaPC|INTEGER NumPrel|INTEGER CodeParam|VARCHAR(5) ResultatAnaPC|DOUBLE "
          "CodeRemarqueAnaPC|VARCHAR(2) LD|DOUBLE LQ|DOUBLE LS|DOUBLE SeuilAnaPC|VARCHAR(50) "
          "LieuAnaPC|VARCHAR(50) CommAnaPC|VARCHAR(255) CommResAnaPC|VARCHAR(255) CodeSandreLabo|VARCHAR(17) "
          "CodeMethode|VARCHAR(5) CodeSandreGest|VARCHAR(17) Cd_Fraction|VARCHAR(3)");
    ligne("PRELEVEMENTRSX", "NumPrel|INTEGER CodeReseau|VARCHAR(10)");
    ligne("MESURE_HYDRO", "NumMesureHM|INTEGER CodeStationHM|VARCHAR(8) DateMesureHM|DATE HeureMesureHM|TIME "
                          "DebitJourMesureHM|DOUBLE DebitMoisMesureHM|DOUBLE");
    ligne("MESURE_PLUVIO",
          "NumMesurePM|INTEGER CodeStationPM|VARCHAR(8) DateMesurePM|DATE JourMesurePM|DOUBLE "
          "CommMesurePM|VARCHAR(255) CodeSandreGest|VARCHAR(17)");
    ligne("PARAMETRE", "CodeParam|VARCHAR(5) NomParam|VARCHAR(255) StatutParam|VARCHAR(20) "
                       "CommParam|VARCHAR(255) DéfParam|TEXT NatureParam|VARCHAR(20) "
                       "CodeGroupeParam|VARCHAR(2) CodeUnite|VARCHAR(5)");
    ligne("UNITEREFERENCE",
          "CodeUnite|VARCHAR(5) SymboleUnite|VARCHAR(50) LibelleUnite|VARCHAR(100) StatutUnite|VARCHAR(20)");
    ligne("IMPORT_PAR_URF", "CodeParam|VARCHAR(5) CodeUnite|VARCHAR(5) ISOVL|BOOLEAN");
    ligne("FRACTION",
          "CD_FRACTION|VARCHAR(3) LB_NOM_FRACTION|VARCHAR(50) LB_STATUT_FRACTION|VARCHAR(20) "
          "DT_CRE_FRACTION|DATETIME DT_MAJ_FRACTION|DATETIME LB_AUTEUR_FRACTION|VARCHAR(50) CM_FRACTION|TEXT "
          "CD_NATANA|VARCHAR(1)");
    ligne("METHODE", "CodeMéthode|VARCHAR(5) NomMéthode|VARCHAR(255) CommMéthode|VARCHAR(255)");
    ligne("RESEAU_MESURE", "CodeReseau|VARCHAR(10) LibelleReseau|VARCHAR(50) FinaliteReseau|VARCHAR(255)");
    ligne("INTERVENANT",
          "Code|INTEGER CodeSandreInterv|VARCHAR(17) NomInterv|VARCHAR(115) LibelleSandreInterv|VARCHAR(255) "
          "StatutInterv|VARCHAR(20) RueInterv|VARCHAR(255) VilleInterv|VARCHAR(35) CPInterv|VARCHAR(10) "
          "DépartPaysInterv|VARCHAR(50) CommInterv|VARCHAR(255)");
    ligne("CORRESP_INTERVENANT", "CodeSandreAncien|VARCHAR(17) CodeSiretNouveau|VARCHAR(17)");
    ligne("DEPARTEMENT", "NumDepartement|VARCHAR(3) NomDepartement|VARCHAR(50)");
    ligne(
        "COMMUNE",
        "NumCommune|VARCHAR(5) NomCommune|VARCHAR(35) NumDepartement|VARCHAR(3) SituationCommune|VARCHAR(50)");
    ligne("BASSIN_VERSANT",
          "NumBV|INTEGER NomBV|VARCHAR(50) ObjBV|VARCHAR(255) ProblématiqueBV|VARCHAR(255) SuperfBV|DOUBLE");
    ligne("SOUS_BASSIN_VERSANT", "CodeSSBV|INTEGER NomSSBV|VARCHAR(50) NumBV|INTEGER SuperfSSBV|DOUBLE");
    ligne("LIEU_BASSIN_VERSANT", "Bassin_versant|VARCHAR(50)");
    ligne("OBJECTIF",
          "NumBV|INTEGER CodeParam|VARCHAR(5) CD_FRACTION|VARCHAR(3) MoyObjf|DOUBLE MaxObjf|DOUBLE");
    ligne("NORME_AEP", "CodeNorme|INTEGER CodeParam|VARCHAR(5) CD_FRACTION|VARCHAR(3) ValeurNorme|DOUBLE");
    ligne("GRILLE_SEQ", "CodeSEQ|INTEGER CodeParam|VARCHAR(5) Valeur1SEQ|DOUBLE Valeur2SEQ|DOUBLE "
                        "Valeur3SEQ|DOUBLE Valeur4SEQ|DOUBLE Valeur3BisSEQ|DOUBLE Valeur4BisSEQ|DOUBLE");
    ligne("COULEURS_GRAPH", "ordre|INTEGER R|INTEGER G|INTEGER B|INTEGER");
    ligne(
        "INDICATEUR_NON_AGRICOLE",
        "Annee|INTEGER Code|INTEGER NumBV|INTEGER DiagnCoursEau|VARCHAR(3) InventLinRoutier|VARCHAR(3) "
        "InventZones|VARCHAR(3) LinCoursEntret|DOUBLE LinCoursRest|DOUBLE LinDepart|DOUBLE LinNat|DOUBLE "
        "LinReel|DOUBLE LinTalus|DOUBLE LinVrai|DOUBLE LinVraiTotal|DOUBLE NbAgentFormCompl|DOUBLE "
        "NbAgentFormInit|DOUBLE NbCollectZonage|DOUBLE NbComm|DOUBLE NbCommTech|DOUBLE NbDechargeARehab|DOUBLE "
        "NbDechargRehab|DOUBLE NbPartReunion|DOUBLE NbPulveDiagn|DOUBLE NbPulveDos|DOUBLE NbReunion|DOUBLE "
        "QteMatDepart|DOUBLE QteMatNat|DOUBLE SurfTotaleZones|DOUBLE SurfZonesAmen|DOUBLE TotalComm|DOUBLE "
        "TotalPulve|DOUBLE NbCollectEnZonage|DOUBLE NbTotInstallConf|DOUBLE");
    ligne(
        "Indic_non_agricXMatiere_active",
        "Annee|INTEGER NumBV|INTEGER Commune|VARCHAR(35) Glyphosate|DOUBLE Aminotriazole|DOUBLE Diuron|DOUBLE "
        "Oxadiazon|DOUBLE Toutes_matières|DOUBLE");
    ligne("Indic_non_agricXReunion", "Annee|INTEGER NumBV|INTEGER Nb|DOUBLE Part|DOUBLE");
    ligne("Indic_non_agricXInstall",
          "Annee|INTEGER NumBV|INTEGER Install_conformes|DOUBLE Nb_Install_rehab|DOUBLE");
    ligne("INDICATEUR_AGRICOLE", "Annee|INTEGER NumBV|INTEGER");
    ligne("Table_temporaire",
          "Champ1|VARCHAR(255) Champ2|VARCHAR(255) Champ3|VARCHAR(255) Champ4|VARCHAR(255) "
          "Champ5|VARCHAR(255) Champ6|VARCHAR(255)");
    ligne("Table_temporaire_reunion", "Champ1|VARCHAR(255) Champ2|VARCHAR(255)");
    ligne("Table_temporaire_install", "Champ1|VARCHAR(255) Champ2|VARCHAR(255) Champ3|VARCHAR(255)");
    ligne("APPLICATIONPROPERTIES", "PROPERTYNAME|VARCHAR(50) PROPERTYVALUE|VARCHAR(50)");
    ligne("TECHNIQUE", "VERSION|VARCHAR(255)");
    ligne("MAPINFO_MAPCATALOG",
          "SPATIALTYPE|DOUBLE TABLENAME|VARCHAR(32) OWNERNAME|VARCHAR(32) SPATIALCOLUMN|VARCHAR(32) "
          "DB_X_LL|DOUBLE DB_Y_LL|DOUBLE DB_X_UR|DOUBLE DB_Y_UR|DOUBLE COORDINATESYSTEM|VARCHAR(254) "
          "SYMBOL|VARCHAR(254) XCOLUMNNAME|VARCHAR(32) YCOLUMNNAME|VARCHAR(32) RENDITIONTYPE|INTEGER "
          "RENDITIONCOLUMN|VARCHAR(32) RENDITIONTABLE|VARCHAR(32)");
    const char *const grille =
        "CodeSandreStationM|VARCHAR(255) CodeUsuelStationM|VARCHAR(255) DatePrel|DATE HeurePrel|TIME "
        "Parametre|VARCHAR(255) Resultat|VARCHAR(255) Unite|VARCHAR(255) CodeRemarque|VARCHAR(255) "
        "CD_FRACTION|VARCHAR(255) Methode|VARCHAR(255) Preleveur|VARCHAR(255) Laboratoire|VARCHAR(255) "
        "Gest|VARCHAR(255) Reseau|VARCHAR(255) Autre|VARCHAR(255) ";
    const char *const limites = "Seuil|VARCHAR(255) Protocole|VARCHAR(255) LD|VARCHAR(255) LQ|VARCHAR(255) "
                                "LS|VARCHAR(255)";
    ligne("Temp_mesure_physico",
          (QByteArray(grille) + "Lieu|VARCHAR(255) CommAna|VARCHAR(255) CommRes|VARCHAR(255) " + limites)
              .constData());
    ligne("Temp_mesure_phyto", (QByteArray(grille) + "Comment|VARCHAR(255) " + limites).constData());
    ligne("Temp_mesure_hydro_jour", "DateMesure|DATE HeureMesure|TIME DebitJour|DOUBLE");
    ligne("Temp_mesure_hydro_mois", "DateMesure|DATE DebitMois|DOUBLE");
    ligne("Temp_mesure_pluvio", "DateMesure|DATE Resultat|DOUBLE Comment|VARCHAR(255)");
    ligne("Temp_mesures_reseaux", "NumPrel|INTEGER CodeReseau|TEXT");
    ligne("Temp_objectif", "Parametre|VARCHAR(255) MoyObjf|DOUBLE MaxObjf|DOUBLE Unite|VARCHAR(50) "
                           "CD_FRACTION|VARCHAR(50)");
}

void TestSchema::chaqueTableAChaqueColonne()
{
    QFETCH(QString, table);
    QFETCH(QString, colonnes);
    static const BaseDEssai base(true);
    // The one table that the opening makes.
    if (table == u"COULEURS_GRAPH")
        Schema::creerTable(base.donnees.Connect_Bdd(), table);
    Requete r = base.donnees.executer(QStringLiteral("SELECT name, type FROM pragma_table_info(?)"), {table});
    QStringList trouvees;
    while (r.suivant())
        trouvees << r.texte(0) + u'|' + r.texte(1);
    QCOMPARE(trouvees, colonnes.split(u' '));
}

// 4 of stations, 8 links, 5 of measures, 16 of reference (COULEURS_GRAPH comes with the opening), 5 of indicators,
// 3 of the system, 10 of work; one view.
void TestSchema::aucuneAutreTable()
{
    const BaseDEssai base(true);
    QCOMPARE(base
                 .valeur(QStringLiteral(
                     "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'"))
                 .toInt(),
             51);
    QCOMPARE(base.valeur(QStringLiteral("SELECT group_concat(name) FROM sqlite_master WHERE type = 'view'"))
                 .toString(),
             QStringLiteral("PARAMETRE_PHYTO"));
    QCOMPARE(base.valeur(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name = 'COULEURS_GRAPH'"))
                 .toInt(),
             0);
}

void TestSchema::clesEtEntiers()
{
    const BaseDEssai base(true);
    // Table, key column, whether it is the row number itself.
    const struct {
        const char *table;
        const char *cle;
        bool entier;
    } cles[] = {
        {"STATION_QUALITE", "CodeSandreStationM", false},
        {"STATION_HYDRO", "CodeStationHM", false},
        {"STATION_PLUVIO", "CodeStationPM", false},
        {"PRELEVEMENT", "NumPrel", true},
        {"MESURE_PHYSICO", "NumAnaPC", true},
        {"MESURE_HYDRO", "NumMesureHM", true},
        {"MESURE_PLUVIO", "NumMesurePM", true},
        {"PARAMETRE", "CodeParam", false},
        {"UNITEREFERENCE", "CodeUnite", false},
        {"FRACTION", "CD_FRACTION", false},
        {"METHODE", "CodeMéthode", false},
        {"RESEAU_MESURE", "CodeReseau", false},
        {"INTERVENANT", "Code", true},
        {"DEPARTEMENT", "NumDepartement", false},
        {"COMMUNE", "NumCommune", false},
        {"BASSIN_VERSANT", "NumBV", true},
        {"SOUS_BASSIN_VERSANT", "CodeSSBV", true},
        {"NORME_AEP", "CodeNorme", true},
        {"GRILLE_SEQ", "CodeSEQ", true},
    };
    int nombre = 0;
    for (const auto &c : cles) {
        const QString table = QString::fromUtf8(c.table);
        QCOMPARE(
            base.valeur(QStringLiteral("SELECT group_concat(name) FROM pragma_table_info(?) WHERE pk > 0"),
                        {table})
                .toString(),
            QString::fromUtf8(c.cle));
        if (c.entier) {
            base.sql(QStringLiteral("INSERT INTO [%1] DEFAULT VALUES").arg(table));
            QCOMPARE(base.valeur(QStringLiteral("SELECT [%1] FROM [%2]").arg(QString::fromUtf8(c.cle), table))
                         .toInt(),
                     1);
        } else {
            QVERIFY_THROWS_EXCEPTION(Erreur,
                                     base.sql(QStringLiteral("INSERT INTO [%1] DEFAULT VALUES").arg(table)));
        }
        ++nombre;
    }
    QCOMPARE(base.valeur(QStringLiteral("SELECT count(*) FROM sqlite_master m, pragma_table_info(m.name) c "
                                        "WHERE m.type = 'table' AND c.pk > 0"))
                 .toInt(),
             nombre);
    // Unique, and the key's own name.
    base.sql(QStringLiteral("INSERT INTO INTERVENANT (CodeSandreInterv) VALUES ('17')"));
    QVERIFY_THROWS_EXCEPTION(
        Erreur, base.sql(QStringLiteral("INSERT INTO INTERVENANT (CodeSandreInterv) VALUES ('17')")));
    QVERIFY(base.valeur(QStringLiteral("SELECT sql FROM sqlite_master WHERE name = 'FRACTION'"))
                .toString()
                .contains(QLatin1String("CONSTRAINT FractionKey PRIMARY KEY")));
}

void TestSchema::clesEtrangeres()
{
    const BaseDEssai base(true);
    Requete r = base.donnees.executer(QStringLiteral(
        "SELECT m.name || ' ' || f.\"from\" || ' ' || f.\"table\" || ' ' || f.\"to\" || ' ' || f.on_update || ' ' || f.on_delete "
        "FROM sqlite_master m, pragma_foreign_key_list(m.name) f WHERE m.type = 'table' ORDER BY 1"));
    QStringList trouvees;
    while (r.suivant())
        trouvees << r.texte(0);
    QCOMPARE(trouvees,
             QStringList({QStringLiteral("MESURE_PHYSICO CodeParam PARAMETRE CodeParam CASCADE NO ACTION"),
                          QStringLiteral(
                              "MESURE_PHYSICO CodeSandreGest INTERVENANT CodeSandreInterv CASCADE NO ACTION"),
                          QStringLiteral("PRELEVEMENTRSX NumPrel PRELEVEMENT NumPrel CASCADE CASCADE")}));
    const QString mesures =
        base.valeur(QStringLiteral("SELECT sql FROM sqlite_master WHERE name = 'MESURE_PHYSICO'")).toString();
    QVERIFY(mesures.contains(QLatin1String("CONSTRAINT PARAMETREMESURE_PHYSICO FOREIGN KEY (CodeParam)")));
    QVERIFY(
        mesures.contains(QLatin1String("CONSTRAINT INTERVENANTMESURE_PHYSICO FOREIGN KEY (CodeSandreGest)")));
    QVERIFY(base.valeur(QStringLiteral("SELECT sql FROM sqlite_master WHERE name = 'PRELEVEMENTRSX'"))
                .toString()
                .contains(QLatin1String("CONSTRAINT PRELEVEMENTPRELEVEMENTRSX FOREIGN KEY (NumPrel)")));
}

void TestSchema::versions()
{
    const BaseDEssai base(true);
    QCOMPARE(base
                 .valeur(QStringLiteral(
                     "SELECT PROPERTYVALUE FROM APPLICATIONPROPERTIES WHERE PROPERTYNAME LIKE 'DbVersion'"))
                 .toString(),
             QStringLiteral("4.0.1"));
    QCOMPARE(base.valeur(QStringLiteral("SELECT VERSION FROM TECHNIQUE")).toString(), QStringLiteral("2L"));
    QCOMPARE(base.compter(QStringLiteral("APPLICATIONPROPERTIES")), 1);
    QCOMPARE(base.compter(QStringLiteral("TECHNIQUE")), 1);
}

void TestSchema::vueDesPesticides()
{
    const BaseDEssai base;
    base.sql(QStringLiteral("INSERT INTO PARAMETRE (CodeParam, NomParam, CodeGroupeParam, CodeUnite) VALUES "
                            "('1107', 'Atrazine', 'PS', '133'), ('9999', 'Sans unité', 'PS', '99')"));
    const Requete parametre = base.donnees.commande(QStringLiteral("Parametre"));
    Requete vue = base.donnees.executer(QStringLiteral("SELECT * FROM PARAMETRE_PHYTO"));
    QCOMPARE(vue.colonnes(), parametre.colonnes());
    // By name; 9999 has no row in UNITEREFERENCE and so none in Parametre.
    QVERIFY(vue.suivant());
    QCOMPARE(vue.texte(QStringLiteral("NomParam")), QStringLiteral("Atrazine"));
    QCOMPARE(vue.texte(QStringLiteral("SymboleUnite")), QStringLiteral("µg/L"));
    QVERIFY(vue.suivant());
    QCOMPARE(vue.texte(QStringLiteral("NomParam")), QStringLiteral("Glyphosate"));
    QVERIFY(!vue.suivant());
}

void TestSchema::unParametreRenommeEmporteSesResultats()
{
    const BaseDEssai base;
    const qint64 prel = base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1));
    const qint64 ana = base.ajouterMesure(prel, QStringLiteral("1340"), 25.5);
    base.sql(QStringLiteral("UPDATE PARAMETRE SET CodeParam = '13400' WHERE CodeParam = '1340'"));
    QCOMPARE(base.valeur(QStringLiteral("SELECT CodeParam FROM MESURE_PHYSICO WHERE NumAnaPC = ?"), {ana})
                 .toString(),
             QStringLiteral("13400"));
}

void TestSchema::unIntervenantRenommeEmporteSesResultats()
{
    const BaseDEssai base;
    const qint64 prel = base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1));
    const qint64 ana = base.ajouterMesure(prel, QStringLiteral("1340"), 25.5);
    base.sql(QStringLiteral(
        "UPDATE INTERVENANT SET CodeSandreInterv = '24560051500010' WHERE CodeSandreInterv = '17'"));
    QCOMPARE(
        base.valeur(QStringLiteral("SELECT CodeSandreGest FROM MESURE_PHYSICO WHERE NumAnaPC = ?"), {ana})
            .toString(),
        QStringLiteral("24560051500010"));
}

void TestSchema::unPrelevementSupprimeEmporteSesReseaux()
{
    const BaseDEssai base;
    const qint64 prel = base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1));
    const qint64 autre = base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 4, 1));
    base.ajouterMesure(prel, QStringLiteral("1340"), 25.5);
    for (const qint64 p : {prel, autre})
        base.sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001')"), {p});
    base.sql(QStringLiteral("DELETE FROM PRELEVEMENT WHERE NumPrel = ?"), {prel});
    QCOMPARE(base.valeur(QStringLiteral("SELECT group_concat(NumPrel) FROM PRELEVEMENTRSX")).toLongLong(),
             autre);
    // The results stay: the programs delete them first.
    QCOMPARE(base.compter(QStringLiteral("MESURE_PHYSICO")), 1);
}

void TestSchema::unResultatSansParametreConnuEstRefuse()
{
    const BaseDEssai base;
    const qint64 prel = base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1));
    QVERIFY_THROWS_EXCEPTION(Erreur, base.ajouterMesure(prel, QStringLiteral("7777"), 1));
    QVERIFY_THROWS_EXCEPTION(Erreur, base.ajouterMesure(prel, QStringLiteral("1340"), 1, QStringLiteral("1"),
                                                        QStringLiteral("99")));
}

// The engine's own comparison folds ASCII letters, the connection's collation all of them.
void TestSchema::textesSansCasse()
{
    const BaseDEssai base;
    QCOMPARE(base.valeur(QStringLiteral(
                             "SELECT CodeStationHM FROM STATION_HYDRO WHERE CodeStationHM = 'j7010610'"))
                 .toString(),
             QStringLiteral("J7010610"));
    base.sql(QStringLiteral("UPDATE COMMUNE SET NomCommune = 'Élancourt' WHERE NumCommune = '35228'"));
    QCOMPARE(base.compter(QStringLiteral("COMMUNE] WHERE NomCommune = 'élancourt' COLLATE FRANCAIS --")), 1);
    QCOMPARE(base.compter(QStringLiteral("COMMUNE] WHERE NomCommune = 'elancourt' COLLATE FRANCAIS --")), 0);
}

void TestSchema::toutOutilSqliteOuvreLaBase()
{
    BaseDEssai base;
    Schema::creerTable(base.donnees.Connect_Bdd(), QStringLiteral("COULEURS_GRAPH"));
    base.ajouterMesure(base.ajouterPrelevement(QStringLiteral("04211940"), QDate(2009, 3, 1)),
                       QStringLiteral("1340"), 1);
    base.donnees.liberer();
    QProcess outil;
    outil.start(QStringLiteral("sqlite3"),
                {base.chemin, QStringLiteral("PRAGMA integrity_check; PRAGMA foreign_key_check; "
                                             "SELECT count(*) FROM PARAMETRE_PHYTO; REINDEX; "
                                             "SELECT NomParam FROM PARAMETRE WHERE CodeParam='1340';")});
    QVERIFY2(outil.waitForFinished(), "sqlite3 is part of what the tests need");
    QCOMPARE(QString::fromUtf8(outil.readAllStandardError()), QString());
    QCOMPARE(QString::fromUtf8(outil.readAllStandardOutput()), QStringLiteral("ok\n1\nNitrates\n"));
}

void TestSchema::unSeulFichierUneFoisFermee()
{
    BaseDEssai base;
    QCOMPARE(base.valeur(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("wal"));
    QCOMPARE(base.valeur(QStringLiteral("PRAGMA foreign_keys")).toInt(), 1);
    QCOMPARE(base.valeur(QStringLiteral("PRAGMA synchronous")).toInt(), 1);
    // Statements that nobody finished must not keep the journal alive.
    Requete ouverte = base.donnees.commande(QStringLiteral("Parametre"));
    QVERIFY(ouverte.suivant());
    base.donnees.liberer();
    QVERIFY(!base.donnees.estOuvert());
    QCOMPARE(QDir(base.dossier.path()).entryList(QDir::Files), QStringList{QStringLiteral("essai.mdb")});
    base.donnees.ouvrir(base.chemin);
    QCOMPARE(base.compter(QStringLiteral("PARAMETRE")), 4);
}

void TestSchema::creerNEcraseRien()
{
    const BaseDEssai base;
    DataEnvironment1 autre;
    QVERIFY_THROWS_EXCEPTION(Erreur, autre.creer(base.chemin));
    QVERIFY(!autre.estOuvert());
    QCOMPARE(base.compter(QStringLiteral("PARAMETRE")), 4);
}

QTEST_GUILESS_MAIN(TestSchema)
#include "test_schema.moc"
