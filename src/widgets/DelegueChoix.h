// The cells of a grid's column that are chosen from a list.
#pragma once

#include <QStringList>
#include <QStyledItemDelegate>

// A cell opens as a combo in which one types to find. A text that is not in the list is left for the model to judge.
class DelegueChoix : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void definirLignes(const QStringList &lignes) { m_lignes = lignes; }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &cellule) const override;
    void setEditorData(QWidget *editeur, const QModelIndex &cellule) const override;
    void setModelData(QWidget *editeur, QAbstractItemModel *modele,
                      const QModelIndex &cellule) const override;

private:
    QStringList m_lignes;
};
