#include "capture/ecrans/CombosPrelevement.h"

#include "platform/Saisie.h"
#include "widgets/Calendrier.h"
#include "widgets/Icones.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>

QString ComboStation::messageRefus() const
{
    return QStringLiteral("Cette valeur n'existe pas.");
}

void ComboStation::selectionnerTexte()
{
    lineEdit()->clear();
    accepter();
}

void ComboMoment::selectionnerTexte()
{
    fixer(QString());
    Q_EMIT texteChoisi();
}

void ComboMoment::offrirCalendrier()
{
    m_bouton = lineEdit()->addAction(Icones::calendrier(palette()), QLineEdit::TrailingPosition);
    m_bouton->setToolTip(QStringLiteral("Choisir dans un calendrier (Ctrl+Bas)"));
    connect(m_bouton, &QAction::triggered, this, &ComboMoment::ouvrirCalendrier);
}

void ComboMoment::ouvrirCalendrier()
{
    Calendrier::ouvrir(this, Saisie::lireDate(texte()).value_or(QDate()), [this](QDate choisie) {
        fixer(Saisie::ecrireDate(choisie));
        setFocus();
        Q_EMIT texteChoisi();
    });
}

void ComboMoment::keyPressEvent(QKeyEvent *evenement)
{
    if (m_bouton && evenement->key() == Qt::Key_Down && evenement->modifiers() == Qt::ControlModifier)
        ouvrirCalendrier();
    else
        ZoneComboLibre::keyPressEvent(evenement);
}

void ComboMoment::changeEvent(QEvent *evenement)
{
    ZoneComboLibre::changeEvent(evenement);
    if (m_bouton && evenement->type() == QEvent::PaletteChange)
        m_bouton->setIcon(Icones::calendrier(palette()));
}
