// The transposition of network codes: networks whose label stands in a workbook take the code given there.
#pragma once

#include "database/M_Structure_2002.h"
#include "platform/Dialogue.h"

#include <QList>
#include <QString>

class DataEnvironment1;
class Tableur;

namespace M_Transposition
{
// One entry of the workbook.
struct EntreeReseau {
    QString code; // at most 10 characters
    QString libelle;
    QString finalite;
};

// The entries of the workbook at this host path: from the cell of its first sheet named "reseau_sandre" (the new codes)
// down to the first blank one, the label on its right, the purpose on its left. An Erreur when it cannot be opened or
// has no such cell.
QList<EntreeReseau> lireEntrees(Tableur &tableur, const QString &fichier);

// Applies the entries to RESEAU_MESURE and to the memberships; `progres` is told the label under way. A network whose
// label is in no entry keeps its code.
void appliquer(const DataEnvironment1 &donnees, const QList<EntreeReseau> &entrees,
               const std::function<void(const QString &)> &progres);

// The memberships of one network become another's; an upgrade of the structure does that too.
using M_Structure_2002::TransposerPrelevements;

// The whole command; with an empty `fichier` it asks for one, first in the folder `dossierInitial`. Its own messages are
// shown; other failures go up. True when the entries were applied.
bool TransposerReseaux(const DataEnvironment1 &donnees, Tableur &tableur, Dialogue &dialogue,
                       const QString &fichier, const QString &dossierInitial);
} // namespace M_Transposition
