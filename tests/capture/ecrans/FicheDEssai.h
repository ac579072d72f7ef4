// A reference sheet on a small study, and the gestures of its user.
#pragma once

#include "BaseDEssai.h"
#include "CadreDEssai.h"
#include "capture/ecrans/FicheReference.h"
#include "DialogueDEssai.h"
#include "widgets/ListeFiltree.h"
#include "widgets/ZoneCombo.h"
#include "widgets/ZoneComboLibre.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

inline QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

//     FicheDEssai<F_Saisie_Commune> essai;
//     QVERIFY(essai.ouvrir());
//     essai.taper("txt_code", "22001");
//     essai.cliquer("cmd_valider", {Reponse::Oui, Reponse::Non});
template <typename Fiche> struct FicheDEssai {
    BaseDEssai base;
    DialogueDEssai dialogue;
    Session session{dialogue};
    CadreDEssai cadre;
    std::unique_ptr<Fiche> fiche;

    explicit FicheDEssai(bool vide = false) : base(vide) { session.donnees.ouvrir(base.chemin); }
    ~FicheDEssai() { qDeleteAll(cadre.ecrans); }

    bool ouvrir()
    {
        fiche = std::make_unique<Fiche>(session, cadre);
        fiche->show();
        fiche->activateWindow();
        return QTest::qWaitForWindowActive(fiche.get());
    }
    template <typename Widget = QWidget> Widget *controle(const char *nom) const
    {
        auto *trouve = fiche->template findChild<Widget *>(s(nom));
        if (!trouve)
            qFatal("no control %s", nom);
        return trouve;
    }
    void repondre(const QList<Reponse> &reponses)
    {
        for (const Reponse reponse : reponses)
            dialogue.reponses.enqueue(reponse);
    }
    // Types a text and leaves the field by Tab; what that sets going is over on return.
    void taper(const char *nom, const QString &texte)
    {
        QWidget *widget = controle(nom);
        widget->setFocus();
        if (auto *ligne = qobject_cast<QLineEdit *>(widget)) {
            ligne->selectAll();
            ligne->insert(texte);
        } else if (auto *combo = qobject_cast<QComboBox *>(widget)) {
            combo->lineEdit()->selectAll();
            combo->lineEdit()->insert(texte);
        } else if (auto *memo = qobject_cast<QPlainTextEdit *>(widget)) {
            memo->selectAll();
            memo->insertPlainText(texte);
        }
        // The proposals would take the key, which they hand on to the field.
        if (QWidget *propositions = QApplication::activePopupWidget())
            propositions->close();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCoreApplication::processEvents();
    }
    void taper(const char *nom, const char *texte) { taper(nom, s(texte)); }
    // Picks a combo's row by its text.
    void choisir(const char *nom, const char *ligne)
    {
        auto *combo = controle<QComboBox>(nom);
        const int rang = combo->findText(s(ligne));
        QVERIFY2(rang >= 0, ligne);
        combo->setFocus();
        combo->setCurrentIndex(rang);
        Q_EMIT combo->activated(rang);
        QCoreApplication::processEvents();
    }
    QString texte(const char *nom) const
    {
        QWidget *widget = controle(nom);
        if (const auto *combo = qobject_cast<QComboBox *>(widget))
            return combo->currentText();
        if (const auto *memo = qobject_cast<QPlainTextEdit *>(widget))
            return memo->toPlainText();
        if (const auto *bouton = qobject_cast<QPushButton *>(widget))
            return bouton->text();
        if (const auto *libelle = qobject_cast<QLabel *>(widget))
            return libelle->text();
        return dynamic_cast<QLineEdit &>(*widget).text();
    }
    void cliquer(const char *nom, const QList<Reponse> &reponses = {})
    {
        repondre(reponses);
        auto *bouton = controle<QPushButton>(nom);
        bouton->setFocus();
        bouton->click();
        QCoreApplication::processEvents();
    }
    QString dernierMessage() const
    {
        return dialogue.messages.isEmpty() ? QString() : dialogue.messages.last().texte;
    }
};
