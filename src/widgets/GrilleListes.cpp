#include "widgets/GrilleListes.h"

#include "platform/Dialogue.h"
#include "widgets/BlocCellules.h"
#include "widgets/DelegueListes.h"
#include "widgets/Ecran.h"
#include "widgets/Recherche.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

namespace
{
constexpr int LIGNES_LISTE = 10;
constexpr int LARGEUR_LISTE_MAX = 520; // pixels
// Columns are made this much narrower than they ask for before the grid scrolls sideways.
constexpr double RETRECISSEMENT = 0.8;

bool estEntree(int touche)
{
    return touche == Qt::Key_Return || touche == Qt::Key_Enter;
}
} // namespace

GrilleListes::GrilleListes(QWidget *parent) : QTableView(parent)
{
    setItemDelegate(new DelegueListes(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::DoubleClicked);
    // Outside a cell Tab goes on to the next control of the screen.
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setCornerButtonEnabled(false);
    setWordWrap(false); // cut texts are cut at the letter
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
}

void GrilleListes::brancher(Dialogue *dialogue, Regle regle)
{
    m_dialogue = dialogue;
    m_regle = std::move(regle);
}

void GrilleListes::definirColonne(int numero, const Colonne &definition)
{
    m_colonnes.insert(numero, definition);
    if (QListWidget *liste = definition.liste) {
        liste->hide();
        liste->setFocusPolicy(Qt::ClickFocus);
        liste->setSelectionMode(QAbstractItemView::SingleSelection);
        liste->installEventFilter(this);
        connect(liste, &QListWidget::itemClicked, this, &GrilleListes::prendre);
    }
    repartirLargeurs();
}

const GrilleListes::Colonne &GrilleListes::colonne(int numero) const
{
    static const Colonne SANS_LISTE;
    const auto trouvee = m_colonnes.constFind(numero);
    return trouvee == m_colonnes.constEnd() ? SANS_LISTE : *trouvee;
}

// --- Cells

bool GrilleListes::ecrire(const QModelIndex &cellule, const QString &texte)
{
    const QString rogne = texte.trimmed();
    if (!cellule.isValid() || rogne == cellule.data(Qt::EditRole).toString().trimmed())
        return true;
    if (!poser(cellule, rogne))
        return false;
    if (colonne(cellule.column()).liste && !rogne.isEmpty())
        Q_EMIT choixFait(cellule, rogne);
    return true;
}

bool GrilleListes::poser(const QModelIndex &cellule, const QString &texte)
{
    const std::optional<RefusSaisie> refus = m_regle ? m_regle(cellule, texte) : std::nullopt;
    model()->setData(cellule, refus ? refus->reste : texte);
    if (refus)
        refuser(cellule, *refus);
    return !refus;
}

void GrilleListes::refuser(const QModelIndex &cellule, const RefusSaisie &refus)
{
    if (m_refus)
        return;
    m_refus = refus;
    m_celluleRefusee = cellule;
    QTimer::singleShot(0, this, &GrilleListes::direRefus);
}

void GrilleListes::direRefus()
{
    if (!m_refus)
        return;
    const RefusSaisie refus = *m_refus;
    m_refus.reset();
    const QPersistentModelIndex cellule = m_celluleRefusee;
    // A button that closes or cancels: what was typed is given up.
    const QWidget *nouveau = QApplication::focusWidget();
    if (!isVisible() || !isEnabled() || (nouveau && nouveau->property("sansVerification").toBool()))
        return;
    const QPointer<GrilleListes> moi(this);
    if (m_dialogue)
        m_dialogue->message(refus.message, refus.titre, Icone::Exclamation);
    if (moi && refus.retour && cellule.isValid())
        allerA(cellule.row(), cellule.column());
}

bool GrilleListes::terminerSaisie(bool garderCourante)
{
    if (m_editeur && state() == QAbstractItemView::EditingState) {
        QLineEdit *editeur = m_editeur;
        commitData(editeur);
        closeEditor(editeur, QAbstractItemDelegate::NoHint);
    }
    cacherListe();
    const bool accepte = !m_refus;
    direRefus();
    if (accepte) {
        for (int ligne = model() ? model()->rowCount() - 1 : -1; ligne >= 0; --ligne)
            if (ligneVide(ligne) && !(garderCourante && ligne == currentIndex().row()))
                model()->removeRow(ligne);
    }
    return accepte;
}

void GrilleListes::allerA(int ligne, int numero)
{
    setFocus(Qt::OtherFocusReason);
    const QModelIndex cellule = model()->index(ligne, numero);
    // Whatever keys are held: after Ctrl+V, the view's own way would add to the selection.
    selectionModel()->setCurrentIndex(cellule, QItemSelectionModel::ClearAndSelect);
    scrollTo(cellule);
}

// --- Rows

bool GrilleListes::ligneVide(int ligne) const
{
    for (int c = 0; c < model()->columnCount(); ++c)
        if (!model()->index(ligne, c).data(Qt::EditRole).toString().isEmpty())
            return false;
    return true;
}

bool GrilleListes::surLaDerniereLigne() const
{
    return currentIndex().isValid() && currentIndex().row() == model()->rowCount() - 1;
}

void GrilleListes::ajouterLigne()
{
    if (!model())
        return;
    const int nombre = model()->rowCount();
    if (nombre > 0 && ligneVide(nombre - 1)) {
        allerA(nombre - 1, 0);
        return;
    }
    if (model()->insertRow(nombre)) {
        allerA(nombre, 0);
        scrollToBottom();
    }
}

void GrilleListes::supprimerSelection()
{
    if (!model() || !selectionModel())
        return;
    QList<QPersistentModelIndex> lignes;
    const QModelIndexList choisies = selectionModel()->selectedRows();
    for (const QModelIndex &ligne : choisies)
        lignes << ligne;
    if (lignes.isEmpty()) {
        viderSelection();
        return;
    }
    for (const QPersistentModelIndex &ligne : std::as_const(lignes))
        if (ligne.isValid())
            model()->removeRow(ligne.row());
}

void GrilleListes::viderSelection()
{
    QList<QPersistentModelIndex> cellules;
    const QModelIndexList choisies = selectionModel()->selectedIndexes();
    for (const QModelIndex &cellule : choisies)
        if (cellule.flags().testFlag(Qt::ItemIsEditable))
            cellules << cellule;
    for (const QPersistentModelIndex &cellule : std::as_const(cellules))
        ecrire(cellule, QString());
}

void GrilleListes::retirerLigneVide(const QPersistentModelIndex &ligne)
{
    if (ligne.isValid() && ligne.row() != currentIndex().row() && ligneVide(ligne.row()))
        model()->removeRow(ligne.row());
}

void GrilleListes::currentChanged(const QModelIndex &courante, const QModelIndex &precedente)
{
    QTableView::currentChanged(courante, precedente);
    if (!precedente.isValid() || precedente.row() == courante.row())
        return;
    // Once the view is done with the move.
    const QPersistentModelIndex quittee(precedente);
    QTimer::singleShot(0, this, [this, quittee] { retirerLigneVide(quittee); });
}

// --- Clipboard

void GrilleListes::copier()
{
    BlocCellules::copier(*this);
}

void GrilleListes::coller()
{
    const QList<QStringList> bloc = BlocCellules::lire();
    if (!model() || bloc.isEmpty())
        return;
    const QModelIndex depart = currentIndex();
    const int premiere = depart.isValid() ? depart.row() : model()->rowCount();
    const int gauche = depart.isValid() ? depart.column() : 0;
    for (int i = 0; i < bloc.size(); ++i) {
        const int ligne = premiere + i;
        if (ligne >= model()->rowCount() && !model()->insertRow(model()->rowCount()))
            return;
        const QStringList &textes = bloc[i];
        for (int j = 0; j < textes.size() && gauche + j < model()->columnCount(); ++j) {
            const QModelIndex cellule = model()->index(ligne, gauche + j);
            if (cellule.flags().testFlag(Qt::ItemIsEditable))
                ecrire(cellule, textes[j]); // the first refusal alone is told
        }
    }
    if (!m_refus)
        allerA(premiere, gauche);
}

// --- Keys and mouse

void GrilleListes::keyPressEvent(QKeyEvent *evenement)
{
    const auto modificateurs = evenement->modifiers() & ~Qt::KeypadModifier;
    const bool nue = modificateurs == Qt::NoModifier;
    const int touche = evenement->key();
    evenement->accept();
    if (evenement->matches(QKeySequence::Copy)) {
        copier();
    } else if (evenement->matches(QKeySequence::Paste)) {
        coller();
    } else if (nue && touche == Qt::Key_Delete) {
        supprimerSelection();
    } else if (nue && touche == Qt::Key_Insert) {
        ajouterLigne();
    } else if ((nue && touche == Qt::Key_F4) ||
               (modificateurs == Qt::AltModifier && touche == Qt::Key_Down)) {
        derouler();
    } else if (nue && touche == Qt::Key_Down && (surLaDerniereLigne() || model()->rowCount() == 0)) {
        ajouterLigne();
    } else if (nue && touche == Qt::Key_Escape) {
        // Rows that are not saved would go with the screen: its button or its letter closes it.
    } else if (nue && estEntree(touche)) {
        // Down the column, as in a spreadsheet; the screen's main button has its own letter.
        const QModelIndex suivante = currentIndex().siblingAtRow(currentIndex().row() + 1);
        if (model()->rowCount() == 0)
            ajouterLigne();
        else if (suivante.isValid())
            setCurrentIndex(suivante);
    } else {
        // Typing in an empty grid begins its first row.
        const QString texte = evenement->text();
        const bool frappe =
            touche == Qt::Key_F2 || (!texte.isEmpty() && texte[0].isPrint() && touche != Qt::Key_Tab);
        if (frappe && model() && model()->rowCount() == 0)
            ajouterLigne();
        QTableView::keyPressEvent(evenement);
    }
}

void GrilleListes::derouler()
{
    const QModelIndex cellule = currentIndex();
    const Colonne &definition = colonne(cellule.isValid() ? cellule.column() : -1);
    if (!cellule.isValid() || !isEnabled())
        return;
    if (definition.bouton == Colonne::Bouton::Ecran) {
        Q_EMIT boutonPresse(cellule);
        return;
    }
    if (!definition.liste)
        return;
    if (!m_editeur || m_celluleListe != cellule)
        edit(cellule);
    montrerListe(cellule, QString());
}

void GrilleListes::mouseReleaseEvent(QMouseEvent *evenement)
{
    QTableView::mouseReleaseEvent(evenement);
    if (evenement->button() != Qt::LeftButton)
        return;
    const QModelIndex cellule = indexAt(evenement->position().toPoint());
    if (!cellule.isValid()) {
        // The empty place below the last row is where the next one comes.
        if (model() && isEnabled() && rowAt(static_cast<int>(evenement->position().y())) < 0)
            ajouterLigne();
        return;
    }
    const int bouton = static_cast<DelegueListes *>(itemDelegate())->largeurBouton(cellule);
    if (bouton == 0 || cellule != currentIndex())
        return;
    if (evenement->position().x() > visualRect(cellule).right() - bouton)
        derouler();
}

void GrilleListes::closeEditor(QWidget *editeur, QAbstractItemDelegate::EndEditHint suite)
{
    if (!listeALeFoyer())
        cacherListe();
    // Tab in the last cell goes on to a new row.
    const QModelIndex cellule = currentIndex();
    if (suite == QAbstractItemDelegate::EditNextItem && surLaDerniereLigne() &&
        cellule.column() == model()->columnCount() - 1 && !ligneVide(cellule.row()))
        model()->insertRow(model()->rowCount());
    if (editeur == m_editeur)
        m_editeur.clear();
    QTableView::closeEditor(editeur, suite);
}

// Tab goes from cell to cell that can be typed in, row after row.
QModelIndex GrilleListes::moveCursor(CursorAction action, Qt::KeyboardModifiers modificateurs)
{
    if (action != MoveNext && action != MovePrevious)
        return QTableView::moveCursor(action, modificateurs);
    const int colonnes = model()->columnCount();
    const int cellules = colonnes * model()->rowCount();
    const int pas = action == MoveNext ? 1 : -1;
    int rang = currentIndex().row() * colonnes + currentIndex().column() + pas;
    for (; rang >= 0 && rang < cellules; rang += pas) {
        const QModelIndex cellule = model()->index(rang / colonnes, rang % colonnes);
        if (cellule.flags().testFlag(Qt::ItemIsEditable))
            return cellule;
    }
    return currentIndex();
}

// --- The list below a cell

void GrilleListes::suivreEditeur(QLineEdit *editeur, const QModelIndex &cellule)
{
    m_editeur = editeur;
    m_celluleListe = cellule;
    if (colonne(cellule.column()).liste)
        connect(editeur, &QLineEdit::textEdited, this,
                [this, editeur](const QString &texte) { montrerListe(m_celluleListe, texte); });
}

bool GrilleListes::listeALeFoyer() const
{
    const QWidget *foyer = QApplication::focusWidget();
    return m_liste && m_liste->isVisible() && foyer && (foyer == m_liste || m_liste->isAncestorOf(foyer));
}

bool GrilleListes::toucheDeListe(QKeyEvent *touche)
{
    const int code = touche->key();
    const bool alt = touche->modifiers().testFlag(Qt::AltModifier);
    const bool montree = m_liste && m_liste->isVisible();
    if ((alt && code == Qt::Key_Down) || code == Qt::Key_F4) {
        if (montree)
            cacherListe();
        else
            derouler();
        return true;
    }
    if (!montree || alt)
        return false;
    switch (code) {
    case Qt::Key_Down:
        parcourir(1);
        return true;
    case Qt::Key_Up:
        parcourir(-1);
        return true;
    case Qt::Key_PageDown:
        parcourir(LIGNES_LISTE);
        return true;
    case Qt::Key_PageUp:
        parcourir(-LIGNES_LISTE);
        return true;
    case Qt::Key_Escape:
        cacherListe();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_liste->currentItem() && m_liste->currentItem()->isSelected()) {
            prendre(m_liste->currentItem());
            return true;
        }
        cacherListe();
        return false;
    default:
        return false;
    }
}

void GrilleListes::montrerListe(const QModelIndex &cellule, const QString &filtre)
{
    QListWidget *liste = colonne(cellule.column()).liste;
    if (!liste)
        return;
    if (m_liste && m_liste != liste)
        cacherListe();
    m_liste = liste;
    m_celluleListe = cellule;
    filtrer(filtre);

    // Below the cell, or above it where there is more room.
    QWidget *fond = liste->parentWidget();
    const QRect place = visualRect(cellule);
    const QPoint coin = viewport()->mapTo(fond, place.topLeft());
    const int rangee = liste->count() > 0 ? liste->sizeHintForRow(0) : fontMetrics().height();
    const int lignes = std::clamp(liste->count(), 1, LIGNES_LISTE);
    int hauteur = lignes * rangee + 2 * liste->frameWidth();
    const int largeur =
        std::clamp(liste->sizeHintForColumn(0) + liste->verticalScrollBar()->sizeHint().width() + 12,
                   place.width(), std::max(place.width(), LARGEUR_LISTE_MAX));
    const int dessous = fond->height() - (coin.y() + place.height());
    const int dessus = coin.y();
    const bool enBas = dessous >= hauteur || dessous >= dessus;
    hauteur = std::min(hauteur, std::max(rangee, enBas ? dessous : dessus));
    const int x = std::clamp(coin.x(), 0, std::max(0, fond->width() - largeur));
    liste->setGeometry(x, enBas ? coin.y() + place.height() : coin.y() - hauteur, largeur, hauteur);
    liste->raise();
    liste->show();
    if (liste->currentItem())
        liste->scrollToItem(liste->currentItem());
}

// Shows the rows that hold the text; without one, all of them, and the cell's own is chosen.
void GrilleListes::filtrer(const QString &texte)
{
    const QString &separateur = colonne(m_celluleListe.column()).separateur;
    const auto dernier = [&separateur](const QString &t) {
        return separateur.isEmpty() ? t : t.section(separateur.trimmed(), -1);
    };
    const QString cherche = Recherche::plier(dernier(texte).trimmed());
    const QString tenu = QModelIndex(m_celluleListe).data(Qt::EditRole).toString();
    m_liste->setCurrentRow(-1);
    m_liste->clearSelection();
    for (int i = 0; i < m_liste->count(); ++i) {
        QListWidgetItem *ligne = m_liste->item(i);
        ligne->setHidden(!cherche.isEmpty() && !Recherche::plier(ligne->text()).contains(cherche));
        if (texte.isEmpty() && !tenu.isEmpty() && ligne->text() == tenu)
            m_liste->setCurrentItem(ligne);
    }
}

void GrilleListes::parcourir(int pas)
{
    QList<int> montrees;
    for (int i = 0; i < m_liste->count(); ++i)
        if (!m_liste->item(i)->isHidden() && m_liste->item(i)->flags().testFlag(Qt::ItemIsEnabled))
            montrees << i;
    if (montrees.isEmpty())
        return;
    const auto rang = static_cast<int>(montrees.indexOf(m_liste->currentRow()));
    const int nombre = static_cast<int>(montrees.size());
    const int suivant = rang < 0 ? (pas > 0 ? 0 : nombre - 1) : std::clamp(rang + pas, 0, nombre - 1);
    m_liste->setCurrentRow(montrees[suivant]);
    m_liste->scrollToItem(m_liste->currentItem());
}

void GrilleListes::cacherListe()
{
    if (!m_liste)
        return;
    QListWidget *liste = m_liste;
    m_liste.clear(); // hiding it moves the focus
    liste->hide();
}

void GrilleListes::prendre(const QListWidgetItem *ligne)
{
    if (!ligne || !ligne->flags().testFlag(Qt::ItemIsEnabled) || !m_celluleListe.isValid())
        return;
    const QPersistentModelIndex cellule = m_celluleListe;
    const QString choix = ligne->text();
    const QString &separateur = colonne(cellule.column()).separateur;
    const QString enCours =
        m_editeur ? m_editeur->text() : QModelIndex(cellule).data(Qt::EditRole).toString();
    const auto place = separateur.isEmpty() ? -1 : enCours.lastIndexOf(separateur.trimmed());
    const QString texte = place < 0 ? choix : enCours.left(place).trimmed() + separateur + choix;
    cacherListe();
    if (m_editeur) {
        // The field goes without having its say.
        m_editeur->setText(QModelIndex(cellule).data(Qt::EditRole).toString());
        closeEditor(m_editeur, QAbstractItemDelegate::RevertModelCache);
    }
    setFocus(Qt::OtherFocusReason);
    setCurrentIndex(cellule);
    const QString rogne = texte.trimmed();
    if (rogne == QModelIndex(cellule).data(Qt::EditRole).toString().trimmed() || poser(cellule, rogne))
        Q_EMIT choixFait(cellule, rogne);
}

bool GrilleListes::eventFilter(QObject *objet, QEvent *evenement)
{
    if (objet != m_liste || !m_liste)
        return QTableView::eventFilter(objet, evenement);
    if (evenement->type() == QEvent::FocusOut) {
        const QWidget *foyer = QApplication::focusWidget();
        if (foyer != m_editeur) {
            cacherListe();
            if (m_editeur)
                closeEditor(m_editeur, QAbstractItemDelegate::RevertModelCache);
        }
    } else if (evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent *>(evenement)->key();
        if (touche == Qt::Key_Escape || estEntree(touche)) {
            if (estEntree(touche) && m_liste->currentItem())
                prendre(m_liste->currentItem());
            else
                setFocus(Qt::OtherFocusReason);
            return true;
        }
    }
    return QTableView::eventFilter(objet, evenement);
}

// --- Looks

void GrilleListes::resizeEvent(QResizeEvent *evenement)
{
    QTableView::resizeEvent(evenement);
    repartirLargeurs();
}

QSize GrilleListes::sizeHint() const
{
    QSize taille = QTableView::sizeHint();
    int largeur = verticalHeader()->sizeHint().width() + 2 * frameWidth();
    for (const Colonne &c : m_colonnes)
        largeur += c.largeur * fontMetrics().averageCharWidth();
    taille.setWidth(largeur + verticalScrollBar()->sizeHint().width());
    return taille;
}

// Columns keep their proportions and fill the width that there is.
void GrilleListes::repartirLargeurs()
{
    if (!model() || m_colonnes.isEmpty())
        return;
    const int caractere = fontMetrics().averageCharWidth();
    const int nombre = model()->columnCount();
    int total = 0;
    for (int c = 0; c < nombre; ++c)
        total += colonne(c).largeur * caractere;
    const int place = viewport()->width();
    const double echelle = std::max(static_cast<double>(place) / std::max(total, 1), RETRECISSEMENT);
    int reste = place;
    for (int c = 0; c < nombre; ++c) {
        int largeur = static_cast<int>(colonne(c).largeur * caractere * echelle);
        if (c == nombre - 1)
            largeur = std::max(largeur, reste);
        setColumnWidth(c, largeur);
        reste -= largeur;
    }
}

void GrilleListes::paintEvent(QPaintEvent *evenement)
{
    QTableView::paintEvent(evenement);
    if (!model() || !isEnabled())
        return;
    const int lignes = model()->rowCount();
    const int haut = lignes == 0 ? 0 : rowViewportPosition(lignes - 1) + rowHeight(lignes - 1);
    const int hauteur = verticalHeader()->defaultSectionSize();
    if (haut + hauteur > viewport()->height())
        return;
    QPainter peintre(viewport());
    QColor couleur = palette().color(QPalette::Text);
    couleur.setAlphaF(0.6F);
    peintre.setPen(couleur);
    peintre.drawText(QRect(6, haut, viewport()->width() - 12, hauteur), Qt::AlignLeft | Qt::AlignVCenter,
                     lignes == 0
                         ? QStringLiteral("Tapez ici, ou pressez Inser, pour saisir la première ligne")
                         : QStringLiteral("Inser : nouvelle ligne"));
}
