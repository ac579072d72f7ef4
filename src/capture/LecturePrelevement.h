// Reads the samplings of a key from the store.
#pragma once

#include "capture/LignePrelevement.h"

class DataEnvironment1;

namespace LecturePrelevement
{
// Whether the key has a result of the family.
bool existe(const DataEnvironment1 &donnees, FamillePrelevement famille, const ClePrelevement &cle);

// The results of the family, in the order in which they were saved, with the networks of their samplings in the order in
// which these were given. Fills Temp_mesures_reseaux on the way.
QList<LignePrelevement> lire(const DataEnvironment1 &donnees, FamillePrelevement famille,
                             const ClePrelevement &cle);

// A stored number as a cell shows it: a comma, all its decimals; empty for null.
QString nombre(const QVariant &valeur);
} // namespace LecturePrelevement
