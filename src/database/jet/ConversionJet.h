// An Access study made into a store of ours.
#pragma once

#include "database/jet/LecteurJet.h"

#include <QString>

class DataEnvironment1;

namespace ConversionJet
{
// A file holds a study when the tables of samplings, results and stations are there.
bool estUneEtude(const LecteurJet &lecteur);

// Writes every table of the file, with its rows, to the store at this host path (an empty file, or none), and checks
// the number of rows of each. Tables and columns bear the schema's names; those that the schema knows and the file lacks
// come empty, those that the file alone has are kept. Foreign keys are those of the file, with their cascades. The
// tables that the file lacks are left out, so that the structure can be judged: see completer(). An Erreur leaves a file
// that is good for nothing.
void convertir(LecteurJet &lecteur, const QString &magasin);

// Adds to an accepted store what a new one has and this one lacks: tables, foreign keys, PARAMETRE_PHYTO, indexes.
// COULEURS_GRAPH, TECHNIQUE and APPLICATIONPROPERTIES are the matter of the opening.
void completer(const DataEnvironment1 &donnees);
} // namespace ConversionJet
