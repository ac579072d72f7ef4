#include "database/Commandes.h"

#include <QHash>
#include <QStringView>

namespace
{
struct Definition {
    QStringView nom;
    QStringView source;
};

// Commands that give a table as it is.
constexpr Definition TABLES[] = {
    {u"StationMesureXGest", u"StationMesureXGest"},
    {u"StationMesureXCommune", u"StationMesureXCommune"},
    {u"StationHydroXGest", u"StationHydroXGest"},
    {u"StationHydroXCommune", u"StationHydroXCommune"},
    {u"StationPluvioXGest", u"StationPluvioXGest"},
    {u"StationPluvioXCommune", u"StationPluvioXCommune"},
    {u"StationQualite_StationHydro", u"Rattachement_hydro_ mesure"},
    {u"BVXCommune", u"BVXCommune"},
    {u"GrilleSEQ", u"GRILLE_SEQ"},
    {u"NormeAEP", u"NORME_AEP"},
    {u"Objectif", u"OBJECTIF"},
    {u"Objectif_PC", u"OBJECTIF"},
    {u"Fraction", u"FRACTION"},
    {u"Lieu_BV", u"LIEU_BASSIN_VERSANT"},
    {u"Table_UNITEREFERENCE", u"UNITEREFERENCE"},
    {u"Corresp_Intervenant", u"CORRESP_INTERVENANT"},
    {u"Indic_Agric", u"INDICATEUR_AGRICOLE"},
    {u"Indic_Non_Agric2", u"Indic_non_agricXMatiere_active"},
    {u"Indic_Non_Agric3", u"Indic_non_agricXReunion"},
    {u"Indic_Non_Agric4", u"Indic_non_agricXInstall"},
    {u"Temporaire", u"Table_temporaire"},
    {u"Temporaire_reunion", u"Table_temporaire_reunion"},
    {u"Temporaire_install", u"Table_temporaire_install"},
    {u"Temp_objectif", u"Temp_objectif"},
    {u"Temp_physico", u"Temp_mesure_physico"},
    {u"Temp_phyto", u"Temp_mesure_phyto"},
    {u"Temp_hydro_jour", u"Temp_mesure_hydro_jour"},
    {u"Temp_hydro_mois", u"Temp_mesure_hydro_mois"},
    {u"Temp_pluvio", u"Temp_mesure_pluvio"},
    {u"Temp_mesures_reseaux", u"Temp_mesures_reseaux"},
};

constexpr Definition REQUETES[] = {
    // Stations
    {u"Station", u"SELECT * FROM STATION_QUALITE ORDER BY CodeSandreStationM"},
    {u"Station_Qualité",
     u"SELECT CodeHydrog, CodeReseau, STATION_QUALITE.CodeSandreStationM AS CodeSandreStationM, "
     u"LOCALISATION.CdPoint AS CdPoint, CodeSSBV, CodeUsuelStationM, CommStationM, CoorXStationM, "
     u"CoorYStationM, CoorXStationM_L93, CoorYStationM_L93, CreationStationM, ImportBVStationM, "
     u"NatureStationM, NomStationM, NumBV, RiviereStationM, SituationStationM, SuperficieStationM, "
     u"LocalisationGlobaleStationM, LocalisationPreciseStationM "
     u"FROM STATION_QUALITE LEFT JOIN LOCALISATION "
     u"ON STATION_QUALITE.CodeSandreStationM = LOCALISATION.CodeSandreStationM "
     u"ORDER BY STATION_QUALITE.CodeSandreStationM"},
    {u"Station_Hydro",
     u"SELECT CodeHydroStationHM, CodeSandreStationHM, CodeStationHM, CoorXStationHM, CoorYStationHM, "
     u"EnServiceStationHM, IntituleStationHM, NumBV, SurfReelStationHM, TypeStationHM FROM STATION_HYDRO "
     u"ORDER BY CodeSandreStationHM, IntituleStationHM COLLATE FRANCAIS"},
    {u"Station_Pluvio",
     u"SELECT CodeStationPM, CoorXStationPM, CoorYStationPM, EnServiceStationPM, IntituleStationPM, NumBV, "
     u"TypeStationPM FROM STATION_PLUVIO ORDER BY CodeStationPM, IntituleStationPM COLLATE FRANCAIS"},
    {u"Table_LOCALISATION",
     u"SELECT CodeSandreStationM, CdPoint, CoorXPoint_L2E, CoorYPoint_L2E, CoorXPoint_L93, CoorYPoint_L93, "
     u"CdSupport FROM LOCALISATION ORDER BY CodeSandreStationM"},
    // Places
    {u"Commune", u"SELECT NomCommune, NumCommune, NumDepartement, SituationCommune FROM COMMUNE "
                 u"ORDER BY NomCommune COLLATE FRANCAIS, NumDepartement"},
    {u"Departement",
     u"SELECT NomDepartement, NumDepartement FROM DEPARTEMENT ORDER BY NomDepartement COLLATE FRANCAIS"},
    {u"BassinVersant", u"SELECT NomBV, NumBV, ObjBV, ProblématiqueBV, SuperfBV FROM BASSIN_VERSANT "
                       u"ORDER BY NomBV COLLATE FRANCAIS"},
    {u"Ss_BV", u"SELECT CodeSSBV, NomSSBV, NumBV, SuperfSSBV FROM SOUS_BASSIN_VERSANT "
               u"ORDER BY NomSSBV COLLATE FRANCAIS"},
    // Parameters, methods, networks
    {u"Parametre",
     u"SELECT CodeParam, NomParam, StatutParam, CommParam, [DéfParam], NatureParam, CodeGroupeParam, "
     u"PARAMETRE.CodeUnite, LibelleUnite, SymboleUnite FROM PARAMETRE INNER JOIN UNITEREFERENCE "
     u"ON PARAMETRE.CodeUnite = UNITEREFERENCE.CodeUnite ORDER BY NomParam COLLATE FRANCAIS"},
    {u"Parametre_PS", u"SELECT * FROM PARAMETRE_PHYTO ORDER BY NomParam COLLATE FRANCAIS"},
    {u"IMPORT_PAR_URF",
     u"SELECT IMPORT_PAR_URF.*, SymboleUnite FROM IMPORT_PAR_URF INNER JOIN UNITEREFERENCE "
     u"ON IMPORT_PAR_URF.CodeUnite = UNITEREFERENCE.CodeUnite ORDER BY IMPORT_PAR_URF.CodeParam, ISOVL"},
    {u"Methode",
     u"SELECT CodeMéthode, CommMéthode, NomMéthode FROM METHODE ORDER BY NomMéthode COLLATE FRANCAIS"},
    {u"Reseau", u"SELECT CodeReseau, FinaliteReseau, LibelleReseau FROM RESEAU_MESURE "
                u"ORDER BY LibelleReseau COLLATE FRANCAIS"},
    // One table of actors, read in three roles
    {u"Intervenant", u"SELECT Code, CodeSandreInterv, CommInterv, CPInterv, DépartPaysInterv, "
                     u"LibelleSandreInterv, NomInterv, RueInterv, StatutInterv, VilleInterv "
                     u"FROM INTERVENANT ORDER BY CodeSandreInterv"},
    {u"Laboratoire",
     u"SELECT Code, CodeSandreInterv AS CodeSandreLabo, CommInterv AS CommLabo, CPInterv AS CPLabo, "
     u"NomInterv AS NomLabo, RueInterv AS RueLabo, StatutInterv AS StatutLabo, VilleInterv AS VilleLabo, "
     u"LibelleSandreInterv AS LibelleSandreLabo FROM INTERVENANT ORDER BY CodeSandreInterv"},
    {u"Gestionnaire",
     u"SELECT Code, CodeSandreInterv AS CodeSandreGest, CommInterv AS CommGest, CPInterv AS CPGest, "
     u"DépartPaysInterv AS DépartPaysGest, LibelleSandreInterv AS LibelleSandreGest, NomInterv AS NomGest, "
     u"RueInterv AS RueGest, StatutInterv AS StatutGest, VilleInterv AS VilleGest "
     u"FROM INTERVENANT ORDER BY CodeSandreInterv"},
    {u"Preleveur",
     u"SELECT Code, CodeSandreInterv AS CodeSandrePrelev, CommInterv AS CommPrelev, CPInterv AS CPPrelev, "
     u"LibelleSandreInterv AS LibelleSandrePrelev, NomInterv AS NomPrelev, RueInterv AS RuePrelev, "
     u"StatutInterv AS StatutPrelev, VilleInterv AS VillePrelev FROM INTERVENANT ORDER BY CodeSandreInterv"},
    // Measures
    {u"Table_PRELEVEMENT", u"SELECT * FROM PRELEVEMENT ORDER BY NumPrel"},
    {u"Table_MESURE_PHYSICO", u"SELECT * FROM MESURE_PHYSICO ORDER BY NumPrel"},
    {u"Table_PRELEVEMENTRSX", u"SELECT * FROM PRELEVEMENTRSX ORDER BY NumPrel"},
    {u"Mesure_HM", u"SELECT * FROM MESURE_HYDRO ORDER BY DateMesureHM"},
    {u"Mesure_PM", u"SELECT * FROM MESURE_PLUVIO ORDER BY DateMesurePM"},
    // Indicators
    {u"Indic_Non_Agric",
     u"SELECT Annee, Code, DiagnCoursEau, InventLinRoutier, InventZones, LinCoursEntret, LinCoursRest, "
     u"LinDepart, LinNat, LinReel, LinTalus, LinVrai, LinVraiTotal, NbAgentFormCompl, NbAgentFormInit, "
     u"NbCollectZonage, NbComm, NbCommTech, NbDechargeARehab, NbDechargRehab, NbPartReunion, NbPulveDiagn, "
     u"NbPulveDos, NbReunion, QteMatDepart, QteMatNat, SurfTotaleZones, SurfZonesAmen, TotalComm, TotalPulve, "
     u"NbCollectEnZonage, NbTotInstallConf, NumBV FROM INDICATEUR_NON_AGRICOLE ORDER BY Annee"},
    {u"GestXMesure_physico",
     u"SELECT DISTINCT MESURE_PHYSICO.CodeSandreGest, INTERVENANT.CodeSandreInterv, INTERVENANT.NomInterv, "
     u"CodeSandreStationM FROM (((PRELEVEMENT INNER JOIN MESURE_PHYSICO "
     u"ON PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel) INNER JOIN PARAMETRE "
     u"ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) INNER JOIN INTERVENANT "
     u"ON MESURE_PHYSICO.CodeSandreGest = INTERVENANT.CodeSandreInterv) WHERE CodeGroupeParam<>'PS' "
     u"ORDER BY INTERVENANT.NomInterv COLLATE FRANCAIS"},
    {u"ReseauXMesure_physico",
     u"SELECT DISTINCT PRELEVEMENTRSX.CodeReseau, RESEAU_MESURE.LibelleReseau, "
     u"PRELEVEMENT.CodeSandreStationM FROM ((((PRELEVEMENTRSX INNER JOIN RESEAU_MESURE "
     u"ON PRELEVEMENTRSX.CodeReseau = RESEAU_MESURE.CodeReseau) INNER JOIN PRELEVEMENT "
     u"ON PRELEVEMENTRSX.NumPrel = PRELEVEMENT.NumPrel) INNER JOIN MESURE_PHYSICO "
     u"ON PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel) INNER JOIN PARAMETRE "
     u"ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) WHERE CodeGroupeParam<>'PS' "
     u"ORDER BY LibelleReseau COLLATE FRANCAIS"},
};

// Commands that exist for each of the two families of parameters; %1 is the test of CodeGroupeParam.
struct DefinitionDouble {
    QStringView nomPC;
    QStringView nomPS;
    QStringView source;
};

constexpr DefinitionDouble FAMILLES[] = {
    {u"Mesure_PC", u"Mesure_PS",
     u"SELECT PRELEVEMENT.NumPrel, CodeSandreStationM, CdPoint, DatePrel, HeurePrel, CdSupport, "
     u"CodeSandrePrelev, CodeSandreProd, Protocole, NumAnaPC, ResultatAnaPC, LD, LQ, LS, CodeRemarqueAnaPC, "
     u"LieuAnaPC, CommAnaPC, CommResAnaPC, SeuilAnaPC, CodeSandreLabo, CodeMethode, CodeSandreGest, "
     u"Cd_Fraction, MESURE_PHYSICO.CodeParam, NomParam, CodeGroupeParam, CodeUnite "
     u"FROM ((PRELEVEMENT INNER JOIN MESURE_PHYSICO ON PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel) "
     u"INNER JOIN PARAMETRE ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) "
     u"WHERE CodeGroupeParam%1 ORDER BY DatePrel"},
    {u"MESURES_PC_RSX", u"MESURES_PS_RSX",
     u"SELECT PRELEVEMENT.NumPrel, CodeSandreStationM, CdPoint, DatePrel, HeurePrel, CdSupport, "
     u"CodeSandrePrelev, CodeSandreProd, Protocole, NumAnaPC, ResultatAnaPC, LD, LQ, LS, CodeRemarqueAnaPC, "
     u"LieuAnaPC, CommAnaPC, CommResAnaPC, SeuilAnaPC, CodeSandreLabo, CodeMethode, CodeSandreGest, "
     u"Cd_Fraction, MESURE_PHYSICO.CodeParam, NomParam, SymboleUnite, CodeReseau "
     u"FROM ((((PRELEVEMENT INNER JOIN MESURE_PHYSICO ON PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel) "
     u"INNER JOIN PARAMETRE ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) "
     u"INNER JOIN UNITEREFERENCE ON PARAMETRE.CodeUnite = UNITEREFERENCE.CodeUnite) "
     u"LEFT JOIN PRELEVEMENTRSX ON PRELEVEMENT.NumPrel = PRELEVEMENTRSX.NumPrel) "
     u"WHERE CodeGroupeParam%1 ORDER BY DatePrel"},
    {u"Protocole", u"Protocole_PS",
     u"SELECT DISTINCT Protocole "
     u"FROM ((PRELEVEMENT INNER JOIN MESURE_PHYSICO ON PRELEVEMENT.NumPrel = MESURE_PHYSICO.NumPrel) "
     u"INNER JOIN PARAMETRE ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) "
     u"WHERE Protocole IS NOT NULL AND CodeGroupeParam%1 ORDER BY Protocole"},
    {u"Parametres_Mesures_PC", u"Parametres_Mesures_PS",
     u"SELECT DISTINCT MESURE_PHYSICO.CodeParam, PARAMETRE.NomParam FROM MESURE_PHYSICO, PARAMETRE "
     u"WHERE MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam AND PARAMETRE.CodeGroupeParam%1 "
     u"ORDER BY PARAMETRE.NomParam COLLATE FRANCAIS"},
    {u"GestMesure", u"GestMesure_PS",
     u"SELECT DISTINCT MESURE_PHYSICO.CodeSandreGest, INTERVENANT.NomInterv "
     u"FROM ((MESURE_PHYSICO INNER JOIN INTERVENANT "
     u"ON MESURE_PHYSICO.CodeSandreGest=INTERVENANT.CodeSandreInterv) "
     u"INNER JOIN PARAMETRE ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) "
     u"WHERE CodeGroupeParam%1 "
     u"ORDER BY INTERVENANT.NomInterv COLLATE FRANCAIS, MESURE_PHYSICO.CodeSandreGest"},
};

struct Commande {
    QString nom;
    QString source;
};

// By the name in small letters.
const QHash<QString, Commande> &commandes()
{
    static const QHash<QString, Commande> liste = [] {
        QHash<QString, Commande> l;
        const auto ajouter = [&l](const QString &nom, const QString &source) {
            l.insert(nom.toCaseFolded(), {nom, source});
        };
        for (const Definition &d : TABLES)
            ajouter(d.nom.toString(), QStringLiteral("SELECT * FROM [%1]").arg(d.source.toString()));
        for (const Definition &d : REQUETES)
            ajouter(d.nom.toString(), d.source.toString());
        for (const DefinitionDouble &d : FAMILLES) {
            ajouter(d.nomPC.toString(), d.source.toString().arg(QStringLiteral("<>'PS'")));
            ajouter(d.nomPS.toString(), d.source.toString().arg(QStringLiteral("='PS'")));
        }
        return l;
    }();
    return liste;
}
} // namespace

QStringList Commandes::noms()
{
    QStringList liste;
    for (const Commande &c : commandes())
        liste << c.nom;
    liste.sort(Qt::CaseInsensitive);
    return liste;
}

QString Commandes::source(const QString &nom)
{
    return commandes().value(nom.toCaseFolded()).source;
}

// Mesure_PC and Mesure_PS give a row for each result whose parameter is of the family and whose sampling is there. The
// index of parameters counts the first; from that are taken away the results without a sampling, which are looked for in
// the gaps between sampling numbers: there are few gaps, and mostly nothing in them.
QString Commandes::comptage(const QString &nom)
{
    QString famille;
    if (nom.compare(QLatin1String("Mesure_PC"), Qt::CaseInsensitive) == 0)
        famille = QStringLiteral("<>'PS'");
    else if (nom.compare(QLatin1String("Mesure_PS"), Qt::CaseInsensitive) == 0)
        famille = QStringLiteral("='PS'");
    else
        return QStringLiteral("SELECT count(*) FROM (%1)").arg(source(nom));
    return QStringLiteral(
               "WITH ORPHELINS AS ("
               "SELECT CodeParam FROM MESURE_PHYSICO WHERE NumPrel IS NULL "
               "UNION ALL SELECT CodeParam FROM MESURE_PHYSICO "
               "WHERE NumPrel <= coalesce((SELECT min(NumPrel) FROM PRELEVEMENT) - 1, 9223372036854775807) "
               "UNION ALL SELECT CodeParam FROM MESURE_PHYSICO "
               "WHERE NumPrel > (SELECT max(NumPrel) FROM PRELEVEMENT) "
               "UNION ALL SELECT M.CodeParam FROM ("
               "SELECT NumPrel AS DEBUT, "
               "(SELECT min(S.NumPrel) FROM PRELEVEMENT S WHERE S.NumPrel > P.NumPrel) AS FIN "
               "FROM PRELEVEMENT P "
               "WHERE NOT EXISTS (SELECT 1 FROM PRELEVEMENT V WHERE V.NumPrel = P.NumPrel + 1)) "
               "CROSS JOIN MESURE_PHYSICO M WHERE M.NumPrel > DEBUT AND M.NumPrel < FIN) "
               "SELECT coalesce((SELECT sum("
               "(SELECT count(*) FROM MESURE_PHYSICO M WHERE M.CodeParam = PARAMETRE.CodeParam)) "
               "FROM PARAMETRE WHERE CodeGroupeParam%1), 0) "
               "- (SELECT count(*) FROM ORPHELINS INNER JOIN PARAMETRE "
               "ON ORPHELINS.CodeParam = PARAMETRE.CodeParam WHERE CodeGroupeParam%1)")
        .arg(famille);
}
