#include "widgets/DelegueListes.h"

#include "widgets/GrilleListes.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>

namespace
{
constexpr int LARGEUR_BOUTON = 18;
} // namespace

DelegueListes::DelegueListes(GrilleListes *grille) : QStyledItemDelegate(grille), m_grille(*grille) {}

int DelegueListes::largeurBouton(const QModelIndex &cellule) const
{
    return m_grille.colonne(cellule.column()).bouton == GrilleListes::Colonne::Bouton::Aucun ? 0
                                                                                             : LARGEUR_BOUTON;
}

void DelegueListes::paint(QPainter *peintre, const QStyleOptionViewItem &option,
                          const QModelIndex &cellule) const
{
    const int bouton = largeurBouton(cellule);
    if (bouton == 0) {
        QStyledItemDelegate::paint(peintre, option, cellule);
        return;
    }
    QStyleOptionViewItem fond = option;
    initStyleOption(&fond, cellule);
    fond.text.clear();
    const QStyle &style = *m_grille.style();
    style.drawControl(QStyle::CE_ItemViewItem, &fond, peintre, &m_grille);
    QStyleOptionViewItem texte = option;
    texte.rect.setRight(option.rect.right() - bouton);
    QStyledItemDelegate::paint(peintre, texte, cellule);

    const QRect place(option.rect.right() - bouton + 1, option.rect.top(), bouton, option.rect.height());
    const bool choisi = option.state.testFlag(QStyle::State_Selected);
    QColor trait = option.palette.color(choisi ? QPalette::HighlightedText : QPalette::Text);
    trait.setAlphaF(0.7F);
    peintre->save();
    peintre->setRenderHint(QPainter::Antialiasing);
    peintre->setPen(QPen(trait, 1.4));
    const QPointF milieu = QRectF(place).center();
    if (m_grille.colonne(cellule.column()).bouton == GrilleListes::Colonne::Bouton::Liste) {
        const QPointF pointe[] = {milieu + QPointF(-3.5, -1.5), milieu + QPointF(0, 2),
                                  milieu + QPointF(3.5, -1.5)};
        peintre->drawPolyline(pointe, 3);
    } else {
        for (int i = -1; i <= 1; ++i)
            peintre->drawPoint(milieu + QPointF(4 * i, 2));
    }
    peintre->restore();
}

QWidget *DelegueListes::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                     const QModelIndex &cellule) const
{
    auto *champ = new QLineEdit(parent);
    champ->setFrame(false);
    champ->setAutoFillBackground(true);
    champ->setAlignment(cellule.data(Qt::TextAlignmentRole).value<Qt::Alignment>());
    m_grille.suivreEditeur(champ, cellule);
    return champ;
}

void DelegueListes::setEditorData(QWidget *editeur, const QModelIndex &cellule) const
{
    // A cell that changes while it is being typed leaves the typing alone.
    auto *champ = qobject_cast<QLineEdit *>(editeur);
    if (!champ->isModified() && champ->text() != cellule.data(Qt::EditRole).toString())
        champ->setText(cellule.data(Qt::EditRole).toString());
}

void DelegueListes::setModelData(QWidget *editeur, QAbstractItemModel * /*modele*/,
                                 const QModelIndex &cellule) const
{
    m_grille.ecrire(cellule, qobject_cast<QLineEdit *>(editeur)->text());
}

bool DelegueListes::eventFilter(QObject *editeur, QEvent *evenement)
{
    if (evenement->type() == QEvent::KeyPress && m_grille.toucheDeListe(static_cast<QKeyEvent *>(evenement)))
        return true;
    // The list below the cell is a part of the cell.
    if (evenement->type() == QEvent::FocusOut && m_grille.listeALeFoyer())
        return false;
    return QStyledItemDelegate::eventFilter(editeur, evenement);
}
