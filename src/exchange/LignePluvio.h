// A row of rainfall, checked. Pure.
#pragma once

#include "exchange/LigneExcel.h"
#include "exchange/ReferencesImport.h"

struct MesurePluvio {
    QString station;
    QString gestionnaire;
    QDate date;
    double pluie_mm = 0;
    QString commentaire;
};

// The fields in their fixed order; the first that does not hold throws ArretImport.
MesurePluvio lireLignePluvio(const LigneExcel &ligne, const ReferencesPluvio &references);
