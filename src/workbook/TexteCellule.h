// The text of a cell's value, as a user reads it.
#pragma once

#include <QString>
#include <QVariant>

// Text as it stands; a number in its shortest exact form with a point ("4190000", "0.5"), never in powers of ten below
// 1e15; a date as jj/mm/aaaa, a time as hh:mm:ss; an error's sign; empty for nothing.
QString texteCellule(const QVariant &valeur);
