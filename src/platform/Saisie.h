// What a user types into a field, read as a date, a month or a number; and shown back as the screens show them.
#pragma once

#include <optional>
#include <QDate>
#include <QString>

namespace Saisie
{
// A date typed as jj/mm/aaaa; the day and month may have one digit, the year two ("1/3/09" is 01/03/2009: from 30 on,
// the last century). Nothing where the text is no such date.
std::optional<QDate> lireDate(const QString &texte);
// "01/03/2009"; empty for a null date.
QString ecrireDate(QDate date);

// A month typed as mm/aaaa or mm/aa, in five or seven characters: two digits from 01 to 12, "/", digits. The first day
// of that month.
std::optional<QDate> lireMois(const QString &texte);
// "03/2009"; empty for a null date.
QString ecrireMois(QDate date);

// A number with a comma or a point, blanks around it ignored; no thousands separator, no exponent.
std::optional<double> lireNombre(const QString &texte);
// Whether what has been typed so far may still become a number: empty, "-", "12,".
bool debutDeNombre(const QString &texte);
// With a comma and no padding zeros, at most four decimals: "8,3", "12".
QString ecrireNombre(double nombre);
} // namespace Saisie
