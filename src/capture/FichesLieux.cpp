#include "capture/FichesLieux.h"

DescriptionFiche Fiches::commune()
{
    return {
        .table = QStringLiteral("COMMUNE"),
        .critere = QStringLiteral("NumCommune"),
        .libelle = QStringLiteral("NomCommune"),
        .champs =
            {
                {QStringLiteral("txt_code"), QStringLiteral("NumCommune"),
                 QStringLiteral("Le numéro de la commune"),
                 QStringLiteral("Le numéro de la commune doit être renseigné.")},
                {QStringLiteral("txt_nom"), QStringLiteral("NomCommune"),
                 QStringLiteral("Le nom de la commune"),
                 QStringLiteral("Le nom de la commune doit être renseigné.")},
                {QStringLiteral("cmb_situation"), QStringLiteral("SituationCommune"),
                 QStringLiteral("La situation de la commune")},
                {QStringLiteral("cmb_departement"), QStringLiteral("NumDepartement"),
                 QStringLiteral("Le département")},
            },
        .objet = QStringLiteral("La commune"),
        .feminin = true,
        .fin = QStringLiteral(
            "L'enregistrement de la commune a été effectué. Désirez-vous en effectuer un autre?"),
        .usages =
            {
                {QStringLiteral("BVXCommune"), QStringLiteral("NumCommune"), QStringLiteral("bassin versant"),
                 QStringLiteral("bassins versants")},
                {QStringLiteral("StationMesureXCommune"), QStringLiteral("NumCommune"),
                 QStringLiteral("station de qualité"), QStringLiteral("stations de qualité")},
                {QStringLiteral("StationHydroXCommune"), QStringLiteral("NumCommune"),
                 QStringLiteral("station hydrométrique"), QStringLiteral("stations hydrométriques")},
                {QStringLiteral("StationPluvioXCommune"), QStringLiteral("NumCommune"),
                 QStringLiteral("station pluviométrique"), QStringLiteral("stations pluviométriques")},
            },
    };
}

DescriptionFiche Fiches::departement()
{
    return {
        .table = QStringLiteral("DEPARTEMENT"),
        .critere = QStringLiteral("NumDepartement"),
        .libelle = QStringLiteral("NomDepartement"),
        .champs =
            {
                {QStringLiteral("txt_code"), QStringLiteral("NumDepartement"),
                 QStringLiteral("Le numéro du département"),
                 QStringLiteral("Le numéro du département doit être renseigné.")},
                {QStringLiteral("txt_nom"), QStringLiteral("NomDepartement"),
                 QStringLiteral("Le nom du département"),
                 QStringLiteral("Le nom du département doit être renseigné.")},
            },
        .objet = QStringLiteral("Le département"),
        .fin = QStringLiteral(
            "L'enregistrement du département a été effectué. Désirez-vous en effectuer un autre?"),
        .usages = {{QStringLiteral("COMMUNE"), QStringLiteral("NumDepartement"), QStringLiteral("commune"),
                    QStringLiteral("communes")}},
    };
}

DescriptionFiche Fiches::sousBassin()
{
    return {
        .table = QStringLiteral("SOUS_BASSIN_VERSANT"),
        .critere = QStringLiteral("NomSSBV"),
        .champs =
            {
                {QStringLiteral("txt_nom"), QStringLiteral("NomSSBV"),
                 QStringLiteral("Le nom du sous-bassin"),
                 QStringLiteral("Le nom du sous-bassin doit être renseigné.")},
                {QStringLiteral("txt_superf"), QStringLiteral("SuperfSSBV"),
                 QStringLiteral("La superficie du sous-bassin")},
                {QStringLiteral("cmb_bv"), QStringLiteral("NumBV"), QStringLiteral("Le bassin versant")},
            },
        .objet = QStringLiteral("Le sous-bassin"),
        .fin = QStringLiteral(
            "L'enregistrement du sous bassin versant a été effectué. Désirez-vous en effectuer un autre?"),
        .usages =
            {
                {QStringLiteral("STATION_QUALITE"), QStringLiteral("CodeSSBV"),
                 QStringLiteral("station de qualité"), QStringLiteral("stations de qualité"),
                 QStringLiteral("CodeSSBV")},
            },
    };
}

DescriptionFiche Fiches::bassin()
{
    return {
        .table = QStringLiteral("BASSIN_VERSANT"),
        .critere = QStringLiteral("NomBV"),
        .champs =
            {
                {QStringLiteral("txt_nom"), QStringLiteral("NomBV"),
                 QStringLiteral("Le nom du bassin versant"),
                 QStringLiteral("Le nom du bassin versant doit être renseigné.")},
                {QStringLiteral("txt_problematique"), QStringLiteral("ProblématiqueBV"),
                 QStringLiteral("La problématique du bassin")},
                {QStringLiteral("txt_superf"), QStringLiteral("SuperfBV"),
                 QStringLiteral("La superficie du bassin")},
            },
        .objet = QStringLiteral("Le bassin versant"),
        .fin = QStringLiteral(
            "L'enregistrement du bassin versant a été effectué. Désirez-vous en effectuer un autre?"),
        .liens =
            {
                {QStringLiteral("lst_commune"), QStringLiteral("BVXCommune"), QStringLiteral("NumBV"),
                 QStringLiteral("NumCommune"), QStringLiteral("NumBV")},
            },
        .usages =
            {
                {QStringLiteral("LIEU_BASSIN_VERSANT"), QStringLiteral("Bassin_versant"),
                 QStringLiteral("étude, dont il est le bassin de référence"),
                 QStringLiteral("études, dont il est le bassin de référence")},
                {QStringLiteral("SOUS_BASSIN_VERSANT"), QStringLiteral("NumBV"),
                 QStringLiteral("sous-bassin"), QStringLiteral("sous-bassins"), QStringLiteral("NumBV")},
                {QStringLiteral("STATION_QUALITE"), QStringLiteral("NumBV"),
                 QStringLiteral("station de qualité"), QStringLiteral("stations de qualité"),
                 QStringLiteral("NumBV")},
                {QStringLiteral("STATION_HYDRO"), QStringLiteral("NumBV"),
                 QStringLiteral("station hydrométrique"), QStringLiteral("stations hydrométriques"),
                 QStringLiteral("NumBV")},
                {QStringLiteral("STATION_PLUVIO"), QStringLiteral("NumBV"),
                 QStringLiteral("station pluviométrique"), QStringLiteral("stations pluviométriques"),
                 QStringLiteral("NumBV")},
                {QStringLiteral("INDICATEUR_NON_AGRICOLE"), QStringLiteral("NumBV"),
                 QStringLiteral("année d'indicateurs"), QStringLiteral("années d'indicateurs"),
                 QStringLiteral("NumBV")},
            },
        .dependances =
            {
                {QStringLiteral("OBJECTIF"), QStringLiteral("NumBV"), QStringLiteral("NumBV")},
            },
    };
}
