// Deleting a row of a reference table: never one that something uses.
#pragma once

#include "capture/DescriptionFiche.h"

class DataEnvironment1;
class Dialogue;
struct FicheLue;

namespace SuppressionFiche
{
// What uses the row, in words ("2 stations de qualité et 1 bassin versant"); empty where nothing does.
QString usages(const DataEnvironment1 &donnees, const DescriptionFiche &description, const FicheLue &fiche);
// Refuses, naming what uses the row; asks otherwise; deletes the rows that are a part of it, and the row. True where it
// has gone. A failure is an Erreur.
bool supprimer(const DataEnvironment1 &donnees, Dialogue &dialogue, const DescriptionFiche &description,
               const FicheLue &fiche);
} // namespace SuppressionFiche
