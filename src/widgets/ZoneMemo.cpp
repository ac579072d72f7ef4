#include "widgets/ZoneMemo.h"

#include <QFocusEvent>

ZoneMemo::ZoneMemo(QWidget *parent) : QPlainTextEdit(parent), ZoneReglee(*static_cast<QWidget *>(this))
{
    setTabChangesFocus(true);
}

QSize ZoneMemo::sizeHint() const
{
    constexpr int LIGNES = 3;
    constexpr int MARGES = 12;
    return {240, LIGNES * fontMetrics().lineSpacing() + MARGES};
}

void ZoneMemo::focusOutEvent(QFocusEvent *evenement)
{
    QPlainTextEdit::focusOutEvent(evenement);
    quitter(*evenement);
}
