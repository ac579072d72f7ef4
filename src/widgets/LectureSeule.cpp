#include "widgets/LectureSeule.h"

#include <QLineEdit>

void LectureSeule::appliquer(QLineEdit *zone)
{
    zone->setReadOnly(true);
    zone->setFocusPolicy(Qt::ClickFocus);
    QPalette palette = zone->palette();
    for (const auto groupe : {QPalette::Active, QPalette::Inactive})
        palette.setBrush(groupe, QPalette::Base, Qt::transparent);
    zone->setPalette(palette);
}
