#include "widgets/ListeFiltree.h"

#include "widgets/Recherche.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>

namespace
{
constexpr int CODE = Qt::UserRole;
constexpr int LONGUE = 8; // rows from which a list has its filter
} // namespace

ListeFiltree::ListeFiltree(QWidget *parent) : QListWidget(parent), m_filtre(new QLineEdit(this))
{
    setSelectionMode(QAbstractItemView::MultiSelection);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_filtre->setPlaceholderText(QStringLiteral("Filtrer…"));
    m_filtre->setClearButtonEnabled(true);
    m_filtre->installEventFilter(this);
    m_filtre->hide();
    connect(m_filtre, &QLineEdit::textChanged, this, &ListeFiltree::filtrer);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &nouveaux) { suivreChoix(nouveaux); });
}

void ListeFiltree::remplir(const ListeChoix &lignes)
{
    const QScopedValueRollback silence(m_silence, true);
    const QStringList choisis = codes();
    clear();
    for (const Choix &ligne : lignes) {
        auto *element = new QListWidgetItem(ligne.texte, this);
        element->setData(CODE, ligne.code);
        element->setToolTip(ligne.texte);
        element->setSelected(choisis.contains(ligne.code));
    }
    m_filtre->clear();
    m_filtre->setVisible(lignes.size() >= LONGUE);
    placerFiltre();
}

QStringList ListeFiltree::codes() const
{
    QStringList resultat;
    for (int i = 0; i < count(); ++i) {
        if (item(i)->isSelected())
            resultat << item(i)->data(CODE).toString();
    }
    return resultat;
}

QStringList ListeFiltree::textes() const
{
    QStringList resultat;
    for (int i = 0; i < count(); ++i) {
        if (item(i)->isSelected())
            resultat << item(i)->text();
    }
    return resultat;
}

void ListeFiltree::choisir(const QStringList &codes)
{
    const QScopedValueRollback silence(m_silence, true);
    for (int i = 0; i < count(); ++i)
        item(i)->setSelected(codes.contains(item(i)->data(CODE).toString()));
}

void ListeFiltree::suivreChoix(const QItemSelection &nouveaux)
{
    if (m_silence)
        return;
    if (m_regle && !nouveaux.isEmpty()) {
        const QString message = m_regle(codes());
        if (!message.isEmpty()) {
            {
                const QScopedValueRollback silence(m_silence, true);
                selectionModel()->select(nouveaux, QItemSelectionModel::Deselect);
            }
            // Once the click that chose the row is over: a box must not open in its middle.
            QTimer::singleShot(0, this, [this, message] { Q_EMIT refus(message); });
            return;
        }
    }
    Q_EMIT choixChange();
}

void ListeFiltree::filtrer(const QString &texte)
{
    const QString cherche = Recherche::plier(texte.trimmed());
    for (int i = 0; i < count(); ++i)
        item(i)->setHidden(!Recherche::plier(item(i)->text()).contains(cherche));
}

void ListeFiltree::placerFiltre()
{
    const int haut = m_filtre->isHidden() ? 0 : m_filtre->sizeHint().height();
    setViewportMargins(0, haut, 0, 0);
    const QRect dedans = contentsRect();
    m_filtre->setGeometry(dedans.left(), dedans.top(), dedans.width(), haut);
}

void ListeFiltree::resizeEvent(QResizeEvent *evenement)
{
    QListWidget::resizeEvent(evenement);
    placerFiltre();
}

void ListeFiltree::keyPressEvent(QKeyEvent *evenement)
{
    // Typed letters go to the filter where there is one, else to the list's own search.
    const QString texte = evenement->text();
    const bool lettre = !texte.isEmpty() && texte[0].isPrint() && texte[0] != u' ' &&
                        !(evenement->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (lettre && !m_filtre->isHidden()) {
        m_filtre->setFocus();
        m_filtre->insert(texte);
        return;
    }
    QListWidget::keyPressEvent(evenement);
}

bool ListeFiltree::eventFilter(QObject *objet, QEvent *evenement)
{
    if (objet == m_filtre && evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent *>(evenement)->key();
        if (touche == Qt::Key_Down || touche == Qt::Key_Return || touche == Qt::Key_Enter) {
            // To the first row that the filter leaves.
            for (int i = 0; i < count(); ++i) {
                if (!item(i)->isHidden()) {
                    setCurrentRow(i, QItemSelectionModel::NoUpdate);
                    break;
                }
            }
            setFocus();
            return true;
        }
        if (touche == Qt::Key_Escape && !m_filtre->text().isEmpty()) {
            m_filtre->clear();
            return true;
        }
    }
    return QListWidget::eventFilter(objet, evenement);
}
