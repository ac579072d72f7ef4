// Filling cells inside the spreadsheet application, without sending them there one by one.
#pragma once

class Plage;

// Copies the first `modele` rows of a rectangle into all its other rows (FillDown), again and again: values as they are, no
// series. The rows of a level that a chart draws over thousands of them cost a few messages.
void recopierVersLeBas(const Plage &plage, int modele = 1);
