// Registry helpers.
#pragma once

#include "platform/Registre.h"

class Dialogue;

namespace General
{
// What LireRegistre returns when the key or the value is absent.
inline constexpr QStringView ABSENT = u"Error";

// The handle of a root by its name ("HKEY_LOCAL_MACHINE"); Aucune for another text.
Registre::Racine RacineRegistre(const QString &nom);
// A value by the whole path of its key, root included. A path that does not begin with "HKEY_", or ends with a backslash,
// is told in a box, and the empty text comes back; an absent key or value gives the text "Error".
QString LireRegistre(Dialogue &dialogue, const QString &chemin, const QString &valeur);
// The empty text when it is absent; the value is cut at its first NUL.
QString LireValeur(Registre::Racine racine, const QString &cle, const QString &nom);
bool CreerCle(Registre::Racine racine, const QString &cle);
bool EcrireValeur(Registre::Racine racine, const QString &cle, const QString &nom, const QString &valeur);
} // namespace General
