#include "widgets/Mnemoniques.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QTimer>

Mnemoniques::Mnemoniques(QWidget &ecran) : QObject(&ecran), m_ecran(ecran)
{
    qApp->installEventFilter(this);
}

QWidget *Mnemoniques::cible(const QKeyEvent &evenement) const
{
    if (evenement.modifiers() != Qt::AltModifier || evenement.key() < Qt::Key_0 ||
        evenement.key() > Qt::Key_Z)
        return nullptr;
    const QKeySequence touche(Qt::ALT | static_cast<Qt::Key>(evenement.key()));
    const auto enfants = m_ecran.findChildren<QWidget *>();
    for (QWidget *enfant : enfants) {
        if (!enfant->isVisible() || !enfant->isEnabled())
            continue;
        if (auto *bouton = qobject_cast<QAbstractButton *>(enfant)) {
            if (QKeySequence::mnemonic(bouton->text()) == touche)
                return bouton;
        } else if (auto *libelle = qobject_cast<QLabel *>(enfant)) {
            if (libelle->buddy() && libelle->buddy()->isEnabled() &&
                QKeySequence::mnemonic(libelle->text()) == touche)
                return libelle->buddy();
        }
    }
    return nullptr;
}

bool Mnemoniques::eventFilter(QObject *objet, QEvent *evenement)
{
    if (evenement->type() != QEvent::ShortcutOverride && evenement->type() != QEvent::KeyPress)
        return false;
    auto *widget = qobject_cast<QWidget *>(objet);
    if (!widget || (widget != &m_ecran && !m_ecran.isAncestorOf(widget)))
        return false;
    auto *touche = static_cast<QKeyEvent *>(evenement);
    QWidget *trouve = cible(*touche);
    if (!trouve)
        return false;
    touche->accept();
    if (evenement->type() == QEvent::ShortcutOverride)
        return true;
    trouve->setFocus(Qt::ShortcutFocusReason);
    if (auto *bouton = qobject_cast<QAbstractButton *>(trouve)) {
        // Once the field that had the focus has been left and checked: a refusal takes the focus back.
        QTimer::singleShot(0, bouton, [this, bouton] {
            if (bouton->isEnabled() && m_ecran.focusWidget() == bouton && !QApplication::activeModalWidget())
                bouton->click();
        });
    }
    return true;
}
