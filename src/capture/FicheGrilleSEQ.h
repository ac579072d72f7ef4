// The sheet of the SEQ grids: the class bounds of a parameter (GRILLE_SEQ).
#pragma once

#include "capture/DescriptionFiche.h"

#include <array>
#include <optional>

namespace Fiches
{
// The four bounds; the second pair that the computations use (Valeur3BisSEQ, Valeur4BisSEQ) is not shown, and stays.
const DescriptionFiche &grilleSEQ();
} // namespace Fiches

namespace FicheGrilleSEQ
{
// Upper bounds of the classes blue, green, yellow and orange, in the parameter's unit; nothing where none was typed.
using Bornes = std::array<std::optional<double>, 4>;

// Why the bounds cannot be saved, or an empty text: each must be there, and each greater than the one before.
QString faute(const Bornes &bornes);
// The position, from 0, of the bound that `faute` speaks of; -1 where there is none.
int borneEnFaute(const Bornes &bornes);
} // namespace FicheGrilleSEQ
