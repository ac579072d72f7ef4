// Saving a workbook of hundreds of thousands of rows, which may take minutes.
#pragma once

#include <functional>
#include <QString>

class Classeur;

namespace SauvegardeLongue
{
struct Patience {
    int delaiMs = 0;             // after which the application is taken for hung and killed
    std::function<void()> ceder; // called some times a second, in the caller's thread; throws nothing
};

// Classeur::enregistrerSous, with the window kept alive: an Erreur tells what is in the way, and a file that was there is
// then untouched. `ceder` may end the application (Tableur::tuer), which ends the save as an ErreurTableur; it must use
// it for nothing else.
void enregistrerSous(Classeur &classeur, const QString &cheminHote, const Patience &patience);
} // namespace SauvegardeLongue
