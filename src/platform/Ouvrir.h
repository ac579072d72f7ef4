// Handing a document to the application that the desktop has for it.
#pragma once

#include <QString>

// Opens the document at this host path, in a maximised window where the desktop lets one ask for it, the document's
// own folder as working folder. False where the document does not exist or the desktop has no means to open it; what
// the other application does afterwards is not known here.
bool ouvrirAvecSonApplication(const QString &cheminHote);
