// Where things stand in a workbook of fluxes; shared with the program that makes the template "Modele_flux.xls".
#pragma once

#include "analysis/FluxPeriode.h"

#include <QStringView>

namespace DispositionFlux
{
inline constexpr QStringView FEUILLE_MESURES = u"Mesures";
inline constexpr GenreFlux GENRES[] = {GenreFlux::Mensuel, GenreFlux::Annuel, GenreFlux::Cumule,
                                       GenreFlux::ParVolume};

// The sheet of a flux; it holds a chart "Graphique".
constexpr QStringView feuille(GenreFlux genre)
{
    switch (genre) {
    case GenreFlux::Mensuel:
        return u"Flux_Mensuel";
    case GenreFlux::Annuel:
        return u"Flux_Annuel";
    case GenreFlux::Cumule:
        return u"Flux_Cumulé";
    case GenreFlux::ParVolume:
        return u"Flux_Par_Volume";
    }
    return {};
}
inline constexpr QStringView GRAPHIQUE = u"Graphique";
inline constexpr int SERIE_FLUX = 1;
inline constexpr int SERIE_VOLUME = 2;      // GenreFlux::ParVolume alone, on the second axis
inline constexpr int TAILLE_ETIQUETTES = 8; // points
// Under the chart: the kind of year, and what lacks.
inline constexpr QStringView ZONE_NOTE = u"Text Box 1";

// The sheet "Mesures": what the fluxes were reckoned for, then the samples and the days of each kind side by side.
inline constexpr int LIGNE_BASSIN = 1;
inline constexpr int LIGNE_STATION = 2;
inline constexpr int LIGNE_STATION_DEBIT = 3;
inline constexpr int LIGNE_SURFACE = 4;
inline constexpr int COLONNE_LIBELLES = 1;
inline constexpr int COLONNE_IDENTITE = 2;
inline constexpr int LIGNE_BLOCS = 6; // name of the kind
inline constexpr int LIGNE_TITRES = 7;
inline constexpr int LIGNE_JOURS = 8; // first day, first sample

// Samples: date, concentration; a blank column follows.
inline constexpr int COLONNES_MESURES = 3;
constexpr int colonneMesures(GenreFlux genre)
{
    return 3 + COLONNES_MESURES * static_cast<int>(genre);
}
// Days: date, flow, volume, concentration, flux. The date stands in column 15, 20, 25 or 30 by kind, the concentration
// three further.
inline constexpr int COLONNES_JOURS = 5;
constexpr int colonneJours(GenreFlux genre)
{
    return 15 + COLONNES_JOURS * static_cast<int>(genre);
}

// A flux's sheet: one row a month or a year.
inline constexpr int LIGNE_ENTETE = 1;
inline constexpr int LIGNE_FLUX = 2; // first row
inline constexpr int COLONNE_DATE = 1;
inline constexpr int COLONNE_FLUX = 2;
inline constexpr int COLONNE_JOURS_CALCULES = 3; // where days lack a flow: the number of those that have one
inline constexpr int COLONNE_OBSERVATION = 4;
inline constexpr int COLONNE_VOLUME = 5; // GenreFlux::ParVolume alone
constexpr int derniereColonne(GenreFlux genre)
{
    return genre == GenreFlux::ParVolume ? COLONNE_VOLUME : COLONNE_OBSERVATION;
}
// The chart stands right of a blank column.
constexpr int colonneGraphique(GenreFlux genre)
{
    return derniereColonne(genre) + 2;
}

// How months are shown, in the cells and on the axis.
inline constexpr QStringView FORMAT_MOIS = u"mm/yyyy";

// Beyond this many rows the points of a line are no longer told apart, and their markers go.
inline constexpr int POINTS_MARQUES = 50;

// Days that a sheet of the .xls format holds below the headings.
inline constexpr int JOURS_POSSIBLES = 65536 - LIGNE_JOURS + 1;
} // namespace DispositionFlux
