// Rows and columns of a grid.
#pragma once

#include <QTableView>

namespace Grille
{
// The table behind a control; throws Echec if it is none.
QTableView *de(QWidget *controle);
// The cell, counted from 0; throws Echec outside the grid.
QModelIndex index(const QTableView *grille, int ligne, int colonne);
// Whether the focus is in a field that a grid has opened over a cell.
bool saisieOuverte();
} // namespace Grille
