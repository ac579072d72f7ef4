// The combos of a sampling's key: what they cannot take, they empty.
#pragma once

#include "widgets/ZoneCombo.h"
#include "widgets/ZoneComboLibre.h"

class QAction;

// A station of the list.
class ComboStation : public ZoneCombo
{
    Q_OBJECT
public:
    using ZoneCombo::ZoneCombo;

protected:
    QString messageRefus() const override;
    void selectionnerTexte() override;
};

// A date or a time of the list, or another one.
class ComboMoment : public ZoneComboLibre
{
    Q_OBJECT
public:
    using ZoneComboLibre::ZoneComboLibre;

    // A button in the field, and Ctrl+Down, show a calendar: for dates.
    void offrirCalendrier();

protected:
    void selectionnerTexte() override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void changeEvent(QEvent *evenement) override;

private:
    void ouvrirCalendrier();

    QAction *m_bouton = nullptr; // of the calendar, where there is one
};
