// Rows of the lists that the screens offer.
#pragma once

#include <QList>
#include <QString>

struct Choix {
    QString code;  // what the program works with
    QString texte; // what the row shows
    // Shown beside the text in a combo's list, and searched while typing ("Le Moulin" beside a station's code).
    QString complement = {};
    bool operator==(const Choix &) const = default;
};

using ListeChoix = QList<Choix>;

// A quality station, to be chosen by any of the three.
struct StationProposee {
    QString code;  // CodeSandreStationM
    QString usuel; // CodeUsuelStationM; empty where the station has none
    QString nom;   // NomStationM
    bool operator==(const StationProposee &) const = default;
};

// What can be filtered on in a selection of measures.
struct ListesFiltres {
    ListeChoix gestionnaires; // CodeSandreGest, name
    ListeChoix reseaux;       // CodeReseau, name
    ListeChoix commentaires;  // the comment twice; the row of the empty comment has the empty code
    ListeChoix protocoles;    // label twice
};
