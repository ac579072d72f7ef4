// The palette of the charts, to and from a workbook.
#pragma once

#include "platform/Dialogue.h"

#include <QList>
#include <QString>

class Classeur;
class DataEnvironment1;
class Tableur;

// A palette workbook: a sheet "Couleurs", one row a colour from row 1, the columns R, G and B; the cell A1 bears the name
// "couleurs_OVR", by which a palette is recognised.
namespace M_ClasseurCouleurs
{
inline constexpr int NOMBRE_COULEURS = 40;

// Asks for a file, first in `dossierInitial`, and writes the palette there. Failures go up. False on cancel.
bool SauvegarderCouleurs(const DataEnvironment1 &donnees, Tableur &tableur, Dialogue &dialogue,
                         const QString &dossierInitial);

// Asks for a palette workbook and replaces COULEURS_GRAPH by it; a file without the mark is refused with a message and
// the table is left alone. True when the palette was replaced: the session's arrays are then to be loaded again.
bool RestaurerCouleurs(const DataEnvironment1 &donnees, Tableur &tableur, Dialogue &dialogue,
                       const QString &dossierInitial);

// The 40 colours of an open palette workbook; nothing when it lacks the mark. A cell that is not a number is 0.
std::optional<QList<Couleur>> lirePalette(const Classeur &classeur);

// Replaces the rows of COULEURS_GRAPH by these, numbered from 1, all or none.
void remplacerPalette(const DataEnvironment1 &donnees, const QList<Couleur> &couleurs);
} // namespace M_ClasseurCouleurs
