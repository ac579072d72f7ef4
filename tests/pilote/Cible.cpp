#include "pilote/Cible.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace
{
QString classe(const QWidget *widget)
{
    return QString::fromLatin1(widget->metaObject()->className()).section(QLatin1String("::"), -1);
}

bool estFormulaire(const QWidget *widget)
{
    return widget->isWindow() || qobject_cast<const QMdiSubWindow *>(widget->parentWidget());
}

// The innermost form that holds a widget.
const QWidget *formulaireDe(const QWidget *widget)
{
    while (widget && !estFormulaire(widget))
        widget = widget->parentWidget();
    return widget;
}
} // namespace

QWidget *Cible::formulaire(const QString &nom)
{
    QWidget *cache = nullptr;
    QWidget *montre = nullptr;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (qobject_cast<QMdiSubWindow *>(widget) || !estFormulaire(widget) ||
            (widget->objectName() != nom && classe(widget) != nom))
            continue;
        if (!widget->isVisible())
            cache = widget;
        else if (!montre || widget->isActiveWindow())
            montre = widget;
    }
    return montre ? montre : cache;
}

QWidget *Cible::formulaireMontre(const QString &nom)
{
    QWidget *form = formulaire(nom);
    if (!form)
        throw Echec(QStringLiteral("la fenêtre %1 n'existe pas").arg(nom));
    if (!form->isVisible())
        throw Echec(QStringLiteral("la fenêtre %1 n'est pas montrée").arg(nom));
    return form;
}

QWidget *Cible::controle(const QString &form, const QString &nom)
{
    QWidget *fenetre = formulaireMontre(form);
    QWidget *cache = nullptr;
    const QList<QWidget *> enfants = fenetre->findChildren<QWidget *>(nom);
    for (QWidget *enfant : enfants) {
        if (formulaireDe(enfant) != fenetre)
            continue;
        if (enfant->isVisible())
            return enfant;
        if (!cache)
            cache = enfant;
    }
    if (!cache)
        throw Echec(QStringLiteral("%1 n'a pas de contrôle %2").arg(form, nom));
    return cache;
}

QWidget *Cible::controleUtilisable(const QString &form, const QString &nom)
{
    QWidget *widget = controle(form, nom);
    if (!widget->isVisible())
        throw Echec(QStringLiteral("%1.%2 est caché").arg(form, nom));
    if (!widget->isEnabled())
        throw Echec(QStringLiteral("%1.%2 est désactivé").arg(form, nom));
    return widget;
}

QWidget *Cible::obstacle(const QWidget *form)
{
    QWidget *modale = QApplication::activeModalWidget();
    if (!modale || modale == form->window() || modale->isAncestorOf(form))
        return nullptr;
    return modale;
}

bool Cible::devant(QWidget *form)
{
    if (auto *fenetre = qobject_cast<QMdiSubWindow *>(form->parentWidget())) {
        QMdiArea *zone = fenetre->mdiArea();
        if (zone && zone->activeSubWindow() != fenetre)
            zone->setActiveSubWindow(fenetre);
    }
    if (form->window()->isActiveWindow())
        return true;
    form->window()->activateWindow();
    return false;
}

void Cible::forcerDevant(QWidget *form)
{
    QApplication::setActiveWindow(form->window());
}
