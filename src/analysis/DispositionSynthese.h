// Where things stand on the sheet "Rapport" of "Concentr_Rapport.xls": what the workbook is about, on one page. Shared by
// the routine that fills it and the program that makes the template.
#pragma once

#include <QStringView>

namespace DispositionSynthese
{
inline constexpr QStringView FEUILLE = u"Rapport";

inline constexpr int COLONNE_LIBELLES = 1;
inline constexpr int COLONNE_VALEURS = 2;

inline constexpr int LIGNE_TITRE = 2;

// Under a heading, a label and its value a row.
inline constexpr int LIGNE_IDENTITE = 4;   // heading
inline constexpr int LIGNE_SELECTION = 13; // heading
inline constexpr int LIGNE_FIGURES = 19;   // heading
enum Ligne {
    BASSIN = 5,
    STATION,
    RIVIERE,
    LIEU,
    PARAMETRE,
    PERIODE,
    SOURCES,
    GESTIONNAIRES = 14,
    RESEAUX,
    COMMENTAIRES,
    PROTOCOLE,
    EFFECTIF = 20,
    MAXIMUM,
    MINIMUM,
    MOYENNE,
    ECART_TYPE,
    MEDIANE,
    QUANTILE90,
    DEPASSEMENT_MOYEN,
    DEPASSEMENT_MAXIMAL,
    NORME,
};
inline constexpr int LIGNE_CONTENU = 31; // heading
inline constexpr int DERNIERE_LIGNE = 33;
} // namespace DispositionSynthese
