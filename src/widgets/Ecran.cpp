#include "widgets/Ecran.h"

#include "frame/Session.h"
#include "platform/Erreur.h"
#include "widgets/Mnemoniques.h"
#include "widgets/ZoneVerifiee.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>

Ecran::Ecran(Session &session, Cadre &cadre, QWidget *parent)
    : QWidget(parent), m_session(session), m_cadre(cadre)
{
    new Mnemoniques(*this);
    connect(&session.etatRapport, &EtatRapport::change, this, &Ecran::suivreRapport);
}

const QWidget *Ecran::de(const QWidget *widget)
{
    for (const QWidget *w = widget; w; w = w->parentWidget()) {
        if (qobject_cast<const Ecran *>(w))
            return w;
    }
    return widget->window();
}

void Ecran::preparer(QPushButton *principal, QPushButton *fermeture)
{
    m_principal = principal;
    m_fermeture = fermeture;
    if (principal)
        principal->setDefault(true);
    if (fermeture) {
        // Leaving a wrong field to close the screen is no reason for a message.
        fermeture->setProperty("sansVerification", true);
        connect(fermeture, &QPushButton::clicked, this, &Ecran::fermer);
    }
    const auto enfants = findChildren<QWidget *>();
    for (QWidget *enfant : enfants) {
        if (auto *zone = dynamic_cast<ZoneVerifiee *>(enfant))
            zone->brancher(&m_session.dialogue);
    }
    suivreRapport(m_session.etatRapport.enCours());
}

bool Ecran::verifierZones()
{
    const auto enfants = findChildren<QWidget *>();
    return std::all_of(enfants.begin(), enfants.end(), [](QWidget *enfant) {
        auto *zone = dynamic_cast<ZoneVerifiee *>(enfant);
        return !zone || !enfant->isVisible() || !enfant->isEnabled() || zone->verifier();
    });
}

void Ecran::executer(const std::function<void()> &commande)
{
    // The dialogue outlives the screen, which the user may close while the box is up.
    Dialogue &dialogue = m_session.dialogue;
    try {
        commande();
    } catch (const Erreur &erreur) {
        dialogue.message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                             erreur.numeroEtDescription(),
                         QStringLiteral("Erreur"), Icone::Critique);
    }
}

void Ecran::fermer()
{
    QWidget *fenetre = this;
    if (auto *cadreEnfant = qobject_cast<QMdiSubWindow *>(parentWidget()))
        fenetre = cadreEnfant;
    fenetre->close();
}

void Ecran::keyPressEvent(QKeyEvent *evenement)
{
    const bool nue = evenement->modifiers() == Qt::NoModifier || evenement->modifiers() == Qt::KeypadModifier;
    const int touche = evenement->key();
    QPushButton *bouton = nullptr;
    if (nue && touche == Qt::Key_Escape)
        bouton = m_fermeture;
    else if (nue && (touche == Qt::Key_Return || touche == Qt::Key_Enter)) {
        // A button that has the focus is the one that Enter presses.
        auto *choisi = qobject_cast<QPushButton *>(focusWidget());
        bouton = choisi ? choisi : m_principal.data();
    }
    if (!bouton) {
        QWidget::keyPressEvent(evenement);
        return;
    }
    evenement->accept();
    // On another tab the main button is out of sight, and Enter has nothing to do.
    if (bouton->isEnabled() && (bouton == m_fermeture || bouton->isVisible()))
        bouton->click();
}

void Ecran::closeEvent(QCloseEvent *evenement)
{
    evenement->setAccepted(!m_session.etatRapport.enCours());
}

void Ecran::showEvent(QShowEvent *evenement)
{
    QWidget::showEvent(evenement);
    // Once the frame around the screen has given the focus to its first control.
    QTimer::singleShot(0, this, [this] {
        if (m_premier)
            m_premier->setFocus(Qt::OtherFocusReason);
        m_premier.clear();
    });
}

void Ecran::suivreRapport(bool enCours)
{
    if (enCours == !isEnabled())
        return;
    if (enCours)
        m_foyer = focusWidget();
    setEnabled(!enCours);
    if (!enCours && m_foyer)
        m_foyer->setFocus();
}
