#include "widgets/Icones.h"

#include <QPainter>
#include <QPixmap>

namespace
{
QPixmap feuille(const QColor &couleur, qreal densite)
{
    constexpr int COTE = 16;
    QPixmap image(QSize(COTE, COTE) * densite);
    image.setDevicePixelRatio(densite);
    image.fill(Qt::transparent);
    QPainter peintre(&image);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(QPen(couleur, 1.2));
    peintre.drawRoundedRect(QRectF(1.8, 3, 12.4, 11), 1.5, 1.5);
    peintre.drawLine(QPointF(1.8, 6.4), QPointF(14.2, 6.4));
    peintre.drawLine(QPointF(5, 1.2), QPointF(5, 4.4));
    peintre.drawLine(QPointF(11, 1.2), QPointF(11, 4.4));
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(couleur);
    for (int rang = 0; rang < 2; ++rang) {
        for (int colonne = 0; colonne < 3; ++colonne)
            peintre.drawRect(QRectF(4.1 + colonne * 3.1, 8.2 + rang * 2.8, 1.6, 1.5));
    }
    return image;
}
} // namespace

QIcon Icones::calendrier(const QPalette &palette)
{
    QIcon icone;
    for (const qreal densite : {1.0, 2.0}) {
        icone.addPixmap(feuille(palette.color(QPalette::Active, QPalette::Text), densite), QIcon::Normal);
        icone.addPixmap(feuille(palette.color(QPalette::Disabled, QPalette::Text), densite), QIcon::Disabled);
    }
    return icone;
}
