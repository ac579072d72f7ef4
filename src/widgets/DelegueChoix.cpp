#include "widgets/DelegueChoix.h"

#include "widgets/ZoneCombo.h"

#include <QLineEdit>

QWidget *DelegueChoix::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                    const QModelIndex & /*cellule*/) const
{
    auto *combo = new ZoneCombo(parent);
    combo->setFrame(false);
    ListeChoix lignes;
    for (const QString &ligne : m_lignes)
        lignes.append({ligne, ligne});
    combo->remplir(lignes);
    // A row picked with the mouse is taken at once.
    auto *moi = const_cast<DelegueChoix *>(this);
    connect(combo, &QComboBox::activated, moi, [moi, combo] {
        Q_EMIT moi->commitData(combo);
        Q_EMIT moi->closeEditor(combo);
    });
    return combo;
}

void DelegueChoix::setEditorData(QWidget *editeur, const QModelIndex &cellule) const
{
    auto *combo = qobject_cast<ZoneCombo *>(editeur);
    const QString texte = cellule.data(Qt::EditRole).toString();
    combo->choisir(texte);
    combo->lineEdit()->setText(texte);
    combo->lineEdit()->selectAll();
}

void DelegueChoix::setModelData(QWidget *editeur, QAbstractItemModel *modele,
                                const QModelIndex &cellule) const
{
    modele->setData(cellule, qobject_cast<ZoneCombo *>(editeur)->currentText(), Qt::EditRole);
}
