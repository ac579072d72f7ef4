// A grid whose cells have lists that drop below them, and a rule that judges what is typed.
#pragma once

#include "platform/RefusSaisie.h"

#include <functional>
#include <optional>
#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>

class Dialogue;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

// Arrows move, typing or F2 opens a cell, Enter takes it, Tab takes it and opens the next one. Ins adds a row at the end, as
// do the down arrow and Tab on the last row; Del takes the selected rows out, or empties the selected cells. Ctrl+C copies
// the selection and Ctrl+V pastes a block, in the form that spreadsheets put on the clipboard.
//
// The list of a column drops below its cell when the cell's button is pressed, on Alt+Down or F4, and while one types: it
// then shows the rows that hold the text, in any case, with or without accents. The arrows go through it, Enter or a click
// takes a row, Escape hides it. A list is an ordinary list box of the screen, under its own name.
//
// Works on any model whose cells are texts and that adds and removes rows. A row in which nothing was typed goes when it is
// left.
class GrilleListes : public QTableView
{
    Q_OBJECT
public:
    struct Colonne {
        int largeur = 12; // characters
        QListWidget *liste = nullptr;
        // A button at the right end of each cell: it drops the list, or has the screen do something (boutonPresse).
        enum class Bouton { Aucun, Liste, Ecran } bouton = Bouton::Aucun;
        // Stands between several rows of the list in one cell; typing and picking then act on what follows the last one.
        QString separateur = {};
    };
    // Judges a text, trimmed, that differs from what the cell holds; nothing where the cell can take it.
    using Regle = std::function<std::optional<RefusSaisie>(const QModelIndex &cellule, const QString &texte)>;

    explicit GrilleListes(QWidget *parent = nullptr);

    // The dialogue, which outlives the grid, and the rule.
    void brancher(Dialogue *dialogue, Regle regle);
    void definirColonne(int colonne, const Colonne &definition);

    // Takes the cell that is being typed, and removes empty rows, but for the current one where it is to be kept. False where
    // the cell cannot be taken, which is told.
    bool terminerSaisie(bool garderCourante = false);
    // What typing does: true where the cell has taken the text.
    bool ecrire(const QModelIndex &cellule, const QString &texte);
    // Room for all columns at their given widths.
    QSize sizeHint() const override;
    // Puts the user on a cell.
    void allerA(int ligne, int colonne);

public Q_SLOTS:
    void ajouterLigne();
    void supprimerSelection();
    void copier();
    void coller();
    // The list of the current cell, or its button.
    void derouler();

Q_SIGNALS:
    // The button of a column without a list of its own.
    void boutonPresse(const QModelIndex &cellule);
    // The user has picked a row of the cell's list, maybe the one that the cell held, or has typed a text that the cell took;
    // the cell holds it. Only in columns with a list.
    void choixFait(const QModelIndex &cellule, const QString &texte);

protected:
    void keyPressEvent(QKeyEvent *evenement) override;
    void mouseReleaseEvent(QMouseEvent *evenement) override;
    void resizeEvent(QResizeEvent *evenement) override;
    void paintEvent(QPaintEvent *evenement) override;
    void currentChanged(const QModelIndex &courante, const QModelIndex &precedente) override;
    void closeEditor(QWidget *editeur, QAbstractItemDelegate::EndEditHint suite) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modificateurs) override;

private:
    friend class DelegueListes;

    const Colonne &colonne(int numero) const;
    bool ligneVide(int ligne) const;
    void retirerLigneVide(const QPersistentModelIndex &ligne);
    void viderSelection();
    bool surLaDerniereLigne() const;

    // The editor that the delegate has opened over a cell.
    void suivreEditeur(QLineEdit *editeur, const QModelIndex &cellule);
    // A key typed in it; true where it was for the list.
    bool toucheDeListe(QKeyEvent *touche);
    void montrerListe(const QModelIndex &cellule, const QString &filtre);
    void filtrer(const QString &texte);
    void cacherListe();
    void prendre(const QListWidgetItem *ligne);
    void parcourir(int pas);
    bool listeALeFoyer() const;

    bool poser(const QModelIndex &cellule, const QString &texte);
    void refuser(const QModelIndex &cellule, const RefusSaisie &refus);
    void direRefus();
    void repartirLargeurs();

    Dialogue *m_dialogue = nullptr;
    Regle m_regle;
    QHash<int, Colonne> m_colonnes;
    QPointer<QLineEdit> m_editeur;
    QPointer<QListWidget> m_liste; // shown
    QPersistentModelIndex m_celluleListe;
    QPersistentModelIndex m_celluleRefusee;
    std::optional<RefusSaisie> m_refus; // to be told once the events under way are done with
};
