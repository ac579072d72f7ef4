// What the buttons of F_Choix and F_Choix_unite do to the import, beside their own states.
#pragma once

class Cadre;
struct Session;

namespace ActionsChoix
{
// The stopped row will be passed over; says so.
void ignorer(Session &session);
// Takes back a skip: the import resumes at the row in question after all.
void reprendreLigneIgnoree(Session &session);
// Opens the imported file for the user to correct, the main window out of the way.
void corriger(Session &session, Cadre &cadre);
} // namespace ActionsChoix
