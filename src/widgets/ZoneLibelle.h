// A line of free text under a rule of its screen: a code, a name, a comment.
#pragma once

#include "widgets/ZoneReglee.h"

#include <QLineEdit>

class ZoneLibelle : public QLineEdit, public ZoneReglee
{
    Q_OBJECT
public:
    explicit ZoneLibelle(QWidget *parent = nullptr);

protected:
    QString texteAJuger() const override { return text(); }
    void selectionnerTexte() override { selectAll(); }
    void focusOutEvent(QFocusEvent *evenement) override;
};
