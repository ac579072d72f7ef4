// The import as the user drives it: file dialogs, the run, the screen that a stopped run asks for, the resumption.
#pragma once

#include "exchange/CourseImport.h"
#include "exchange/ImportSession.h"

#include <optional>
#include <QString>

class Cadre;
struct Session;

namespace ControleurImport
{
// The menu entries of flows and of rainfall: ask for the workbook, then import it. A cancelled dialog ends it quietly.
void importerHydro(Session &session, Cadre &cadre);
void importerPluvio(Session &session, Cadre &cadre);

// The file to import, in the host's form, or nothing on cancel. The dialog starts where the last import was found, else
// beside the base.
std::optional<QString> choisirFichier(Session &session, const QString &filtre);

// A new import of the file at this host path, of the kind that the file's extension tells: a workbook of measures, an
// XML document, otherwise SANDRE frames.
void importerFichier(Session &session, Cadre &cadre, const QString &fichier);

// Whether there is a routine for this kind of import.
bool lecteurDisponible(TypeImport type);

// Runs the routine of session.importSession.typeImport, from the stored row on where there is one, and shows the screen
// that it asks for.
void RelancerImport(Session &session, Cadre &cadre);

// Shows the screen that a stopped run asks for; nothing for one that is over.
void montrerIssue(Session &session, Cadre &cadre, const IssueImport &issue);
} // namespace ControleurImport
