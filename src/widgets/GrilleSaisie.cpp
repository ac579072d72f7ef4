#include "widgets/GrilleSaisie.h"

#include "database/TableTravail.h"
#include "platform/Dialogue.h"
#include "widgets/BlocCellules.h"
#include "widgets/Ecran.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTimer>

GrilleSaisie::GrilleSaisie(QWidget *parent) : QTableView(parent)
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::DoubleClicked);
    // Outside a cell Tab goes on to the next control of the screen.
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setCornerButtonEnabled(false);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
}

void GrilleSaisie::definirTable(TableTravail *table, Dialogue *dialogue)
{
    m_table = table;
    m_dialogue = dialogue;
    setModel(table);
    connect(table, &TableTravail::refus, this, &GrilleSaisie::retenirRefus);
    connect(table, &TableTravail::echec, this, &GrilleSaisie::direEchec);
}

bool GrilleSaisie::terminerSaisie()
{
    if (state() == QAbstractItemView::EditingState) {
        if (QWidget *editeur = indexWidget(currentIndex())) {
            commitData(editeur);
            closeEditor(editeur, QAbstractItemDelegate::NoHint);
        }
    }
    return !m_refus.prevu;
}

void GrilleSaisie::ajouterLigne()
{
    if (!m_table || !m_table->insertRow(m_table->rowCount()))
        return;
    setFocus(Qt::OtherFocusReason);
    setCurrentIndex(m_table->index(m_table->rowCount() - 1, 0));
    scrollToBottom();
}

void GrilleSaisie::supprimerSelection()
{
    if (!m_table)
        return;
    QList<int> lignes;
    const QModelIndexList choisies = selectionModel()->selectedRows();
    for (const QModelIndex &ligne : choisies)
        lignes << ligne.row();
    if (lignes.isEmpty()) {
        const QModelIndexList cellules = selectionModel()->selectedIndexes();
        for (const QModelIndex &cellule : cellules)
            m_table->setData(cellule, QString());
        return;
    }
    // Runs of rows from the last one up, so that the numbers of those still to go stay right.
    std::sort(lignes.begin(), lignes.end());
    while (!lignes.isEmpty()) {
        const int derniere = lignes.takeLast();
        int premiere = derniere;
        while (!lignes.isEmpty() && lignes.last() == premiere - 1)
            premiere = lignes.takeLast();
        m_table->removeRows(premiere, derniere - premiere + 1);
    }
}

void GrilleSaisie::copier()
{
    BlocCellules::copier(*this);
}

void GrilleSaisie::coller()
{
    const QList<QStringList> bloc = BlocCellules::lire();
    if (!m_table || bloc.isEmpty())
        return;
    const QModelIndex depart = currentIndex();
    const int ligne = depart.isValid() ? depart.row() : m_table->rowCount();
    const int colonne = depart.isValid() ? depart.column() : 0;
    const QModelIndexList refusees = m_table->coller(ligne, colonne, bloc);
    const QModelIndex coin = m_table->index(ligne, colonne);
    // Ctrl is still held: the view's own way would add to the selection.
    if (coin.isValid())
        selectionModel()->setCurrentIndex(coin, QItemSelectionModel::ClearAndSelect);
    if (refusees.isEmpty())
        return;
    const ColonneTravail &premiere = m_table->colonne(refusees.first().column());
    if (refusees.size() == 1) {
        retenirRefus(refusees.first(), premiere.message, premiere.titreMessage);
        return;
    }
    retenirRefus(
        refusees.first(),
        QStringLiteral("%1 valeurs collées n'ont pas le format attendu : leurs cases sont restées vides. La "
                       "première est à la ligne %2, colonne « %3 » : %4")
            .arg(refusees.size())
            .arg(refusees.first().row() + 1)
            .arg(premiere.titre, premiere.message),
        premiere.titreMessage);
}

bool GrilleSaisie::surLaDerniereLigne() const
{
    return m_table && currentIndex().isValid() && currentIndex().row() == m_table->rowCount() - 1;
}

void GrilleSaisie::keyPressEvent(QKeyEvent *evenement)
{
    const bool nue = evenement->modifiers() == Qt::NoModifier || evenement->modifiers() == Qt::KeypadModifier;
    const int touche = evenement->key();
    if (evenement->matches(QKeySequence::Copy)) {
        copier();
    } else if (evenement->matches(QKeySequence::Paste)) {
        coller();
    } else if (nue && touche == Qt::Key_Delete) {
        supprimerSelection();
    } else if (nue && touche == Qt::Key_Insert) {
        ajouterLigne();
    } else if (nue && touche == Qt::Key_Down && surLaDerniereLigne()) {
        if (!m_table->ligneVide(currentIndex().row()))
            ajouterLigne();
    } else if (nue && (touche == Qt::Key_Return || touche == Qt::Key_Enter)) {
        // Down the column, as in a spreadsheet; the screen's main button has its own letter.
        const QModelIndex suivante = currentIndex().siblingAtRow(currentIndex().row() + 1);
        if (suivante.isValid())
            setCurrentIndex(suivante);
    } else {
        // Typing in an empty grid begins its first row.
        const QString texte = evenement->text();
        if (m_table && m_table->rowCount() == 0 && !texte.isEmpty() && texte[0].isPrint())
            ajouterLigne();
        QTableView::keyPressEvent(evenement);
        return;
    }
    evenement->accept();
}

void GrilleSaisie::closeEditor(QWidget *editeur, QAbstractItemDelegate::EndEditHint suite)
{
    // Tab in the last cell goes on to a new row.
    const QModelIndex cellule = currentIndex();
    if (suite == QAbstractItemDelegate::EditNextItem && surLaDerniereLigne() &&
        cellule.column() == m_table->columnCount() - 1 && !m_table->ligneVide(cellule.row()))
        m_table->insertRow(m_table->rowCount());
    QTableView::closeEditor(editeur, suite);
}

void GrilleSaisie::retenirRefus(const QModelIndex &cellule, const QString &message, const QString &titre)
{
    if (m_refus.prevu)
        return;
    m_refus = {cellule, message, titre, true};
    QTimer::singleShot(0, this, &GrilleSaisie::direRefus);
}

void GrilleSaisie::direRefus()
{
    const Refus refuse = m_refus;
    m_refus = {};
    // A button that closes or cancels: what was typed is given up.
    const QWidget *nouveau = QApplication::focusWidget();
    if (!Ecran::de(this)->isVisible() || !isEnabled() ||
        (nouveau && nouveau->property("sansVerification").toBool()))
        return;
    if (m_dialogue)
        m_dialogue->message(refuse.message, refuse.titre, Icone::Exclamation);
    // Another grid may have taken this one's place meanwhile.
    if (!refuse.cellule.isValid() || !isVisible())
        return;
    setFocus(Qt::OtherFocusReason);
    setCurrentIndex(refuse.cellule);
}

void GrilleSaisie::direEchec(const QString &numeroEtDescription)
{
    QTimer::singleShot(0, this, [this, numeroEtDescription] {
        if (m_dialogue)
            m_dialogue->message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                                    numeroEtDescription,
                                QStringLiteral("Erreur"), Icone::Critique);
    });
}
