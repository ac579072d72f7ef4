// What the cells and the charts of a workbook of fluxes say. Values only, no workbook.
#pragma once

#include "analysis/FluxCalcul.h"
#include "analysis/LectureFlux.h"
#include "workbook/Plage.h"

#include <QPair>
#include <QString>

namespace ContenuFlux
{
// Status shown while a flux is reckoned: "Calcul des flux mensuels".
QString statut(GenreFlux genre);

// "BASSIN VERSANT :  ", the basin, what evolves, the parameter, the station.
QString titre(const FluxDemande &demande, const EnTeteFlux &enTete, const QString &parametre);
// "Flux mensuels (T de N-No3)"
QString titreAxe(const FluxCalcule &flux);
QString titreAxeVolume();
// "Calcul des flux sur l'année civile"; a second line names the months or years without any flow, few or "et 12 autres".
QString note(const FluxCalcule &flux, ModeAnnee mode);
// "28 calc.": days that have a flow.
QString etiquette(const PeriodeFlux &periode);
// Texts of single points (from 1): "28 calc." where days of a month or year lack a flow.
QVector<QPair<int, QString>> etiquettes(const FluxCalcule &flux);

// The heading of the sheet "Mesures", one row each; an area that is null is "non définie".
Valeurs identite(const EnTeteFlux &enTete);
// Headings of the samples' and the days' columns; concentrations are in mg/l, flows in l/s.
QVector<QVariant> titresMesures();
QVector<QVariant> titresJours();
QString nomBloc(GenreFlux genre);
// One row a sample: date, concentration. One row a day: date, flow, volume, concentration, flux.
Valeurs mesures(const FluxCalcule &flux);
Valeurs jours(const FluxCalcule &flux);

// Headings and rows of the flux's own sheet: date or year, flux, days with a flow where some lack one, observation, and
// the volume for GenreFlux::ParVolume.
QVector<QVariant> titresFlux(const FluxCalcule &flux);
Valeurs lignes(const FluxCalcule &flux);
// "Aucun débit", "Débit connu 28 jours sur 31"; empty where nothing lacks.
QString observation(const PeriodeFlux &periode);
} // namespace ContenuFlux
