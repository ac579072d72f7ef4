// Text to number, written once for the whole program.
#pragma once

#include <QVariant>

// The number of a text box, a grid cell or a workbook cell: comma and point are both the decimal separator, blanks around
// the text and between groups of digits are left out, at most four decimals are kept (nearest, ties to even). Empty and
// null are 0. A text that is no number is an Erreur (number 13).
double VersNombre(const QVariant &valeur);

// Whether VersNombre takes this text; false for an empty one.
bool EstNumerique(const QString &texte);
