// The save of a basin: its row, its objectives, its sub-basins, its communes, and whether it is the reference one.
#pragma once

#include "capture/M_Enreg_Tables.h"

// What the sheet of a basin holds. Its objectives are the rows of Temp_objectif.
struct SaisieBassin {
    ValeursFiche valeurs;
    LiensFiche liens;
    QStringList sousBassins; // CodeSSBV of those named
    QStringList retires;     // of those that were this basin's and that the user has taken back
    bool reference = false;  // it becomes the study's reference basin
};

namespace M_Enreg_Tables
{
// `nommer` is told the reference basin's name once it is written.
Enregistrement bassin(const SaisieBassin &saisie, const std::function<void(const QString &nom)> &nommer = {});

// Puts the objectives of a basin into Temp_objectif, in the order of their names; none for an invalid number.
void preparerObjectifs(const DataEnvironment1 &donnees, const QVariant &numBV);
// Why the rows of Temp_objectif cannot be saved (a row without a parameter, an unknown one, the same twice); empty
// where they can.
QString refusObjectifs(const DataEnvironment1 &donnees);

// NumBV of the row of this rowid.
QVariant numeroDeBassin(const DataEnvironment1 &donnees, qint64 rang);
// CodeSSBV of a basin's sub-basins.
QStringList sousBassinsDe(const DataEnvironment1 &donnees, const QVariant &numBV);
} // namespace M_Enreg_Tables
