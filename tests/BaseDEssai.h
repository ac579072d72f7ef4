// A small study in a temporary folder, for tests.
#pragma once

#include "database/DataEnvironment1.h"

#include <QTemporaryDir>

//     BaseDEssai base;
//     M_Referentiels::CodeParametre(base.donnees, "Nitrates");   // "1340"
//
// It holds: the basin "BV d'essai" (NumBV 1, the reference basin); quality stations 04211940 (with its point 031) and
// 04211950; hydrometric station J7010610, rainfall station 35228001; parameters 1340 Nitrates (unit 173, mg(NO3)/L; 162, mg/L, may be imported),
// 1302 pH (unit 264), 1841 Carbone Organique (unit 163), 1506 Glyphosate (group PS, unit 133), each with its import
// unit; fractions 0, 3 and 23; actors of codes 17 (Agence de l'eau), 18 (Laboratoire d'Armor), 19 (Préleveur de l'Ouest);
// networks 0400000001 (Réseau national) and 0400000002 (Réseau d'Armor). No sampling and no measure.
class BaseDEssai
{
public:
    // `vide`: a new store without those rows.
    explicit BaseDEssai(bool vide = false)
    {
        chemin = dossier.filePath(QStringLiteral("essai.mdb"));
        donnees.creer(chemin);
        if (!vide)
            remplir();
    }

    void sql(const QString &instruction, const QVariantList &parametres = {}) const
    {
        donnees.executer(instruction, parametres);
    }
    // First column of the first row; invalid when there is no row.
    QVariant valeur(const QString &instruction, const QVariantList &parametres = {}) const
    {
        Requete r = donnees.executer(instruction, parametres);
        return r.suivant() ? r.valeur(0) : QVariant();
    }
    int compter(const QString &table) const
    {
        return valeur(QStringLiteral("SELECT count(*) FROM [%1]").arg(table)).toInt();
    }
    // Adds a sampling and gives its number. An invalid time is NULL.
    qint64 ajouterPrelevement(const QString &station, const QDate &date, const QTime &heure = {},
                              const QString &preleveur = QStringLiteral("19"),
                              const QString &protocole = QStringLiteral("0")) const
    {
        return donnees
            .executer(
                QStringLiteral("INSERT INTO PRELEVEMENT (CodeSandreStationM, CdPoint, DatePrel, HeurePrel, "
                               "CdSupport, CodeSandrePrelev, CodeSandreProd, Protocole) "
                               "VALUES (?, '031', ?, ?, '3', ?, '0', ?)"),
                {station, date, heure, preleveur, protocole})
            .dernierIdentifiant()
            .toLongLong();
    }
    // Adds a result and gives its number.
    qint64 ajouterMesure(qint64 numPrel, const QString &parametre, double resultat,
                         const QString &remarque = QStringLiteral("1"),
                         const QString &gestionnaire = QStringLiteral("17"),
                         const QString &fraction = QStringLiteral("23")) const
    {
        return donnees
            .executer(QStringLiteral("INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC, "
                                     "CodeRemarqueAnaPC, CodeSandreLabo, CodeSandreGest, Cd_Fraction) "
                                     "VALUES (?, ?, ?, ?, '18', ?, ?)"),
                      {numPrel, parametre, resultat, remarque, gestionnaire, fraction})
            .dernierIdentifiant()
            .toLongLong();
    }
    qint64 ajouterDebitJour(const QString &station, const QDate &date, double debit) const
    {
        return donnees
            .executer(
                QStringLiteral("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitJourMesureHM) "
                               "VALUES (?, ?, ?)"),
                {station, date, debit})
            .dernierIdentifiant()
            .toLongLong();
    }

    QTemporaryDir dossier;
    QString chemin;
    DataEnvironment1 donnees;

private:
    void remplir()
    {
        static const char *const INSTRUCTIONS[] = {
            "INSERT INTO BASSIN_VERSANT (NumBV, NomBV, SuperfBV) VALUES (1, 'BV d''essai', 250.5)",
            "INSERT INTO SOUS_BASSIN_VERSANT (CodeSSBV, NomSSBV, NumBV) VALUES (1, 'Haut du BV', 1)",
            "INSERT INTO LIEU_BASSIN_VERSANT VALUES ('BV d''essai')",
            "INSERT INTO DEPARTEMENT VALUES ('35', 'Ille-et-Vilaine'), ('22', 'Côtes-d''Armor')",
            "INSERT INTO COMMUNE (NumCommune, NomCommune, NumDepartement) VALUES "
            "('35228', 'Quédillac', '35'), ('22278', 'Saint-Brieuc', '22')",
            "INSERT INTO BVXCommune VALUES (1, '35228')",
            "INSERT INTO STATION_QUALITE (CodeSandreStationM, CodeUsuelStationM, NomStationM, RiviereStationM, NumBV, "
            "CodeSSBV) VALUES ('04211940', 'ESS1', 'Pont de l''Ile', 'Ruisseau de l''Ile', 1, 1), "
            "('04211950', NULL, 'Moulin à papier', 'Le Meu', 1, NULL)",
            "INSERT INTO LOCALISATION VALUES ('04211940', '031', 0, 0, 0, 0, '3')",
            "INSERT INTO STATION_HYDRO (CodeStationHM, CodeSandreStationHM, IntituleStationHM, SurfReelStationHM, NumBV) "
            "VALUES ('J7010610', '00000001', 'Le Meu à Quédillac', 120, 1)",
            "INSERT INTO STATION_PLUVIO (CodeStationPM, IntituleStationPM, NumBV) "
            "VALUES ('35228001', 'Quédillac bourg', 1)",
            "INSERT INTO [Rattachement_hydro_ mesure] VALUES ('J7010610', '04211940')",
            "INSERT INTO UNITEREFERENCE (CodeUnite, SymboleUnite, LibelleUnite, StatutUnite) VALUES "
            "('162', 'mg/L', 'milligramme par litre', 'Validé'), ('133', 'µg/L', 'microgramme par litre', 'Validé'), "
            "('163', 'mg(C)/L', 'milligramme de carbone par litre', 'Validé'), "
            "('173', 'mg(NO3)/L', 'milligramme de nitrate par litre', 'Validé'), "
            "('264', 'unité pH', 'unité pH', 'Validé')",
            "INSERT INTO PARAMETRE (CodeParam, NomParam, StatutParam, NatureParam, CodeGroupeParam, CodeUnite) VALUES "
            "('1340', 'Nitrates', 'Validé', 'Chimique', 'PC', '173'), "
            "('1302', 'Potentiel en Hydrogène (pH)', 'Validé', 'Physique', 'PC', '264'), "
            "('1841', 'Carbone Organique', 'Validé', 'Chimique', 'PC', '163'), "
            "('1506', 'Glyphosate', 'Validé', 'Pesticides', 'PS', '133')",
            "INSERT INTO IMPORT_PAR_URF VALUES ('1340', '173', -1), ('1340', '162', 0), ('1302', '264', -1), "
            "('1841', '163', -1), ('1506', '133', -1)",
            "INSERT INTO FRACTION (CD_FRACTION, LB_NOM_FRACTION, LB_STATUT_FRACTION) VALUES ('0', 'Inconnu', 'Validé'), "
            "('3', 'Phase aqueuse de l''eau (filtrée, centrifugée...)', 'Validé'), ('23', 'Eau brute', 'Validé')",
            "INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv, StatutInterv) VALUES "
            "('17', 'Agence de l''eau', 'Validé'), ('18', 'Laboratoire d''Armor', 'Validé'), "
            "('19', 'Préleveur de l''Ouest', 'Validé')",
            "INSERT INTO RESEAU_MESURE VALUES ('0400000001', 'Réseau national', ''), "
            "('0400000002', 'Réseau d''Armor', '')",
        };
        for (const char *instruction : INSTRUCTIONS)
            donnees.executer(QString::fromUtf8(instruction));
    }
};
