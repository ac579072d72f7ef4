#include "widgets/ZoneLibelle.h"

#include <QFocusEvent>

ZoneLibelle::ZoneLibelle(QWidget *parent) : QLineEdit(parent), ZoneReglee(*static_cast<QWidget *>(this)) {}

void ZoneLibelle::focusOutEvent(QFocusEvent *evenement)
{
    QLineEdit::focusOutEvent(evenement);
    quitter(*evenement);
}
