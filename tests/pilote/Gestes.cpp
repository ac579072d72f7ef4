#include "pilote/Gestes.h"

#include "pilote/Cible.h"
#include "pilote/Grille.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>

namespace
{
// The part of a control that takes typed text.
QWidget *champ(QWidget *controle)
{
    if (auto *combo = Cible::dedans<QComboBox>(controle)) {
        if (!combo->isEditable())
            throw Echec(
                QStringLiteral("la liste %1 ne se saisit pas, elle se choisit").arg(controle->objectName()));
        return combo->lineEdit();
    }
    // A spin box or date field handles the keys itself, not through the field inside it.
    QWidget *trouve = Cible::dedans<QAbstractSpinBox>(controle);
    if (!trouve)
        trouve = Cible::dedans<QLineEdit>(controle);
    if (!trouve)
        trouve = Cible::dedans<QTextEdit>(controle);
    if (!trouve)
        trouve = Cible::dedans<QPlainTextEdit>(controle);
    if (!trouve)
        throw Echec(QStringLiteral("%1 ne prend pas de texte").arg(controle->objectName()));
    if (!trouve->isEnabled() || trouve->property("readOnly").toBool())
        throw Echec(QStringLiteral("%1 ne se modifie pas").arg(controle->objectName()));
    return trouve;
}

// Typed letter by letter; QTest's own typing knows ASCII only.
void frapper(QWidget *champ, const QString &texte)
{
    for (const QChar c : texte) {
        if (c == u'\n')
            QTest::keyClick(champ, Qt::Key_Return);
        else
            QTest::sendKeyEvent(QTest::Click, champ, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void remplacer(QWidget *champ, const QString &texte)
{
    champ->setFocus(Qt::MouseFocusReason);
    if (auto *date = qobject_cast<QDateTimeEdit *>(champ)) {
        // It has no empty text: the date is typed over, from its first part on.
        date->setSelectedSection(date->sectionAt(0));
    } else {
        QTest::keyClick(champ, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(champ, Qt::Key_Delete);
    }
    // A date field goes from part to part by itself; a typed separator would make it skip one.
    frapper(champ, qobject_cast<QDateTimeEdit *>(champ) ? QString(texte).remove(u'/').remove(u':') : texte);
    // A list of proposals would take the next keys for itself.
    auto *ligne = qobject_cast<QLineEdit *>(champ);
    QAbstractItemView *propositions = ligne && ligne->completer() ? ligne->completer()->popup() : nullptr;
    if (propositions)
        propositions->hide();
}

QAbstractItemView *liste(QWidget *controle)
{
    auto *vue = Cible::dedans<QAbstractItemView>(controle);
    if (!vue)
        throw Echec(QStringLiteral("%1 n'est pas une liste").arg(controle->objectName()));
    return vue;
}

// The model's row with exactly this text.
QModelIndex ligneDe(const QAbstractItemModel *modele, int colonne, const QString &texte)
{
    QStringList lignes;
    for (int i = 0; i < modele->rowCount(); ++i) {
        const QModelIndex index = modele->index(i, colonne);
        const QString valeur = index.data().toString();
        if (valeur == texte)
            return index;
        if (i < 20)
            lignes << valeur;
    }
    throw Echec(QStringLiteral("pas de ligne « %1 » parmi %2 : %3")
                    .arg(texte)
                    .arg(modele->rowCount())
                    .arg(lignes.join(QLatin1String(" ; "))));
}

QModelIndex ligneUtilisable(QAbstractItemView *vue, const QString &texte)
{
    const QModelIndex index = ligneDe(vue->model(), 0, texte);
    if (!(index.flags() & Qt::ItemIsEnabled))
        throw Echec(QStringLiteral("la ligne « %1 » est désactivée").arg(texte));
    vue->scrollTo(index);
    if (vue->visualRect(index).isEmpty())
        throw Echec(QStringLiteral("la ligne « %1 » est masquée").arg(texte));
    return index;
}

void cliquerLigne(QAbstractItemView *vue, const QModelIndex &index)
{
    const bool plusieurs = vue->selectionMode() == QAbstractItemView::ExtendedSelection ||
                           vue->selectionMode() == QAbstractItemView::ContiguousSelection;
    vue->setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(vue->viewport(), Qt::LeftButton, plusieurs ? Qt::ControlModifier : Qt::NoModifier,
                      vue->visualRect(index).center());
}

void choisirDansCombo(QComboBox *combo, const QString &texte)
{
    combo->setFocus(Qt::MouseFocusReason);
    combo->showPopup();
    QAbstractItemView *vue = combo->view();
    try {
        const QModelIndex index = ligneDe(combo->model(), combo->modelColumn(), texte);
        if (!(index.flags() & Qt::ItemIsEnabled))
            throw Echec(QStringLiteral("la ligne « %1 » est désactivée").arg(texte));
        vue->setCurrentIndex(index);
    } catch (const Echec &) {
        combo->hidePopup();
        throw;
    }
    QTest::keyClick(vue, Qt::Key_Return);
}
} // namespace

void Gestes::taper(QWidget *controle, const QString &texte)
{
    remplacer(champ(controle), texte);
}

void Gestes::quitter(QWidget *controle)
{
    const QPointer<QWidget> zone = champ(controle);
    // In a text of several lines, Tab may be a character like another.
    if (qobject_cast<QTextEdit *>(zone) || qobject_cast<QPlainTextEdit *>(zone))
        zone->clearFocus();
    else
        QTest::keyClick(zone.data(), Qt::Key_Tab);
    if (zone && zone->hasFocus())
        zone->clearFocus();
}

void Gestes::touche(QWidget *controle, const QString &touche)
{
    QString nom = touche;
    if (nom == QLatin1String("Enter") || nom.endsWith(QLatin1String("+Enter")))
        nom.replace(nom.size() - 5, 5, QStringLiteral("Return"));
    const QKeySequence sequence(nom, QKeySequence::PortableText);
    if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown)
        throw Echec(QStringLiteral("touche inconnue : %1").arg(touche));
    QWidget *cible = controle->focusProxy() ? controle->focusProxy() : controle;
    if (auto *combo = qobject_cast<QComboBox *>(cible); combo && combo->isEditable())
        cible = combo->lineEdit();
    cible->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(cible, sequence[0].key(), sequence[0].keyboardModifiers());
}

bool Gestes::enSuspens()
{
    if (Grille::saisieOuverte())
        return true;
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [](QWidget *widget) {
        auto *bouton = qobject_cast<QAbstractButton *>(widget);
        return bouton && bouton->isVisible() && bouton->isDown();
    });
}

void Gestes::choisir(QWidget *controle, const QString &texte)
{
    if (auto *combo = Cible::dedans<QComboBox>(controle)) {
        choisirDansCombo(combo, texte);
        return;
    }
    QAbstractItemView *vue = liste(controle);
    const QModelIndex index = ligneUtilisable(vue, texte);
    const bool unSeul = vue->selectionMode() == QAbstractItemView::SingleSelection;
    if (unSeul || !vue->selectionModel()->isSelected(index))
        cliquerLigne(vue, index);
}

void Gestes::deselectionner(QWidget *controle, const QString &texte)
{
    const QPointer<QAbstractItemView> vue = liste(controle);
    QList<QPersistentModelIndex> lignes;
    if (texte.isNull()) {
        const QModelIndexList choisies = vue->selectionModel()->selectedIndexes();
        for (const QModelIndex &choisie : choisies)
            lignes << choisie;
    } else {
        const QModelIndex index = ligneUtilisable(vue, texte);
        if (!vue->selectionModel()->isSelected(index))
            throw Echec(QStringLiteral("la ligne « %1 » n'est pas choisie").arg(texte));
        lignes << index;
    }
    for (const QPersistentModelIndex &ligne : lignes) {
        if (!vue || !ligne.isValid() || !vue->selectionModel()->isSelected(ligne))
            continue;
        vue->scrollTo(ligne);
        const bool unSeul = vue->selectionMode() == QAbstractItemView::SingleSelection;
        vue->setFocus(Qt::MouseFocusReason);
        QTest::mouseClick(vue->viewport(), Qt::LeftButton,
                          unSeul || vue->selectionMode() == QAbstractItemView::ExtendedSelection
                              ? Qt::ControlModifier
                              : Qt::NoModifier,
                          vue->visualRect(ligne).center());
    }
}

void Gestes::doubleClic(QWidget *controle, const QString &texte)
{
    const QPointer<QAbstractItemView> vue = liste(controle);
    const QPoint point = vue->visualRect(ligneUtilisable(vue, texte)).center();
    QTest::mouseClick(vue->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    if (vue)
        QTest::mouseDClick(vue->viewport(), Qt::LeftButton, Qt::NoModifier, point);
}

void Gestes::cocher(QWidget *controle, bool coche)
{
    if (auto *groupe = qobject_cast<QGroupBox *>(controle); groupe && groupe->isCheckable()) {
        groupe->setFocus(Qt::MouseFocusReason);
        if (groupe->isChecked() != coche)
            QTest::keyClick(groupe, Qt::Key_Space);
        return;
    }
    const QPointer<QAbstractButton> bouton = Cible::dedans<QAbstractButton>(controle);
    if (!bouton || !bouton->isCheckable())
        throw Echec(QStringLiteral("%1 ne se coche pas").arg(controle->objectName()));
    if (bouton->isChecked() == coche)
        return;
    bouton->setFocus(Qt::MouseFocusReason);
    bouton->click();
    if (bouton && bouton->isChecked() != coche)
        throw Echec(
            QStringLiteral("%1 ne se laisse pas %2")
                .arg(bouton->objectName(), coche ? QStringLiteral("cocher") : QStringLiteral("décocher")));
}

void Gestes::cliquer(QWidget *controle)
{
    // A button may be wider than the part of it that answers to a click.
    if (auto *bouton = qobject_cast<QAbstractButton *>(controle)) {
        const QPointer<QAbstractButton> garde(bouton);
        if (bouton->focusPolicy() & Qt::ClickFocus)
            bouton->setFocus(Qt::MouseFocusReason);
        // Leaving the former field may have disabled or closed what was about to be pressed.
        if (!garde || !garde->isVisible() || !garde->isEnabled())
            throw Echec(QStringLiteral("le bouton n'est plus utilisable une fois le champ précédent quitté"));
        garde->click();
        return;
    }
    QTest::mouseClick(controle, Qt::LeftButton, Qt::NoModifier, controle->rect().center());
}

void Gestes::onglet(QWidget *controle, const QString &titre)
{
    auto *onglets = Cible::dedans<QTabWidget>(controle);
    auto *barre = onglets ? onglets->tabBar() : Cible::dedans<QTabBar>(controle);
    if (!barre)
        throw Echec(QStringLiteral("%1 n'a pas d'onglets").arg(controle->objectName()));
    QStringList titres;
    for (int i = 0; i < barre->count(); ++i) {
        const QString trouve = barre->tabText(i).remove(u'&');
        titres << trouve;
        if (trouve != titre)
            continue;
        if (!barre->isTabEnabled(i) || !barre->isTabVisible(i))
            throw Echec(QStringLiteral("l'onglet « %1 » n'est pas utilisable").arg(titre));
        QTest::mouseClick(barre, Qt::LeftButton, Qt::NoModifier, barre->tabRect(i).center());
        return;
    }
    throw Echec(
        QStringLiteral("pas d'onglet « %1 » parmi : %2").arg(titre, titres.join(QLatin1String(" ; "))));
}

void Gestes::cellule(QWidget *controle, int ligne, int colonne, const QString &texte)
{
    const QPointer<QTableView> grille = Grille::de(controle);
    if (ligne == grille->model()->rowCount() && !grille->model()->insertRow(ligne))
        throw Echec(
            QStringLiteral("%1 a %2 lignes et n'en ajoute pas").arg(controle->objectName()).arg(ligne));
    const QModelIndex index = Grille::index(grille, ligne, colonne);
    if (!(index.flags() & Qt::ItemIsEditable))
        throw Echec(QStringLiteral("la cellule %1, %2 ne se modifie pas").arg(ligne).arg(colonne));
    grille->setFocus(Qt::MouseFocusReason);
    grille->setCurrentIndex(index);
    grille->scrollTo(index);
    QPointer<QWidget> editeur = grille->indexWidget(index);
    if (!editeur) {
        grille->edit(index);
        editeur = QApplication::focusWidget();
        if (!editeur || !grille->viewport()->isAncestorOf(editeur))
            throw Echec(QStringLiteral("la cellule %1, %2 n'ouvre pas de saisie").arg(ligne).arg(colonne));
    }
    auto *combo = Cible::dedans<QComboBox>(editeur);
    if (combo && !combo->isEditable())
        choisirDansCombo(combo, texte);
    else
        remplacer(champ(editeur), texte);
    // Enter leaves the cell without opening the next one, as Tab would.
    if (editeur)
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : editeur.data(),
                        Qt::Key_Return);
}

void Gestes::boutonCellule(QWidget *controle, int ligne, int colonne)
{
    QTableView *grille = Grille::de(controle);
    const QModelIndex index = Grille::index(grille, ligne, colonne);
    grille->scrollTo(index);
    if (QWidget *pose = grille->indexWidget(index)) {
        auto *bouton = Cible::dedans<QAbstractButton>(pose);
        if (!bouton || !bouton->isEnabled())
            throw Echec(
                QStringLiteral("la cellule %1, %2 n'a pas de bouton utilisable").arg(ligne).arg(colonne));
        bouton->click();
        return;
    }
    // A drawn button stands at the right end of its cell.
    constexpr int BORD = 8;
    const QRect cadre = grille->visualRect(index);
    grille->setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(grille->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(cadre.right() - BORD, cadre.center().y()));
}

void Gestes::supprimerLigne(QWidget *controle, int ligne)
{
    QTableView *grille = Grille::de(controle);
    const QModelIndex index = Grille::index(grille, ligne, 0);
    grille->setFocus(Qt::MouseFocusReason);
    grille->setCurrentIndex(index);
    grille->selectRow(ligne);
    QTest::keyClick(grille, Qt::Key_Delete);
}

void Gestes::fermer(QWidget *form)
{
    if (auto *fenetre = qobject_cast<QMdiSubWindow *>(form->parentWidget()))
        fenetre->close();
    else
        form->close();
}

void Gestes::menu(QAction *action)
{
    action->trigger();
}
