// Putting a file in place so that a kill or a full disk at any moment leaves the old one or the new one, whole.
#pragma once

#include <QString>

namespace FichierSur
{
// Forces the content of a file, or the entries of a folder, onto the disk. An Erreur when that fails.
void synchroniser(const QString &chemin);

// Copies `source` beside `destination`, synchronises the copy, and renames it onto `destination` in one step. An
// Erreur leaves `destination` as it was and no partial copy.
void remplacer(const QString &source, const QString &destination);

// The name under which `remplacer` prepares the copy; a leftover of a killed run may be removed.
QString nomDePreparation(const QString &destination);
} // namespace FichierSur
