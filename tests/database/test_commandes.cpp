// The named commands: every one opened, its columns, joins and order checked.
#include "BaseDEssai.h"
#include "database/Commandes.h"
#include "database/Schema.h"
#include "platform/Erreur.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{
const QString STATION = QStringLiteral("04211940");
const QString NITRATES = QStringLiteral("1340");
const QString PH = QStringLiteral("1302");
const QString GLYPHOSATE = QStringLiteral("1506");
} // namespace

class TestCommandes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ilYEnASoixanteSix() { QCOMPARE(Commandes::noms().size(), 66); }
    void colonnes_data();
    void colonnes();
    void tablesEntieres_data();
    void tablesEntieres();
    void leNomSansCasse();

    void ordreFrancais_data();
    void ordreFrancais();
    void mesuresDesDeuxFamilles();
    void mesuresEtReseaux();
    void stationSansPoint();
    void parametreSansUnite();
    void protocoles();
    void parametresMesures();
    void gestionnairesEtReseauxDesMesures();
    void ordreDesTables();
    void uneCommandeVoitCeQuiVientDEtreEcrit();

    void nombreDeLignes_data();
    void nombreDeLignes();
    void nombreDeLignesDansUneBaseVide();
    void nombreDeLignesPourToutes();

    void cheminsDAcces_data();
    void cheminsDAcces();

private:
    // One column of a command, in the order of its rows.
    static QStringList liste(const BaseDEssai &base, const char *commande, const char *colonne)
    {
        Requete r = base.donnees.commande(QString::fromUtf8(commande));
        QStringList textes;
        while (r.suivant())
            textes << r.texte(QString::fromUtf8(colonne));
        return textes;
    }
};

void TestCommandes::colonnes_data()
{
    QTest::addColumn<QString>("attendues");
    const auto ligne = [](const char *commande, const char *attendues) {
        QTest::newRow(commande) << QString::fromUtf8(attendues);
    };
    ligne("Mesure_PC", "NumPrel CodeSandreStationM CdPoint DatePrel HeurePrel CdSupport CodeSandrePrelev "
                       "CodeSandreProd Protocole NumAnaPC ResultatAnaPC LD LQ LS CodeRemarqueAnaPC "
                       "LieuAnaPC CommAnaPC CommResAnaPC SeuilAnaPC CodeSandreLabo CodeMethode "
                       "CodeSandreGest Cd_Fraction CodeParam NomParam CodeGroupeParam CodeUnite");
    ligne("Mesure_PS", "NumPrel CodeSandreStationM CdPoint DatePrel HeurePrel CdSupport CodeSandrePrelev "
                       "CodeSandreProd Protocole NumAnaPC ResultatAnaPC LD LQ LS CodeRemarqueAnaPC "
                       "LieuAnaPC CommAnaPC CommResAnaPC SeuilAnaPC CodeSandreLabo CodeMethode "
                       "CodeSandreGest Cd_Fraction CodeParam NomParam CodeGroupeParam CodeUnite");
    ligne("MESURES_PC_RSX",
          "NumPrel CodeSandreStationM CdPoint DatePrel HeurePrel CdSupport CodeSandrePrelev "
          "CodeSandreProd Protocole NumAnaPC ResultatAnaPC LD LQ LS CodeRemarqueAnaPC "
          "LieuAnaPC CommAnaPC CommResAnaPC SeuilAnaPC CodeSandreLabo CodeMethode "
          "CodeSandreGest Cd_Fraction CodeParam NomParam SymboleUnite CodeReseau");
    ligne("MESURES_PS_RSX",
          "NumPrel CodeSandreStationM CdPoint DatePrel HeurePrel CdSupport CodeSandrePrelev "
          "CodeSandreProd Protocole NumAnaPC ResultatAnaPC LD LQ LS CodeRemarqueAnaPC "
          "LieuAnaPC CommAnaPC CommResAnaPC SeuilAnaPC CodeSandreLabo CodeMethode "
          "CodeSandreGest Cd_Fraction CodeParam NomParam SymboleUnite CodeReseau");
    ligne("Station_Qualité",
          "CodeHydrog CodeReseau CodeSandreStationM CdPoint CodeSSBV CodeUsuelStationM "
          "CommStationM CoorXStationM CoorYStationM CoorXStationM_L93 CoorYStationM_L93 "
          "CreationStationM ImportBVStationM NatureStationM NomStationM NumBV "
          "RiviereStationM SituationStationM SuperficieStationM LocalisationGlobaleStationM "
          "LocalisationPreciseStationM");
    ligne("Parametre", "CodeParam NomParam StatutParam CommParam DéfParam NatureParam CodeGroupeParam "
                       "CodeUnite LibelleUnite SymboleUnite");
    ligne("Parametre_PS", "CodeParam NomParam StatutParam CommParam DéfParam NatureParam CodeGroupeParam "
                          "CodeUnite LibelleUnite SymboleUnite");
    ligne("Reseau", "CodeReseau FinaliteReseau LibelleReseau");
    ligne("Commune", "NomCommune NumCommune NumDepartement SituationCommune");
    ligne("BassinVersant", "NomBV NumBV ObjBV ProblématiqueBV SuperfBV");
    ligne("Departement", "NomDepartement NumDepartement");
    ligne("Station_Hydro", "CodeHydroStationHM CodeSandreStationHM CodeStationHM CoorXStationHM "
                           "CoorYStationHM EnServiceStationHM IntituleStationHM NumBV SurfReelStationHM "
                           "TypeStationHM");
    ligne("Station_Pluvio",
          "CodeStationPM CoorXStationPM CoorYStationPM EnServiceStationPM IntituleStationPM "
          "NumBV TypeStationPM");
    ligne("Ss_BV", "CodeSSBV NomSSBV NumBV SuperfSSBV");
    ligne("Methode", "CodeMéthode CommMéthode NomMéthode");
    ligne("Protocole", "Protocole");
    ligne("Protocole_PS", "Protocole");
    ligne("Parametres_Mesures_PC", "CodeParam NomParam");
    ligne("Parametres_Mesures_PS", "CodeParam NomParam");
    ligne("Laboratoire", "Code CodeSandreLabo CommLabo CPLabo NomLabo RueLabo StatutLabo VilleLabo "
                         "LibelleSandreLabo");
    ligne("Gestionnaire", "Code CodeSandreGest CommGest CPGest DépartPaysGest LibelleSandreGest NomGest "
                          "RueGest StatutGest VilleGest");
    ligne("Preleveur", "Code CodeSandrePrelev CommPrelev CPPrelev LibelleSandrePrelev NomPrelev "
                       "RuePrelev StatutPrelev VillePrelev");
    ligne("Intervenant", "Code CodeSandreInterv CommInterv CPInterv DépartPaysInterv LibelleSandreInterv "
                         "NomInterv RueInterv StatutInterv VilleInterv");
    ligne("Indic_Non_Agric",
          "Annee Code DiagnCoursEau InventLinRoutier InventZones LinCoursEntret "
          "LinCoursRest LinDepart LinNat LinReel LinTalus LinVrai LinVraiTotal "
          "NbAgentFormCompl NbAgentFormInit NbCollectZonage NbComm NbCommTech "
          "NbDechargeARehab NbDechargRehab NbPartReunion NbPulveDiagn NbPulveDos NbReunion "
          "QteMatDepart QteMatNat SurfTotaleZones SurfZonesAmen TotalComm TotalPulve "
          "NbCollectEnZonage NbTotInstallConf NumBV");
    ligne("GestXMesure_physico", "CodeSandreGest CodeSandreInterv NomInterv CodeSandreStationM");
    ligne("ReseauXMesure_physico", "CodeReseau LibelleReseau CodeSandreStationM");
    ligne("GestMesure", "CodeSandreGest NomInterv");
    ligne("GestMesure_PS", "CodeSandreGest NomInterv");
    ligne("IMPORT_PAR_URF", "CodeParam CodeUnite ISOVL SymboleUnite");
    ligne("Table_LOCALISATION", "CodeSandreStationM CdPoint CoorXPoint_L2E CoorYPoint_L2E CoorXPoint_L93 "
                                "CoorYPoint_L93 CdSupport");
}

void TestCommandes::colonnes()
{
    QFETCH(QString, attendues);
    const BaseDEssai base;
    QCOMPARE(base.donnees.commande(QString::fromUtf8(QTest::currentDataTag())).colonnes(),
             attendues.split(u' '));
}

void TestCommandes::tablesEntieres_data()
{
    QTest::addColumn<QString>("nomTable");
    const auto table = [](const char *commande, const char *nom) {
        QTest::newRow(commande) << QString::fromUtf8(nom);
    };
    table("StationMesureXGest", "StationMesureXGest");
    table("GrilleSEQ", "GRILLE_SEQ");
    table("StationMesureXCommune", "StationMesureXCommune");
    table("StationHydroXCommune", "StationHydroXCommune");
    table("StationHydroXGest", "StationHydroXGest");
    table("StationPluvioXCommune", "StationPluvioXCommune");
    table("StationPluvioXGest", "StationPluvioXGest");
    table("StationQualite_StationHydro", "Rattachement_hydro_ mesure");
    table("Lieu_BV", "LIEU_BASSIN_VERSANT");
    table("Objectif", "OBJECTIF");
    table("NormeAEP", "NORME_AEP");
    table("Indic_Agric", "INDICATEUR_AGRICOLE");
    table("Temp_objectif", "Temp_objectif");
    table("BVXCommune", "BVXCommune");
    table("Temp_physico", "Temp_mesure_physico");
    table("Temp_hydro_jour", "Temp_mesure_hydro_jour");
    table("Temp_phyto", "Temp_mesure_phyto");
    table("Temp_pluvio", "Temp_mesure_pluvio");
    table("Temp_hydro_mois", "Temp_mesure_hydro_mois");
    table("Temporaire", "Table_temporaire");
    table("Temporaire_reunion", "Table_temporaire_reunion");
    table("Temporaire_install", "Table_temporaire_install");
    table("Indic_Non_Agric2", "Indic_non_agricXMatiere_active");
    table("Indic_Non_Agric3", "Indic_non_agricXReunion");
    table("Indic_Non_Agric4", "Indic_non_agricXInstall");
    table("Fraction", "FRACTION");
    table("Corresp_Intervenant", "CORRESP_INTERVENANT");
    table("Table_UNITEREFERENCE", "UNITEREFERENCE");
    table("Temp_mesures_reseaux", "Temp_mesures_reseaux");
    table("Mesure_HM", "MESURE_HYDRO");
    table("Mesure_PM", "MESURE_PLUVIO");
    table("Station", "STATION_QUALITE");
    table("Objectif_PC", "OBJECTIF");
    table("Table_PRELEVEMENT", "PRELEVEMENT");
    table("Table_MESURE_PHYSICO", "MESURE_PHYSICO");
    table("Table_PRELEVEMENTRSX", "PRELEVEMENTRSX");
}

void TestCommandes::tablesEntieres()
{
    QFETCH(QString, nomTable);
    const BaseDEssai base;
    QStringList attendues;
    for (const Schema::Colonne &c : Schema::table(nomTable)->colonnes)
        attendues << c.nom;
    Requete r = base.donnees.commande(QString::fromUtf8(QTest::currentDataTag()));
    QCOMPARE(r.colonnes(), attendues);
    int lignes = 0;
    while (r.suivant())
        ++lignes;
    QCOMPARE(lignes, base.compter(nomTable));
}

void TestCommandes::leNomSansCasse()
{
    QCOMPARE(DataEnvironment1::source(QStringLiteral("STATION_QUALITÉ")),
             DataEnvironment1::source(QStringLiteral("Station_Qualité")));
    QVERIFY(!DataEnvironment1::source(QStringLiteral("parametre")).isEmpty());
    QVERIFY(DataEnvironment1::source(QStringLiteral("PARAMETRE_PHYTO")).isEmpty());
}

// Case makes no difference and an accent the last one: "Île" comes between "Ibis" and "zinc", "Étang" after "Côte".
void TestCommandes::ordreFrancais_data()
{
    QTest::addColumn<QString>("insertion");
    QTest::addColumn<QString>("colonne");
    const auto ligne = [](const char *commande, const char *insertion, const char *colonne) {
        QTest::newRow(commande) << QString::fromUtf8(insertion) << QString::fromUtf8(colonne);
    };
    ligne("Parametre", "INSERT INTO PARAMETRE (NomParam, CodeParam, CodeUnite) VALUES (?, ?, '162')",
          "NomParam");
    ligne(
        "Parametre_PS",
        "INSERT INTO PARAMETRE (NomParam, CodeParam, CodeUnite, CodeGroupeParam) VALUES (?, ?, '162', 'PS')",
        "NomParam");
    ligne("Reseau", "INSERT INTO RESEAU_MESURE (LibelleReseau, CodeReseau) VALUES (?, ?)", "LibelleReseau");
    ligne("Commune", "INSERT INTO COMMUNE (NomCommune, NumCommune) VALUES (?, ?)", "NomCommune");
    ligne("BassinVersant", "INSERT INTO BASSIN_VERSANT (NomBV, NumBV) VALUES (?, ?)", "NomBV");
    ligne("Departement", "INSERT INTO DEPARTEMENT (NomDepartement, NumDepartement) VALUES (?, ?)",
          "NomDepartement");
    ligne("Ss_BV", "INSERT INTO SOUS_BASSIN_VERSANT (NomSSBV, CodeSSBV) VALUES (?, ?)", "NomSSBV");
    ligne("Methode", "INSERT INTO METHODE (NomMéthode, CodeMéthode) VALUES (?, ?)", "NomMéthode");
    ligne(
        "Station_Hydro",
        "INSERT INTO STATION_HYDRO (IntituleStationHM, CodeStationHM, CodeSandreStationHM) VALUES (?, ?, '1')",
        "IntituleStationHM");
}

void TestCommandes::ordreFrancais()
{
    QFETCH(QString, insertion);
    QFETCH(QString, colonne);
    const BaseDEssai base(true);
    const QStringList noms{QStringLiteral("cote"),  QStringLiteral("coté"),   QStringLiteral("Côte"),
                           QStringLiteral("Étang"), QStringLiteral("étangs"), QStringLiteral("Ibis"),
                           QStringLiteral("Île"),   QStringLiteral("zinc"),   QStringLiteral("Zoé")};
    base.sql(QStringLiteral("INSERT INTO UNITEREFERENCE (CodeUnite) VALUES ('162')"));
    for (int i = 0; i < noms.size(); ++i) {
        const int melange = (i * 4) % 9; // a permutation: 4 and 9 have no common divisor
        base.sql(insertion, {noms[melange], 100 + i});
    }
    QCOMPARE(liste(base, QTest::currentDataTag(), qPrintable(colonne)), noms);
}

void TestCommandes::mesuresDesDeuxFamilles()
{
    const BaseDEssai base;
    base.sql(QStringLiteral(
        "INSERT INTO PARAMETRE (CodeParam, NomParam, CodeUnite) VALUES ('2000', 'Sans groupe', '162')"));
    const qint64 tard = base.ajouterPrelevement(STATION, QDate(2010, 5, 1));
    const qint64 tot = base.ajouterPrelevement(STATION, QDate(2009, 5, 1));
    base.ajouterMesure(tard, NITRATES, 1);
    base.ajouterMesure(tard, GLYPHOSATE, 2);
    base.ajouterMesure(tard, QStringLiteral("2000"), 3);
    base.ajouterMesure(tot, NITRATES, 4);
    base.ajouterMesure(9999, NITRATES, 5); // no sampling
    QCOMPARE(liste(base, "Mesure_PC", "ResultatAnaPC"),
             QStringList({QStringLiteral("4"), QStringLiteral("1")}));
    QCOMPARE(liste(base, "Mesure_PS", "ResultatAnaPC"), QStringList{QStringLiteral("2")});
    QCOMPARE(liste(base, "Mesure_PC", "NomParam").first(), QStringLiteral("Nitrates"));
}

void TestCommandes::mesuresEtReseaux()
{
    const BaseDEssai base;
    const qint64 avec = base.ajouterPrelevement(STATION, QDate(2009, 5, 1));
    const qint64 sans = base.ajouterPrelevement(STATION, QDate(2010, 5, 1));
    for (const char *code : {"0400000001", "0400000002"})
        base.sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, ?)"),
                 {avec, QString::fromLatin1(code)});
    for (const qint64 p : {avec, sans}) {
        base.ajouterMesure(p, NITRATES, 1);
        base.ajouterMesure(p, GLYPHOSATE, 1);
    }
    // One row a network; a sampling without one comes with a null.
    QStringList reseaux = liste(base, "MESURES_PC_RSX", "CodeReseau");
    QCOMPARE(reseaux.takeLast(), QString());
    reseaux.sort();
    QCOMPARE(reseaux, QStringList({QStringLiteral("0400000001"), QStringLiteral("0400000002")}));
    QCOMPARE(liste(base, "MESURES_PS_RSX", "SymboleUnite"), QStringList(3, QStringLiteral("µg/L")));
}

void TestCommandes::stationSansPoint()
{
    const BaseDEssai base;
    base.sql(QStringLiteral("INSERT INTO STATION_QUALITE (CodeSandreStationM) VALUES ('03000000')"));
    QCOMPARE(liste(base, "Station_Qualité", "CodeSandreStationM"),
             QStringList({QStringLiteral("03000000"), STATION, QStringLiteral("04211950")}));
    QCOMPARE(liste(base, "Station_Qualité", "CdPoint"),
             QStringList({QString(), QStringLiteral("031"), QString()}));
}

void TestCommandes::parametreSansUnite()
{
    const BaseDEssai base;
    base.sql(QStringLiteral(
        "INSERT INTO PARAMETRE (CodeParam, NomParam, CodeUnite) VALUES ('1', 'A', '9'), ('2', 'B', NULL)"));
    QCOMPARE(liste(base, "Parametre", "NomParam"),
             QStringList({QStringLiteral("Carbone Organique"), QStringLiteral("Glyphosate"),
                          QStringLiteral("Nitrates"), QStringLiteral("Potentiel en Hydrogène (pH)")}));
    // True, -1, comes before false, 0.
    QCOMPARE(liste(base, "IMPORT_PAR_URF", "SymboleUnite"),
             QStringList({QStringLiteral("unité pH"), QStringLiteral("mg(NO3)/L"), QStringLiteral("mg/L"),
                          QStringLiteral("µg/L"), QStringLiteral("mg(C)/L")}));
}

void TestCommandes::protocoles()
{
    const BaseDEssai base;
    const auto prelevement = [&](const QString &protocole, const QString &parametre) {
        const qint64 p =
            base.ajouterPrelevement(STATION, QDate(2009, 1, 1), QTime(), QStringLiteral("19"), protocole);
        base.ajouterMesure(p, parametre, 1);
        base.ajouterMesure(p, parametre, 2);
    };
    prelevement(QStringLiteral("2"), NITRATES);
    prelevement(QStringLiteral("1"), NITRATES);
    prelevement(QStringLiteral("1"), PH);
    prelevement(QStringLiteral("0"), GLYPHOSATE);
    base.ajouterPrelevement(STATION, QDate(2009, 1, 1), QTime(), QStringLiteral("19"),
                            QStringLiteral("7")); // no result
    const qint64 sans = base.ajouterPrelevement(STATION, QDate(2009, 1, 1));
    base.sql(QStringLiteral("UPDATE PRELEVEMENT SET Protocole = NULL WHERE NumPrel = ?"), {sans});
    base.ajouterMesure(sans, NITRATES, 1);
    QCOMPARE(liste(base, "Protocole", "Protocole"), QStringList({QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(liste(base, "Protocole_PS", "Protocole"), QStringList{QStringLiteral("0")});
}

void TestCommandes::parametresMesures()
{
    const BaseDEssai base;
    const qint64 p = base.ajouterPrelevement(STATION, QDate(2009, 1, 1));
    for (const QString &code : {PH, NITRATES, NITRATES, GLYPHOSATE})
        base.ajouterMesure(p, code, 1);
    QCOMPARE(liste(base, "Parametres_Mesures_PC", "CodeParam"), QStringList({NITRATES, PH}));
    QCOMPARE(liste(base, "Parametres_Mesures_PS", "NomParam"), QStringList{QStringLiteral("Glyphosate")});
}

void TestCommandes::gestionnairesEtReseauxDesMesures()
{
    const BaseDEssai base;
    const qint64 ici = base.ajouterPrelevement(STATION, QDate(2009, 1, 1));
    const qint64 la = base.ajouterPrelevement(QStringLiteral("04211950"), QDate(2009, 1, 1));
    const QString un = QStringLiteral("1");
    base.ajouterMesure(ici, NITRATES, 1, un, QStringLiteral("18"));
    base.ajouterMesure(ici, PH, 1, un, QStringLiteral("18"));
    base.ajouterMesure(la, NITRATES, 1, un, QStringLiteral("17"));
    base.ajouterMesure(la, GLYPHOSATE, 1, un, QStringLiteral("19"));
    // By name: "Agence de l'eau" (17), "Laboratoire d'Armor" (18).
    QCOMPARE(liste(base, "GestMesure", "CodeSandreGest"),
             QStringList({QStringLiteral("17"), QStringLiteral("18")}));
    QCOMPARE(liste(base, "GestMesure_PS", "NomInterv"), QStringList{QStringLiteral("Préleveur de l'Ouest")});
    QCOMPARE(liste(base, "GestXMesure_physico", "CodeSandreStationM"),
             QStringList({QStringLiteral("04211950"), STATION}));
    QCOMPARE(liste(base, "GestXMesure_physico", "CodeSandreInterv"),
             QStringList({QStringLiteral("17"), QStringLiteral("18")}));
    base.sql(QStringLiteral(
                 "INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001'), (?, '0400000002'), (?, '0499999999')"),
             {ici, la, la});
    QCOMPARE(liste(base, "ReseauXMesure_physico", "LibelleReseau"),
             QStringList({QStringLiteral("Réseau d'Armor"), QStringLiteral("Réseau national")}));
    QCOMPARE(liste(base, "ReseauXMesure_physico", "CodeSandreStationM"),
             QStringList({QStringLiteral("04211950"), STATION}));
}

void TestCommandes::ordreDesTables()
{
    const BaseDEssai base;
    for (const int mois : {5, 2, 9}) {
        base.sql(
            QStringLiteral("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM) VALUES ('J7010610', ?)"),
            {QDate(2009, mois, 1)});
        base.sql(
            QStringLiteral("INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM) VALUES ('35228001', ?)"),
            {QDate(2009, mois, 1)});
        base.sql(QStringLiteral("INSERT INTO PRELEVEMENT (NumPrel) VALUES (?)"), {mois});
        base.sql(QStringLiteral("INSERT INTO MESURE_PHYSICO (NumPrel) VALUES (?)"), {mois});
        base.sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, 'x')"), {mois});
        base.sql(QStringLiteral("INSERT INTO INDICATEUR_NON_AGRICOLE (Annee) VALUES (?)"), {2000 + mois});
    }
    const QStringList dates{QStringLiteral("2009-02-01"), QStringLiteral("2009-05-01"),
                            QStringLiteral("2009-09-01")};
    QCOMPARE(liste(base, "Mesure_HM", "DateMesureHM"), dates);
    QCOMPARE(liste(base, "Mesure_PM", "DateMesurePM"), dates);
    const QStringList numeros{QStringLiteral("2"), QStringLiteral("5"), QStringLiteral("9")};
    for (const char *commande : {"Table_PRELEVEMENT", "Table_MESURE_PHYSICO", "Table_PRELEVEMENTRSX"})
        QCOMPARE(liste(base, commande, "NumPrel"), numeros);
    QCOMPARE(liste(base, "Indic_Non_Agric", "Annee"),
             QStringList({QStringLiteral("2002"), QStringLiteral("2005"), QStringLiteral("2009")}));
    QCOMPARE(liste(base, "Laboratoire", "CodeSandreLabo"),
             QStringList({QStringLiteral("17"), QStringLiteral("18"), QStringLiteral("19")}));
    QCOMPARE(liste(base, "Laboratoire", "NomLabo").last(), QStringLiteral("Préleveur de l'Ouest"));
}

void TestCommandes::uneCommandeVoitCeQuiVientDEtreEcrit()
{
    const BaseDEssai base;
    QCOMPARE(liste(base, "Departement", "NumDepartement").size(), 2);
    base.sql(QStringLiteral("INSERT INTO DEPARTEMENT VALUES ('29', 'Finistère')"));
    QCOMPARE(liste(base, "Departement", "NumDepartement").size(), 3);
}

void TestCommandes::nombreDeLignes_data()
{
    QTest::addColumn<quint32>("graine");
    for (quint32 graine = 1; graine <= 12; ++graine)
        QTest::addRow("graine %u", graine) << graine;
}

// The quick count against the rows themselves, on results of every bad kind: without a sampling (before, between and after
// the numbers in use), with a null number, with a null or unknown parameter, with a parameter without a group.
void TestCommandes::nombreDeLignes()
{
    QFETCH(quint32, graine);
    QRandomGenerator hasard(graine);
    const BaseDEssai base;
    base.sql(QStringLiteral("PRAGMA foreign_keys = OFF"));
    base.sql(QStringLiteral(
        "INSERT INTO PARAMETRE (CodeParam, NomParam, CodeUnite) VALUES ('2000', 'Sans groupe', '162')"));
    base.sql(QStringLiteral(
        "INSERT INTO PARAMETRE (CodeParam, NomParam, CodeGroupeParam) VALUES ('2001', 'Minuscules', 'ps')"));
    base.sql(QStringLiteral("BEGIN"));
    for (int i = 0; i < 40; ++i)
        base.sql(QStringLiteral("INSERT OR IGNORE INTO PRELEVEMENT (NumPrel) VALUES (?)"),
                 {hasard.bounded(5, 90)});
    const QVariantList parametres{
        NITRATES,  PH, GLYPHOSATE, QStringLiteral("2000"), QStringLiteral("2001"), QStringLiteral("7777"),
        QVariant()};
    for (int i = 0; i < 400; ++i) {
        const int numero = hasard.bounded(0, 100);
        base.sql(QStringLiteral("INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam) VALUES (?, ?)"),
                 {numero == 50 ? QVariant() : QVariant(numero), parametres[hasard.bounded(7)]});
    }
    base.sql(QStringLiteral("COMMIT"));
    for (const char *commande : {"Mesure_PC", "Mesure_PS"}) {
        const qsizetype lignes = liste(base, commande, "NumAnaPC").size();
        QVERIFY(lignes > 5);
        QCOMPARE(base.donnees.nombreLignes(QString::fromLatin1(commande)), lignes);
    }
}

void TestCommandes::nombreDeLignesDansUneBaseVide()
{
    const BaseDEssai base;
    QCOMPARE(base.donnees.nombreLignes(QStringLiteral("Mesure_PC")), 0);
    // Results, and not one sampling.
    base.ajouterMesure(1, NITRATES, 1);
    QCOMPARE(base.donnees.nombreLignes(QStringLiteral("Mesure_PC")), 0);
    const qint64 p = base.ajouterPrelevement(STATION, QDate(2009, 1, 1));
    QCOMPARE(p, 1);
    QCOMPARE(base.donnees.nombreLignes(QStringLiteral("mesure_pc")), 1);
    QCOMPARE(base.donnees.nombreLignes(QStringLiteral("Mesure_PS")), 0);
    QVERIFY_THROWS_EXCEPTION(Erreur, base.donnees.nombreLignes(QStringLiteral("Inconnue")));
}

void TestCommandes::nombreDeLignesPourToutes()
{
    const BaseDEssai base;
    base.ajouterMesure(base.ajouterPrelevement(STATION, QDate(2009, 1, 1)), NITRATES, 1);
    for (const QString &nom : Commandes::noms()) {
        Requete r = base.donnees.commande(nom);
        qint64 lignes = 0;
        while (r.suivant())
            ++lignes;
        QCOMPARE(base.donnees.nombreLignes(nom), lignes);
    }
}

// The statements that run once for each row of an import or each sample of a report: no table is read through.
void TestCommandes::cheminsDAcces_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("index");
    const auto ligne = [](const char *titre, const char *sql, const char *index) {
        QTest::newRow(titre) << QString::fromUtf8(sql) << QString::fromUtf8(index);
    };
    const char *const jointure =
        "FROM ((PRELEVEMENT INNER JOIN MESURE_PHYSICO ON PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel) "
        "INNER JOIN PARAMETRE ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) WHERE ";
    const char *const parPrelevement =
        "IX_PRELEVEMENT_STATION IX_MESURE_PHYSICO_PREL sqlite_autoindex_PARAMETRE_1";
    ligne("mesures d'une station sur une période",
          (QByteArray("SELECT *, MESURE_PHYSICO.CodeParam AS CodeParam ") + jointure +
           "DatePrel >= '2009-01-01' AND DatePrel <= '2009-12-31' AND MESURE_PHYSICO.CodeParam = '1340' "
           "AND CodeSandreStationM = '04211940' AND CodeGroupeParam<>'PS'")
              .constData(),
          parPrelevement);
    ligne("analyse existante",
          (QByteArray("SELECT * ") + jointure +
           "DatePrel = ? AND HeurePrel = ? AND MESURE_PHYSICO.CodeParam = ? AND CodeSandreStationM = ? "
           "AND CodeSandreGest = ? AND CD_FRACTION = ?")
              .constData(),
          parPrelevement);
    ligne(
        "analyse d'un prélèvement",
        (QByteArray("SELECT * ") + jointure +
         "PRELEVEMENT.NumPrel = ? AND MESURE_PHYSICO.CodeParam = ? AND CodeSandreGest = ? AND CD_FRACTION = ?")
            .constData(),
        "PRIMARY KEY IX_MESURE_PHYSICO_PREL sqlite_autoindex_PARAMETRE_1");
    ligne(
        "prélèvement existant",
        "SELECT * FROM PRELEVEMENT WHERE DatePrel = ? AND HeurePrel = ? AND CodeSandreStationM = ? AND CodeSandrePrelev = ?",
        "IX_PRELEVEMENT_STATION");
    ligne("réseau d'un prélèvement", "SELECT * FROM PRELEVEMENTRSX WHERE NumPrel = ? AND CodeReseau = ?",
          "IX_PRELEVEMENTRSX_PREL");
    ligne("débit d'un jour", "SELECT * FROM MESURE_HYDRO WHERE DateMesureHM = ? AND CodeStationHM = ?",
          "IX_MESURE_HYDRO_STATION");
    ligne("débit sans heure",
          "SELECT * FROM MESURE_HYDRO WHERE DateMesureHM = ? AND HeureMesureHM IS NULL AND CodeStationHM = ?",
          "IX_MESURE_HYDRO_STATION");
    ligne("pluie existante",
          "SELECT * FROM MESURE_PLUVIO WHERE DateMesurePM = ? AND CodeStationPM = ? AND CodeSandreGest = ?",
          "IX_MESURE_PLUVIO_STATION");
    ligne("réseaux supprimés avec leur prélèvement", "DELETE FROM PRELEVEMENTRSX WHERE NumPrel = ?",
          "IX_PRELEVEMENTRSX_PREL");
    ligne("résultats d'un paramètre", "UPDATE MESURE_PHYSICO SET CodeParam = ? WHERE CodeParam = ?",
          "IX_MESURE_PHYSICO_PARAM");
    ligne("résultats d'un gestionnaire",
          "UPDATE MESURE_PHYSICO SET CodeSandreGest = ? WHERE CodeSandreGest = ?", "IX_MESURE_PHYSICO_GEST");
    ligne("point d'une station", "SELECT 1 FROM LOCALISATION WHERE CodeSandreStationM = ? AND CdPoint = ?",
          "IX_LOCALISATION_STATION");
    ligne("objectifs", "SELECT * FROM OBJECTIF WHERE NumBV = ? AND CodeParam = ?", "IX_OBJECTIF_BASSIN");
}

void TestCommandes::cheminsDAcces()
{
    QFETCH(QString, sql);
    QFETCH(QString, index);
    static const BaseDEssai base;
    Requete r = base.donnees.executer(QStringLiteral("EXPLAIN QUERY PLAN ") + sql,
                                      QVariantList(sql.count(u'?'), QStringLiteral("1")));
    QString plan;
    while (r.suivant())
        plan += r.texte(QStringLiteral("detail")) + u'\n';
    QVERIFY2(!plan.contains(QLatin1String("SCAN")), qPrintable(plan));
    for (const QString &nom : index.split(u' '))
        QVERIFY2(plan.contains(nom), qPrintable(plan));
}

QTEST_GUILESS_MAIN(TestCommandes)
#include "test_commandes.moc"
