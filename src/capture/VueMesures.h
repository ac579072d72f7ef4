// "Visualiser": the measures that a capture screen shows, as a workbook of their own.
#pragma once

#include <functional>
#include <QString>

class Dialogue;
class EtatRapport;
class Feuille;
class Tableur;

struct VueMesures {
    // Begins the file's name: "Mesures_Hydro_" makes "Mesures_Hydro_31-01-26.xls", in C:\PROJET\Export\.
    QString debutDuNom;
    // Fills the sheet "Mesures".
    std::function<void(Feuille &)> remplir;
};

// The file of today, in the Windows form.
QString cheminVueMesures(const VueMesures &vue);

// Makes the workbook under the wait window "Visualisation des mesures sous Excel", saves it and shows it. The file of the
// same day is replaced. A failure is an Erreur, and no file of ours is left by it. Nothing else can be started meanwhile.
void visualiserMesures(const VueMesures &vue, Dialogue &dialogue, Tableur &tableur, EtatRapport &etat);

// What every capture screen says of an empty grid.
void direRienAVisualiser(Dialogue &dialogue);
