// One row of a list that the user chooses from.
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
