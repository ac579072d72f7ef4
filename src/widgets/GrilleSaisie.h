// A grid in which measures are typed, on a work table of the store.
#pragma once

#include <QPersistentModelIndex>
#include <QTableView>

class Dialogue;
class TableTravail;

// Arrows move, typing or F2 opens a cell, Enter takes it, Tab takes it and opens the next one. Ins adds a row at the end, as
// do the down arrow and Tab on the last row; Del takes the selected rows out, or empties the selected cells. Ctrl+C copies
// the selection and Ctrl+V pastes a block, in the form that spreadsheets put on the clipboard.
// A text that a cell cannot take is told in a box and the user is put back on the cell.
class GrilleSaisie : public QTableView
{
    Q_OBJECT
public:
    explicit GrilleSaisie(QWidget *parent = nullptr);

    // The rows, and the dialogue through which they speak; both outlive the grid.
    void definirTable(TableTravail *table, Dialogue *dialogue);

    // Takes the cell that is being typed. False where it cannot be taken, which is told.
    bool terminerSaisie();

public Q_SLOTS:
    void ajouterLigne();
    void supprimerSelection();
    void copier();
    void coller();

protected:
    void keyPressEvent(QKeyEvent *evenement) override;
    void closeEditor(QWidget *editeur, QAbstractItemDelegate::EndEditHint suite) override;

private:
    bool surLaDerniereLigne() const;
    void retenirRefus(const QModelIndex &cellule, const QString &message, const QString &titre);
    void direRefus();
    void direEchec(const QString &numeroEtDescription);

    TableTravail *m_table = nullptr;
    Dialogue *m_dialogue = nullptr;
    // A refusal that is to be told once the events under way are done with.
    struct Refus {
        QPersistentModelIndex cellule;
        QString message;
        QString titre;
        bool prevu = false;
    } m_refus;
};
