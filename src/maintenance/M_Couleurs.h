// The palette of the charts: table COULEURS_GRAPH, and the session's mirror of it.
#pragma once

#include <array>
#include <QString>

class DataEnvironment1;
class Tableur;

namespace M_Couleurs
{
inline constexpr int NOMBRE = 40;
// Looked for beside the database: its first sheet has R, G and B in columns 1 to 3 of rows 1 to 40.
inline constexpr QStringView FICHIER = u"ovra_couleurs.xls";

struct Palette {
    std::array<int, NOMBRE> R{};
    std::array<int, NOMBRE> G{};
    std::array<int, NOMBRE> B{};
    bool operator==(const Palette &) const = default;
};

// Makes COULEURS_GRAPH and fills it, in one go: from FICHIER in `cheminBase` (a folder with its separator) when it opens,
// else with the spreadsheet's own colours 17 to 56. The spreadsheet is started only for a file that is there.
void CreerCouleurs(const DataEnvironment1 &donnees, Tableur &tableur, const QString &cheminBase);

// The palette by `ordre`, at most 40 rows; a colour without a row is black.
Palette ChargerCouleurs(const DataEnvironment1 &donnees);
} // namespace M_Couleurs
