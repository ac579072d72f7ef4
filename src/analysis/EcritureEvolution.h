// Fills the sheet "Mesures" of an evolution chart.
#pragma once

#include "analysis/CalculEvolution.h"
#include "analysis/DemandeEvolution.h"
#include "analysis/LectureEvolution.h"

#include <optional>

class Feuille;

// What the sheet and the chart show.
struct Evolution {
    EnTeteEvolution enTete;
    QList<LigneEvolution> lignes;
    std::array<int, 2> effectifs{}; // values of each curve
    bool avecDebit = false;
    bool avecPluie = false;
    double maximum = 0;                           // of the values on the first curve's axis
    std::optional<StatistiquesEvolution> figures; // of a single curve
    std::optional<BandesSEQ> bandes;
    QStringList sources; // names of the producers of what is shown

    bool seule() const { return enTete.courbes.size() == 1; }
};

// Heading, names of the series and one rectangle for all rows. What the run does not use stays empty.
void ecrireEvolution(Feuille &feuille, const DemandeEvolution &demande, const Evolution &evolution);
