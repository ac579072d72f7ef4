// Fills the sheet of the statistics report.
#pragma once

#include "analysis/Annees.h"
#include "analysis/DemandeRapport.h"
#include "analysis/LectureRapportPC.h"
#include "analysis/StatistiquesPC.h"

class Feuille;

struct RapportPC {
    EnTeteRapport enTete;
    QList<Annee> annees;
    ResultatStatistiques resultat;
    QStringList sources; // names of the producers
};

// Writes the whole report. What is looks stands in the template, its first block of years drawn in full; the rest is done in
// few strokes, as each is a question and an answer between two programs: one rectangle of values for an area, copies of
// the first block for the others.
void ecrireRapportPC(Feuille &feuille, const DemandeRapport &demande, const RapportPC &rapport);
