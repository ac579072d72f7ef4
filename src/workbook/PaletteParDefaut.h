// The default palette of the spreadsheet application: the 56 colours that ColorIndex numbers.
#pragma once

inline constexpr int COULEURS_PAR_DEFAUT = 56;

// 0xRRGGBB of ColorIndex 1 to 56.
int couleurParDefaut(int index);
