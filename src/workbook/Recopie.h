// Filling cells inside the spreadsheet application, without sending them there one by one.
#pragma once

class Plage;

// Copies the first row of a rectangle into all its other rows (FillDown): values as they are, no series. A level that a
// chart draws over thousands of rows costs one message.
void recopierVersLeBas(const Plage &plage);
