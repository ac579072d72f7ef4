// Wires the chart of an evolution workbook to its sheet "Mesures": the series that a run uses to their columns, the texts,
// the axes, the markers of single points; and removes what the run does not use.
//
// The templates "Modele_concentr.xls" and "Concentr_Rapport.xls" hold a finished chart "Graphique" with every series in the
// order of SerieEvolution, and the "Text Box 1" above it.
#pragma once

#include <array>
#include <optional>
#include <QStringList>
#include <QVector>

class Feuille;

// Numbers of the series in the templates' chart. The light yellow band (column K) lies under the yellow one (column J),
// so that the bands meet at the bounds of the classes.
enum SerieEvolution {
    SERIE_BLEU = 1,
    SERIE_VERT,
    SERIE_JAUNE_CLAIR,
    SERIE_JAUNE,
    SERIE_ORANGE,
    SERIE_ORANGE_FONCE,
    SERIE_ROUGE,
    SERIE_COURBE_1,
    SERIE_COURBE_2,
    SERIE_OBJECTIF_MOYEN,
    SERIE_OBJECTIF_MAXIMAL,
    SERIE_SEUIL,
    SERIE_QUANTILE,
    SERIE_MEDIANE,
    SERIE_NORME,
    SERIE_DEBIT, // on the secondary axis, as the next
    SERIE_PLUIE,
    SERIES_EVOLUTION = SERIE_PLUIE
};

struct DescriptionGraphiqueEvolution {
    // A point with a marker of its own: a hollow circle for the remark code 2, a cross for 3; others keep the series' one.
    struct Point {
        int courbe = 0; // 0 or 1
        int ligne = 0;  // place among the rows, from 0
        int code = 0;
    };

    int lignes = 0; // rows of data, from row 9 down; at least one
    // Number of values of each curve. More than fifty hide its markers.
    std::array<int, 2> effectifs{};
    bool deuxCourbes = false;
    bool objectifMoyen = false;
    bool objectifMaximal = false;
    bool debit = false;
    bool pluie = false;
    bool bandes = false;
    std::array<bool, 7>
        bandesVides{}; // of no height: the legend does not name them; in the order of their columns
    bool seuil = false;
    bool quantile = false;
    bool mediane = false;
    bool norme = false;

    // "Text Box 1": the title's lines, then those under it. Long ones are set smaller, so that the box holds them all.
    QStringList titre;
    QStringList figures;
    // Left axis; right axis: of the flow, the rain, or of a second curve that has the axis to itself.
    QString titreAxe;
    QString titreAxeSecondaire;
    // Greatest flow or rain. Their columns hang over the curve in most readers, so the right axis is made so high that
    // they keep to the lower part of the plot; 0: as high as they are.
    double maximumSecondaire = 0;
    // Top of the left axis; none: as high as the values want it.
    std::optional<double> echelleMaximale;
    QVector<Point> points;
};

// More values than this, and a curve loses its markers.
inline constexpr int POINTS_AVEC_MARQUEURS = 50;

// The sheet is filled already: names of the series on row 8, values from row 9 on (DispositionEvolution.h). With neither
// flow nor rain the second curve takes the right axis.
void cablerGraphiqueEvolution(Feuille &mesures, const DescriptionGraphiqueEvolution &description);
