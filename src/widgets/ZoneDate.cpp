#include "widgets/ZoneDate.h"

#include "platform/Saisie.h"
#include "widgets/Calendrier.h"
#include "widgets/Icones.h"

#include <QAction>
#include <QKeyEvent>

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
    const QDate typee = date();
    Calendrier::ouvrir(this, typee.isValid() ? typee : m_proposee, [this](QDate choisie) {
        fixer(choisie);
        Q_EMIT textEdited(text());
        setFocus();
    });
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
