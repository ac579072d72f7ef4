// The rows of a sampling as a workbook to be looked at.
#pragma once

#include "capture/LignePrelevement.h"
#include "capture/VueMesures.h"
#include "workbook/Plage.h"

struct DemandeVisualisation {
    FamillePrelevement famille = FamillePrelevement::PhysicoChimie;
    QString station;
    QString nomStation;
    QDate date;
    QString heure; // as typed; empty where there is none
    QList<TextesLigne> lignes;
};

namespace VisualisationPrelevement
{
// The row of headers and the rows below it, from row 6 on. Numbers are numbers; a code keeps the zeros that it begins with.
Valeurs tableau(const DemandeVisualisation &demande);

// "Mesures_Physico_31-01-26.xls", "Mesures_Phyto_31-01-26.xls".
VueMesures vue(const DemandeVisualisation &demande);
} // namespace VisualisationPrelevement
