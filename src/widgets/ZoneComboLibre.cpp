#include "widgets/ZoneComboLibre.h"

#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

ZoneComboLibre::ZoneComboLibre(QWidget *parent) : QComboBox(parent), ZoneReglee(*static_cast<QWidget *>(this))
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMaxVisibleItems(15);
    setFocusPolicy(Qt::StrongFocus); // the wheel alone does not bring the focus
    // Typing is free: a row is proposed below, never put in place of what is typed.
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setFilterMode(Qt::MatchContains);
    connect(this, &QComboBox::activated, this, &ZoneComboLibre::texteChoisi);
}

void ZoneComboLibre::remplir(const QStringList &propositions)
{
    const QSignalBlocker muet(this);
    const QString garde = currentText();
    clear();
    addItems(propositions);
    fixer(garde);
}

void ZoneComboLibre::fixer(const QString &texte)
{
    const QSignalBlocker muet(this);
    setCurrentIndex(findText(texte, Qt::MatchExactly | Qt::MatchCaseSensitive));
    setEditText(texte);
    lineEdit()->setCursorPosition(0);
}

void ZoneComboLibre::selectionnerTexte()
{
    lineEdit()->selectAll();
}

void ZoneComboLibre::focusOutEvent(QFocusEvent *evenement)
{
    QComboBox::focusOutEvent(evenement);
    quitter(*evenement);
    if (evenement->reason() != Qt::PopupFocusReason && accepter())
        Q_EMIT texteChoisi();
}

void ZoneComboLibre::keyPressEvent(QKeyEvent *evenement)
{
    // What Enter does is the screen's business.
    if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) {
        evenement->ignore();
        return;
    }
    QComboBox::keyPressEvent(evenement);
}

void ZoneComboLibre::wheelEvent(QWheelEvent *evenement)
{
    if (hasFocus())
        QComboBox::wheelEvent(evenement);
    else
        evenement->ignore();
}
