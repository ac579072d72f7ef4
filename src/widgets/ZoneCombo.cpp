#include "widgets/ZoneCombo.h"

#include "widgets/Recherche.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace
{
enum Role { CODE = Qt::UserRole, COMPLEMENT, RECHERCHE };
constexpr int ECART = 12; // pixels between a row's text and its complement

// A row's text, and its complement beside it in a paler colour.
class Delegue : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *peintre, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(peintre, option, index);
        const QString complement = index.data(COMPLEMENT).toString();
        if (complement.isEmpty())
            return;
        const bool choisi = option.state.testFlag(QStyle::State_Selected);
        QColor couleur = option.palette.color(choisi ? QPalette::HighlightedText : QPalette::Text);
        couleur.setAlphaF(0.7F);
        const QString texte = index.data().toString();
        QRect place = option.rect.adjusted(0, 0, -4, 0);
        place.setLeft(place.left() + 4 + option.fontMetrics.horizontalAdvance(texte) + ECART);
        peintre->save();
        peintre->setPen(couleur);
        peintre->drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(complement, Qt::ElideRight, place.width()));
        peintre->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize taille = QStyledItemDelegate::sizeHint(option, index);
        const QString complement = index.data(COMPLEMENT).toString();
        if (!complement.isEmpty())
            taille.rwidth() += ECART + option.fontMetrics.horizontalAdvance(complement);
        return taille;
    }
};

// Finds rows by their folded text; gives back the text that the row shows.
class Completeur : public QCompleter
{
public:
    Completeur(QAbstractItemModel *modele, QObject *parent) : QCompleter(modele, parent)
    {
        setCompletionRole(RECHERCHE);
        setFilterMode(Qt::MatchContains);
        setCompletionMode(QCompleter::PopupCompletion);
        setMaxVisibleItems(12);
        popup()->setItemDelegate(new Delegue(popup()));
    }

    QString pathFromIndex(const QModelIndex &index) const override
    {
        return index.data(Qt::DisplayRole).toString();
    }

    QStringList splitPath(const QString &texte) const override { return {Recherche::plier(texte)}; }
};
} // namespace

ZoneCombo::ZoneCombo(QWidget *parent) : QComboBox(parent), ZoneVerifiee(*static_cast<QWidget *>(this))
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMaxVisibleItems(15);
    setFocusPolicy(Qt::StrongFocus); // the wheel alone does not bring the focus
    lineEdit()->setClearButtonEnabled(true);
    view()->setItemDelegate(new Delegue(view()));
    setCompleter(new Completeur(model(), this));
    connect(this, &QComboBox::currentIndexChanged, this, &ZoneCombo::retenir);
    // An emptied field is no choice at once, as its cross is clicked without leaving it.
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString &texte) {
        if (texte.isEmpty())
            retenir(-1);
    });
}

void ZoneCombo::remplir(const ListeChoix &lignes)
{
    const QScopedValueRollback silence(m_silence, true);
    const QString garde = m_code;
    auto *modele = qobject_cast<QStandardItemModel *>(model());
    modele->clear();
    int large = 0;
    for (const Choix &ligne : lignes) {
        auto *element = new QStandardItem(ligne.texte);
        element->setData(ligne.code, CODE);
        element->setData(ligne.complement, COMPLEMENT);
        element->setData(Recherche::plier(ligne.texte + u' ' + ligne.complement), RECHERCHE);
        modele->appendRow(element);
        large = std::max(large, fontMetrics().horizontalAdvance(ligne.texte + ligne.complement));
    }
    // Both lists show whole rows, complements and scroll bar included, within reason.
    constexpr int PLUS_LARGE = 560;
    const int reste = ECART + 16 + view()->verticalScrollBar()->sizeHint().width();
    m_largeurListes = lignes.isEmpty() ? 0 : std::min(large + reste, PLUS_LARGE);
    completer()->popup()->setMinimumWidth(m_largeurListes);
    placer(garde.isEmpty() ? -1 : findData(garde, CODE));
}

void ZoneCombo::choisir(const QString &code)
{
    placer(code.isEmpty() ? -1 : findData(code, CODE));
}

void ZoneCombo::vider()
{
    placer(-1);
}

// Shows a row and makes it the choice, without a signal.
void ZoneCombo::placer(int rang)
{
    const QScopedValueRollback silence(m_silence, true);
    setCurrentIndex(rang);
    lineEdit()->setText(rang < 0 ? QString() : itemText(rang));
    lineEdit()->setCursorPosition(0);
    m_rang = rang;
    m_code = rang < 0 ? QString() : itemData(rang, CODE).toString();
    m_texte = rang < 0 ? QString() : itemText(rang);
    setToolTip(rang < 0 ? QString() : itemData(rang, COMPLEMENT).toString());
}

void ZoneCombo::retenir(int rang)
{
    if (m_silence || rang == m_rang)
        return;
    placer(rang);
    Q_EMIT choixChange();
}

bool ZoneCombo::accepter()
{
    const QString texte = currentText().trimmed();
    if (texte.isEmpty()) {
        retenir(-1);
        return true;
    }
    // A chosen row keeps its place among rows of the same text.
    if (m_rang >= 0 && texte == itemText(m_rang))
        return true;
    int rang = findText(texte, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (rang < 0)
        rang = findText(texte, Qt::MatchFixedString);
    if (rang < 0)
        return false;
    if (rang == m_rang)
        placer(rang); // typed in another case
    else
        retenir(rang);
    return true;
}

QString ZoneCombo::messageRefus() const
{
    return QStringLiteral("Cette valeur n'existe pas dans la liste.");
}

QString ZoneCombo::titreRefus() const
{
    return QStringLiteral("Attention");
}

void ZoneCombo::selectionnerTexte()
{
    lineEdit()->selectAll();
}

void ZoneCombo::focusOutEvent(QFocusEvent *evenement)
{
    QComboBox::focusOutEvent(evenement);
    quitter(*evenement);
}

void ZoneCombo::keyPressEvent(QKeyEvent *evenement)
{
    if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) {
        // The choice is made; what Enter does next is the screen's business.
        accepter();
        evenement->ignore();
        return;
    }
    QComboBox::keyPressEvent(evenement);
}

void ZoneCombo::wheelEvent(QWheelEvent *evenement)
{
    // Scrolling past a field must not change it.
    if (hasFocus())
        QComboBox::wheelEvent(evenement);
    else
        evenement->ignore();
}

void ZoneCombo::showPopup()
{
    view()->setMinimumWidth(std::max(width(), m_largeurListes));
    QComboBox::showPopup();
}
