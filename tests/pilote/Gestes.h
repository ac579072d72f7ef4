// What a user does with a control: keys and clicks sent to the widget. Each throws Echec where the gesture cannot be
// made. A gesture returns when the program has handled it, which may be after a long routine has run.
#pragma once

#include <QString>

class QAction;
class QWidget;

namespace Gestes
{
void taper(QWidget *controle, const QString &texte);
// Leaves the field in which text was typed, by Tab.
void quitter(QWidget *controle);
// `touche` as Qt writes it ("Esc", "Enter", "Alt+V"); "Enter" is the main Enter key.
void touche(QWidget *controle, const QString &touche);
// Whether Qt still has to finish a gesture: a button goes up, and clicks, a moment after the key that pressed it; a cell's
// field closes a moment after Enter.
bool enSuspens();
void choisir(QWidget *controle, const QString &texte);
// All rows when `texte` is null.
void deselectionner(QWidget *controle, const QString &texte);
void doubleClic(QWidget *controle, const QString &texte);
void cocher(QWidget *controle, bool coche);
void cliquer(QWidget *controle);
void onglet(QWidget *controle, const QString &titre);
void cellule(QWidget *controle, int ligne, int colonne, const QString &texte);
void boutonCellule(QWidget *controle, int ligne, int colonne);
void supprimerLigne(QWidget *controle, int ligne);
void fermer(QWidget *form);
void menu(QAction *action);
} // namespace Gestes
