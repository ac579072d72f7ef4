#include "analysis/ReglesHydrologie.h"

std::optional<ReglesHydrologie::Refus> ReglesHydrologie::premierRefus(const DemandeHydrologie &demande)
{
    if (demande.debit != GenreDebit::Aucun && demande.stationDebit.isEmpty())
        return Refus{QStringLiteral("Le code de la station hydrométrique doit être renseigné."),
                     Champ::StationDebit};
    if (demande.pluie && demande.stationPluie.isEmpty())
        return Refus{QStringLiteral("Le code de la station pluviométrique doit être renseigné."),
                     Champ::StationPluie};
    if (!demande.debut.isValid() || !demande.fin.isValid())
        return Refus{QStringLiteral("La période doit être entièrement renseignée"),
                     demande.debut.isValid() ? Champ::DateFin : Champ::DateDebut};
    if (demande.fin < demande.debut)
        return Refus{
            QStringLiteral("Vous devez saisir une date de fin supérieure ou égale à la date de début"),
            Champ::DateFin};
    if (demande.debit == GenreDebit::Aucun && !demande.pluie)
        return Refus{QStringLiteral("Vous devez cocher un débit ou la pluviométrie."), Champ::Choix};
    return std::nullopt;
}
