// The correspondences between old and new codes of the outside bodies, and the update of the codes by them.
#pragma once

#include <functional>
#include <QList>
#include <QString>

class DataEnvironment1;
class Tableur;

namespace M_Intervenants
{
inline constexpr int LONGUEUR_CODE = 17;

struct Correspondance {
    QString ancien;
    QString nouveau;
};

// The pairs of the workbook at this host path: its sheet "IMPORT_MAJ_INTERVENANTS", columns 1 and 2 from row 2 down to
// the first row with an empty first cell. Codes typed as numbers are read as whole numbers.
QList<Correspondance> lireCorrespondances(Tableur &tableur, const QString &fichier);

// Files the pairs in CORRESP_INTERVENANT. A code that is there already is replaced with `ecraser`, kept without. Each
// pair gives one line of log through `journal`. Returns how many were added or replaced.
int importer(const DataEnvironment1 &donnees, const QList<Correspondance> &paires, bool ecraser,
             const std::function<void(const QString &)> &journal);

// One line of the consultation: a body, its code, and the new code found for it (or nothing).
struct LigneIntervenant {
    QString nom;
    QString code;
    QString nouveau;
};
enum class Tri { Libelle, AncienCode, NouveauCode };
// All bodies in this order; in the order of new codes, lines without one come last, by name.
QList<LigneIntervenant> lister(const DataEnvironment1 &donnees, Tri tri);

// Number of rows of CORRESP_INTERVENANT.
int nombreCorrespondances(const DataEnvironment1 &donnees);

// Replaces the old codes by the new ones wherever they are used, pair by pair, each pair whole or not at all. Where the
// new code is a body already, the old body's row stays and its measures join the other's. Returns how many were merged
// so. `progres` is told the position of the pair, from 1.
int mettreAJour(const DataEnvironment1 &donnees, const std::function<void(int)> &progres);
} // namespace M_Intervenants
