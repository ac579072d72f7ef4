// The concentrations screen on a small study of its own, and the gestures of its user.
#pragma once

#include "analysis/ecrans/F_Concentrations_PC.h"
#include "BaseDEssai.h"
#include "CadreDEssai.h"
#include "DialogueDEssai.h"
#include "frame/Session.h"
#include "widgets/ListeFiltree.h"
#include "widgets/ZoneCombo.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

inline QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

// Station 04211940 (ESS1): nitrates, pH and carbon in three fractions, linked to a flow station; 04211950 (no usual
// code): nitrates alone, by another manager. Objectives and norm of nitrates; of carbon by fraction.
struct EtudeConcentrations : BaseDEssai {
    EtudeConcentrations()
    {
        const qint64 p1 = ajouterPrelevement(s("04211940"), QDate(2008, 3, 1), {}, s("19"), s("2"));
        const qint64 n1 = ajouterMesure(p1, s("1340"), 12);
        sql(s("UPDATE MESURE_PHYSICO SET CommResAnaPC = 'Crue' WHERE NumAnaPC = ?"), {n1});
        ajouterMesure(p1, s("1302"), 7, s("1"), s("18"));
        for (const char *fraction : {"0", "3", "23"})
            ajouterMesure(p1, s("1841"), 5, s("1"), s("17"), s(fraction));
        ajouterMesure(p1, s("1506"), 0.1, s("1"), s("19"));
        sql(s("INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) VALUES (?, '0400000001')"), {p1});
        const qint64 p2 = ajouterPrelevement(s("04211950"), QDate(2009, 1, 2), {}, s("19"), s("1"));
        ajouterMesure(p2, s("1340"), 3, s("1"), s("19"));
        sql(s("INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) VALUES (?, '0400000002')"), {p2});
        sql(s("INSERT INTO OBJECTIF (NumBV, CodeParam, CD_FRACTION, MoyObjf, MaxObjf) VALUES "
              "(1, '1340', '23', 25, 37.5), (1, '1841', '23', 5, 0), (1, '1841', '3', 4, 6)"));
        sql(s("INSERT INTO NORME_AEP (CodeParam, CD_FRACTION, ValeurNorme) VALUES ('1340', '23', 50)"));
        sql(s("INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ) VALUES ('1340', 2), ('1841', 5)"));
    }
};

struct Essai {
    EtudeConcentrations base;
    DialogueDEssai dialogue;
    Session session{dialogue};
    CadreDEssai cadre;
    std::unique_ptr<F_Concentrations_PC> ecran;

    Essai()
    {
        session.donnees.ouvrir(base.chemin);
        ecran = std::make_unique<F_Concentrations_PC>(session, cadre);
        ecran->show();
        ecran->activateWindow();
    }
    bool pret() { return QTest::qWaitForWindowActive(ecran.get()); }

    template <typename T> T *trouver(const char *nom) const
    {
        T *controle = ecran->findChild<T *>(QString::fromLatin1(nom));
        if (!controle)
            qFatal("no control named %s", nom);
        return controle;
    }
    QWidget *controle(const char *nom) const { return trouver<QWidget>(nom); }
    ZoneCombo *combo(const char *nom) const { return trouver<ZoneCombo>(nom); }
    ListeFiltree *liste(const char *nom) const { return trouver<ListeFiltree>(nom); }
    QAbstractButton *bouton(const char *nom) const { return trouver<QAbstractButton>(nom); }
    QLineEdit *zone(const char *nom) const { return trouver<QLineEdit>(nom); }
    QString texte(const char *nom) const { return zone(nom)->text(); }
    bool actif(const char *nom) const { return controle(nom)->isEnabled(); }
    bool visible(const char *nom) const { return controle(nom)->isVisible(); }

    void choisir(const char *nom, const char *texte) const
    {
        const int rang = combo(nom)->findText(QString::fromUtf8(texte));
        if (rang < 0)
            qFatal("%s has no row %s", nom, texte);
        combo(nom)->setCurrentIndex(rang);
    }
    void cliquer(const char *nom, const char *debut) const
    {
        ListeFiltree *l = liste(nom);
        for (int i = 0; i < l->count(); ++i) {
            if (l->item(i)->text().startsWith(QString::fromUtf8(debut))) {
                l->scrollToItem(l->item(i));
                QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, l->visualItemRect(l->item(i)).center());
                return;
            }
        }
        qFatal("%s has no row %s", nom, debut);
    }
    void ecrire(const char *nom, const char *texte) const
    {
        QLineEdit *z = zone(nom);
        z->setFocus();
        z->selectAll();
        QTest::keyClick(z, Qt::Key_Delete);
        QTest::keyClicks(z, QString::fromUtf8(texte));
        QTest::keyClick(z, Qt::Key_Tab);
        QCoreApplication::processEvents();
    }
    QStringList rangees(const char *nom) const
    {
        QStringList resultat;
        if (const auto *c = ecran->findChild<QComboBox *>(QString::fromLatin1(nom)))
            for (int i = 0; i < c->count(); ++i)
                resultat << c->itemText(i);
        else
            for (int i = 0; i < liste(nom)->count(); ++i)
                resultat << liste(nom)->item(i)->text();
        return resultat;
    }
    // Presses the report's button and gives the only box that came of it.
    QString refusDuRapport()
    {
        dialogue.messages.clear();
        bouton("cmd_rapport")->click();
        if (dialogue.messages.size() != 1)
            return QStringLiteral("%1 boxes").arg(dialogue.messages.size());
        if (dialogue.messages[0].titre != QLatin1String("Attention"))
            return dialogue.messages[0].titre;
        return dialogue.messages[0].texte;
    }
    void choisirTout() const
    {
        choisir("cmb_code", "04211940");
        choisir("cmb_param", "Nitrates");
        ecrire("txt_date_debut", "01/01/2008");
        ecrire("txt_date_fin", "31/12/2009");
    }
};
