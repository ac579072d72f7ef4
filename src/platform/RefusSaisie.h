// What is said of a text that a cell or a field cannot take, and what becomes of it.
#pragma once

#include <QString>

struct RefusSaisie {
    QString message;
    QString titre;
    QString reste = {}; // what the cell holds from then on
    // Whether the user is put back on the cell; else he goes on to where he was going.
    bool retour = true;
    bool operator==(const RefusSaisie &) const = default;
};
