#include "workbook/PaletteParDefaut.h"

#include "platform/Erreur.h"

#include <array>

int couleurParDefaut(int index)
{
    // The classic spreadsheet's colours, in the order of its ColorIndex: eight basic ones, eight more, the sixteen of
    // the charts (fills 17 to 24, lines 25 to 32), then the twenty-four of the palette's lower rows.
    static constexpr std::array<int, 56> COULEURS{
        0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, //
        0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, //
        0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, //
        0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF, //
        0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99, //
        0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696, //
        0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};
    if (index < 1 || index > static_cast<int>(COULEURS.size()))
        throw Erreur(5, QStringLiteral("La palette n'a pas de couleur n° %1.").arg(index));
    return COULEURS.at(static_cast<size_t>(index - 1));
}
