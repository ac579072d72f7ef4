#include "widgets/Calendrier.h"

#include "platform/Horloge.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QScreen>
#include <QVBoxLayout>

void Calendrier::ouvrir(QWidget *champ, QDate montree, const std::function<void(QDate)> &prendre)
{
    auto *cadre = new QFrame(champ, Qt::Popup);
    cadre->setAttribute(Qt::WA_DeleteOnClose);
    cadre->setFrameShape(QFrame::StyledPanel);
    auto *disposition = new QVBoxLayout(cadre);
    disposition->setContentsMargins(1, 1, 1, 1);
    auto *calendrier = new QCalendarWidget(cadre);
    calendrier->setLocale(QLocale(QLocale::French, QLocale::France));
    calendrier->setFirstDayOfWeek(Qt::Monday);
    calendrier->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendrier->setSelectedDate(montree.isValid() ? montree : Horloge::maintenant().date());
    disposition->addWidget(calendrier);
    const auto choisir = [cadre, prendre](QDate choisie) {
        cadre->close();
        prendre(choisie);
    };
    QObject::connect(calendrier, &QCalendarWidget::activated, cadre, choisir);
    QObject::connect(calendrier, &QCalendarWidget::clicked, cadre, choisir);

    cadre->adjustSize();
    QPoint coin = champ->mapToGlobal(QPoint(0, champ->height()));
    const QRect place = champ->screen()->availableGeometry();
    if (coin.y() + cadre->height() > place.bottom())
        coin = champ->mapToGlobal(QPoint(0, -cadre->height()));
    coin.setX(std::clamp(coin.x(), place.left(), std::max(place.left(), place.right() - cadre->width())));
    cadre->move(coin);
    cadre->show();
    calendrier->setFocus();
}
