// What the graph of flows and rainfall is asked for: the controls of its screen, as plain values.
#pragma once

#include <QDate>
#include <QString>

enum class GenreDebit { Aucun, Journalier, Mensuel };

struct DemandeHydrologie {
    GenreDebit debit = GenreDebit::Aucun;
    QString stationDebit; // CodeStationHM
    bool pluie = false;
    QString stationPluie; // CodeStationPM
    QDate debut;
    QDate fin; // included
};
