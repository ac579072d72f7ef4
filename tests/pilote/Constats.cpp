#include "pilote/Constats.h"

#include "pilote/Cible.h"
#include "pilote/Grille.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTextDocumentFragment>
#include <QTextEdit>

namespace
{
// "&" marks a mnemonic, "&&" is an ampersand.
QString sansMnemonique(const QString &legende)
{
    QString resultat;
    for (qsizetype i = 0; i < legende.size(); ++i) {
        if (legende[i] == u'&' && i + 1 < legende.size())
            ++i;
        resultat += legende[i];
    }
    return resultat;
}

// Model and column of a list or a combo.
std::pair<const QAbstractItemModel *, int> modele(QWidget *controle)
{
    if (auto *combo = Cible::dedans<QComboBox>(controle))
        return {combo->model(), combo->modelColumn()};
    if (auto *vue = Cible::dedans<QAbstractItemView>(controle))
        return {vue->model(), 0};
    throw Echec(QStringLiteral("%1 n'est ni une liste ni une grille").arg(controle->objectName()));
}

QString texteDirect(QWidget *controle, bool &connu)
{
    connu = true;
    if (auto *champ = qobject_cast<QLineEdit *>(controle))
        return champ->text();
    if (auto *combo = qobject_cast<QComboBox *>(controle))
        return combo->currentText();
    if (auto *bouton = qobject_cast<QAbstractButton *>(controle))
        return sansMnemonique(bouton->text());
    if (auto *libelle = qobject_cast<QLabel *>(controle)) {
        const bool riche = libelle->textFormat() == Qt::RichText ||
                           (libelle->textFormat() == Qt::AutoText && Qt::mightBeRichText(libelle->text()));
        if (riche)
            return QTextDocumentFragment::fromHtml(libelle->text()).toPlainText();
        return libelle->buddy() ? sansMnemonique(libelle->text()) : libelle->text();
    }
    if (auto *texte = qobject_cast<QTextEdit *>(controle))
        return texte->toPlainText();
    if (auto *texte = qobject_cast<QPlainTextEdit *>(controle))
        return texte->toPlainText();
    if (auto *groupe = qobject_cast<QGroupBox *>(controle))
        return sansMnemonique(groupe->title());
    if (auto *barre = qobject_cast<QProgressBar *>(controle))
        return barre->text();
    connu = false;
    return {};
}
} // namespace

QString Constats::texte(QWidget *controle)
{
    bool connu = false;
    QString lu = texteDirect(controle, connu);
    if (connu)
        return lu;
    if (auto *combo = Cible::dedans<QComboBox>(controle))
        return combo->currentText();
    if (auto *champ = Cible::dedans<QLineEdit>(controle))
        return champ->text();
    throw Echec(QStringLiteral("%1 n'a pas de texte").arg(controle->objectName()));
}

QString Constats::cellule(QWidget *controle, int ligne, int colonne)
{
    QTableView *grille = Grille::de(controle);
    const QModelIndex index = Grille::index(grille, ligne, colonne);
    bool connu = false;
    if (QWidget *pose = grille->indexWidget(index)) {
        QString lu = texteDirect(pose, connu);
        if (connu)
            return lu;
    }
    return index.data().toString();
}

QString Constats::ligne(QWidget *controle, int ligne)
{
    const auto [donnees, colonne] = modele(controle);
    if (ligne >= donnees->rowCount())
        throw Echec(QStringLiteral("pas de ligne %1 : %2 en a %3")
                        .arg(ligne)
                        .arg(controle->objectName())
                        .arg(donnees->rowCount()));
    return donnees->index(ligne, colonne).data().toString();
}

int Constats::lignes(QWidget *controle)
{
    return modele(controle).first->rowCount();
}

QStringList Constats::selection(QWidget *controle)
{
    auto *vue = Cible::dedans<QAbstractItemView>(controle);
    if (!vue)
        throw Echec(QStringLiteral("%1 n'est pas une liste").arg(controle->objectName()));
    QStringList textes;
    for (int i = 0; i < vue->model()->rowCount(); ++i) {
        const QModelIndex index = vue->model()->index(i, 0);
        if (vue->selectionModel()->isSelected(index))
            textes << index.data().toString();
    }
    return textes;
}

bool Constats::coche(QWidget *controle)
{
    if (auto *groupe = qobject_cast<QGroupBox *>(controle); groupe && groupe->isCheckable())
        return groupe->isChecked();
    auto *bouton = Cible::dedans<QAbstractButton>(controle);
    if (!bouton || !bouton->isCheckable())
        throw Echec(QStringLiteral("%1 ne se coche pas").arg(controle->objectName()));
    return bouton->isChecked();
}

bool Constats::foyer(const QWidget *controle)
{
    const QWidget *courant = QApplication::focusWidget();
    return courant &&
           (courant == controle || controle->isAncestorOf(courant) || courant->focusProxy() == controle);
}
