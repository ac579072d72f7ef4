#include "analysis/ecrans/GrilleDonneesBrutes.h"

#include <QHeaderView>
#include <QKeyEvent>

GrilleDonneesBrutes::GrilleDonneesBrutes(QWidget *parent) : QTableView(parent)
{
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(true);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    constexpr int MARGE = 6; // pixels
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + MARGE);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    // A click on a title sorts; it does not select a million cells.
    disconnect(horizontalHeader(), &QHeaderView::sectionPressed, this, nullptr);
    disconnect(horizontalHeader(), &QHeaderView::sectionEntered, this, nullptr);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &GrilleDonneesBrutes::triDemande);
}

void GrilleDonneesBrutes::donnerLargeurs()
{
    constexpr int MARGES = 8;  // pixels
    constexpr int FLECHE = 24; // the mark of the order and its margins
    const int chiffre = fontMetrics().horizontalAdvance(u'0');
    for (const ColonneBrute colonne : ColonnesBrutes::toutes()) {
        const int titre = horizontalHeader()->fontMetrics().horizontalAdvance(ColonnesBrutes::titre(colonne));
        setColumnWidth(static_cast<int>(colonne),
                       std::max(ColonnesBrutes::largeur(colonne) * chiffre + MARGES, titre + FLECHE));
    }
}

QList<PlageBrute> GrilleDonneesBrutes::selection() const
{
    QList<PlageBrute> plages;
    if (!selectionModel())
        return plages;
    const QItemSelection choisies = selectionModel()->selection();
    for (const QItemSelectionRange &choisie : choisies)
        plages << PlageBrute{choisie.top(), choisie.bottom(), choisie.left(), choisie.right()};
    return plages;
}

void GrilleDonneesBrutes::keyPressEvent(QKeyEvent *evenement)
{
    if (evenement->matches(QKeySequence::Copy)) {
        Q_EMIT copieDemandee();
        evenement->accept();
        return;
    }
    switch (evenement->key()) {
    case Qt::Key_T:
        if (evenement->modifiers() == Qt::ControlModifier) {
            if (currentIndex().isValid())
                Q_EMIT triDemande(currentIndex().column());
            evenement->accept();
            return;
        }
        break;
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        evenement->ignore(); // the screen's
        return;
    default:
        break;
    }
    QTableView::keyPressEvent(evenement);
}

void GrilleDonneesBrutes::focusInEvent(QFocusEvent *evenement)
{
    QTableView::focusInEvent(evenement);
    Q_EMIT reprise();
}
