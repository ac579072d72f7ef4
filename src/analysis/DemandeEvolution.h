// What an evolution chart is asked for: the selection screen's controls, as plain values.
#pragma once

#include "analysis/DemandeRapport.h"

#include <optional>
#include <QList>
#include <QString>
#include <QStringList>

// One curve: a parameter by its name, and for organic carbon the chosen row of the fractions ("23 - Eau brute").
struct CourbeDemandee {
    QString parametre;
    QString fraction;
    bool operator==(const CourbeDemandee &) const = default;
};

struct DemandeEvolution {
    // Station, period and filters. The parameter and the fraction are those of `courbes`; the flow station is here too.
    DemandeRapport selection;
    QList<CourbeDemandee> courbes; // one or two

    // Names of the producers and networks that the filters select, as the sheet tells them.
    QStringList nomsGestionnaires;
    QStringList nomsReseaux;

    // For a chart of one curve; they say nothing of two.
    bool fondSEQ = false;
    std::optional<double> objectifMoyen; // in the parameter's unit
    bool frequenceMoyen = false;         // the exceedances of the objective are told under the title
    std::optional<double> objectifMaximal;
    bool frequenceMaximal = false;
    bool norme = false;
    bool quantile = false;

    // Drawn when both are there.
    QString intituleSeuil;
    std::optional<double> valeurSeuil;

    QString stationPluie; // CodeStationPM when opt_pluvio is chosen, else empty
    // Top of the axis of the first curve; none: as high as the values want it.
    std::optional<double> echelleMaximale;
};
