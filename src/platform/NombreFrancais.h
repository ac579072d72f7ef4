// Numbers inside French texts.
#pragma once

#include <QString>

// A number as a French sentence has it: a comma, at most `decimales` decimals, no padding zeros ("8,3", "12", "-0,5").
QString nombreFrancais(double valeur, int decimales);
