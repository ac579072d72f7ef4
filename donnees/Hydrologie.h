// The invented weather of the demonstration basin, and what flows from it.
#pragma once

#include <QDate>
#include <QString>
#include <vector>

// State of a catchment on one day, per unit of area.
struct Regime {
    double pluie_mm = 0;
    double debit_l_s_km2 = 0;
    double part_rapide = 0; // share of the flow that ran off the surface, 0 to 1
    double reserve =
        0; // groundwater feeding the stream: 0 at the end of a dry summer, about 1 in a wet winter
};

// Daily rain (a two-state chain of wet and dry days whose chances and amounts follow the season and the year) through
// a soil store and two reservoirs, one quick and one slow. Amounts are those of an oceanic climate: about 750 mm of
// rain a year, 8 to 10 l/s/km2 of mean flow, tenfold less in September.
class Hydrologie
{
public:
    // `part_rapide` is the share of the excess water that takes the quick way; `graine` draws the small differences of
    // rain between one catchment and another.
    Hydrologie(QDate debut, QDate fin, double part_rapide, const QString &graine);

    QDate debut() const { return m_debut; }
    QDate fin() const { return m_debut.addDays(static_cast<qint64>(m_jours.size()) - 1); }
    const Regime &jour(QDate date) const;
    // Mean flow of the whole period, l/s/km2.
    double module() const { return m_module; }

private:
    QDate m_debut;
    std::vector<Regime> m_jours;
    double m_module = 0;
};

// Position of a day in the year as a wave: 1 on the day `sommet` of the year (1 to 365), -1 half a year later.
double saison(QDate date, int sommet);
