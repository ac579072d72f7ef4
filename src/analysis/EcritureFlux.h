// Puts the reckoned fluxes into a workbook made from "Modele_flux.xls".
#pragma once

#include "analysis/FluxCalcul.h"
#include "analysis/LectureFlux.h"

#include <functional>

class Classeur;

struct ResultatFlux {
    EnTeteFlux enTete;
    QString parametre; // as the titles name it
    ModeAnnee mode = ModeAnnee::Civile;
    QList<FluxCalcule> flux; // at most one of a kind
};

// Fills the sheet "Mesures" and the sheet and chart of each flux; the sheets of the fluxes that were not asked for are
// hidden, with their columns of the first; the file opens on the first flux. `parFeuille` is called once for each sheet filled.
void ecrireFlux(Classeur &classeur, const ResultatFlux &resultat, const std::function<void()> &parFeuille);
