#include "analysis/ReglesFlux.h"

#include "analysis/DispositionFlux.h"

#include <algorithm>

namespace
{
using namespace ReglesFlux;

struct LigneNommee {
    Ligne ligne;
    Champ debut;
    Champ fin;
};

// The kinds that are asked for.
QList<LigneNommee> lignesDemandees(const Controles &controles)
{
    QList<LigneNommee> lignes;
    if (controles.mensuel.demande)
        lignes << LigneNommee{controles.mensuel, Champ::DebutMensuel, Champ::FinMensuel};
    if (controles.annuel.demande)
        lignes << LigneNommee{controles.annuel, Champ::DebutAnnuel, Champ::FinAnnuel};
    if (controles.cumule.demande || controles.parVolume)
        lignes << LigneNommee{controles.cumule, Champ::DebutCumule, Champ::FinCumule};
    return lignes;
}
} // namespace

std::optional<ReglesFlux::Refus> ReglesFlux::premierRefus(const Controles &controles)
{
    if (controles.station.isEmpty() || controles.stationDebit.isEmpty())
        return Refus{QStringLiteral("Les deux stations doivent être renseignées."),
                     controles.station.isEmpty() ? Champ::Station : Champ::StationDebit};
    const QString periode = QStringLiteral("Une période doit être renseignée");
    const QList<LigneNommee> lignes = lignesDemandees(controles);
    if (lignes.isEmpty())
        return Refus{periode, Champ::Choix};
    for (const LigneNommee &nommee : lignes) {
        if (nommee.ligne.debut.isNull() || nommee.ligne.fin.isNull())
            return Refus{periode, nommee.ligne.debut.isNull() ? nommee.debut : nommee.fin};
    }
    for (const LigneNommee &nommee : lignes) {
        if (nommee.ligne.fin < nommee.ligne.debut)
            return Refus{
                QStringLiteral("Vous devez saisir une date de fin supérieure ou égale à la date de début"),
                nommee.fin};
        if (nommee.ligne.debut.daysTo(nommee.ligne.fin) > DispositionFlux::JOURS_POSSIBLES - 2 * 366)
            return Refus{
                QStringLiteral("La période est trop longue : une feuille du classeur a une ligne par "
                               "jour, et ne peut en contenir plus de %1.")
                    .arg(DispositionFlux::JOURS_POSSIBLES),
                nommee.debut};
    }
    return std::nullopt;
}

QList<FluxDemande> ReglesFlux::fluxDemandes(const Controles &controles)
{
    QList<FluxDemande> flux;
    const auto mois = [](const Ligne &ligne) { return bornesMois(ligne.debut, ligne.fin); };
    if (controles.mensuel.demande)
        flux << FluxDemande{GenreFlux::Mensuel, mois(controles.mensuel), controles.mensuel.specifique};
    if (controles.annuel.demande)
        flux << FluxDemande{
            GenreFlux::Annuel,
            bornesAnnees(controles.annuel.debut.year(), controles.annuel.fin.year(), controles.mode),
            controles.annuel.specifique};
    if (controles.cumule.demande)
        flux << FluxDemande{GenreFlux::Cumule, mois(controles.cumule), controles.cumule.specifique};
    if (controles.parVolume)
        flux << FluxDemande{GenreFlux::ParVolume, mois(controles.cumule), false};
    return flux;
}

bool ReglesFlux::demandeSpecifique(const QList<FluxDemande> &flux)
{
    return std::any_of(flux.begin(), flux.end(), [](const FluxDemande &f) { return f.specifique; });
}
