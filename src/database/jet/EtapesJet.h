// What the opening of a study does with an Access file.
#pragma once

#include <QString>

class Dialogue;
struct EtapesOuverture;

namespace EtapesJet
{
// Gives the opening its steps for Access files: their conversion, beside the file, with its wait window; their version;
// what becomes of the new store. `etapes` is to stay where it is, and must not outlive `dialogue`.
void brancher(EtapesOuverture &etapes, Dialogue &dialogue);

// First two characters of the property AccessVersion of an Access file; empty, once the user has been told, where the
// file has none or cannot be read.
QString LireVersionAccess(Dialogue &dialogue, const QString &chemin);
} // namespace EtapesJet
