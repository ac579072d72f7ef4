// Lays out the program's folders for a play.
#pragma once

#include <QString>
#include <QStringList>

namespace Installation
{
// Fills the folder that stands for C:\ with a copy of the installation made by the build, where that folder is absent or
// empty; leaves it alone otherwise. Gives back what is missing in the installation itself, one sentence each.
QStringList garnir(const QString &racine, const QString &modele);
} // namespace Installation
