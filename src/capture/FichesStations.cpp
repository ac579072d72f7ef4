#include "capture/FichesStations.h"

DescriptionFiche Fiches::stationQualite()
{
    return {
        .table = QStringLiteral("STATION_QUALITE"),
        .critere = QStringLiteral("CodeSandreStationM"),
        .libelle = QStringLiteral("NomStationM"),
        .champs =
            {
                {QStringLiteral("txt_code"), QStringLiteral("CodeSandreStationM"),
                 QStringLiteral("Le numéro de la station"),
                 QStringLiteral("Le code de la station doit être renseigné.")},
                {QStringLiteral("txt_codeusuel"), QStringLiteral("CodeUsuelStationM"),
                 QStringLiteral("Le code usuel de la station")},
                {QStringLiteral("txt_nom"), QStringLiteral("NomStationM"),
                 QStringLiteral("Le nom de la station"),
                 QStringLiteral("Le nom de la station doit être renseigné.")},
                {QStringLiteral("txt_riviere"), QStringLiteral("RiviereStationM"),
                 QStringLiteral("Le nom de la rivière")},
                {QStringLiteral("txt_creation"), QStringLiteral("CreationStationM"),
                 QStringLiteral("La date de création")},
                {QStringLiteral("cmb_nature"), QStringLiteral("NatureStationM"),
                 QStringLiteral("La nature de la station")},
                {QStringLiteral("cmb_situation"), QStringLiteral("SituationStationM"),
                 QStringLiteral("La situation de la station")},
                {QStringLiteral("txt_coorx"), QStringLiteral("CoorXStationM"),
                 QStringLiteral("La coordonnée X (Lambert II étendu)")},
                {QStringLiteral("txt_coory"), QStringLiteral("CoorYStationM"),
                 QStringLiteral("La coordonnée Y (Lambert II étendu)")},
                {QStringLiteral("txt_coorx_l93"), QStringLiteral("CoorXStationM_L93"),
                 QStringLiteral("La coordonnée X (Lambert 93)")},
                {QStringLiteral("txt_coory_l93"), QStringLiteral("CoorYStationM_L93"),
                 QStringLiteral("La coordonnée Y (Lambert 93)")},
                {QStringLiteral("txt_codehydrog"), QStringLiteral("CodeHydrog"),
                 QStringLiteral("Le code hydrographique")},
                {QStringLiteral("txt_comm"), QStringLiteral("CommStationM"),
                 QStringLiteral("Le commentaire")},
                {QStringLiteral("cmb_bv"), QStringLiteral("NumBV"), QStringLiteral("Le bassin versant")},
                {QStringLiteral("cmb_ssbv"), QStringLiteral("CodeSSBV"), QStringLiteral("Le sous-bassin")},
                {QStringLiteral("txt_superficie"), QStringLiteral("SuperficieStationM"),
                 QStringLiteral("La superficie drainée")},
            },
        .objet = QStringLiteral("La station"),
        .feminin = true,
        .fin = QStringLiteral(
            "L'enregistrement de la station qualité a été effectué. Désirez-vous en effectuer un autre?"),
        .liens =
            {
                {QStringLiteral("lst_commune"), QStringLiteral("StationMesureXCommune"),
                 QStringLiteral("CodeSandreStationM"), QStringLiteral("NumCommune")},
                {QStringLiteral("lst_gestionnaire"), QStringLiteral("StationMesureXGest"),
                 QStringLiteral("CodeSandreStationM"), QStringLiteral("CodeSandreGest")},
            },
        .usages =
            {
                {QStringLiteral("PRELEVEMENT"), QStringLiteral("CodeSandreStationM"),
                 QStringLiteral("prélèvement"), QStringLiteral("prélèvements")},
                {QStringLiteral("Rattachement_hydro_ mesure"), QStringLiteral("CodeSandreStationM"),
                 QStringLiteral("station hydrométrique rattachée"),
                 QStringLiteral("stations hydrométriques rattachées")},
            },
        .dependances =
            {
                {QStringLiteral("LOCALISATION"), QStringLiteral("CodeSandreStationM")},
            },
    };
}

DescriptionFiche Fiches::stationHydro()
{
    return {
        .table = QStringLiteral("STATION_HYDRO"),
        .critere = QStringLiteral("CodeStationHM"),
        .libelle = QStringLiteral("IntituleStationHM"),
        .champs =
            {
                {QStringLiteral("txt_code"), QStringLiteral("CodeStationHM"),
                 QStringLiteral("Le code de la station"),
                 QStringLiteral("Le code de la station doit être renseigné.")},
                {QStringLiteral("txt_codesandre"), QStringLiteral("CodeSandreStationHM"),
                 QStringLiteral("Le code SANDRE de la station")},
                {QStringLiteral("txt_codehydro"), QStringLiteral("CodeHydroStationHM"),
                 QStringLiteral("Le code hydrographique")},
                {QStringLiteral("txt_nom"), QStringLiteral("IntituleStationHM"),
                 QStringLiteral("L'intitulé de la station"),
                 QStringLiteral("L'intitulé de la station doit être renseigné.")},
                {QStringLiteral("cmb_type"), QStringLiteral("TypeStationHM"),
                 QStringLiteral("Le type de la station")},
                {QStringLiteral("txt_coorx"), QStringLiteral("CoorXStationHM"),
                 QStringLiteral("La coordonnée X")},
                {QStringLiteral("txt_coory"), QStringLiteral("CoorYStationHM"),
                 QStringLiteral("La coordonnée Y")},
                {QStringLiteral("txt_enservice"), QStringLiteral("EnServiceStationHM"),
                 QStringLiteral("La date de mise en service")},
                {QStringLiteral("txt_surfreel"), QStringLiteral("SurfReelStationHM"),
                 QStringLiteral("La surface drainée")},
                {QStringLiteral("cmb_bv"), QStringLiteral("NumBV"), QStringLiteral("Le bassin versant")},
            },
        .objet = QStringLiteral("La station"),
        .feminin = true,
        .fin = QStringLiteral(
            "L'enregistrement de la station hydrométrique a été effectué. Désirez-vous en effectuer un autre?"),
        .liens =
            {
                {QStringLiteral("lst_commune"), QStringLiteral("StationHydroXCommune"),
                 QStringLiteral("CodeStationHM"), QStringLiteral("NumCommune")},
                {QStringLiteral("lst_gestionnaire"), QStringLiteral("StationHydroXGest"),
                 QStringLiteral("CodeStationHM"), QStringLiteral("CodeSandreGest")},
                {QStringLiteral("lst_station"), QStringLiteral("Rattachement_hydro_ mesure"),
                 QStringLiteral("CodeStationHM"), QStringLiteral("CodeSandreStationM")},
            },
        .usages =
            {
                {QStringLiteral("MESURE_HYDRO"), QStringLiteral("CodeStationHM"),
                 QStringLiteral("mesure hydrométrique"), QStringLiteral("mesures hydrométriques")},
            },
    };
}

DescriptionFiche Fiches::stationPluvio()
{
    return {
        .table = QStringLiteral("STATION_PLUVIO"),
        .critere = QStringLiteral("CodeStationPM"),
        .libelle = QStringLiteral("IntituleStationPM"),
        .champs =
            {
                {QStringLiteral("txt_code"), QStringLiteral("CodeStationPM"),
                 QStringLiteral("Le code de la station"),
                 QStringLiteral("Le code de la station doit être renseigné.")},
                {QStringLiteral("txt_nom"), QStringLiteral("IntituleStationPM"),
                 QStringLiteral("L'intitulé de la station"),
                 QStringLiteral("L'intitulé de la station doit être renseigné.")},
                {QStringLiteral("cmb_type"), QStringLiteral("TypeStationPM"),
                 QStringLiteral("Le type de la station")},
                {QStringLiteral("txt_coorx"), QStringLiteral("CoorXStationPM"),
                 QStringLiteral("La coordonnée X")},
                {QStringLiteral("txt_coory"), QStringLiteral("CoorYStationPM"),
                 QStringLiteral("La coordonnée Y")},
                {QStringLiteral("txt_enservice"), QStringLiteral("EnServiceStationPM"),
                 QStringLiteral("La date de mise en service")},
                {QStringLiteral("cmb_bv"), QStringLiteral("NumBV"), QStringLiteral("Le bassin versant")},
            },
        .objet = QStringLiteral("La station"),
        .feminin = true,
        .fin = QStringLiteral(
            "L'enregistrement de la station pluviométrique a été effectué. Désirez-vous en effectuer un autre?"),
        .liens =
            {
                {QStringLiteral("lst_commune"), QStringLiteral("StationPluvioXCommune"),
                 QStringLiteral("CodeStationPM"), QStringLiteral("NumCommune")},
                {QStringLiteral("lst_gestionnaire"), QStringLiteral("StationPluvioXGest"),
                 QStringLiteral("CodeStationPM"), QStringLiteral("CodeSandreGest")},
            },
        .usages =
            {
                {QStringLiteral("MESURE_PLUVIO"), QStringLiteral("CodeStationPM"),
                 QStringLiteral("mesure de pluie"), QStringLiteral("mesures de pluie")},
            },
    };
}
