// Reading the rows of raw data that are looked at, copied or exported.
#pragma once

#include "analysis/JeuDonneesBrutes.h"
#include "analysis/LigneBrute.h"

class DataEnvironment1;

// The rows of one set. Names are looked up once for as long as it lives; results are read by their key when asked for,
// so that they show what the base holds at that moment.
class LignesDonneesBrutes
{
public:
    LignesDonneesBrutes(const DataEnvironment1 &donnees, std::shared_ptr<const JeuDonneesBrutes> jeu);

    // So many rows from this one on, in the order shown; fewer at the end. Some 3 microseconds a row.
    QList<LigneBrute> lire(qsizetype premiere, qsizetype nombre);

private:
    const DataEnvironment1 &m_donnees;
    std::shared_ptr<const JeuDonneesBrutes> m_jeu;
    Lexique m_fractions;
    Lexique m_intervenants;
};
