#include "Demonstration.h"

#include "Campagnes.h"
#include "Insertion.h"
#include "platform/Arrondi.h"
#include "TableCsv.h"

#include <QSet>

namespace
{
const QDate PREMIER_JOUR(2008, 1, 1);
const QDate DERNIER_JOUR(2018, 12, 31);
constexpr int BASSIN = 1;
const char *const NOM_BASSIN = "La Landrezelle";
const char *const GESTIONNAIRE_PLUIE = "99900000100011";

void remplirLien(const QSqlDatabase &base, const QString &table, const QStringList &colonnes,
                 const QString &cle, const QStringList &valeurs)
{
    Insertion lien(base, table, colonnes);
    for (const QString &valeur : valeurs)
        lien.ligne({cle, valeur});
}

void remplirBassin(const QSqlDatabase &base, const QString &dossier)
{
    const QString nom = QString::fromUtf8(NOM_BASSIN);
    Insertion(base, "BASSIN_VERSANT", {"NumBV", "NomBV", "ObjBV", "ProblématiqueBV", "SuperfBV"})
        .ligne({BASSIN, nom, "Retrouver 25 mg/l de nitrates en moyenne à l'exutoire",
                "Nitrates, pesticides, eutrophisation de la retenue d'eau potable", 178.4});
    Insertion(base, "LIEU_BASSIN_VERSANT", {"Bassin_versant"}).ligne({nom});

    const TableCsv sousBassins(dossier + "/sous_bassins.csv");
    Insertion sousBassin(base, "SOUS_BASSIN_VERSANT", {"CodeSSBV", "NomSSBV", "NumBV", "SuperfSSBV"});
    for (int i = 0; i < sousBassins.lignes(); ++i)
        sousBassin.ligne({sousBassins.nombre(i, "code"), sousBassins.texte(i, "nom"), BASSIN,
                          sousBassins.nombre(i, "superficie_km2")});

    const TableCsv communes(dossier + "/communes.csv");
    Insertion commune(base, "COMMUNE", {"NumCommune", "NomCommune", "NumDepartement", "SituationCommune"});
    Insertion lien(base, "BVXCommune", {"NumBV", "NumCommune"});
    for (int i = 0; i < communes.lignes(); ++i) {
        commune.ligne({communes.texte(i, "code"), communes.texte(i, "nom"), communes.texte(i, "departement"),
                       communes.texte(i, "situation")});
        lien.ligne({BASSIN, communes.texte(i, "code")});
    }

    const TableCsv objectifs(dossier + "/objectifs.csv");
    Insertion objectif(base, "OBJECTIF", {"NumBV", "CodeParam", "CD_FRACTION", "MoyObjf", "MaxObjf"});
    for (int i = 0; i < objectifs.lignes(); ++i)
        objectif.ligne({BASSIN, objectifs.texte(i, "parametre"), objectifs.texte(i, "fraction"),
                        objectifs.nombreOuNul(i, "moyen"), objectifs.nombreOuNul(i, "maximum")});
}

void remplirActeurs(const QSqlDatabase &base, const QString &dossier)
{
    const TableCsv intervenants(dossier + "/intervenants.csv");
    Insertion intervenant(base, "INTERVENANT",
                          {"CodeSandreInterv", "NomInterv", "LibelleSandreInterv", "StatutInterv",
                           "RueInterv", "VilleInterv", "CPInterv", "DépartPaysInterv", "CommInterv"});
    for (int i = 0; i < intervenants.lignes(); ++i)
        intervenant.ligne({intervenants.texte(i, "code"), intervenants.texte(i, "nom"),
                           intervenants.valeur(i, "libelle"), intervenants.texte(i, "statut"),
                           intervenants.valeur(i, "rue"), intervenants.texte(i, "ville"),
                           intervenants.texte(i, "cp"), intervenants.texte(i, "departement"),
                           intervenants.texte(i, "commentaire")});
    const TableCsv reseaux(dossier + "/reseaux.csv");
    Insertion reseau(base, "RESEAU_MESURE", {"CodeReseau", "LibelleReseau", "FinaliteReseau"});
    for (int i = 0; i < reseaux.lignes(); ++i)
        reseau.ligne({reseaux.texte(i, "code"), reseaux.texte(i, "libelle"), reseaux.valeur(i, "finalite")});
    const TableCsv methodes(dossier + "/methodes.csv");
    Insertion methode(base, "METHODE", {"CodeMéthode", "NomMéthode", "CommMéthode"});
    for (int i = 0; i < methodes.lignes(); ++i)
        methode.ligne(
            {methodes.texte(i, "code"), methodes.texte(i, "nom"), methodes.texte(i, "commentaire")});
}

void remplirStations(const QSqlDatabase &base, const QString &dossier)
{
    const TableCsv t(dossier + "/stations.csv");
    Insertion station(base, "STATION_QUALITE",
                      {"CodeSandreStationM",
                       "CodeUsuelStationM",
                       "NomStationM",
                       "RiviereStationM",
                       "CreationStationM",
                       "NatureStationM",
                       "SituationStationM",
                       "CoorXStationM",
                       "CoorYStationM",
                       "CoorXStationM_L93",
                       "CoorYStationM_L93",
                       "CodeHydrog",
                       "CodeReseau",
                       "CommStationM",
                       "NumBV",
                       "CodeSSBV",
                       "SuperficieStationM",
                       "FinaliteStationM",
                       "LocalisationGlobaleStationM",
                       "LocalisationPreciseStationM",
                       "AltPointCarStationM",
                       "Mois1EtiageStationM",
                       "PkPointCarStationM",
                       "ArretActiviteStationM",
                       "DateMAJStationM",
                       "ObtentionCoorStationM"});
    Insertion point(base, "LOCALISATION",
                    {"CodeSandreStationM", "CdPoint", "CoorXPoint_L2E", "CoorYPoint_L2E", "CoorXPoint_L93",
                     "CoorYPoint_L93", "CdSupport"});
    Insertion rattachement(base, "Rattachement_hydro_ mesure", {"CodeStationHM", "CodeSandreStationM"});
    for (int i = 0; i < t.lignes(); ++i) {
        const QString code = t.texte(i, "code");
        const double x = t.nombre(i, "x_l2e"), y = t.nombre(i, "y_l2e");
        const double x93 = t.nombre(i, "x_l93"), y93 = t.nombre(i, "y_l93");
        station.ligne({code,
                       t.valeur(i, "usuel"),
                       t.texte(i, "nom"),
                       t.texte(i, "riviere"),
                       t.valeur(i, "creation"),
                       t.texte(i, "nature"),
                       t.texte(i, "situation"),
                       x,
                       y,
                       x93,
                       y93,
                       t.valeur(i, "code_hydrographique"),
                       t.valeur(i, "reseau"),
                       t.valeur(i, "commentaire"),
                       BASSIN,
                       t.nombre(i, "sous_bassin"),
                       t.nombre(i, "superficie_km2"),
                       t.valeur(i, "finalite"),
                       t.valeur(i, "localisation"),
                       t.valeur(i, "lieu_dit"),
                       t.nombreOuNul(i, "altitude_m"),
                       t.nombreOuNul(i, "mois_etiage"),
                       t.nombreOuNul(i, "pk"),
                       t.valeur(i, "arret"),
                       "2018-12-31",
                       "2"});
        point.ligne({code, "031", x, y, x93, y93, "3"});
        if (!t.texte(i, "station_hydro").isEmpty())
            rattachement.ligne({t.texte(i, "station_hydro"), code});
        remplirLien(base, "StationMesureXCommune", {"CodeSandreStationM", "NumCommune"}, code,
                    t.liste(i, "communes"));
        remplirLien(base, "StationMesureXGest", {"CodeSandreStationM", "CodeSandreGest"}, code,
                    t.liste(i, "gestionnaires"));
    }
}

QSet<QDate> joursSansDebit(const QString &dossier, const QString &station)
{
    QSet<QDate> jours;
    const TableCsv t(dossier + "/debits_manquants.csv");
    for (int i = 0; i < t.lignes(); ++i) {
        const QDate fin = QDate::fromString(t.texte(i, "fin"), Qt::ISODate);
        if (t.texte(i, "station") == station)
            for (QDate j = QDate::fromString(t.texte(i, "debut"), Qt::ISODate); j <= fin; j = j.addDays(1))
                jours << j;
    }
    return jours;
}

// Daily flows; and the mean of each month that has all its days, on the first of the month with a null time.
void remplirDebits(const QSqlDatabase &base, const QString &dossier, const Campagnes &campagnes)
{
    const TableCsv t(dossier + "/stations_hydro.csv");
    Insertion station(base, "STATION_HYDRO",
                      {"CodeStationHM", "CodeSandreStationHM", "CodeHydroStationHM", "IntituleStationHM",
                       "TypeStationHM", "CoorXStationHM", "CoorYStationHM", "EnServiceStationHM",
                       "SurfReelStationHM", "NumBV"});
    Insertion mesure(
        base, "MESURE_HYDRO",
        {"CodeStationHM", "DateMesureHM", "HeureMesureHM", "DebitJourMesureHM", "DebitMoisMesureHM"});
    for (int i = 0; i < t.lignes(); ++i) {
        const QString code = t.texte(i, "code");
        station.ligne({code, code, code, t.texte(i, "intitule"), t.texte(i, "type"), t.nombre(i, "x_l2e"),
                       t.nombre(i, "y_l2e"), t.texte(i, "service"), t.nombre(i, "superficie_km2"), BASSIN});
        remplirLien(base, "StationHydroXCommune", {"CodeStationHM", "NumCommune"}, code,
                    t.liste(i, "communes"));
        remplirLien(base, "StationHydroXGest", {"CodeStationHM", "CodeSandreGest"}, code,
                    t.liste(i, "gestionnaires"));

        const QSet<QDate> manquants = joursSansDebit(dossier, code);
        double somme = 0;
        int jours = 0;
        for (QDate date = PREMIER_JOUR; date <= DERNIER_JOUR; date = date.addDays(1)) {
            if (date.day() == 1) {
                somme = 0;
                jours = 0;
            }
            if (!manquants.contains(date)) {
                const double debit = campagnes.debit_l_s(code, date);
                mesure.ligne({code, date.toString(Qt::ISODate), QVariant(), debit, QVariant()});
                somme += debit;
                ++jours;
            }
            if (date.day() == date.daysInMonth() && jours == date.daysInMonth())
                mesure.ligne({code, QDate(date.year(), date.month(), 1).toString(Qt::ISODate), QVariant(),
                              QVariant(), arrondir(somme / jours, 0)});
        }
    }
}

void remplirPluie(const QSqlDatabase &base, const QString &dossier, const Campagnes &campagnes)
{
    const TableCsv t(dossier + "/station_pluvio.csv");
    const QString code = t.texte(0, "code");
    Insertion(base, "STATION_PLUVIO",
              {"CodeStationPM", "IntituleStationPM", "TypeStationPM", "CoorXStationPM", "CoorYStationPM",
               "EnServiceStationPM", "NumBV"})
        .ligne({code, t.texte(0, "intitule"), t.texte(0, "type"), t.nombre(0, "x_l2e"), t.nombre(0, "y_l2e"),
                t.texte(0, "service"), BASSIN});
    remplirLien(base, "StationPluvioXCommune", {"CodeStationPM", "NumCommune"}, code, t.liste(0, "communes"));
    remplirLien(base, "StationPluvioXGest", {"CodeStationPM", "CodeSandreGest"}, code,
                t.liste(0, "gestionnaires"));

    QSet<QDate> manquants;
    const TableCsv pannes(dossier + "/pluies_manquantes.csv");
    for (int i = 0; i < pannes.lignes(); ++i) {
        const QDate fin = QDate::fromString(pannes.texte(i, "fin"), Qt::ISODate);
        for (QDate j = QDate::fromString(pannes.texte(i, "debut"), Qt::ISODate); j <= fin; j = j.addDays(1))
            manquants << j;
    }
    Insertion mesure(base, "MESURE_PLUVIO",
                     {"CodeStationPM", "DateMesurePM", "JourMesurePM", "CommMesurePM", "CodeSandreGest"});
    for (QDate date = PREMIER_JOUR; date <= DERNIER_JOUR; date = date.addDays(1)) {
        if (manquants.contains(date))
            continue;
        const double pluie = campagnes.pluie_mm(date);
        mesure.ligne({code, date.toString(Qt::ISODate), pluie,
                      pluie >= 30 ? QVariant("Pluie exceptionnelle, relevé vérifié") : QVariant(),
                      QString::fromLatin1(GESTIONNAIRE_PLUIE)});
    }
}

void remplirMesures(const QSqlDatabase &base, const Campagnes &campagnes)
{
    Insertion prelevement(base, "PRELEVEMENT",
                          {"NumPrel", "CodeSandreStationM", "CdPoint", "DatePrel", "HeurePrel", "CdSupport",
                           "CodeSandrePrelev", "CodeSandreProd", "Protocole"});
    Insertion reseau(base, "PRELEVEMENTRSX", {"NumPrel", "CodeReseau"});
    Insertion mesure(base, "MESURE_PHYSICO",
                     {"NumPrel", "CodeParam", "ResultatAnaPC", "CodeRemarqueAnaPC", "LD", "LQ", "LS",
                      "SeuilAnaPC", "LieuAnaPC", "CommAnaPC", "CommResAnaPC", "CodeSandreLabo", "CodeMethode",
                      "CodeSandreGest", "Cd_Fraction"});
    int numero = 0;
    for (const Prelevement &p : campagnes.prelevements("campagnes.csv")) {
        ++numero;
        prelevement.ligne({numero, p.station, "031", p.date.toString(Qt::ISODate), p.heure, "3", p.preleveur,
                           p.producteur, p.protocole});
        for (const QString &code : p.reseaux)
            reseau.ligne({numero, code});
        for (const Resultat &r : p.resultats)
            mesure.ligne({numero, r.parametre, r.valeur, r.remarque, r.ld, r.lq, r.ls, r.seuil, r.lieu,
                          r.commentaire_analyse, r.commentaire_resultat, r.laboratoire, r.methode,
                          r.gestionnaire, r.fraction});
    }
}
} // namespace

void remplirDemonstration(const QSqlDatabase &base, const QString &dossier)
{
    const Campagnes campagnes(dossier);
    remplirBassin(base, dossier);
    remplirActeurs(base, dossier);
    remplirStations(base, dossier);
    remplirDebits(base, dossier, campagnes);
    remplirPluie(base, dossier, campagnes);
    remplirMesures(base, campagnes);
}
