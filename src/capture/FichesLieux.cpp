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
