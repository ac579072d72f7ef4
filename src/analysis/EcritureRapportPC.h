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

// Writes the whole report: values first, as few rectangles as there are areas, then the formats of each block.
void ecrireRapportPC(Feuille &feuille, const DemandeRapport &demande, const RapportPC &rapport);
