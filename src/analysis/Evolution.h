// One evolution chart, read and computed: what its sheet holds and what its chart shows of it.
#pragma once

#include "analysis/CalculEvolution.h"
#include "analysis/DemandeEvolution.h"
#include "analysis/GraphiqueEvolution.h"
#include "analysis/LectureEvolution.h"

#include <array>
#include <optional>
#include <QList>
#include <QStringList>

// What the sheet and the chart show.
struct Evolution {
    EnTeteEvolution enTete;
    QList<LigneEvolution> lignes;
    std::array<int, 2> effectifs{}; // values of each curve
    bool avecDebit = false;
    bool avecPluie = false;
    double maximumSecondaire = 0;                 // of the flows or the rain
    double maximum = 0;                           // of the values on the first curve's axis
    std::optional<StatistiquesEvolution> figures; // of a single curve
    std::optional<BandesSEQ> bandes;
    QStringList sources; // names of the producers of what is shown

    int mesures() const { return effectifs[0] + effectifs[1]; }
    bool seule() const { return enTete.courbes.size() == 1; }
    // A threshold is drawn when it has both a name and a value.
    static bool avecSeuil(const DemandeEvolution &demande)
    {
        return !demande.intituleSeuil.isEmpty() && demande.valeurSeuil.has_value();
    }
};

// The chart that shows it.
DescriptionGraphiqueEvolution decrireGraphique(const DemandeEvolution &demande, const Evolution &evolution);
