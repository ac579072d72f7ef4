// What a cell of an imported workbook means: its value as the spreadsheet gives it (workbook/Plage.h), read as the field
// that it stands for. Pure.
#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <QVariant>

namespace CelluleImport
{
// Without the blanks around it: plain, no-break, narrow and zero-width ones.
QString rogner(const QString &texte);

bool estErreur(const QVariant &cellule);

// The cell as a text without blanks around it: a whole number without a decimal part ("4190000"), another number with a
// comma, a date as "jj/mm/aaaa" (its time behind where there is one), a time as "hh:mm:ss", an error as its sign.
QString texte(const QVariant &cellule);

// The day of a cell holding a date, or a text of the form jj/mm/aaaa, jj/mm/aa (30 to 99 are of the 20th century) or
// aaaa-mm-jj; nothing for what is no date of the years 100 to 9999. A bare number is no date.
std::optional<QDate> date(const QVariant &cellule);

// The hour as "hh:mm:ss": a time, the time of a date, a fraction of a day (0.5 is noon), a text such as "9:30". What is
// none of these comes back as it stands, for HeureValide to judge; "hh:mm" texts that pass it get their seconds.
QString heure(const QVariant &cellule);

// A number, or a text that is one with a comma or a point; four decimals at most are kept (VersNombre). Nothing for
// anything else, a date included, and beyond the range of the store's numbers.
std::optional<double> nombre(const QVariant &cellule);
} // namespace CelluleImport
