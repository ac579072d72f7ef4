// Whether a document of the user's can be read now.
#pragma once

#include <QString>

// An Erreur with a sentence for the user when the file is absent (53), when this user may not read it, or when another
// program holds it (70): a lock of the system, or the lock file that an office program lays beside a document that it
// has open.
void verifierLisible(const QString &cheminHote);
