// Words that many boxes share.
#pragma once

#include <QStringView>

namespace Textes
{
// The program's title, and the title of a box that has none of its own.
inline constexpr QStringView TITRE_PROGRAMME = u"Ovralis - Outil Local";
} // namespace Textes
