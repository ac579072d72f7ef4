// Raw data as the text that other programs paste into their cells.
#pragma once

#include "analysis/LignesDonneesBrutes.h"

// A rectangle of cells, from 0, ends included.
struct PlageBrute {
    int premiereLigne = 0;
    int derniereLigne = 0;
    int premiereColonne = 0;
    int derniereColonne = 0;
    bool contient(int ligne, int colonne) const
    {
        return ligne >= premiereLigne && ligne <= derniereLigne && colonne >= premiereColonne &&
               colonne <= derniereColonne;
    }
};

namespace CopieDonneesBrutes
{
// More rows than this belong in a workbook.
inline constexpr qsizetype LIGNES_AU_PLUS = 100'000;

// Number of rows that have a cell in one of the rectangles.
qsizetype nombreLignes(const QList<PlageBrute> &plages);
// The titles of the columns that have a cell in one of the rectangles, then those rows, cells parted by tabs, lines by
// line feeds. A cell outside all of them is empty; a tab or a line break inside a text becomes a blank.
QString texte(LignesDonneesBrutes &lignes, const QList<PlageBrute> &plages);
} // namespace CopieDonneesBrutes
