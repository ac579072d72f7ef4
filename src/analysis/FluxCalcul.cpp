#include "analysis/FluxCalcul.h"

#include <algorithm>

namespace
{
QList<PeriodeFlux> agreger(const QList<JourFlux> &jours, GenreFlux genre, ModeAnnee mode)
{
    switch (genre) {
    case GenreFlux::Mensuel:
        return fluxMensuels(jours);
    case GenreFlux::Annuel:
        return fluxAnnuels(jours, mode);
    case GenreFlux::Cumule:
    case GenreFlux::ParVolume:
        return cumuler(fluxMensuels(jours));
    }
    return {};
}
} // namespace

int FluxCalcule::lignesAvecFlux() const
{
    return static_cast<int>(std::count_if(lignes.begin(), lignes.end(),
                                          [](const LigneFlux &ligne) { return ligne.flux.has_value(); }));
}

FluxCalcule calculerFlux(const FluxDemande &demande, ModeAnnee mode, const QString &codeParametre,
                         std::optional<double> surfaceKm2, const QList<ConcentrationDuJour> &mesures,
                         const QList<DebitDuJour> &debits)
{
    FluxCalcule calcule;
    calcule.demande = demande;
    calcule.enAzote = codeParametre == NITRATES;
    calcule.mesures = parJour(mesures);
    calcule.jours = fluxJournaliers(demande.bornes, calcule.mesures, parJour(debits));
    UniteFlux unite;
    unite.enAzote = calcule.enAzote;
    if (demande.specifique)
        unite.surfaceKm2 = surfaceKm2;
    const QList<PeriodeFlux> periodes = agreger(calcule.jours, demande.genre, mode);
    for (const PeriodeFlux &periode : periodes) {
        LigneFlux ligne;
        ligne.periode = periode;
        if (periode.fluxMg)
            ligne.flux = convertirFlux(*periode.fluxMg, unite);
        if (demande.genre == GenreFlux::ParVolume && periode.volumeL)
            ligne.volumeM3 = volumeM3(*periode.volumeL);
        calcule.lignes << ligne;
    }
    return calcule;
}
