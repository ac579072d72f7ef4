// How a period is cut into years, once for the whole program.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

// The hydrological year runs from 1 October to 30 September and is named after both its calendar years; no station's
// column changes these dates.
enum class ModeAnnee { Civile, Hydrologique };

// One year of a report: first and last day, both included, and its heading ("2008", "2008-2009").
struct Annee {
    QDate debut;
    QDate fin;
    QString intitule;
    bool operator==(const Annee &) const = default;
};

// Whole months between two dates: twelve times the difference of the years plus the difference of the months; days do
// not count (15/01/2008 to 10/01/2010: 24).
int moisEntiers(QDate debut, QDate fin);

// The years of the period from `debut` to `fin`.
//
// Civil: the first year begins on `debut`, the others on 1 January, the last ends on `fin`.
//
// Hydrological: a period that begins before October is widened back to 1 October of the year before; the number of
// years comes from the whole months between the chosen dates and not from the boundaries crossed, so that the last year
// can be longer than twelve months (01/01/2008 to 31/12/2009: 2007-2008, then 2008-2009 up to 31/12/2009).
QList<Annee> decouperEnAnnees(QDate debut, QDate fin, ModeAnnee mode);
