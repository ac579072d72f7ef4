// Where things stand on the sheet "Mesures" of the evolution charts; shared by the routine that fills it, the one that
// wires the chart to it, and the program that makes the templates.
#pragma once

#include <QStringView>

namespace DispositionEvolution
{
inline constexpr QStringView FEUILLE = u"Mesures";

// Heading: names on the first row, units and the second curve on the next.
inline constexpr int LIGNE_ENTETE = 4;
inline constexpr int LIGNE_ENTETE_SECONDE = 5;
enum ColonneEntete {
    ENTETE_STATION = 1,
    ENTETE_BASSIN = 2,
    ENTETE_PARAMETRE = 4,
    ENTETE_UNITE = 5,
    ENTETE_DEPASSEMENT_MOYEN = 6,
    ENTETE_DEPASSEMENT_MAXIMAL = 7,
    ENTETE_DEBIT = 9,
    ENTETE_PLUIE = 10,
    ENTETE_PROTOCOLE = 11,
    ENTETE_GESTIONNAIRES = 12,
    ENTETE_RESEAUX = 13,
};

// The series: their names as the legend shows them, then a row for each day.
inline constexpr int LIGNE_INTITULES = 8;
inline constexpr int PREMIERE_LIGNE = 9;
enum Colonne {
    COLONNE_DATE = 1,
    COLONNE_COURBE = 2, // the second curve comes next
    COLONNE_OBJECTIF_MOYEN = 4,
    COLONNE_OBJECTIF_MAXIMAL = 5,
    COLONNE_DEBIT = 6,
    COLONNE_PLUIE = 7,
    COLONNE_BANDES = 8, // seven columns
    COLONNE_SEUIL = 15,
    COLONNE_QUANTILE = 16,
    COLONNE_MEDIANE = 17,
    COLONNE_NORME = 18,
    COLONNE_CODE = 19, // the second curve's comes next
    DERNIERE_COLONNE = 20,
};
inline constexpr int BANDES = 7;
} // namespace DispositionEvolution
