// Each gesture on a real widget, and each way in which it cannot be made.
#include "pilote/Cible.h"
#include "pilote/Constats.h"
#include "pilote/ecrans/FormEssai.h"
#include "pilote/Gestes.h"

#include <QTest>

namespace
{
QString echec(const std::function<void()> &geste)
{
    try {
        geste();
    } catch (const Echec &erreur) {
        return erreur.raison();
    }
    return {};
}
} // namespace

class TestGestes : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<F_Essai> m_form;
    // What the step `saisir` does.
    static void saisir(QWidget *controle, const QString &texte)
    {
        Gestes::taper(controle, texte);
        Gestes::quitter(controle);
    }
    QWidget *c(const char *nom)
    {
        return Cible::controleUtilisable(QStringLiteral("F_Essai"), QString::fromLatin1(nom));
    }

private Q_SLOTS:
    void init()
    {
        m_form = std::make_unique<F_Essai>();
        m_form->show();
        m_form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    }

    void trouver()
    {
        QCOMPARE(Cible::formulaire(QStringLiteral("F_Essai")), m_form.get()); // by class
        QCOMPARE(Cible::formulaire(QStringLiteral("essai")), m_form.get());   // by object name
        QVERIFY(!Cible::formulaire(QStringLiteral("F_Absent")));
        QVERIFY(echec([&] { c("cmd_absent"); }).contains(QStringLiteral("n'a pas de contrôle cmd_absent")));
        QVERIFY(echec([&] { c("cmd_cache"); }).contains(QStringLiteral("est caché")));
        QVERIFY(echec([&] { c("cmd_inerte"); }).contains(QStringLiteral("est désactivé")));
        m_form->hide();
        QVERIFY(echec([&] { c("txt_nom"); }).contains(QStringLiteral("n'est pas montrée")));
    }

    void saisirEtTaper()
    {
        m_form->texte->setText(QStringLiteral("ancien"));
        saisir(c("txt_nom"), QStringLiteral("Hélène œ 0,5 €"));
        QCOMPARE(m_form->texte->text(), QStringLiteral("Hélène œ 0,5 €"));
        QCOMPARE(m_form->finissees, QStringList{QStringLiteral("txt_nom")});
        QVERIFY(Constats::foyer(m_form->suivant));
        Gestes::taper(c("txt_suivant"), QStringLiteral("en cours"));
        QCOMPARE(m_form->suivant->text(), QStringLiteral("en cours"));
        QCOMPARE(m_form->finissees.size(), 1);
        QVERIFY(Constats::foyer(m_form->suivant));
        saisir(c("txt_nom"), QString());
        QVERIFY(m_form->texte->text().isEmpty());
    }

    void saisirAilleurs()
    {
        saisir(c("cmb_libre"), QStringLiteral("trois"));
        QCOMPARE(m_form->comboLibre->currentText(), QStringLiteral("trois"));
        saisir(c("txt_date"), QStringLiteral("15/03/2009"));
        QCOMPARE(m_form->date->date(), QDate(2009, 3, 15));
        saisir(c("txt_date"), QStringLiteral("01/12/1998"));
        QCOMPARE(m_form->date->date(), QDate(1998, 12, 1));
        saisir(c("txt_notes"), QStringLiteral("un\ndeux"));
        QCOMPARE(m_form->notes->toPlainText(), QStringLiteral("un\ndeux"));
        saisir(c("sel_station"), QStringLiteral("promu"));
        QCOMPARE(m_form->champPromu->text(), QStringLiteral("promu"));
        QVERIFY(!echec([&] { saisir(c("cmd_valider_0"), QStringLiteral("x")); }).isEmpty());
        QVERIFY(!echec([&] { saisir(c("cmb_station"), QStringLiteral("x")); }).isEmpty());
        m_form->texte->setReadOnly(true);
        QVERIFY(
            echec([&] { saisir(c("txt_nom"), QStringLiteral("x")); }).contains(QStringLiteral("modifie")));
    }

    void touches()
    {
        Gestes::touche(c("txt_nom"), QStringLiteral("Esc"));
        QCOMPARE(m_form->touchesEchap, 1);
        Gestes::touche(c("txt_nom"), QStringLiteral("Alt+V"));
        QVERIFY(Gestes::enSuspens());
        QTRY_COMPARE(m_form->clics, 1);
        QVERIFY(!Gestes::enSuspens());
        Gestes::touche(c("txt_nom"), QStringLiteral("Tab"));
        QVERIFY(Constats::foyer(m_form->suivant));
        Gestes::touche(c("txt_suivant"), QStringLiteral("Enter"));
        QVERIFY(m_form->finissees.contains(QStringLiteral("txt_suivant")));
        QVERIFY(echec([&] {
                    Gestes::touche(c("txt_nom"), QStringLiteral("Rien"));
                }).contains(QStringLiteral("touche inconnue")));
    }

    void choisirDansUnCombo()
    {
        Gestes::choisir(c("cmb_station"), QStringLiteral("Étang"));
        QCOMPARE(m_form->combo->currentText(), QStringLiteral("Étang"));
        QCOMPARE(m_form->choix,
                 QStringList{QStringLiteral("Étang")}); // as the user's choice, not the program's
        QVERIFY(echec([&] {
                    Gestes::choisir(c("cmb_station"), QStringLiteral("Aval"));
                }).contains(QStringLiteral("désactivée")));
        QVERIFY(echec([&] {
                    Gestes::choisir(c("cmb_station"), QStringLiteral("étang"));
                }).contains(QStringLiteral("pas de ligne")));
        QCOMPARE(m_form->combo->currentText(), QStringLiteral("Étang"));
    }

    void choisirDansUneListe()
    {
        Gestes::choisir(c("lst_une"), QStringLiteral("b"));
        Gestes::choisir(c("lst_une"), QStringLiteral("c"));
        QCOMPARE(Constats::selection(m_form->liste), QStringList{QStringLiteral("c")});
        for (const char *nom : {"lst_plusieurs", "lst_etendue"}) {
            Gestes::choisir(c(nom), QStringLiteral("c"));
            Gestes::choisir(c(nom), QStringLiteral("a"));
            Gestes::choisir(c(nom), QStringLiteral("a")); // already chosen: stays
            QCOMPARE(Constats::selection(c(nom)), QStringList({QStringLiteral("a"), QStringLiteral("c")}));
            Gestes::deselectionner(c(nom), QStringLiteral("c"));
            QCOMPARE(Constats::selection(c(nom)), QStringList{QStringLiteral("a")});
            QVERIFY(!echec([&] { Gestes::deselectionner(c(nom), QStringLiteral("b")); }).isEmpty());
            Gestes::choisir(c(nom), QStringLiteral("b"));
            Gestes::deselectionner(c(nom), QString());
            QVERIFY(Constats::selection(c(nom)).isEmpty());
        }
        m_form->liste->item(0)->setFlags(Qt::NoItemFlags);
        QVERIFY(echec([&] {
                    Gestes::choisir(c("lst_une"), QStringLiteral("a"));
                }).contains(QStringLiteral("désactivée")));
    }

    void doubleClic()
    {
        Gestes::doubleClic(c("lst_une"), QStringLiteral("b"));
        QCOMPARE(m_form->doubles, QStringList{QStringLiteral("b")});
    }

    void cocher()
    {
        Gestes::cocher(c("chk_usuel"), true);
        QVERIFY(Constats::coche(m_form->caseACocher));
        Gestes::cocher(c("chk_usuel"), true);
        QVERIFY(Constats::coche(m_form->caseACocher));
        Gestes::cocher(c("chk_usuel"), false);
        QVERIFY(!Constats::coche(m_form->caseACocher));
        Gestes::cocher(c("opt_annee_1"), true);
        QVERIFY(!Constats::coche(m_form->option0));
        // An option is left by choosing another.
        QVERIFY(!echec([&] { Gestes::cocher(c("opt_annee_1"), false); }).isEmpty());
        QVERIFY(!echec([&] { Gestes::cocher(c("txt_nom"), true); }).isEmpty());
    }

    void cliquer()
    {
        Gestes::cliquer(c("cmd_valider_0"));
        QCOMPARE(m_form->clics, 1);
        // Leaving the former field takes the button away.
        Gestes::taper(c("txt_nom"), QStringLiteral("faux"));
        connect(m_form->texte, &QLineEdit::editingFinished, m_form.get(),
                [this] { m_form->bouton->setEnabled(false); });
        QVERIFY(!echec([&] { Gestes::cliquer(c("cmd_valider_0")); }).isEmpty());
        QCOMPARE(m_form->clics, 1);
    }

    void onglet()
    {
        Gestes::onglet(c("SSTab1"), QStringLiteral("Flux"));
        QCOMPARE(m_form->onglets->currentIndex(), 1);
        Gestes::onglet(c("SSTab1"), QStringLiteral("Données"));
        QCOMPARE(m_form->onglets->currentIndex(), 0);
        QVERIFY(!echec([&] { Gestes::onglet(c("SSTab1"), QStringLiteral("Absent")); }).isEmpty());
        m_form->onglets->setTabEnabled(1, false);
        QVERIFY(!echec([&] { Gestes::onglet(c("SSTab1"), QStringLiteral("Flux")); }).isEmpty());
    }

    void grille()
    {
        Gestes::cellule(c("grd_mesures"), 0, 0, QStringLiteral("0,75"));
        // Qt commits a cell's text once the key has been handled.
        QTRY_COMPARE(Constats::cellule(m_form->grille, 0, 0), QStringLiteral("0,75"));
        QTRY_VERIFY(!Gestes::enSuspens());
        QCOMPARE(QApplication::focusWidget(), m_form->grille);
        QCOMPARE(Constats::lignes(m_form->grille), 2);
        Gestes::cellule(c("grd_mesures"), 2, 1, QStringLiteral("ajoutée"));
        QCOMPARE(Constats::lignes(m_form->grille), 3);
        QTRY_COMPARE(Constats::cellule(m_form->grille, 2, 1), QStringLiteral("ajoutée"));
        QVERIFY(echec([&] {
                    Gestes::cellule(c("grd_mesures"), 1, 1, QStringLiteral("x"));
                }).contains(QStringLiteral("ne se modifie pas")));
        QVERIFY(!echec([&] { Gestes::cellule(c("grd_mesures"), 9, 0, QStringLiteral("x")); }).isEmpty());
        Gestes::boutonCellule(c("grd_mesures"), 0, 1);
        QCOMPARE(m_form->clics, 1);
        Gestes::supprimerLigne(c("grd_mesures"), 0);
        QCOMPARE(Constats::lignes(m_form->grille), 2);
        QCOMPARE(Constats::cellule(m_form->grille, 1, 1), QStringLiteral("ajoutée"));
    }

    void constats()
    {
        QCOMPARE(Constats::texte(m_form->bouton), QStringLiteral("Valider"));
        QCOMPARE(Constats::texte(m_form->libelle), QStringLiteral("Débit (l/s)"));
        QCOMPARE(Constats::texte(m_form->groupe), QStringLiteral("Période"));
        m_form->champPromu->setText(QStringLiteral("dedans"));
        QCOMPARE(Constats::texte(m_form->promu), QStringLiteral("dedans"));
        QCOMPARE(Constats::ligne(m_form->combo, 2), QStringLiteral("Étang"));
        QCOMPARE(Constats::ligne(m_form->liste, 0), QStringLiteral("a"));
        QVERIFY(!echec([&] { Constats::ligne(m_form->liste, 3); }).isEmpty());
        QCOMPARE(Constats::lignes(m_form->combo), 3);
        QVERIFY(!echec([&] { Constats::lignes(m_form->texte); }).isEmpty());
    }

    void modale()
    {
        QDialog boite;
        boite.setObjectName(QStringLiteral("boite"));
        boite.setModal(true);
        QVERIFY(!Cible::obstacle(m_form.get()));
        boite.show();
        QCOMPARE(Cible::obstacle(m_form.get()), &boite);
        QVERIFY(!Cible::obstacle(&boite));
    }

    void fermer()
    {
        Gestes::fermer(m_form.get());
        QVERIFY(!m_form->isVisible());
    }
};

QTEST_MAIN(TestGestes)
#include "test_gestes.moc"
