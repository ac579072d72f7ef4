#include "analysis/ecrans/F_Donnees_brutes_PC.h"
#include "analysis/ecrans/GrilleDonneesBrutes.h"
#include "analysis/EtudeBrute.h"
#include "CadreDEssai.h"
#include "DialogueDEssai.h"
#include "frame/Session.h"
#include "widgets/ZoneCombo.h"
#include "widgets/ZoneDate.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace
{
struct Essai {
    EtudeBrute base;
    DialogueDEssai dialogue;
    Session session{dialogue};
    CadreDEssai cadre;
    std::unique_ptr<F_Donnees_brutes_PC> ecran;

    explicit Essai(int deplus = 0)
    {
        if (deplus > 0)
            base.sql(
                QStringLiteral(
                    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                    "INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC) SELECT ?, '1302', i FROM n"),
                {deplus, base.p1});
        session.donnees.ouvrir(base.chemin);
        ecran = std::make_unique<F_Donnees_brutes_PC>(session, cadre);
        ecran->show();
        ecran->activateWindow();
        attendre();
    }
    void attendre() const
    {
        QTRY_VERIFY(!ecran->lectureEnCours());
        QCoreApplication::processEvents();
    }
    bool pret() const { return QTest::qWaitForWindowActive(ecran.get()); }
    template <typename T> T *trouver(const char *nom) const
    {
        T *controle = ecran->findChild<T *>(QString::fromLatin1(nom));
        if (!controle)
            qFatal("no control named %s", nom);
        return controle;
    }
    GrilleDonneesBrutes *grille() const { return trouver<GrilleDonneesBrutes>("grille"); }
    QString nombre() const { return trouver<QLabel>("lbl_nombre")->text(); }
    QString etat() const { return trouver<QLabel>("lbl_etat")->text(); }
    QPushButton *bouton(const char *nom) const { return trouver<QPushButton>(nom); }
    QString cellule(int ligne, int colonne) const
    {
        return grille()->model()->index(ligne, colonne).data().toString();
    }
    QStringList resultats() const
    {
        QStringList textes;
        for (int i = 0; i < grille()->model()->rowCount(); ++i)
            textes << cellule(i, 6);
        return textes;
    }
    void choisir(const char *nom, const char *texte) const
    {
        auto *combo = trouver<ZoneCombo>(nom);
        const int rang = combo->findText(QString::fromUtf8(texte));
        if (rang < 0)
            qFatal("%s has no row %s", nom, texte);
        combo->setCurrentIndex(rang);
        attendre();
    }
    void ecrire(const char *nom, const char *texte) const
    {
        auto *zone = trouver<QLineEdit>(nom);
        zone->setFocus();
        zone->selectAll();
        QTest::keyClick(zone, Qt::Key_Delete);
        QTest::keyClicks(zone, QString::fromUtf8(texte));
        QTest::keyClick(zone, Qt::Key_Tab);
        QCoreApplication::processEvents();
        attendre();
    }
    void cliquerTitre(int colonne) const
    {
        QHeaderView *titres = grille()->horizontalHeader();
        grille()->scrollTo(grille()->model()->index(0, colonne));
        QTest::mouseClick(titres->viewport(), Qt::LeftButton, {},
                          {titres->sectionViewportPosition(colonne) + 8, titres->height() / 2});
        attendre();
    }
    void touche(int touche, Qt::KeyboardModifiers avec = Qt::NoModifier) const
    {
        QTest::keyClick(grille(), static_cast<Qt::Key>(touche), avec);
        attendre();
    }
};
} // namespace

class TestFDonneesBrutesPC : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ouverture();
    void filtres();
    void familleEtParametres();
    void periode();
    void tri();
    void copie();
    void tropACopier();
    void clavier();
    void baseModifiee();
    void enTranches();
    void baseVide();
    void pendantUnRapport();
};

void TestFDonneesBrutesPC::ouverture()
{
    const Essai e;
    QVERIFY(e.pret());
    QAbstractItemModelTester gardien(e.grille()->model(),
                                     QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(e.ecran->windowTitle(), QStringLiteral("Données brutes"));
    QCOMPARE(e.nombre(), QStringLiteral("6 résultats"));
    QCOMPARE(e.resultats().join(u' '), QStringLiteral("99 12,25 5  0,05 0,1"));
    QVERIFY(e.bouton("cmd_afficher")->isDefault());
    QVERIFY(!e.trouver<QWidget>("pgb_lecture")->isVisible());
    QTRY_VERIFY(e.trouver<ZoneCombo>("cmb_code")->hasFocus());
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestFDonneesBrutesPC::filtres()
{
    const Essai e;
    e.choisir("cmb_code", "04211950");
    QCOMPARE(e.resultats(), (QStringList{QStringLiteral("0,05"), QStringLiteral("0,1")}));
    QCOMPARE(e.nombre(), QStringLiteral("2 résultats"));
    e.choisir("cmb_param", "Nitrates");
    QCOMPARE(e.nombre(), QStringLiteral("1 résultat"));
    e.choisir("cmb_param", "Carbone Organique");
    QCOMPARE(e.nombre(), QStringLiteral("Aucun résultat ne répond à ces filtres."));
    QVERIFY(!e.bouton("cmd_exporter")->isEnabled());
    QCOMPARE(e.bouton("cmd_exporter")->toolTip(), QStringLiteral("Il n'y a aucun résultat"));
    e.bouton("cmd_vider")->click();
    e.attendre();
    QCOMPARE(e.nombre(), QStringLiteral("6 résultats"));
    QVERIFY(e.bouton("cmd_exporter")->isEnabled());
    QCOMPARE(e.ecran->demande(), DemandeDonneesBrutes());

    // What is typed is a row of the list or refused, whatever it is.
    for (const char *texte : {"' OR 1=1 --", "%", "; DROP TABLE PRELEVEMENT"}) {
        const qsizetype avant = e.dialogue.messages.size();
        auto *zone = e.trouver<ZoneCombo>("cmb_code");
        zone->setFocus();
        zone->lineEdit()->setText(QString::fromUtf8(texte));
        QTest::keyClick(zone->lineEdit(), Qt::Key_Tab);
        QCoreApplication::processEvents();
        QCOMPARE(e.dialogue.messages.size(), avant + 1);
        QCOMPARE(e.dialogue.messages.last().texte,
                 QStringLiteral("Cette valeur n'existe pas dans la liste."));
        zone->vider();
    }
    QCOMPARE(e.nombre(), QStringLiteral("6 résultats"));
}

// The list of parameters is that of the family; a parameter of the other family is given up.
void TestFDonneesBrutesPC::familleEtParametres()
{
    const Essai e;
    QCOMPARE(e.trouver<ZoneCombo>("cmb_param")->count(), 4);
    e.choisir("cmb_param", "Nitrates");
    QCOMPARE(e.nombre(), QStringLiteral("3 résultats"));
    e.trouver<QRadioButton>("opt_pesticides")->click();
    e.attendre();
    QCOMPARE(e.trouver<ZoneCombo>("cmb_param")->count(), 1);
    QVERIFY(e.trouver<ZoneCombo>("cmb_param")->estVide());
    QCOMPARE(e.resultats(), QStringList{QStringLiteral("0,1")});
    e.trouver<QRadioButton>("opt_physico")->click();
    e.attendre();
    QCOMPARE(e.nombre(), QStringLiteral("5 résultats"));
}

void TestFDonneesBrutesPC::periode()
{
    const Essai e;
    QVERIFY(e.pret());
    e.ecrire("txt_date_debut", "1/1/09");
    QCOMPARE(e.nombre(), QStringLiteral("2 résultats"));
    QVERIFY(e.dialogue.messages.isEmpty());
    e.ecrire("txt_date_fin", "31/12/2008");
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte,
             QStringLiteral("Vous devez saisir une date de fin supérieure ou égale à la date de début"));
    QCOMPARE(e.nombre(), QStringLiteral("2 résultats")); // what was shown stays
    // Told once, not at each field that is left.
    e.ecrire("txt_date_debut", "01/01/2008");
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.nombre(), QStringLiteral("3 résultats"));
    e.ecrire("txt_date_debut", "demain");
    QCOMPARE(e.dialogue.messages.size(), 2);
    QCOMPARE(e.dialogue.messages[1].texte,
             QStringLiteral("La date n'est pas au format adapté : \"jj/mm/aaaa\"."));
}

void TestFDonneesBrutesPC::tri()
{
    const Essai e;
    QVERIFY(e.pret());
    e.cliquerTitre(6);
    QCOMPARE(e.resultats().join(u' '), QStringLiteral(" 0,05 0,1 5 12,25 99"));
    QCOMPARE(e.grille()->horizontalHeader()->sortIndicatorSection(), 6);
    e.cliquerTitre(6);
    QCOMPARE(e.resultats().join(u' '), QStringLiteral("99 12,25 5 0,1 0,05 "));
    // Another filter keeps the order; so does a new reading.
    e.choisir("cmb_code", "04211950");
    QCOMPARE(e.resultats().join(u' '), QStringLiteral("0,1 0,05"));
    e.touche(Qt::Key_F5);
    QCOMPARE(e.resultats().join(u' '), QStringLiteral("0,1 0,05"));
    // By the keyboard, on the current column.
    e.grille()->setCurrentIndex(e.grille()->model()->index(0, 5));
    e.touche(Qt::Key_T, Qt::ControlModifier);
    QCOMPARE(e.resultats().join(u' '), QStringLiteral("0,1 0,05")); // Glyphosate, Nitrates
    e.touche(Qt::Key_T, Qt::ControlModifier);
    QCOMPARE(e.resultats().join(u' '), QStringLiteral("0,05 0,1"));
    // Every column can be sorted by.
    for (int colonne = 0; colonne < 14; ++colonne) {
        e.cliquerTitre(colonne);
        QCOMPARE(e.grille()->horizontalHeader()->sortIndicatorSection(), colonne);
        QCOMPARE(e.resultats().size(), 2);
    }
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestFDonneesBrutesPC::copie()
{
    const Essai e;
    QVERIFY(e.pret());
    e.grille()->setFocus();
    e.touche(Qt::Key_A, Qt::ControlModifier);
    e.touche(Qt::Key_C, Qt::ControlModifier);
    const QStringList lignes = QGuiApplication::clipboard()->text().split(u'\n');
    QCOMPARE(lignes.size(), 8); // titles, six rows, the end of the last
    QVERIFY(lignes[0].startsWith(QLatin1String("Code station\tStation\tDate")));
    QCOMPARE(lignes[5].split(u'\t').value(6), QStringLiteral("0,05"));
    QCOMPARE(e.etat(), QStringLiteral("6 lignes copiées."));

    e.grille()->selectionModel()->setCurrentIndex(e.grille()->model()->index(1, 6),
                                                  QItemSelectionModel::ClearAndSelect);
    e.touche(Qt::Key_Down, Qt::ShiftModifier);
    e.bouton("cmd_copier")->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Résultat\n12,25\n5\n"));
    QCOMPARE(e.etat(), QStringLiteral("2 lignes copiées."));

    e.grille()->clearSelection();
    e.bouton("cmd_copier")->click();
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte,
             QStringLiteral("Sélectionnez d'abord les cellules à copier : Ctrl+A les prend toutes."));
}

// Too much for the clipboard: said, nothing cut.
void TestFDonneesBrutesPC::tropACopier()
{
    const Essai e(100'000);
    QVERIFY(e.pret());
    QGuiApplication::clipboard()->setText(QStringLiteral("avant"));
    e.grille()->setFocus();
    e.touche(Qt::Key_A, Qt::ControlModifier);
    e.touche(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(e.dialogue.messages.size(), 1);
    QCOMPARE(e.dialogue.messages[0].texte,
             QStringLiteral(
                 "100\u00a0006 lignes sont sélectionnées, et 100\u00a0000 au plus peuvent être copiées. "
                 "Rien n'a été copié : réduisez la sélection, ou utilisez « Exporter ... »."));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("avant"));
}

// Enter reads again, Escape closes, letters typed over the table do nothing.
void TestFDonneesBrutesPC::clavier()
{
    const Essai e;
    QVERIFY(e.pret());
    e.grille()->setFocus();
    e.grille()->setCurrentIndex(e.grille()->model()->index(2, 6));
    e.base.ajouterMesure(e.base.p3, QStringLiteral("1302"), 7.5);
    e.touche(Qt::Key_N);
    QCOMPARE(e.grille()->currentIndex().row(), 2);
    QCOMPARE(e.nombre(), QStringLiteral("6 résultats"));
    e.touche(Qt::Key_Return);
    QCOMPARE(e.nombre(), QStringLiteral("7 résultats"));
    QCOMPARE(e.grille()->currentIndex(), e.grille()->model()->index(2, 6)); // where the user was
    e.touche(Qt::Key_Down);
    QCOMPARE(e.grille()->currentIndex().row(), 3);
    e.touche(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(e.grille()->currentIndex().row(), 6);
    e.touche(Qt::Key_Escape);
    QVERIFY(!e.ecran->isVisible());
}

void TestFDonneesBrutesPC::baseModifiee()
{
    const Essai e;
    QVERIFY(e.pret());
    QCOMPARE(e.etat(), QString());
    e.base.sql(QStringLiteral("DELETE FROM MESURE_PHYSICO WHERE NumAnaPC = ?"), {e.base.ph});
    e.grille()->setFocus();
    QTRY_COMPARE(e.etat(), QStringLiteral("La base a été modifiée depuis : F5 pour relire."));
    e.touche(Qt::Key_F5);
    QCOMPARE(e.nombre(), QStringLiteral("5 résultats"));
    QTRY_COMPARE(e.etat(), QString());
}

// A long reading goes on by itself; another demand, another order or the end of the screen may come in the middle.
void TestFDonneesBrutesPC::enTranches()
{
    Essai e(400'000);
    QCOMPARE(e.grille()->model()->rowCount(), 400'006);
    e.bouton("cmd_afficher")->click();
    e.choisir("cmb_code", "04211950");
    QCOMPARE(e.grille()->model()->rowCount(), 2);
    e.bouton("cmd_vider")->click();
    e.cliquerTitre(6);
    QCOMPARE(e.grille()->model()->rowCount(), 400'006);
    QCOMPARE(e.cellule(400'005, 6), QStringLiteral("400000"));
    e.cliquerTitre(6);
    QCOMPARE(e.cellule(0, 6), QStringLiteral("400000"));
    e.bouton("cmd_afficher")->click();
    e.ecran.reset();
    QCoreApplication::processEvents();
    QVERIFY(e.dialogue.messages.isEmpty());
}

void TestFDonneesBrutesPC::baseVide()
{
    const BaseDEssai vide(true);
    DialogueDEssai dialogue;
    Session session{dialogue};
    CadreDEssai cadre;
    session.donnees.ouvrir(vide.chemin);
    const F_Donnees_brutes_PC ecran(session, cadre);
    QTRY_VERIFY(!ecran.lectureEnCours());
    QCOMPARE(ecran.findChild<QLabel *>(QStringLiteral("lbl_nombre"))->text(),
             QStringLiteral("La base ne contient aucun résultat."));
    QVERIFY(!ecran.findChild<QPushButton *>(QStringLiteral("cmd_copier"))->isEnabled());
    QVERIFY(dialogue.messages.isEmpty());
}

void TestFDonneesBrutesPC::pendantUnRapport()
{
    Essai e;
    e.session.etatRapport.definir(true);
    QVERIFY(!e.bouton("cmd_exporter")->isEnabled());
    e.ecran->close();
    QVERIFY(e.ecran->isVisible());
    e.session.etatRapport.definir(false);
    QVERIFY(e.bouton("cmd_exporter")->isEnabled());
}

QTEST_MAIN(TestFDonneesBrutesPC)
#include "test_f_donnees_brutes_pc.moc"
