// A date, typed as jj/mm/aaaa or picked from a calendar.
#pragma once

#include "widgets/ZoneTexte.h"

#include <QDate>

class QAction;

// Typed dates take their usual form when the field is left ("1/3/09" becomes "01/03/2009"). Any other text is refused
// with `La date n'est pas au format adapté : "jj/mm/aaaa".` under "Erreur de type". An empty field is no error.
// The calendar opens with the field's own button or Alt+Down.
class ZoneDate : public ZoneTexte
{
    Q_OBJECT
public:
    explicit ZoneDate(QWidget *parent = nullptr);

    // The date that the text stands for; null where it is empty or no date.
    QDate date() const;
    // Shows a date, or nothing for a null one.
    void fixer(QDate date);
    // What the calendar opens on while the field is empty.
    void proposer(QDate date) { m_proposee = date; }

    // A whole date and the calendar's button.
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void ouvrirCalendrier();

protected:
    bool accepter() override;
    QString messageRefus() const override;
    QString titreRefus() const override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void changeEvent(QEvent *evenement) override;

private:
    void dessinerBouton();

    QAction *m_bouton;
    QDate m_proposee;
};
