// How a sheet is printed.
#pragma once

#include <QString>

// Always on A4. Lengths in hundredths of a millimetre. In the six texts, "&P" stands for the page's number and "&N"
// for the number of pages.
struct MiseEnPage {
    bool paysage = false;
    int margeGauche = 1500;
    int margeDroite = 1500;
    int margeHaut = 1500;
    int margeBas = 1500;
    // The sheet is shrunk to this many pages; 0: as many as it takes.
    int pagesEnLargeur = 1;
    int pagesEnHauteur = 0;
    bool centreeHorizontalement = true;
    // Rows printed again at the top of each page, from 1; 0: none.
    int premiereLigneRepetee = 0;
    int derniereLigneRepetee = 0;
    QString enTeteGauche;
    QString enTeteCentre;
    QString enTeteDroite;
    QString piedGauche;
    QString piedCentre;
    QString piedDroite;
};
