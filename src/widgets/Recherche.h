// How the lists look for what is typed: without regard to case and accents.
#pragma once

#include <QString>

namespace Recherche
{
// The text in small letters without accents: "Réseau" and "RESEAU" both give "reseau".
QString plier(const QString &texte);
} // namespace Recherche
