// The dialogue that surrounds the saving of measures.
#pragma once

#include <functional>
#include <QString>

class Dialogue;

enum class SuiteMesures {
    Annule, // the screen stays as it is
    Autres, // to be emptied for other measures
    Fini,   // to be closed
};

// Asks, has `ecrire` write, asks whether to go on with the closing question `fin`. What `ecrire` throws goes through.
SuiteMesures enregistrerMesures(Dialogue &dialogue, const std::function<void()> &ecrire, const QString &fin);
