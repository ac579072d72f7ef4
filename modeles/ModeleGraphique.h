// What all chart templates share: one look for the sheet of data, the chart beside it, the title box above the chart, the
// printed page.
//
//   ModeleGraphique::Description description;
//   description.texte = QStringLiteral("Text Box 2");
//   description.entetes = {{4, 1, QStringLiteral("Station")}};
//   description.series = {
//       ModeleGraphique::courbe(2, QStringLiteral("Débit"), ModeleGraphique::COULEUR_COURBE_1),
//       ModeleGraphique::colonnes(3, QStringLiteral("Pluie"), ModeleGraphique::COULEUR_PLUIE, 2)};
//   Graphique graphique = ModeleGraphique::dessiner(classeur.feuille(1), description);
//   graphique.axe(TypeAxe::Valeur, 2).echelle(...); // what this chart has of its own
//
// A template gives its chart all the series that any run may want; a run deletes those that it does not use.
#pragma once

#include "workbook/Graphique.h"

#include <QString>
#include <QVector>

class Feuille;

namespace ModeleGraphique
{
// ColorIndex of the lines: told apart by a colour-blind eye too, and never by colour alone (dashes, markers).
inline constexpr int COULEUR_COURBE_1 = 11; // navy
inline constexpr int COULEUR_COURBE_2 = 46; // vermilion
inline constexpr int COULEUR_DEBIT = 42;    // aqua
inline constexpr int COULEUR_PLUIE = 41;    // light blue
inline constexpr int COULEUR_TEXTE = 49;    // night blue
inline constexpr int COULEUR_FILET = 15;    // light grey
inline constexpr int COULEUR_AXE = 16;      // grey

struct Serie {
    int colonne = 2; // column of its values; its name stands on the row of headings
    QString nom;
    TypeSerie type = TypeSerie::Ligne;
    int groupeAxes = 1;
    Teinte couleur = Teinte::automatique();
    AspectTrait trait; // of a curve: its colour is the series' one
    Marqueur marqueur = Marqueur::Aucun;
};
// A curve with round or other markers; a level line, without; columns; a stacked area without edge.
Serie courbe(int colonne, const QString &nom, int couleur, Marqueur marqueur = Marqueur::Cercle);
Serie niveau(int colonne, const QString &nom, int couleur, StyleTrait style,
             EpaisseurTrait epaisseur = EpaisseurTrait::Fin);
Serie colonnes(int colonne, const QString &nom, int couleur, int groupeAxes,
               TypeSerie type = TypeSerie::HistogrammeEmpile);
Serie bande(int colonne, const QString &nom, int couleur);

struct Entete {
    int ligne;
    int colonne;
    QString texte;
};

struct Description {
    QString feuille = QStringLiteral("Mesures");
    QString graphique = QStringLiteral("Graphique");
    QString texte = QStringLiteral("Text Box 1");
    int ligneIntitules = 8; // data rows begin below
    int colonneDates = 1;
    int derniereColonne = 20; // of the data; the chart stands right of it
    QString formatDates = QStringLiteral("dd/mm/yyyy");
    // Widths of the first columns and height of the row of headings, where they are not the ordinary ones; hundredths of
    // a millimetre.
    QVector<int> largeurs;
    int hauteurIntitules = 0;
    QVector<Entete> entetes;    // labels above the data
    QVector<Serie> series;      // in the order of their numbers: primary axis first, areas, columns, lines
    bool echelleDeTemps = true; // a time axis; else one place a row
    int hauteurTexte = 3'100;   // of the title box, in hundredths of a millimetre; the chart takes the rest
    QString titreAxe;
    QString titreAxeSecondaire;
    QString pied; // left foot of the printed page
};

// Draws all of it on a new sheet, and returns the chart.
Graphique dessiner(Feuille feuille, const Description &description);
} // namespace ModeleGraphique
