// The order of results by any column. Pure: no database, no window.
#pragma once

#include "analysis/JeuDonneesBrutes.h"

namespace OrdreDonneesBrutes
{
// For each result a number that sorts as the column's value does: nothing first, then dates and numbers by their value,
// texts in French order. The column has been read (JeuDonneesBrutes::colonneLue).
std::vector<quint64> cles(const JeuDonneesBrutes &jeu, ColonneBrute colonne);
// Places in the order of their keys; those of equal keys stay as they stand, in both directions. Some 30 ms for a
// million keys that are places of a lexicon.
std::vector<quint32> ordonner(std::vector<quint64> cles, bool decroissant);
} // namespace OrdreDonneesBrutes
