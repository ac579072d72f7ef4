// Blocks of cells on the clipboard, in the form that spreadsheets use: tabs between cells, a line for each row.
#pragma once

#include <QList>
#include <QStringList>

class QAbstractItemView;

namespace BlocCellules
{
// Puts what is selected on the clipboard: the smallest rectangle that holds it, what is not selected being empty.
void copier(const QAbstractItemView &vue);
// The rows that the clipboard holds; empty where it holds no text.
QList<QStringList> lire();
} // namespace BlocCellules
