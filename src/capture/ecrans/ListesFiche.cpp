#include "capture/ecrans/ListesFiche.h"

#include "capture/LectureFiche.h"

#include <QHash>

using LectureFiche::liste;

ListeChoix ListesFiche::bassins(const DataEnvironment1 &donnees)
{
    return liste(donnees, QStringLiteral("BassinVersant"), QStringLiteral("NumBV"), QStringLiteral("NomBV"));
}

ListeChoix ListesFiche::sousBassins(const DataEnvironment1 &donnees)
{
    return liste(donnees, QStringLiteral("Ss_BV"), QStringLiteral("CodeSSBV"), QStringLiteral("NomSSBV"));
}

ListeChoix ListesFiche::communes(const DataEnvironment1 &donnees)
{
    ListeChoix lignes =
        liste(donnees, QStringLiteral("Commune"), QStringLiteral("NumCommune"), QStringLiteral("NomCommune"));
    QHash<QString, int> fois;
    for (const Choix &ligne : std::as_const(lignes))
        ++fois[ligne.texte];
    for (Choix &ligne : lignes) {
        if (fois.value(ligne.texte) > 1)
            ligne.texte += QStringLiteral(" (") + ligne.code + u')';
    }
    return lignes;
}

ListeChoix ListesFiche::gestionnaires(const DataEnvironment1 &donnees)
{
    return liste(donnees, QStringLiteral("Gestionnaire"), QStringLiteral("CodeSandreGest"),
                 QStringLiteral("NomGest"));
}

ListeChoix ListesFiche::stationsQualite(const DataEnvironment1 &donnees)
{
    ListeChoix lignes = liste(donnees, QStringLiteral("Station"), QStringLiteral("CodeSandreStationM"),
                              QStringLiteral("NomStationM"));
    for (Choix &ligne : lignes) {
        if (ligne.texte != ligne.code)
            ligne.texte = ligne.code + QStringLiteral(" - ") + ligne.texte;
    }
    return lignes;
}
