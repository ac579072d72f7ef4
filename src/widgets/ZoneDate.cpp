#include "widgets/ZoneDate.h"

#include "platform/Horloge.h"
#include "platform/Saisie.h"
#include "widgets/Icones.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

ZoneDate::ZoneDate(QWidget *parent)
    : ZoneTexte(parent), m_bouton(addAction(QIcon(), QLineEdit::TrailingPosition))
{
    setPlaceholderText(QStringLiteral("jj/mm/aaaa"));
    setMaxLength(10);
    m_bouton->setToolTip(QStringLiteral("Choisir dans un calendrier (Alt+Bas)"));
    connect(m_bouton, &QAction::triggered, this, &ZoneDate::ouvrirCalendrier);
    dessinerBouton();
}

QDate ZoneDate::date() const
{
    return Saisie::lireDate(text()).value_or(QDate());
}

void ZoneDate::fixer(QDate date)
{
    setText(Saisie::ecrireDate(date));
}

QSize ZoneDate::minimumSizeHint() const
{
    constexpr int BOUTON_ET_MARGES = 40;
    return {fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000")) + BOUTON_ET_MARGES,
            ZoneTexte::minimumSizeHint().height()};
}

bool ZoneDate::accepter()
{
    const QString texte = text().trimmed();
    const auto lue = Saisie::lireDate(texte);
    if (!lue && !texte.isEmpty())
        return false;
    const QString forme = lue ? Saisie::ecrireDate(*lue) : QString();
    if (forme != text())
        setText(forme);
    return true;
}

QString ZoneDate::messageRefus() const
{
    return QStringLiteral("La date n'est pas au format adapté : \"jj/mm/aaaa\".");
}

QString ZoneDate::titreRefus() const
{
    return QStringLiteral("Erreur de type");
}

void ZoneDate::ouvrirCalendrier()
{
    if (isReadOnly())
        return;
    auto *cadre = new QFrame(this, Qt::Popup);
    cadre->setAttribute(Qt::WA_DeleteOnClose);
    cadre->setFrameShape(QFrame::StyledPanel);
    auto *disposition = new QVBoxLayout(cadre);
    disposition->setContentsMargins(1, 1, 1, 1);
    auto *calendrier = new QCalendarWidget(cadre);
    calendrier->setLocale(QLocale(QLocale::French, QLocale::France));
    calendrier->setFirstDayOfWeek(Qt::Monday);
    calendrier->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    QDate montree = date();
    if (!montree.isValid())
        montree = m_proposee.isValid() ? m_proposee : Horloge::maintenant().date();
    calendrier->setSelectedDate(montree);
    disposition->addWidget(calendrier);
    const auto prendre = [this, cadre](QDate choisie) {
        cadre->close();
        fixer(choisie);
        Q_EMIT textEdited(text());
        setFocus();
    };
    connect(calendrier, &QCalendarWidget::activated, this, prendre);
    connect(calendrier, &QCalendarWidget::clicked, this, prendre);

    cadre->adjustSize();
    QPoint coin = mapToGlobal(QPoint(0, height()));
    const QRect place = screen()->availableGeometry();
    if (coin.y() + cadre->height() > place.bottom())
        coin = mapToGlobal(QPoint(0, -cadre->height()));
    coin.setX(std::clamp(coin.x(), place.left(), std::max(place.left(), place.right() - cadre->width())));
    cadre->move(coin);
    cadre->show();
    calendrier->setFocus();
}

void ZoneDate::keyPressEvent(QKeyEvent *evenement)
{
    if (evenement->key() == Qt::Key_Down && evenement->modifiers().testFlag(Qt::AltModifier)) {
        ouvrirCalendrier();
        return;
    }
    ZoneTexte::keyPressEvent(evenement);
}

void ZoneDate::changeEvent(QEvent *evenement)
{
    ZoneTexte::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange)
        dessinerBouton();
}

void ZoneDate::dessinerBouton()
{
    m_bouton->setIcon(Icones::calendrier(palette()));
}
