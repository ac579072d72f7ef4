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

// Renames `preparation`, written in the folder of `destination`, onto it in one step, after having synchronised it. An
// Erreur leaves both as they were.
void mettreEnPlace(const QString &preparation, const QString &destination);

// Another name for the same content, in the same folder: a second name of the file where the file system has such, else
// a copy. `nouveau` must not exist. An Erreur leaves nothing under that name.
void doubler(const QString &fichier, const QString &nouveau);

// The reason of a failure in French, by its number; the system's own words for one that is not known here.
QString raison(int numero);

// The name under which `remplacer` prepares the copy; a leftover of a killed run may be removed.
QString nomDePreparation(const QString &destination);
} // namespace FichierSur
