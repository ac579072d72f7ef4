#include "widgets/ZoneVerifiee.h"

#include "platform/Dialogue.h"
#include "widgets/Ecran.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>
#include <QTimer>

bool ZoneVerifiee::verifier()
{
    m_verificationPrevue = false;
    if (accepter())
        return true;
    refuser();
    return false;
}

void ZoneVerifiee::refuser()
{
    const QPointer<QWidget> widget(&m_widget);
    if (m_dialogue)
        m_dialogue->message(messageRefus(), titreRefus(), Icone::Exclamation);
    if (!widget)
        return;
    m_widget.setFocus(Qt::OtherFocusReason);
    selectionnerTexte();
}

void ZoneVerifiee::quitter(const QFocusEvent &evenement)
{
    const Qt::FocusReason raison = evenement.reason();
    if (raison == Qt::PopupFocusReason || raison == Qt::ActiveWindowFocusReason ||
        raison == Qt::MenuBarFocusReason || !quitteVraiment())
        return;
    if (accepter() || m_verificationPrevue)
        return;
    m_verificationPrevue = true;
    QTimer::singleShot(0, &m_widget, [this] {
        if (!m_verificationPrevue)
            return;
        m_verificationPrevue = false;
        if (quitteVraiment() && !accepter())
            refuser();
    });
}

bool ZoneVerifiee::quitteVraiment() const
{
    if (!m_widget.isVisible() || !m_widget.isEnabled())
        return false;
    const QWidget *nouveau = QApplication::focusWidget();
    if (!nouveau)
        return true;
    if (nouveau == &m_widget || m_widget.isAncestorOf(nouveau))
        return false;
    if (nouveau->property("sansVerification").toBool())
        return false;
    const QWidget *ecran = Ecran::de(&m_widget);
    return ecran == nouveau || ecran->isAncestorOf(nouveau);
}
