// The cells of a GrilleListes: their button, and the field in which they are typed.
#pragma once

#include <QStyledItemDelegate>

class GrilleListes;

class DelegueListes : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit DelegueListes(GrilleListes *grille);

    // Width of a cell's button in pixels; 0 where it has none.
    int largeurBouton(const QModelIndex &cellule) const;

    void paint(QPainter *peintre, const QStyleOptionViewItem &option,
               const QModelIndex &cellule) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &cellule) const override;
    void setEditorData(QWidget *editeur, const QModelIndex &cellule) const override;
    void setModelData(QWidget *editeur, QAbstractItemModel *modele,
                      const QModelIndex &cellule) const override;

protected:
    bool eventFilter(QObject *editeur, QEvent *evenement) override;

private:
    GrilleListes &m_grille;
};
