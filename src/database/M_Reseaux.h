// The networks of samplings, as one text.
#pragma once

#include <QString>

class DataEnvironment1;
class Requete;

namespace M_Reseaux
{
// Between the labels of a sampling's networks; the save of a sampling splits on it.
inline constexpr QStringView SEPARATEUR = u" | ";

// Fills the work table Temp_mesures_reseaux, emptied first, from rows sorted by NumPrel with the columns NumPrel and
// CodeReseau (null for a sampling without a network): one row for each sampling, with the labels of its networks joined.
// Returns that text where there is one sampling, the empty text otherwise. The rows are read to their end.
QString ReseauxMesures(const DataEnvironment1 &donnees, Requete &mesures);
} // namespace M_Reseaux
