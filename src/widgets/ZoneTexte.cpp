#include "widgets/ZoneTexte.h"

#include <QFocusEvent>

void ZoneTexte::focusOutEvent(QFocusEvent *evenement)
{
    QLineEdit::focusOutEvent(evenement);
    quitter(*evenement);
}
