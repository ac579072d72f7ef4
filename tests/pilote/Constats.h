// What a scenario reads on the screen.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace Constats
{
// A field's text, a combo's text, a button's or group's caption without its mnemonic, a label's text.
QString texte(QWidget *controle);
QString cellule(QWidget *controle, int ligne, int colonne);
// A row of a list or a combo.
QString ligne(QWidget *controle, int ligne);
int lignes(QWidget *controle);
// The selected rows' texts, in the order of the list.
QStringList selection(QWidget *controle);
bool coche(QWidget *controle);
// Whether it has the focus, itself or through a part of it.
bool foyer(const QWidget *controle);
} // namespace Constats
