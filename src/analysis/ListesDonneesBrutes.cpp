#include "analysis/ListesDonneesBrutes.h"

#include "database/DataEnvironment1.h"

ListeChoix ListesDonneesBrutes::stations(const DataEnvironment1 &donnees)
{
    ListeChoix lignes;
    const QList<StationProposee> stations = ListesSelection::stations(donnees);
    for (const StationProposee &station : stations)
        lignes << Choix{station.code, station.code, QString(station.usuel + u' ' + station.nom).trimmed()};
    return lignes;
}

ListeChoix ListesDonneesBrutes::parametres(const DataEnvironment1 &donnees, std::optional<Famille> famille)
{
    ListeChoix lignes;
    // A parameter without a group is no pesticide.
    Requete r = donnees.executer(
        QStringLiteral("SELECT p.CodeParam, p.NomParam, coalesce(p.CodeGroupeParam, '') FROM PARAMETRE p "
                       "WHERE EXISTS (SELECT 1 FROM MESURE_PHYSICO m WHERE m.CodeParam = p.CodeParam) "
                       "ORDER BY p.NomParam COLLATE FRANCAIS, p.CodeParam"));
    while (r.suivant()) {
        const bool pesticide = r.texte(2).compare(QLatin1String("PS"), Qt::CaseInsensitive) == 0;
        if (famille && pesticide != (famille == Famille::Pesticides))
            continue;
        const QString nom = r.texte(1).trimmed();
        lignes << Choix{r.texte(0), nom.isEmpty() ? r.texte(0) : nom, r.texte(0)};
    }
    return lignes;
}
