// The few signs drawn inside fields, in the colours of the palette in use.
#pragma once

#include <QIcon>
#include <QPalette>

namespace Icones
{
// A calendar leaf, 16 x 16.
QIcon calendrier(const QPalette &palette);
} // namespace Icones
