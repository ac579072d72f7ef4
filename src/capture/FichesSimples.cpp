#include "capture/FichesSimples.h"

const DescriptionFiche &Fiches::unite()
{
    static const DescriptionFiche description{
        .table = QStringLiteral("UNITEREFERENCE"),
        .critere = QStringLiteral("CodeUnite"),
        .libelle = QStringLiteral("SymboleUnite"),
        .champs = {{QStringLiteral("txt_code"), QStringLiteral("CodeUnite"),
                    QStringLiteral("Le code de l'unité"),
                    QStringLiteral("Le code de l'unité doit être renseigné.")},
                   {QStringLiteral("txt_symbole"), QStringLiteral("SymboleUnite"),
                    QStringLiteral("Le symbole de l'unité"),
                    QStringLiteral("Le symbole de l'unité doit être renseigné.")},
                   {QStringLiteral("txt_libelle"), QStringLiteral("LibelleUnite"),
                    QStringLiteral("Le libellé de l'unité")},
                   {QStringLiteral("cmb_statut"), QStringLiteral("StatutUnite"),
                    QStringLiteral("Le statut de l'unité")}},
        .objet = QStringLiteral("L'unité"),
        .feminin = true,
        .fin =
            QStringLiteral("L'enregistrement de l'unité a été effectué. Désirez-vous en effectuer un autre?"),
        .usages = {{QStringLiteral("PARAMETRE"), QStringLiteral("CodeUnite"), QStringLiteral("paramètre"),
                    QStringLiteral("paramètres")},
                   {QStringLiteral("IMPORT_PAR_URF"), QStringLiteral("CodeUnite"),
                    QStringLiteral("unité d'import d'un paramètre"),
                    QStringLiteral("unités d'import de paramètres")}}};
    return description;
}

const DescriptionFiche &Fiches::reseau()
{
    static const DescriptionFiche description{
        .table = QStringLiteral("RESEAU_MESURE"),
        .critere = QStringLiteral("CodeReseau"),
        .libelle = QStringLiteral("LibelleReseau"),
        .champs = {{QStringLiteral("cmb_code"), QStringLiteral("CodeReseau"),
                    QStringLiteral("Le code du réseau"),
                    QStringLiteral("Le code du réseau doit être renseigné.")},
                   {QStringLiteral("txt_libelle"), QStringLiteral("LibelleReseau"),
                    QStringLiteral("Le libellé du réseau"),
                    QStringLiteral("Le libellé du réseau doit être renseigné.")},
                   {QStringLiteral("txt_finalite"), QStringLiteral("FinaliteReseau"),
                    QStringLiteral("La finalité du réseau")}},
        .objet = QStringLiteral("Le réseau"),
        .fin =
            QStringLiteral("L'enregistrement du réseau a été effectué. Désirez-vous en effectuer un autre?"),
        .usages = {{QStringLiteral("PRELEVEMENTRSX"), QStringLiteral("CodeReseau"),
                    QStringLiteral("prélèvement"), QStringLiteral("prélèvements")},
                   {QStringLiteral("STATION_QUALITE"), QStringLiteral("CodeReseau"),
                    QStringLiteral("station de qualité"), QStringLiteral("stations de qualité")}}};
    return description;
}

const DescriptionFiche &Fiches::methode()
{
    static const DescriptionFiche description{
        .table = QStringLiteral("METHODE"),
        .critere = QStringLiteral("CodeMéthode"),
        .libelle = QStringLiteral("NomMéthode"),
        .champs = {{QStringLiteral("txt_code"), QStringLiteral("CodeMéthode"),
                    QStringLiteral("Le code de la méthode"),
                    QStringLiteral("Le code de la méthode doit être renseigné.")},
                   {QStringLiteral("txt_nom"), QStringLiteral("NomMéthode"),
                    QStringLiteral("Le nom de la méthode"),
                    QStringLiteral("Le nom de la méthode doit être renseigné.")},
                   {QStringLiteral("txt_comm"), QStringLiteral("CommMéthode"),
                    QStringLiteral("Le commentaire de la méthode")}},
        .objet = QStringLiteral("La méthode"),
        .feminin = true,
        .fin = QStringLiteral(
            "L'enregistrement de la méthode a été effectué. Désirez-vous en effectuer un autre?"),
        .usages = {{QStringLiteral("MESURE_PHYSICO"), QStringLiteral("CodeMethode"),
                    QStringLiteral("résultat d'analyse"), QStringLiteral("résultats d'analyse")}}};
    return description;
}
