// Where things stand on the sheet "Mesures" of the graphs of flows and rainfall; shared by the routine that fills it, the one
// that wires the chart to it, and the program that makes the templates.
#pragma once

#include <QStringView>

namespace DispositionHydrologie
{
inline constexpr QStringView FEUILLE = u"Mesures";
inline constexpr QStringView GRAPHIQUE = u"Graphique";
inline constexpr QStringView TEXTE = u"Text Box 2";

inline constexpr int LIGNE_STATION = 4;
inline constexpr int LIGNE_UNITE = 5;
inline constexpr int LIGNE_INTITULES = 8;
inline constexpr int PREMIERE_LIGNE = 9;
enum Colonne {
    COLONNE_DATE = 1,  // and the first station with its unit
    COLONNE_DEBIT = 2, // and the basin; rain where it is alone
    COLONNE_PLUIE = 3, // and the second station with its unit
    DERNIERE_COLONNE = 3,
};

// Series of the chart, in both templates; the one of rain alone has the first only.
inline constexpr int SERIE_PREMIERE = 1;
inline constexpr int SERIE_PLUIE = 2;

inline constexpr QStringView FORMAT_JOURS = u"dd/mm/yyyy";
inline constexpr QStringView FORMAT_MOIS = u"mmm-yy";
} // namespace DispositionHydrologie
