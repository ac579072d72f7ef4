// The frame's side of opening a study.
#pragma once

struct Session;

// Opens session.FichierBase and fills what the session knows of it, the palette included. False once the user has been told why it cannot be used.
bool ouvrirBase(Session &session);
// Loads the palette of the charts into the session.
void chargerPalette(Session &session);
// What the maps find in the session. Their second handle on the base has no object here: the one connection serves.
void InitCarte(Session &session);
