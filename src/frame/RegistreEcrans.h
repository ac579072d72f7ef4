// Which screen or command stands behind each menu entry.
#pragma once

#include <functional>
#include <QList>
#include <QString>

class Cadre;
class QWidget;
struct Session;

struct EntreeRegistre {
    QString menu; // the entry's name
    // The screen's class, shown as a child of the main window; empty for a command without a screen of its own. A
    // screen that is already open is brought to the front instead of being made again.
    QString classe;
    // Puts the session in the state that the screen expects, also when it is open already; may be empty.
    std::function<void(Session &)> preparer;
    // Makes the screen; a command does its work and returns nothing.
    std::function<QWidget *(Session &, Cadre &)> ouvrir;
};

// A menu entry that is not in this list is shown disabled.
const QList<EntreeRegistre> &registreEcrans();
