// Where things stand on the sheet "Données" of the statistics report; shared by the routine that fills it and the
// program that makes the template.
//
// The template holds all that does not depend on a request: labels of the heading, number formats ("@" for the station's
// code, dates, two decimals), merged cells, heights, and a first block of five years with its fills and borders, which
// the routine copies for further blocks and cuts down for the last one. Rows of exceedances have two lines.
#pragma once

#include <QStringView>

namespace DispositionRapportPC
{
inline constexpr QStringView FEUILLE = u"Données";

// Columns: labels, then the years; wrapped after the sixth.
inline constexpr int COLONNE_LIBELLES = 1;
inline constexpr int COLONNE_PREMIERE_ANNEE = 2;
inline constexpr int ANNEES_PAR_BLOC = 5;
inline constexpr int DERNIERE_COLONNE = COLONNE_PREMIERE_ANNEE + ANNEES_PAR_BLOC - 1;

// Heading.
inline constexpr int LIGNE_TITRE = 2;
inline constexpr int LIGNE_BASSIN = 4;
inline constexpr int LIGNE_CODE = 5;
inline constexpr int LIGNE_RIVIERE = 6;
inline constexpr int LIGNE_STATION = 7;
inline constexpr int LIGNE_PARAMETRE = 8;
inline constexpr int LIGNE_PERIODE = 10;
inline constexpr int LIGNE_SOURCES = 12;
inline constexpr int COLONNE_IDENTITE = 3;
inline constexpr int COLONNE_DEBUT = 2;
inline constexpr int COLONNE_FIN = 4;

// Interannual block: its heading, then ten figures over the count of the base, and beside them over the accepted measures.
inline constexpr int LIGNE_TITRE_PERIODE = 14;
inline constexpr int LIGNE_INTITULES_PERIODE = 15;
inline constexpr int LIGNE_PERIODE_EFFECTIF = 16;
inline constexpr int FIGURES_PERIODE = 10;
inline constexpr int LIGNE_PERIODE_FIN = LIGNE_PERIODE_EFFECTIF + FIGURES_PERIODE - 1;
inline constexpr int LIGNE_PERIODE_DEPASSEMENTS = 20;
inline constexpr int DEPASSEMENTS_PERIODE = 2;
inline constexpr int COLONNE_SUR_LA_BASE = 2;
inline constexpr int COLONNE_SUR_LES_RETENUES = 4;
inline constexpr int LIGNE_NOTE_PERIODE = 26;

// Blocks of years: a header row and thirteen figures, then a blank row, after which the next block's rows are inserted.
inline constexpr int LIGNE_TITRE_ANNEES = 27;
inline constexpr int LIGNE_LEGENDE = 28;
inline constexpr int LIGNE_PREMIER_BLOC = 29;
inline constexpr int FIGURES_ANNEE = 13;
inline constexpr int DEPASSEMENTS_ANNEE = 3;
inline constexpr int LIGNES_BLOC = 1 + FIGURES_ANNEE;
inline constexpr int PAS_DES_BLOCS = LIGNES_BLOC + 1;

// Rows of a block after its header, from 1.
enum RangAnnee {
    RANG_EFFECTIF = 1,
    RANG_MOYENNE,
    RANG_QUANTILE90,
    RANG_MAXIMUM,
    RANG_QUANTILE10,
    RANG_MINIMUM,
    RANG_DEPASSEMENT_MOYEN,
    RANG_DEPASSEMENT_MAXIMUM,
    RANG_DEPASSEMENT_SEUIL,
    RANG_MEDIANE,
    RANG_ECART_TYPE,
    RANG_MOYENNE_PONDEREE,
    RANG_CLASSE,
};

// Rows after the first block that the template has prepared: more than the longest study will push aside.
inline constexpr int LIGNES_RESERVEES = 60;

// Height of a row with a label of one line and what each further line adds, in hundredths of a millimetre.
inline constexpr int HAUTEUR_LIGNE = 500;
inline constexpr int HAUTEUR_LIGNE_DE_PLUS = 360;
inline constexpr int HAUTEUR_DEUX_LIGNES = HAUTEUR_LIGNE + HAUTEUR_LIGNE_DE_PLUS;
// The same for the bold texts of the heading.
inline constexpr int HAUTEUR_IDENTITE = 560;
// Characters that surely fit on one line: labels, heading, sources.
inline constexpr int CARACTERES_LIBELLE = 45;
inline constexpr int CARACTERES_IDENTITE = 45;
inline constexpr int CARACTERES_SOURCES = 110;

// The first page holds the heading and one block, each further one this many blocks.
inline constexpr int BLOCS_PAR_PAGE = 3;

// Header row of a block, from 0.
constexpr int ligneDuBloc(int bloc)
{
    return LIGNE_PREMIER_BLOC + bloc * PAS_DES_BLOCS;
}
} // namespace DispositionRapportPC
