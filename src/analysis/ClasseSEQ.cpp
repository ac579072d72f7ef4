#include "analysis/ClasseSEQ.h"

#include <array>
#include <utility>

int couleurClasseSEQ(double valeur, const GrilleSEQ &grille)
{
    constexpr int BLEU = 34;
    constexpr int VERT = 35;
    constexpr int VERT_BIS = 36;
    constexpr int JAUNE = 6;
    constexpr int ORANGE = 40;
    constexpr int ORANGE_BIS = 44;
    constexpr int ROUGE = 3;
    // The statistics do not use the second pair of bounds of yellow and orange: they count as 0, so that in practice
    // their colours only ever show for values that are not positive.
    constexpr double NON_LUE = 0;
    const std::array<std::pair<double, int>, 6> classes{{{grille.valeur1, BLEU},
                                                         {grille.valeur2, VERT},
                                                         {NON_LUE, VERT_BIS},
                                                         {grille.valeur3, JAUNE},
                                                         {grille.valeur4, ORANGE},
                                                         {NON_LUE, ORANGE_BIS}}};
    for (const auto &[borne, couleur] : classes)
        if (borne >= valeur)
            return couleur;
    return ROUGE;
}
