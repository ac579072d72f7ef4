// The tables, columns, keys and indexes of a study.
#include "database/Schema.h"

using namespace Schema;

namespace
{
Colonne texte(QStringView nom, int longueur)
{
    return {nom.toString(), Genre::Texte, longueur};
}

Colonne col(QStringView nom, Genre genre)
{
    return {nom.toString(), genre};
}

Colonne reel(QStringView nom)
{
    return col(nom, Genre::Reel);
}

Colonne entier(QStringView nom)
{
    return col(nom, Genre::Entier);
}

Colonne jour(QStringView nom)
{
    return col(nom, Genre::Date);
}

Colonne heure(QStringView nom)
{
    return col(nom, Genre::Heure);
}

// A number that the store gives: the table's key.
Colonne numero(QStringView nom)
{
    Colonne c = col(nom, Genre::NumeroAuto);
    c.cle = true;
    return c;
}

Colonne cle(Colonne c)
{
    c.cle = true;
    c.nonNul = true;
    return c;
}

Colonne obligatoire(Colonne c)
{
    c.nonNul = true;
    return c;
}

Colonne unique(Colonne c)
{
    c.unique = true;
    return c;
}

void ajouter(QList<Table> &liste, QStringView nom, const QList<Colonne> &colonnes, QStringView nomCle = {})
{
    liste.append({nom.toString(), colonnes, nomCle.toString()});
}

void stations(QList<Table> &l)
{
    ajouter(l, u"STATION_QUALITE",
            {cle(texte(u"CodeSandreStationM", 8)),
             texte(u"CodeUsuelStationM", 50),
             texte(u"NomStationM", 80),
             texte(u"RiviereStationM", 255),
             jour(u"CreationStationM"),
             texte(u"NatureStationM", 1),
             texte(u"SituationStationM", 50),
             reel(u"CoorXStationM"),
             reel(u"CoorYStationM"),
             reel(u"CoorXStationM_L93"),
             reel(u"CoorYStationM_L93"),
             texte(u"CodeHydrog", 50),
             texte(u"CodeReseau", 10),
             texte(u"CommStationM", 50),
             entier(u"NumBV"),
             entier(u"CodeSSBV"),
             reel(u"SuperficieStationM"),
             texte(u"ImportBVStationM", 50),
             texte(u"FinaliteStationM", 70),
             texte(u"LocalisationGlobaleStationM", 60),
             texte(u"LocalisationPreciseStationM", 80),
             entier(u"AltPointCarStationM"),
             entier(u"Mois1EtiageStationM"),
             reel(u"PkPointCarStationM"),
             jour(u"ArretActiviteStationM"),
             jour(u"DateMAJStationM"),
             texte(u"ObtentionCoorStationM", 1),
             col(u"ALT_NO3", Genre::Octet),
             col(u"CONC_MOY", Genre::Simple),
             col(u"CONC_MAX", Genre::Simple),
             col(u"CONC_AN1", Genre::Simple),
             col(u"CONC_AN2", Genre::Simple),
             col(u"CONC_AN3", Genre::Simple),
             texte(u"CONC", 50)});
    ajouter(l, u"LOCALISATION",
            {texte(u"CodeSandreStationM", 8), texte(u"CdPoint", 3), reel(u"CoorXPoint_L2E"),
             reel(u"CoorYPoint_L2E"), reel(u"CoorXPoint_L93"), reel(u"CoorYPoint_L93"),
             texte(u"CdSupport", 3)});
    ajouter(l, u"STATION_HYDRO",
            {cle(texte(u"CodeStationHM", 8)), texte(u"CodeSandreStationHM", 8),
             texte(u"CodeHydroStationHM", 50), texte(u"IntituleStationHM", 80), texte(u"TypeStationHM", 50),
             reel(u"CoorXStationHM"), reel(u"CoorYStationHM"), jour(u"EnServiceStationHM"),
             reel(u"SurfReelStationHM"), entier(u"NumBV")});
    ajouter(l, u"STATION_PLUVIO",
            {cle(texte(u"CodeStationPM", 8)), texte(u"IntituleStationPM", 80), texte(u"TypeStationPM", 50),
             reel(u"CoorXStationPM"), reel(u"CoorYStationPM"), jour(u"EnServiceStationPM"),
             entier(u"NumBV")});
}

void liens(QList<Table> &l)
{
    const Colonne stationM = texte(u"CodeSandreStationM", 8);
    const Colonne stationHM = texte(u"CodeStationHM", 8);
    const Colonne stationPM = texte(u"CodeStationPM", 8);
    const Colonne gest = texte(u"CodeSandreGest", 17);
    const Colonne commune = texte(u"NumCommune", 5);
    ajouter(l, u"StationMesureXGest", {stationM, gest});
    ajouter(l, u"StationMesureXCommune", {stationM, commune});
    ajouter(l, u"StationHydroXGest", {stationHM, gest});
    ajouter(l, u"StationHydroXCommune", {stationHM, commune});
    ajouter(l, u"StationPluvioXGest", {stationPM, gest});
    ajouter(l, u"StationPluvioXCommune", {stationPM, commune});
    ajouter(l, u"BVXCommune", {entier(u"NumBV"), commune});
    ajouter(l, u"Rattachement_hydro_ mesure", {stationHM, stationM});
}

void mesures(QList<Table> &l)
{
    ajouter(l, u"PRELEVEMENT",
            {numero(u"NumPrel"), texte(u"CodeSandreStationM", 8), texte(u"CdPoint", 3), jour(u"DatePrel"),
             heure(u"HeurePrel"), texte(u"CdSupport", 3), texte(u"CodeSandrePrelev", 17),
             texte(u"CodeSandreProd", 17), texte(u"Protocole", 255)});
    ajouter(l, u"MESURE_PHYSICO",
            {numero(u"NumAnaPC"), entier(u"NumPrel"), texte(u"CodeParam", 5), reel(u"ResultatAnaPC"),
             texte(u"CodeRemarqueAnaPC", 2), reel(u"LD"), reel(u"LQ"), reel(u"LS"), texte(u"SeuilAnaPC", 50),
             texte(u"LieuAnaPC", 50), texte(u"CommAnaPC", 255), texte(u"CommResAnaPC", 255),
             texte(u"CodeSandreLabo", 17), texte(u"CodeMethode", 5), texte(u"CodeSandreGest", 17),
             texte(u"Cd_Fraction", 3)});
    ajouter(l, u"PRELEVEMENTRSX", {entier(u"NumPrel"), texte(u"CodeReseau", 10)});
    ajouter(l, u"MESURE_HYDRO",
            {numero(u"NumMesureHM"), texte(u"CodeStationHM", 8), jour(u"DateMesureHM"),
             heure(u"HeureMesureHM"), reel(u"DebitJourMesureHM"), reel(u"DebitMoisMesureHM")});
    ajouter(l, u"MESURE_PLUVIO",
            {numero(u"NumMesurePM"), texte(u"CodeStationPM", 8), jour(u"DateMesurePM"), reel(u"JourMesurePM"),
             texte(u"CommMesurePM", 255), texte(u"CodeSandreGest", 17)});
}

void referentiels(QList<Table> &l)
{
    ajouter(l, u"PARAMETRE",
            {cle(texte(u"CodeParam", 5)), texte(u"NomParam", 255), texte(u"StatutParam", 20),
             texte(u"CommParam", 255), col(u"DéfParam", Genre::Memo), texte(u"NatureParam", 20),
             texte(u"CodeGroupeParam", 2), texte(u"CodeUnite", 5)});
    ajouter(l, u"UNITEREFERENCE",
            {cle(texte(u"CodeUnite", 5)), texte(u"SymboleUnite", 50), texte(u"LibelleUnite", 100),
             texte(u"StatutUnite", 20)});
    ajouter(l, u"IMPORT_PAR_URF",
            {texte(u"CodeParam", 5), texte(u"CodeUnite", 5), obligatoire(col(u"ISOVL", Genre::OuiNon))});
    ajouter(l, u"FRACTION",
            {cle(texte(u"CD_FRACTION", 3)), obligatoire(texte(u"LB_NOM_FRACTION", 50)),
             texte(u"LB_STATUT_FRACTION", 20), col(u"DT_CRE_FRACTION", Genre::DateHeure),
             col(u"DT_MAJ_FRACTION", Genre::DateHeure), texte(u"LB_AUTEUR_FRACTION", 50),
             col(u"CM_FRACTION", Genre::Memo), texte(u"CD_NATANA", 1)},
            u"FractionKey");
    ajouter(l, u"METHODE",
            {cle(texte(u"CodeMéthode", 5)), texte(u"NomMéthode", 255), texte(u"CommMéthode", 255)});
    ajouter(l, u"RESEAU_MESURE",
            {cle(texte(u"CodeReseau", 10)), texte(u"LibelleReseau", 50), texte(u"FinaliteReseau", 255)});
    ajouter(l, u"INTERVENANT",
            {numero(u"Code"), unique(texte(u"CodeSandreInterv", 17)), texte(u"NomInterv", 115),
             texte(u"LibelleSandreInterv", 255), texte(u"StatutInterv", 20), texte(u"RueInterv", 255),
             texte(u"VilleInterv", 35), texte(u"CPInterv", 10), texte(u"DépartPaysInterv", 50),
             texte(u"CommInterv", 255)});
    ajouter(l, u"CORRESP_INTERVENANT",
            {obligatoire(texte(u"CodeSandreAncien", 17)), obligatoire(texte(u"CodeSiretNouveau", 17))});
    ajouter(l, u"DEPARTEMENT", {cle(texte(u"NumDepartement", 3)), texte(u"NomDepartement", 50)});
    ajouter(l, u"COMMUNE",
            {cle(texte(u"NumCommune", 5)), texte(u"NomCommune", 35), texte(u"NumDepartement", 3),
             texte(u"SituationCommune", 50)});
    ajouter(l, u"BASSIN_VERSANT",
            {numero(u"NumBV"), texte(u"NomBV", 50), texte(u"ObjBV", 255), texte(u"ProblématiqueBV", 255),
             reel(u"SuperfBV")});
    ajouter(l, u"SOUS_BASSIN_VERSANT",
            {numero(u"CodeSSBV"), texte(u"NomSSBV", 50), entier(u"NumBV"), reel(u"SuperfSSBV")});
    ajouter(l, u"LIEU_BASSIN_VERSANT", {texte(u"Bassin_versant", 50)});
    ajouter(l, u"OBJECTIF",
            {entier(u"NumBV"), texte(u"CodeParam", 5), texte(u"CD_FRACTION", 3), reel(u"MoyObjf"),
             reel(u"MaxObjf")});
    ajouter(l, u"NORME_AEP",
            {numero(u"CodeNorme"), texte(u"CodeParam", 5), texte(u"CD_FRACTION", 3), reel(u"ValeurNorme")});
    ajouter(l, u"GRILLE_SEQ",
            {numero(u"CodeSEQ"), texte(u"CodeParam", 5), reel(u"Valeur1SEQ"), reel(u"Valeur2SEQ"),
             reel(u"Valeur3SEQ"), reel(u"Valeur4SEQ"), reel(u"Valeur3BisSEQ"), reel(u"Valeur4BisSEQ")});
    ajouter(l, u"COULEURS_GRAPH", {entier(u"ordre"), entier(u"R"), entier(u"G"), entier(u"B")});
}

void indicateurs(QList<Table> &l)
{
    const Colonne annee = entier(u"Annee");
    const Colonne bassin = entier(u"NumBV");
    const auto texte255 = [](QStringView nom) { return texte(nom, 255); };
    QList<Colonne> colonnes{annee, entier(u"Code"), bassin};
    for (QStringView nom :
         std::initializer_list<QStringView>{u"DiagnCoursEau", u"InventLinRoutier", u"InventZones"})
        colonnes.append(texte(nom, 3)); // "Oui" or "Non"
    for (QStringView nom :
         {u"LinCoursEntret",    u"LinCoursRest",    u"LinDepart",     u"LinNat",           u"LinReel",
          u"LinTalus",          u"LinVrai",         u"LinVraiTotal",  u"NbAgentFormCompl", u"NbAgentFormInit",
          u"NbCollectZonage",   u"NbComm",          u"NbCommTech",    u"NbDechargeARehab", u"NbDechargRehab",
          u"NbPartReunion",     u"NbPulveDiagn",    u"NbPulveDos",    u"NbReunion",        u"QteMatDepart",
          u"QteMatNat",         u"SurfTotaleZones", u"SurfZonesAmen", u"TotalComm",        u"TotalPulve",
          u"NbCollectEnZonage", u"NbTotInstallConf"})
        colonnes.append(reel(nom));
    ajouter(l, u"INDICATEUR_NON_AGRICOLE", colonnes);
    ajouter(l, u"Indic_non_agricXMatiere_active",
            {annee, bassin, texte(u"Commune", 35), reel(u"Glyphosate"), reel(u"Aminotriazole"),
             reel(u"Diuron"), reel(u"Oxadiazon"), reel(u"Toutes_matières")});
    ajouter(l, u"Indic_non_agricXReunion", {annee, bassin, reel(u"Nb"), reel(u"Part")});
    ajouter(l, u"Indic_non_agricXInstall",
            {annee, bassin, reel(u"Install_conformes"), reel(u"Nb_Install_rehab")});
    ajouter(l, u"INDICATEUR_AGRICOLE", {annee, bassin});
    ajouter(l, u"Table_temporaire",
            {texte255(u"Champ1"), texte255(u"Champ2"), texte255(u"Champ3"), texte255(u"Champ4"),
             texte255(u"Champ5"), texte255(u"Champ6")});
    ajouter(l, u"Table_temporaire_reunion", {texte255(u"Champ1"), texte255(u"Champ2")});
    ajouter(l, u"Table_temporaire_install", {texte255(u"Champ1"), texte255(u"Champ2"), texte255(u"Champ3")});
}

void systeme(QList<Table> &l)
{
    ajouter(l, u"APPLICATIONPROPERTIES",
            {obligatoire(texte(u"PROPERTYNAME", 50)), obligatoire(texte(u"PROPERTYVALUE", 50))});
    ajouter(l, u"TECHNIQUE", {texte(u"VERSION", 255)});
    ajouter(l, u"MAPINFO_MAPCATALOG",
            {reel(u"SPATIALTYPE"), texte(u"TABLENAME", 32), texte(u"OWNERNAME", 32),
             texte(u"SPATIALCOLUMN", 32), reel(u"DB_X_LL"), reel(u"DB_Y_LL"), reel(u"DB_X_UR"),
             reel(u"DB_Y_UR"), texte(u"COORDINATESYSTEM", 254), texte(u"SYMBOL", 254),
             texte(u"XCOLUMNNAME", 32), texte(u"YCOLUMNNAME", 32), entier(u"RENDITIONTYPE"),
             texte(u"RENDITIONCOLUMN", 32), texte(u"RENDITIONTABLE", 32)});
}

void travail(QList<Table> &l)
{
    const auto grille = [](const QList<QStringView> &avant, const QList<QStringView> &apres) {
        QList<Colonne> colonnes{texte(u"CodeSandreStationM", 255), texte(u"CodeUsuelStationM", 255),
                                jour(u"DatePrel"), heure(u"HeurePrel")};
        for (const auto &noms : {avant, apres})
            for (QStringView nom : noms)
                colonnes.append(texte(nom, 255));
        return colonnes;
    };
    const QList<QStringView> communes{u"Parametre",   u"Resultat", u"Unite",     u"CodeRemarque",
                                      u"CD_FRACTION", u"Methode",  u"Preleveur", u"Laboratoire",
                                      u"Gest",        u"Reseau",   u"Autre"};
    ajouter(l, u"Temp_mesure_physico",
            grille(communes, {u"Lieu", u"CommAna", u"CommRes", u"Seuil", u"Protocole", u"LD", u"LQ", u"LS"}));
    ajouter(l, u"Temp_mesure_phyto",
            grille(communes, {u"Comment", u"Seuil", u"Protocole", u"LD", u"LQ", u"LS"}));
    ajouter(l, u"Temp_mesure_hydro_jour", {jour(u"DateMesure"), heure(u"HeureMesure"), reel(u"DebitJour")});
    ajouter(l, u"Temp_mesure_hydro_mois", {jour(u"DateMesure"), reel(u"DebitMois")});
    ajouter(l, u"Temp_mesure_pluvio", {jour(u"DateMesure"), reel(u"Resultat"), texte(u"Comment", 255)});
    // CodeReseau holds the labels of all networks of a sampling, joined: no limit.
    ajouter(l, u"Temp_mesures_reseaux", {entier(u"NumPrel"), col(u"CodeReseau", Genre::Memo)});
    ajouter(l, u"Temp_objectif",
            {texte(u"Parametre", 255), reel(u"MoyObjf"), reel(u"MaxObjf"), texte(u"Unite", 50),
             texte(u"CD_FRACTION", 50)});
}
} // namespace

const QList<Table> &Schema::tables()
{
    static const QList<Table> liste = [] {
        QList<Table> l;
        stations(l);
        liens(l);
        mesures(l);
        referentiels(l);
        indicateurs(l);
        systeme(l);
        travail(l);
        return l;
    }();
    return liste;
}

const QList<CleEtrangere> &Schema::clesEtrangeres()
{
    static const QList<CleEtrangere> liste{
        {QStringLiteral("PARAMETREMESURE_PHYSICO"), QStringLiteral("MESURE_PHYSICO"),
         QStringLiteral("CodeParam"), QStringLiteral("PARAMETRE"), QStringLiteral("CodeParam")},
        {QStringLiteral("INTERVENANTMESURE_PHYSICO"), QStringLiteral("MESURE_PHYSICO"),
         QStringLiteral("CodeSandreGest"), QStringLiteral("INTERVENANT"), QStringLiteral("CodeSandreInterv")},
        {QStringLiteral("PRELEVEMENTPRELEVEMENTRSX"), QStringLiteral("PRELEVEMENTRSX"),
         QStringLiteral("NumPrel"), QStringLiteral("PRELEVEMENT"), QStringLiteral("NumPrel"), true},
    };
    return liste;
}

// One index for each way in which the program enters a big table, and no more: an import writes row by row, and each
// index is one more page of every commit. A child of a foreign key has one that begins with its column.
const QList<Index> &Schema::index()
{
    static const QList<Index> liste = [] {
        QList<Index> l;
        const auto ajouterIndex = [&l](const char *nom, const char *table,
                                       std::initializer_list<const char *> colonnes, const char *effectifs,
                                       const char *condition = "") {
            QStringList noms;
            for (const char *colonne : colonnes)
                noms << QString::fromLatin1(colonne);
            l.append({QString::fromLatin1(nom), QString::fromLatin1(table), noms,
                      QString::fromLatin1(condition), QString::fromLatin1(effectifs)});
        };
        ajouterIndex("IX_PRELEVEMENT_STATION", "PRELEVEMENT", {"CodeSandreStationM", "DatePrel", "HeurePrel"},
                     "40000 400 2 1");
        ajouterIndex("IX_MESURE_PHYSICO_PREL", "MESURE_PHYSICO", {"NumPrel", "CodeParam"}, "1000000 25 1");
        ajouterIndex("IX_MESURE_PHYSICO_PARAM", "MESURE_PHYSICO", {"CodeParam"}, "1000000 5000");
        // With the parameter, which tells pesticides apart: the managers and the comments that a screen offers are
        // found by jumping from pair to pair, whatever the number of results.
        ajouterIndex("IX_MESURE_PHYSICO_GEST", "MESURE_PHYSICO", {"CodeSandreGest", "CodeParam"},
                     "1000000 100000 5000");
        ajouterIndex("IX_MESURE_PHYSICO_COMM", "MESURE_PHYSICO", {"CommResAnaPC", "CodeParam"},
                     "50000 500 50", "CommResAnaPC <> ''");
        ajouterIndex("IX_PRELEVEMENTRSX_PREL", "PRELEVEMENTRSX", {"NumPrel", "CodeReseau"}, "60000 2 1");
        ajouterIndex("IX_PRELEVEMENTRSX_RESEAU", "PRELEVEMENTRSX", {"CodeReseau"}, "60000 5000");
        ajouterIndex("IX_MESURE_HYDRO_STATION", "MESURE_HYDRO",
                     {"CodeStationHM", "DateMesureHM", "HeureMesureHM"}, "100000 5000 1 1");
        ajouterIndex("IX_MESURE_PLUVIO_STATION", "MESURE_PLUVIO",
                     {"CodeStationPM", "DateMesurePM", "CodeSandreGest"}, "50000 5000 2 1");
        ajouterIndex("IX_LOCALISATION_STATION", "LOCALISATION", {"CodeSandreStationM"}, "");
        ajouterIndex("IX_IMPORT_PAR_URF_PARAM", "IMPORT_PAR_URF", {"CodeParam"}, "");
        ajouterIndex("IX_OBJECTIF_BASSIN", "OBJECTIF", {"NumBV", "CodeParam"}, "");
        return l;
    }();
    return liste;
}
