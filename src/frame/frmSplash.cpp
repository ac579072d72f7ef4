#include "frame/frmSplash.h"

#include "ui_frmSplash.h"

#include <QCoreApplication>
#include <QEvent>
#include <QIcon>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace
{
constexpr int DUREE_MS = 2000;

// Water under the title: two lazy waves across the foot of the window, `phase` and `hauteur` in parts of its size.
QPainterPath vague(const QRectF &cadre, double hauteur, double creux, double phase)
{
    const double l = cadre.width();
    const double y = cadre.height() * hauteur;
    const double a = cadre.height() * creux;
    QPainterPath trace(QPointF(-l * phase, y));
    for (double x = -l * phase; x < l * 1.5; x += l * 0.5) {
        trace.cubicTo(x + l * 0.125, y - a, x + l * 0.125, y - a, x + l * 0.25, y);
        trace.cubicTo(x + l * 0.375, y + a, x + l * 0.375, y + a, x + l * 0.5, y);
    }
    trace.lineTo(l * 2, cadre.height());
    trace.lineTo(-l * phase, cadre.height());
    trace.closeSubpath();
    return trace;
}
} // namespace

frmSplash::frmSplash(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), m_ui(std::make_unique<Ui::frmSplash>()),
      m_timer1(this)
{
    m_ui->setupUi(this);
    m_ui->ZT_TITRE->setText(QStringLiteral("Ovralis - Outil Local"));
    // Major, minor and revision numbers.
    m_ui->lblVersion->setText(QStringLiteral("Version ") + QCoreApplication::applicationVersion());
    m_ui->marque->setPixmap(QIcon(QStringLiteral(":/icones/ovralis.svg")).pixmap(96, 96));
    m_ui->Frame1->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setSingleShot(true);
    m_timer1.setInterval(DUREE_MS);
    connect(&m_timer1, &QTimer::timeout, this, &QWidget::close);
}

frmSplash::~frmSplash() = default;

bool frmSplash::event(QEvent *evenement)
{
    if (evenement->type() == QEvent::KeyPress || evenement->type() == QEvent::MouseButtonPress) {
        close();
        return true;
    }
    return QWidget::event(evenement);
}

bool frmSplash::eventFilter(QObject *objet, QEvent *evenement)
{
    if (objet == m_ui->Frame1 && evenement->type() == QEvent::MouseButtonPress) {
        close();
        return true;
    }
    return QWidget::eventFilter(objet, evenement);
}

void frmSplash::closeEvent(QCloseEvent *evenement)
{
    m_timer1.stop();
    QWidget::closeEvent(evenement);
    if (m_fermee)
        return;
    m_fermee = true;
    Q_EMIT ferme();
}

void frmSplash::showEvent(QShowEvent *evenement)
{
    const QRect ecran = screen()->availableGeometry();
    move(ecran.center() - rect().center());
    activateWindow();
    setFocus();
    m_timer1.start();
    QWidget::showEvent(evenement);
}

void frmSplash::paintEvent(QPaintEvent * /*evenement*/)
{
    // The window has its own colours: it looks the same under a light and a dark desktop.
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    const QRectF cadre = rect();
    QLinearGradient ciel(cadre.topLeft(), cadre.bottomLeft());
    ciel.setColorAt(0, QColor(0x0b, 0x3c, 0x5d));
    ciel.setColorAt(1, QColor(0x14, 0x6c, 0x94));
    peintre.fillRect(cadre, ciel);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(QColor(0x4f, 0xb3, 0xd9, 70));
    peintre.drawPath(vague(cadre, 0.80, 0.07, 0.10));
    peintre.setBrush(QColor(0x7f, 0xd1, 0xae, 90));
    peintre.drawPath(vague(cadre, 0.88, 0.06, 0.35));
}
