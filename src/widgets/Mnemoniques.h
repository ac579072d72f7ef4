// Alt and a letter, for the labels and buttons of one screen.
#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

// The main window's menus take nearly every letter, and Qt answers a letter that stands twice by doing nothing useful.
// So, while the focus is in a screen, the screen's own letters come first; the menus keep theirs, and F10.
class Mnemoniques : public QObject
{
    Q_OBJECT
public:
    // Watches the keys typed in `ecran`, which owns this object.
    explicit Mnemoniques(QWidget &ecran);

    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    // The visible control that answers this letter: a button, a label's buddy, a tab bar.
    QWidget *cible(const QKeyEvent &evenement) const;

    QWidget &m_ecran;
};
