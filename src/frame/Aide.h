// The user's help: HTML pages beside the program.
#pragma once

#include <QString>

class Dialogue;

namespace Aide
{
// Host path of the page of this screen, of the first page where `ecran` is empty or has no page of its own.
QString page(const QString &ecran);
// Hands that page to the desktop's browser; a box says where it is when there is none.
void ouvrir(Dialogue &dialogue, const QString &ecran);
} // namespace Aide
