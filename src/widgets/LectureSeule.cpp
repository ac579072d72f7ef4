#include "widgets/LectureSeule.h"

#include <QLineEdit>

void LectureSeule::appliquer(QLineEdit *zone)
{
    zone->setReadOnly(true);
    zone->setFocusPolicy(Qt::ClickFocus);
    QPalette palette = zone->palette();
    palette.setBrush(QPalette::Base, Qt::transparent);
    zone->setPalette(palette);
}
