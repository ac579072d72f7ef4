// Which reference sheet adds an element that an import does not know.
#pragma once

#include "exchange/ImportSession.h"

#include <functional>

class Cadre;
struct Session;

// Opens a sheet at the top left of the main window, filled from session.importSession (ElementNom, ElementCode...).
using OuvrirFiche = std::function<void(Session &, Cadre &)>;

// The sheet for this kind of element; empty where the program has none: "Ajouter" is then disabled.
OuvrirFiche ficheAjout(TypeElement type);
