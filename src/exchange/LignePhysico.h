// A row of physico-chemical and pesticide measures, checked. Pure.
#pragma once

#include "exchange/LigneExcel.h"
#include "exchange/ReferencesImport.h"

// Codes as the reference tables hold them.
struct MesurePhysico {
    QString station;
    QString point; // of the station; empty where it has none
    QString parametre;
    QString gestionnaire;
    QString preleveur;
    QString laboratoire;
    QString reseau;
    QDate date;
    QString heure; // "hh:mm:ss"
    double resultat = 0;
    QString remarque;
    QString fraction;
    QString commentaire;
    QString seuil;
    QString protocole; // "0", "1", "2"; empty without the column
};

// The fields in their fixed order; the first that does not hold throws ArretImport.
MesurePhysico lireLignePhysico(const LigneExcel &ligne, const ReferencesPhysico &references);
