// The housekeeping commands of the menu that have no screen of their own. Their failures go up to the main window's
// handler.
#pragma once

class Cadre;
struct Session;

namespace CommandesMaintenance
{
// Ends the program when the compacted base cannot be opened again.
void compacter(Session &session, Cadre &cadre);
void sauvegarderCouleurs(Session &session, Cadre &cadre);
void restaurerCouleurs(Session &session, Cadre &cadre);
void transposerReseaux(Session &session, Cadre &cadre);
} // namespace CommandesMaintenance
