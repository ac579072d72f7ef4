// The frame's side of opening a study.
#pragma once

struct Session;

// Opens session.FichierBase. False once the user has been told why it cannot be used.
bool ouvrirBase(Session &session);
// Loads the palette of the charts into the session.
void chargerPalette(Session &session);
// Adds to STATION_QUALITE the columns of the maps where they are missing. A failure is shown and start-up goes on.
void preparerCartes(Session &session);
