// The rows of a sheet, one after the other, fetched many at a time.
#pragma once

#include "workbook/Feuille.h"

// Each call to the spreadsheet application costs far more than the cells that it brings, so rows come in bundles.
class LecteurLignes
{
public:
    // `colonnes`: how many columns are read, from the first.
    LecteurLignes(const Feuille &feuille, int colonnes);

    // The cells of a row, counted from 1; valid until the next call. A row beyond the end of the sheet has none.
    const QVector<QVariant> &ligne(int numero);

    // First even row whose cell in this column is empty: scale of the progress bar, measured by steps of two rows.
    int premiereLignePaireVide(int colonne) const;

private:
    Feuille m_feuille;
    int m_colonnes;
    int m_derniere;     // last row that holds anything
    int m_premiere = 0; // row of m_lot's first
    Valeurs m_lot;
};
