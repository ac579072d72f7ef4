// What every field that checks its text has in common.
//
// A field is checked when the user leaves it: a text that cannot be taken is told in a box and keeps the user on the
// field. Going to another window, to a list of the field itself or to a button marked as closing (property
// "sansVerification") checks nothing. A command checks all fields of its screen again before it runs
// (Ecran::verifierZones), as it may be started by a key that leaves no field.
#pragma once

#include <QObject>
#include <QString>

class Dialogue;
class QFocusEvent;
class QWidget;

class ZoneVerifiee
{
public:
    explicit ZoneVerifiee(QWidget &widget) : m_widget(widget) {}
    virtual ~ZoneVerifiee() = default;

    // Gives the field the dialogue through which it refuses a text; without one it refuses in silence.
    void brancher(Dialogue *dialogue) { m_dialogue = dialogue; }

    // Takes the text. Where it cannot: tells why, puts the user back on the field with its text selected, and
    // returns false.
    bool verifier();

protected:
    // Takes the text of the field, put into its usual form; false where it cannot be taken. Tells nothing.
    virtual bool accepter() = 0;
    virtual QString messageRefus() const = 0;
    virtual QString titreRefus() const = 0;
    virtual void selectionnerTexte() = 0;

    // To be called from focusOutEvent. The box is shown once the events under way are done with: it would otherwise
    // open in the middle of the click that left the field.
    void quitter(const QFocusEvent &evenement);
    // Tells that the text is refused and goes back to the field.
    void refuser();

private:
    bool quitteVraiment() const;

    QWidget &m_widget;
    Dialogue *m_dialogue = nullptr;
    bool m_verificationPrevue = false;
};
