// The combos of a sampling's key: what they cannot take, they empty.
#pragma once

#include "widgets/ZoneCombo.h"
#include "widgets/ZoneComboLibre.h"

#include <QLineEdit>

// A station of the list.
class ComboStation : public ZoneCombo
{
    Q_OBJECT
public:
    using ZoneCombo::ZoneCombo;

protected:
    QString messageRefus() const override { return QStringLiteral("Cette valeur n'existe pas."); }
    void selectionnerTexte() override
    {
        lineEdit()->clear();
        accepter();
    }
};

// A date or a time of the list, or another one.
class ComboMoment : public ZoneComboLibre
{
    Q_OBJECT
public:
    using ZoneComboLibre::ZoneComboLibre;

protected:
    void selectionnerTexte() override
    {
        fixer(QString());
        Q_EMIT texteChoisi();
    }
};
