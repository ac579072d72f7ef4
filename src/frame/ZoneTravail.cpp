#include "frame/ZoneTravail.h"

#include <QPainter>
#include <QPaintEvent>

ZoneTravail::ZoneTravail(QWidget *parent) : QMdiArea(parent), m_marque(QStringLiteral(":/icones/ovralis.svg"))
{
    setObjectName(QStringLiteral("zone_travail"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setActivationOrder(QMdiArea::ActivationHistoryOrder);
}

void ZoneTravail::definirLegende(const QString &titre, const QString &precision)
{
    m_titre = titre;
    m_precision = precision;
    viewport()->update();
}

void ZoneTravail::paintEvent(QPaintEvent * /*evenement*/)
{
    QPainter peintre(viewport());
    const QRect zone = viewport()->rect();
    // From the palette, so that it follows a light or a dark desktop.
    const QColor fond = palette().color(QPalette::Window);
    const QColor encre = palette().color(QPalette::WindowText);
    peintre.fillRect(zone, fond.lightness() > 127 ? fond.darker(106) : fond.lighter(118));

    constexpr int MARQUE = 128;
    constexpr int MARGE = 18;
    const int hauteurTexte = 3 * fontMetrics().height() + MARGE;
    const QRect marque((zone.width() - MARQUE) / 2, (zone.height() - MARQUE - hauteurTexte) / 2, MARQUE,
                       MARQUE);
    peintre.setOpacity(0.55);
    m_marque.paint(&peintre, marque);
    peintre.setOpacity(0.85);
    peintre.setPen(encre);
    QFont gras = font();
    gras.setPointSizeF(gras.pointSizeF() * 1.5);
    gras.setBold(true);
    peintre.setFont(gras);
    QRect ligne(zone.left() + MARGE, marque.bottom() + MARGE, zone.width() - 2 * MARGE,
                QFontMetrics(gras).height());
    peintre.drawText(ligne, Qt::AlignCenter,
                     peintre.fontMetrics().elidedText(m_titre, Qt::ElideRight, ligne.width()));
    peintre.setFont(font());
    peintre.setOpacity(0.7);
    ligne = QRect(ligne.left(), ligne.bottom() + MARGE / 3, ligne.width(), fontMetrics().height() + 2);
    peintre.drawText(ligne, Qt::AlignCenter,
                     fontMetrics().elidedText(m_precision, Qt::ElideMiddle, ligne.width()));
}
