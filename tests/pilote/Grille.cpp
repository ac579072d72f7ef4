#include "pilote/Grille.h"

#include "pilote/Cible.h"

#include <QApplication>

QTableView *Grille::de(QWidget *controle)
{
    auto *grille = Cible::dedans<QTableView>(controle);
    if (!grille)
        throw Echec(QStringLiteral("%1 n'est pas une grille").arg(controle->objectName()));
    return grille;
}

QModelIndex Grille::index(const QTableView *grille, int ligne, int colonne)
{
    const QModelIndex trouve = grille->model()->index(ligne, colonne);
    if (!trouve.isValid())
        throw Echec(QStringLiteral("pas de cellule %1, %2 : la grille a %3 lignes et %4 colonnes")
                        .arg(ligne)
                        .arg(colonne)
                        .arg(grille->model()->rowCount())
                        .arg(grille->model()->columnCount()));
    return trouve;
}

bool Grille::saisieOuverte()
{
    const QWidget *champ = QApplication::focusWidget();
    const QWidget *fond = champ ? champ->parentWidget() : nullptr;
    auto *grille = fond ? qobject_cast<QTableView *>(fond->parentWidget()) : nullptr;
    return grille && grille->viewport() == fond;
}
