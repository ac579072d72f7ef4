// A line of text that is checked when it is left; base of the date, month and number fields.
#pragma once

#include "widgets/ZoneVerifiee.h"

#include <QLineEdit>

class ZoneTexte : public QLineEdit, public ZoneVerifiee
{
    Q_OBJECT
public:
    explicit ZoneTexte(QWidget *parent = nullptr)
        : QLineEdit(parent), ZoneVerifiee(*static_cast<QWidget *>(this))
    {
    }

protected:
    void focusOutEvent(QFocusEvent *evenement) override;
    void selectionnerTexte() override { selectAll(); }
};
