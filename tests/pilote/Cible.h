// From the names of a scenario to the widgets on the screen.
#pragma once

#include <QString>
#include <QWidget>
#include <stdexcept>

// A step that does not hold; the text says what was expected and what was there.
class Echec : public std::runtime_error
{
public:
    explicit Echec(const QString &raison) : std::runtime_error(raison.toStdString()) {}
    QString raison() const { return QString::fromUtf8(what()); }
};

namespace Cible
{
// The window or child of the main window whose class or object name is `nom`, a shown one first; null if there is none.
QWidget *formulaire(const QString &nom);
// The same; throws Echec if none is shown.
QWidget *formulaireMontre(const QString &nom);
// The widget of that object name in that form, a shown one first; throws Echec if there is none.
QWidget *controle(const QString &form, const QString &nom);
// The same, which must also be shown and enabled: the target of a gesture.
QWidget *controleUtilisable(const QString &form, const QString &nom);

// The modal window that keeps the user from this form; null if none does.
QWidget *obstacle(const QWidget *form);
// Asks for the form to be in front; true once it is.
bool devant(QWidget *form);
// Makes it the active window for Qt, where the display has no window manager to grant that.
void forcerDevant(QWidget *form);

// The widget itself, or the one such child that it was made around (a shared widget around a combo, say).
template <typename T> T *dedans(QWidget *widget)
{
    if (auto *direct = qobject_cast<T *>(widget))
        return direct;
    const QList<T *> enfants = widget->findChildren<T *>();
    for (T *enfant : enfants)
        if (enfant->isVisibleTo(widget))
            return enfant;
    return nullptr;
}
} // namespace Cible
