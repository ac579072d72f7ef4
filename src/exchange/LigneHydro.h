// A row of flows, checked. Pure.
#pragma once

#include "exchange/LigneExcel.h"
#include "exchange/ReferencesImport.h"

struct MesureHydro {
    QString station;
    QDate date;
    QString heure; // "hh:mm:ss"; empty for none, midnight included
    bool mensuel = false;
    double debit_l_s = 0;
};

// The fields in their fixed order; the first that does not hold throws ArretImport.
MesureHydro lireLigneHydro(const LigneExcel &ligne, const ReferencesHydro &references);
