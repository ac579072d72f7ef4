// Fills the sheet "Mesures" of the graphs of flows and rainfall and wires their chart to it.
#pragma once

#include "analysis/DemandeHydrologie.h"
#include "analysis/SerieHydrologie.h"

#include <functional>
#include <QStringList>

class Feuille;

struct ContenuHydrologie {
    GenreDebit debit = GenreDebit::Aucun; // of the rows that are there
    bool pluie = false;                   // rows have rain
    QString stationDebit;
    QString stationPluie;
    QString bassin;
    QStringList titre; // of the box above the chart
    QList<SerieHydrologie::Ligne> lignes;
};

// "Modele_concentr_hydro.xls": flows as a line, rain as columns that hang from the top of the secondary axis. The series that
// has no rows goes; without flows the rain stands on the axis as it does alone.
// `etape` is called between the parts of the work.
void tracerDebits(Feuille &feuille, const ContenuHydrologie &contenu, const std::function<void()> &etape);
// "Modele_concentr_pluvio.xls": rain alone, one series.
void tracerPluie(Feuille &feuille, const ContenuHydrologie &contenu, const std::function<void()> &etape);
