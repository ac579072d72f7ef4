// What the main window gives to the screens it shows, so that no screen knows the window itself.
#pragma once

class QString;
class QWidget;

class Cadre
{
public:
    virtual ~Cadre() = default;
    // Shows a screen as a child at the top left of the client area, not modal; it is deleted when closed.
    virtual void montrer(QWidget *ecran) = 0;
    // Minimises the main window (a document is about to be edited in another program).
    virtual void reduire() = 0;
    // The study has another reference basin: the caption tells.
    virtual void nommerBassin(const QString & /*bassin*/) {}
    // Ends the program, once the routine under way has returned.
    virtual void terminer() = 0;
};
