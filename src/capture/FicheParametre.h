// The sheet of the parameters (PARAMETRE), with the units in which one may be imported and its drinking-water norms.
#pragma once

#include "capture/DescriptionFiche.h"

#include <optional>
#include <QStringList>

class DataEnvironment1;

namespace Fiches
{
const DescriptionFiche &parametre();
}

namespace FicheParametre
{
inline constexpr QStringView GROUPE_PESTICIDES = u"Pesticides";
inline constexpr QStringView GROUPE_PHYSICO = u"Physico-chimie / environnement";

// The labels of NatureParam, in the order in which they are offered.
QStringList natures();
// CodeGroupeParam: "PS" for the group of the pesticides, or for their nature; "PC" for all else.
QString groupe(const QString &codeChoisi, const QString &nature);
// The parameter that bears this name, the first in the order of the command Parametre; empty where none does.
QString codeDuNom(const DataEnvironment1 &donnees, const QString &nom);

// CodeUnite of the units of IMPORT_PAR_URF other than the unit of reference, in the order of their writing.
QStringList autresUnites(const DataEnvironment1 &donnees, const QString &code, const QString &reference);
// Writes the pair of the unit of reference anew, as the one that this system uses (nothing for an empty one); then the pairs of
// the other units that were not there yet, and takes out those that are no longer named.
void ecrireUnites(const DataEnvironment1 &donnees, const QString &code, const QString &reference,
                  const QStringList &autres);

// Norms of a parameter by fraction (CD_FRACTION). Organic carbon, "1841", has one, stored without fraction, under the
// empty text.
using Normes = QMap<QString, std::optional<double>>;
bool sansFraction(const QString &code);
Normes normes(const DataEnvironment1 &donnees, const QString &code);
// Writes the values that are there, into the row of their fraction or a new one; the rows of those that are not go.
void ecrireNormes(const DataEnvironment1 &donnees, const QString &code, const Normes &normes);
} // namespace FicheParametre
