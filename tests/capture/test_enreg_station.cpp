// The saves of the three kinds of station: columns, dependent rows, sampling point.
#include "capture/EnregDEssai.h"
#include "capture/EnregistrementStation.h"
#include "capture/FichesStations.h"
#include "capture/LectureFiche.h"
#include "capture/SuppressionFiche.h"

#include <QTest>

class TestEnregStation : public QObject
{
    Q_OBJECT

    static const QList<Reponse> &oui()
    {
        static const QList<Reponse> reponses{Reponse::Oui, Reponse::Non};
        return reponses;
    }
    static SaisieStation minimale(const char *code)
    {
        return {{{s("CodeSandreStationM"), s(code)}, {s("NomStationM"), s("Pont neuf")}}, {}, {}};
    }
    static SaisieStation entiere()
    {
        SaisieStation saisie;
        saisie.valeurs = {{s("CodeSandreStationM"), s("04220000")},
                          {s("CodeUsuelStationM"), s("NEUF")},
                          {s("NomStationM"), s("Pont de l'Arz")},
                          {s("RiviereStationM"), s("L'Arz")},
                          {s("CreationStationM"), s("1/3/09")},
                          {s("NatureStationM"), s("M")},
                          {s("SituationStationM"), s("Bilan")},
                          {s("CoorXStationM"), s("250000,5")},
                          {s("CoorYStationM"), s("2350000.25")},
                          {s("CoorXStationM_L93"), s("300000")},
                          {s("CoorYStationM_L93"), s("6780000")},
                          {s("CodeHydrog"), s("J8404000")},
                          {s("CommStationM"), s("Rive gauche")},
                          {s("NumBV"), s("1")},
                          {s("CodeSSBV"), s("1")},
                          {s("SuperficieStationM"), s("12,34567")}};
        saisie.liens = {{s("StationMesureXCommune"), {s("22278"), s("35228")}},
                        {s("StationMesureXGest"), {s("17")}}};
        return saisie;
    }

private Q_SLOTS:
    void colonnes()
    {
        EnregDEssai essai;
        // The order in which the columns are written.
        QStringList noms;
        for (const Enregistrement::Colonne &colonne : M_Enreg_Tables::stationQualite(entiere()).colonnes)
            noms << colonne.nom;
        QCOMPARE(noms.join(u' '),
                 s("CodeSandreStationM CodeUsuelStationM NomStationM RiviereStationM CreationStationM "
                   "NatureStationM SituationStationM CoorXStationM CoorYStationM CoorXStationM_L93 "
                   "CoorYStationM_L93 CodeHydrog CommStationM NumBV CodeSSBV SuperficieStationM"));
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(entiere()), oui()), Suite::Fini);
        // 12.34567 keeps four decimals.
        QCOMPARE(essai.ligne("SELECT CodeSandreStationM, CodeUsuelStationM, NomStationM, RiviereStationM, "
                             "CreationStationM, NatureStationM, SituationStationM, CoorXStationM, "
                             "CoorYStationM, CoorXStationM_L93, CoorYStationM_L93, CodeHydrog, CommStationM, "
                             "NumBV, CodeSSBV, SuperficieStationM FROM STATION_QUALITE "
                             "WHERE CodeSandreStationM = '04220000'"),
                 s("04220000|NEUF|Pont de l'Arz|L'Arz|2009-03-01|M|Bilan|250000.5|2350000.25|300000|6780000|"
                   "J8404000|Rive gauche|1|1|12.3457"));
        QCOMPARE(essai.colonne("SELECT NumCommune FROM StationMesureXCommune WHERE CodeSandreStationM = "
                               "'04220000' ORDER BY rowid"),
                 QStringList({s("22278"), s("35228")}));
        QCOMPARE(essai.colonne("SELECT CodeSandreGest FROM StationMesureXGest"), QStringList{s("17")});
        QCOMPARE(essai.ligne("SELECT * FROM LOCALISATION WHERE CodeSandreStationM = '04220000'"),
                 s("04220000|031|250000.5|2350000.25|300000|6780000|3"));
        QCOMPARE(
            essai.dialogue.questions.last().texte,
            s("L'enregistrement de la station qualité a été effectué. Désirez-vous en effectuer un autre?"));
    }

    void vides()
    {
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(minimale("04220001")), oui()), Suite::Fini);
        // Texts are empty texts; dates, numbers and the hydrographic code are null.
        QCOMPARE(essai.ligne("SELECT CodeUsuelStationM, RiviereStationM, CreationStationM, NatureStationM, "
                             "CoorXStationM, CoorYStationM_L93, CodeHydrog, CommStationM, NumBV, CodeSSBV, "
                             "SuperficieStationM FROM STATION_QUALITE WHERE CodeSandreStationM = '04220001'"),
                 s("||NULL||NULL|NULL|NULL||NULL|NULL|NULL"));
        QCOMPARE(essai.ligne("SELECT * FROM LOCALISATION WHERE CodeSandreStationM = '04220001'"),
                 s("04220001|031|NULL|NULL|NULL|NULL|3"));
    }

    void point()
    {
        EnregDEssai essai;
        SaisieStation saisie = minimale("04220002");
        saisie.site = s(" 007 ");
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(saisie), oui()), Suite::Fini);
        QCOMPARE(essai.colonne("SELECT CdPoint FROM LOCALISATION WHERE CodeSandreStationM = '04220002'"),
                 QStringList{s("007")});
        // The point of a station that is there is the one that it has; its coordinates follow the station's.
        saisie.site = s("031");
        saisie.valeurs.insert(s("CoorXStationM"), s("12"));
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(saisie), oui()), Suite::Fini);
        QCOMPARE(essai.ligne("SELECT CdPoint, CoorXPoint_L2E, CoorYPoint_L2E FROM LOCALISATION "
                             "WHERE CodeSandreStationM = '04220002'"),
                 s("007|12|NULL"));
        // A station without a point gets one.
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(minimale("04211950")), oui()), Suite::Fini);
        QCOMPARE(M_Enreg_Tables::pointDeStation(essai.base.donnees, s("04211950")), s("031"));
        // The other stations are left alone.
        QCOMPARE(essai.ligne("SELECT * FROM LOCALISATION WHERE CodeSandreStationM = '04211940'"),
                 s("04211940|031|0|0|0|0|3"));
    }

    // The basin is written only when there is one: an emptied combo leaves it.
    void bassinGarde()
    {
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(minimale("04211940")), oui()), Suite::Fini);
        QCOMPARE(essai.ligne("SELECT NumBV, CodeSSBV, NomStationM FROM STATION_QUALITE "
                             "WHERE CodeSandreStationM = '04211940'"),
                 s("1|NULL|Pont neuf"));
    }

    // What the sheet does not show is kept.
    void autresColonnes()
    {
        EnregDEssai essai;
        essai.base.sql(s("UPDATE STATION_QUALITE SET FinaliteStationM = 'Suivi', CodeReseau = '0400000001' "
                         "WHERE CodeSandreStationM = '04211940'"));
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(minimale("04211940")), oui()), Suite::Fini);
        QCOMPARE(essai.ligne("SELECT FinaliteStationM, CodeReseau FROM STATION_QUALITE "
                             "WHERE CodeSandreStationM = '04211940'"),
                 s("Suivi|0400000001"));
    }

    void liensRecrits()
    {
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(entiere()), oui()), Suite::Fini);
        SaisieStation saisie = entiere();
        saisie.liens = {{s("StationMesureXCommune"), {s("35228")}}};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(saisie), oui()), Suite::Fini);
        QCOMPARE(essai.colonne("SELECT NumCommune FROM StationMesureXCommune"), QStringList{s("35228")});
        QCOMPARE(essai.base.compter(s("StationMesureXGest")), 0);
    }

    void nonNEcritRien()
    {
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(entiere()), {Reponse::Non}), Suite::Annule);
        QCOMPARE(essai.base.compter(s("STATION_QUALITE")), 2);
        QCOMPARE(essai.base.compter(s("LOCALISATION")), 1);
        QCOMPARE(essai.base.compter(s("StationMesureXCommune")), 0);
    }

    void suppression()
    {
        EnregDEssai essai;
        const DescriptionFiche fiche = Fiches::stationQualite();
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::stationQualite(entiere()), oui()), Suite::Fini);
        const auto lire = [&](const char *code) {
            return *LectureFiche::lire(essai.base.donnees, fiche,
                                       LectureFiche::codeDe(essai.base.donnees, fiche, s(code)));
        };
        essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1));
        QCOMPARE(SuppressionFiche::usages(essai.base.donnees, fiche, lire("04211940")),
                 s("1 prélèvement et 1 station hydrométrique rattachée"));
        essai.dialogue.reponses.enqueue(Reponse::Oui);
        QVERIFY(SuppressionFiche::supprimer(essai.base.donnees, essai.dialogue, fiche, lire("04220000")));
        // What was a part of it has gone with it.
        QCOMPARE(essai.base.compter(s("STATION_QUALITE")), 2);
        QCOMPARE(essai.base.compter(s("LOCALISATION")), 1);
        QCOMPARE(essai.base.compter(s("StationMesureXCommune")), 0);
        QCOMPARE(essai.base.compter(s("StationMesureXGest")), 0);
    }

    void hydro()
    {
        EnregDEssai essai;
        const DescriptionFiche fiche = Fiches::stationHydro();
        const Enregistrement e = M_Enreg_Tables::ligne(fiche,
                                                       {{s("CodeStationHM"), s("J8400000")},
                                                        {s("CodeSandreStationHM"), s("00000002")},
                                                        {s("CodeHydroStationHM"), s("J84")},
                                                        {s("IntituleStationHM"), s("L'Arz au Moulin")},
                                                        {s("TypeStationHM"), s("Limnigraphe")},
                                                        {s("CoorXStationHM"), s("1")},
                                                        {s("CoorYStationHM"), s("2,5")},
                                                        {s("EnServiceStationHM"), s("31/12/1999")},
                                                        {s("SurfReelStationHM"), s("148")},
                                                        {s("NumBV"), s("1")}},
                                                       {},
                                                       {{s("StationHydroXCommune"), {s("35228")}},
                                                        {s("StationHydroXGest"), {s("17"), s("18")}},
                                                        {s("Rattachement_hydro_ mesure"), {s("04211950")}}});
        QStringList noms;
        for (const Enregistrement::Colonne &colonne : e.colonnes)
            noms << colonne.nom;
        QCOMPARE(noms.join(u' '), s("CodeStationHM CodeSandreStationHM CodeHydroStationHM IntituleStationHM "
                                    "TypeStationHM CoorXStationHM CoorYStationHM EnServiceStationHM "
                                    "SurfReelStationHM NumBV"));
        QCOMPARE(essai.enregistrer(e, oui()), Suite::Fini);
        QCOMPARE(essai.ligne("SELECT * FROM STATION_HYDRO WHERE CodeStationHM = 'J8400000'"),
                 s("J8400000|00000002|J84|L'Arz au Moulin|Limnigraphe|1|2.5|1999-12-31|148|1"));
        QCOMPARE(essai.ligne("SELECT * FROM StationHydroXCommune"), s("J8400000|35228"));
        QCOMPARE(essai.colonne("SELECT CodeSandreGest FROM StationHydroXGest ORDER BY rowid"),
                 QStringList({s("17"), s("18")}));
        // The other station's own links stay.
        QCOMPARE(
            essai.colonne("SELECT CodeStationHM || CodeSandreStationM FROM [Rattachement_hydro_ mesure]"),
            QStringList({s("J701061004211940"), s("J840000004211950")}));
        QCOMPARE(
            essai.dialogue.questions.last().texte,
            s("L'enregistrement de la station hydrométrique a été effectué. Désirez-vous en effectuer un autre?"));
        // Rewritten by a second save, in the order commune, manager, station.
        QCOMPARE(
            essai.enregistrer(M_Enreg_Tables::ligne(fiche, {{s("CodeStationHM"), s("j8400000")}}), oui()),
            Suite::Fini);
        QCOMPARE(essai.base.compter(s("StationHydroXGest")), 0);
        QCOMPARE(essai.base.compter(s("Rattachement_hydro_ mesure")), 1);
        QCOMPARE(essai.base.compter(s("STATION_HYDRO")), 2);
    }

    void pluvio()
    {
        EnregDEssai essai;
        const Enregistrement e = M_Enreg_Tables::ligne(
            Fiches::stationPluvio(),
            {{s("CodeStationPM"), s("22278001")},
             {s("IntituleStationPM"), s("Saint-Brieuc")},
             {s("EnServiceStationPM"), s("")},
             {s("NumBV"), s("")}},
            {}, {{s("StationPluvioXCommune"), {s("22278")}}, {s("StationPluvioXGest"), {s("18")}}});
        QStringList noms;
        for (const Enregistrement::Colonne &colonne : e.colonnes)
            noms << colonne.nom;
        QCOMPARE(noms.join(u' '), s("CodeStationPM IntituleStationPM TypeStationPM CoorXStationPM "
                                    "CoorYStationPM EnServiceStationPM NumBV"));
        QCOMPARE(essai.enregistrer(e, oui()), Suite::Fini);
        QCOMPARE(essai.ligne("SELECT * FROM STATION_PLUVIO WHERE CodeStationPM = '22278001'"),
                 s("22278001|Saint-Brieuc||NULL|NULL|NULL|NULL"));
        QCOMPARE(essai.ligne("SELECT * FROM StationPluvioXCommune"), s("22278001|22278"));
        QCOMPARE(essai.ligne("SELECT * FROM StationPluvioXGest"), s("22278001|18"));
        QCOMPARE(
            essai.dialogue.questions.last().texte,
            s("L'enregistrement de la station pluviométrique a été effectué. Désirez-vous en effectuer un autre?"));
    }
};

QTEST_GUILESS_MAIN(TestEnregStation)
#include "test_enreg_station.moc"
