// A free text of several lines under a rule of its screen. Tab leaves it.
#pragma once

#include "widgets/ZoneReglee.h"

#include <QPlainTextEdit>

class ZoneMemo : public QPlainTextEdit, public ZoneReglee
{
    Q_OBJECT
public:
    explicit ZoneMemo(QWidget *parent = nullptr);

    // Three lines; more where its layout has the room.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    QString texteAJuger() const override { return toPlainText(); }
    void selectionnerTexte() override { selectAll(); }
    void focusOutEvent(QFocusEvent *evenement) override;
};
