#include "widgets/BlocCellules.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>

void BlocCellules::copier(const QAbstractItemView &vue)
{
    const QItemSelectionModel *selection = vue.selectionModel();
    if (!selection || !selection->hasSelection())
        return;
    QRect cadre;
    const QItemSelection choisies = selection->selection();
    for (const QItemSelectionRange &bloc : choisies)
        cadre |= QRect(QPoint(bloc.left(), bloc.top()), QPoint(bloc.right(), bloc.bottom()));
    QStringList lignes;
    for (int ligne = cadre.top(); ligne <= cadre.bottom(); ++ligne) {
        QStringList textes;
        for (int colonne = cadre.left(); colonne <= cadre.right(); ++colonne) {
            const QModelIndex cellule = vue.model()->index(ligne, colonne);
            textes << (selection->isSelected(cellule) ? cellule.data().toString() : QString());
        }
        lignes << textes.join(u'\t');
    }
    QApplication::clipboard()->setText(lignes.join(u'\n') + u'\n');
}

QList<QStringList> BlocCellules::lire()
{
    QString texte = QApplication::clipboard()->text();
    texte.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (texte.endsWith(u'\n'))
        texte.chop(1);
    QList<QStringList> bloc;
    if (texte.isEmpty())
        return bloc;
    const QStringList lignes = texte.split(u'\n');
    for (const QString &ligne : lignes)
        bloc << ligne.split(u'\t');
    return bloc;
}
