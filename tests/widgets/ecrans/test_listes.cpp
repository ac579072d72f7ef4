#include "DialogueDEssai.h"
#include "widgets/BlocFiltres.h"
#include "widgets/ChoixPeriode.h"
#include "widgets/ChoixStation.h"
#include "widgets/ListeFiltree.h"
#include "widgets/ZoneCombo.h"
#include "widgets/ZoneDate.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace
{
ListeChoix lignes(int nombre)
{
    ListeChoix resultat;
    for (int i = 0; i < nombre; ++i)
        resultat << Choix{QStringLiteral("c%1").arg(i), QStringLiteral("Ligne %1").arg(i)};
    return resultat;
}

void cliquer(ListeFiltree &liste, int rang)
{
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, liste.visualItemRect(liste.item(rang)).center());
}

// What a label of a composite shows, by a part of its text.
bool montre(const QWidget &bloc, const QString &texte)
{
    const auto libelles = bloc.findChildren<QLabel *>();
    return std::any_of(libelles.begin(), libelles.end(),
                       [&texte](const QLabel *libelle) { return libelle->text().contains(texte); });
}
} // namespace

class TestListes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void choixMultiple();
    void regle();
    void filtre();
    void remplirGardeLesChoix();
    void station();
    void codeAffiche();
    void periode();
    void filtres();
};

void TestListes::choixMultiple()
{
    ListeFiltree liste;
    liste.resize(200, 200);
    liste.remplir(lignes(4));
    liste.show();
    QSignalSpy change(&liste, &ListeFiltree::choixChange);
    cliquer(liste, 2);
    cliquer(liste, 0);
    QCOMPARE(liste.codes(), (QStringList{QStringLiteral("c0"), QStringLiteral("c2")}));
    QCOMPARE(liste.textes(), (QStringList{QStringLiteral("Ligne 0"), QStringLiteral("Ligne 2")}));
    cliquer(liste, 2);
    QCOMPARE(liste.codes(), QStringList{QStringLiteral("c0")});
    QCOMPARE(change.size(), 3);
    liste.vider();
    QCOMPARE(liste.codes(), QStringList());
    QCOMPARE(change.size(), 3);
}

void TestListes::regle()
{
    ListeFiltree liste;
    liste.resize(200, 200);
    liste.remplir(lignes(4));
    liste.show();
    liste.definirRegle([](const QStringList &codes) {
        return codes.size() > 2 ? QStringLiteral("Pas plus de deux.") : QString();
    });
    QSignalSpy change(&liste, &ListeFiltree::choixChange);
    QSignalSpy refus(&liste, &ListeFiltree::refus);
    cliquer(liste, 0);
    cliquer(liste, 1);
    cliquer(liste, 2);
    QCOMPARE(liste.codes(), (QStringList{QStringLiteral("c0"), QStringLiteral("c1")}));
    QTRY_COMPARE(refus.size(), 1);
    QCOMPARE(refus[0][0].toString(), QStringLiteral("Pas plus de deux."));
    QCOMPARE(change.size(), 2);
    cliquer(liste, 0); // a row can always be taken back
    cliquer(liste, 2);
    QCOMPARE(liste.codes(), (QStringList{QStringLiteral("c1"), QStringLiteral("c2")}));
    QCOMPARE(change.size(), 4);
}

void TestListes::filtre()
{
    ListeFiltree liste;
    liste.resize(200, 300);
    liste.remplir(lignes(7));
    liste.show();
    auto *champ = liste.findChild<QLineEdit *>();
    QVERIFY2(!champ->isVisible(), "seven rows are read at a glance");
    liste.remplir(lignes(12));
    QVERIFY(champ->isVisible());
    liste.choisir({QStringLiteral("c3")});
    liste.setFocus();
    QTest::keyClick(&liste, Qt::Key_1);
    QCOMPARE(champ->text(), QStringLiteral("1"));
    int montrees = 0;
    for (int i = 0; i < liste.count(); ++i)
        montrees += liste.item(i)->isHidden() ? 0 : 1;
    QCOMPARE(montrees, 3); // Ligne 1, 10 and 11
    QCOMPARE(liste.codes(), QStringList{QStringLiteral("c3")});
    QTest::keyClick(champ, Qt::Key_Return);
    QCOMPARE(liste.currentRow(), 1);
    champ->clear();
    QVERIFY(!liste.item(0)->isHidden());
}

void TestListes::remplirGardeLesChoix()
{
    ListeFiltree liste;
    liste.remplir(lignes(4));
    liste.choisir({QStringLiteral("c1"), QStringLiteral("c3")});
    QSignalSpy change(&liste, &ListeFiltree::choixChange);
    liste.remplir(lignes(2));
    QCOMPARE(liste.codes(), QStringList{QStringLiteral("c1")});
    QCOMPARE(change.size(), 0);
}

void TestListes::station()
{
    ChoixStation choix;
    choix.setNomCode(QStringLiteral("cmb_code"));
    choix.setNomUsuel(QStringLiteral("ZC_CODE_USUEL"));
    choix.setNomStation(QStringLiteral("txt_station"));
    choix.setNomAffichageUsuel(QStringLiteral("chk_AffCodeUsuel"));
    choix.remplir({{QStringLiteral("04000001"), QStringLiteral("ZED"), QStringLiteral("Pont de l'Ile")},
                   {QStringLiteral("04000002"), QString(), QStringLiteral("Moulin")},
                   {QStringLiteral("04000003"), QStringLiteral("ABC"), QStringLiteral("Gué")}});
    auto *code = choix.findChild<ZoneCombo *>(QStringLiteral("cmb_code"));
    auto *usuel = choix.findChild<ZoneCombo *>(QStringLiteral("ZC_CODE_USUEL"));
    auto *nom = choix.findChild<QLineEdit *>(QStringLiteral("txt_station"));
    QVERIFY(code && usuel && nom);
    QVERIFY(choix.findChild<QCheckBox *>(QStringLiteral("chk_AffCodeUsuel")));
    QVERIFY(nom->isReadOnly());
    QCOMPARE(code->count(), 3);
    QCOMPARE(usuel->count(), 2);
    QCOMPARE(usuel->itemText(0), QStringLiteral("ABC"));

    QSignalSpy change(&choix, &ChoixStation::stationChangee);
    code->setCurrentIndex(0);
    QCOMPARE(change.size(), 1);
    QCOMPARE(choix.code(), QStringLiteral("04000001"));
    QCOMPARE(usuel->currentText(), QStringLiteral("ZED"));
    QCOMPARE(nom->text(), QStringLiteral("Pont de l'Ile"));

    usuel->setCurrentIndex(0);
    QCOMPARE(change.size(), 2);
    QCOMPARE(choix.code(), QStringLiteral("04000003"));
    QCOMPARE(code->currentText(), QStringLiteral("04000003"));
    QCOMPARE(nom->text(), QStringLiteral("Gué"));

    code->setCurrentIndex(1);
    QCOMPARE(usuel->currentText(), QString());
    QCOMPARE(nom->text(), QStringLiteral("Moulin"));

    choix.vider();
    QCOMPARE(choix.code(), QString());
    QCOMPARE(nom->text(), QString());
    QCOMPARE(change.size(), 3);
}

void TestListes::codeAffiche()
{
    ChoixStation choix;
    choix.setNomAffichageUsuel(QStringLiteral("chk_AffCodeUsuel"));
    choix.remplir({{QStringLiteral("04000001"), QStringLiteral("ZED"), QStringLiteral("Pont")},
                   {QStringLiteral("04000002"), QString(), QStringLiteral("Moulin")}});
    auto *case_ = choix.findChild<QCheckBox *>(QStringLiteral("chk_AffCodeUsuel"));
    QVERIFY(!choix.afficherUsuel());
    choix.choisir(QStringLiteral("04000001"));
    QVERIFY(montre(choix, QStringLiteral("documents : 04000001")));
    case_->click();
    QVERIFY(choix.afficherUsuel());
    QVERIFY(montre(choix, QStringLiteral("documents : ZED")));
    choix.choisir(QStringLiteral("04000002"));
    QVERIFY(montre(choix, QStringLiteral("Pas de code usuel : les documents porteront 04000002")));
}

void TestListes::periode()
{
    ChoixPeriode periode;
    periode.setNomDebut(QStringLiteral("txt_date_debut"));
    periode.setNomFin(QStringLiteral("txt_date_fin"));
    auto *debut = periode.findChild<ZoneDate *>(QStringLiteral("txt_date_debut"));
    auto *fin = periode.findChild<ZoneDate *>(QStringLiteral("txt_date_fin"));
    auto *tout = periode.findChild<QPushButton *>();
    QVERIFY(debut && fin && tout);
    QVERIFY(!tout->isEnabled());
    QVERIFY(!tout->toolTip().isEmpty());
    periode.proposer(QDate(2001, 1, 5), QDate(2010, 12, 14));
    QVERIFY(montre(periode, QStringLiteral("Mesures du 05/01/2001 au 14/12/2010")));
    QVERIFY2(periode.debut().isNull(), "offered, not taken");
    tout->click();
    QCOMPARE(debut->text(), QStringLiteral("05/01/2001"));
    QCOMPARE(fin->text(), QStringLiteral("14/12/2010"));
    QCOMPARE(periode.debut(), QDate(2001, 1, 5));
    QCOMPARE(periode.fin(), QDate(2010, 12, 14));
    periode.vider();
    QVERIFY(periode.debut().isNull() && periode.fin().isNull());
}

void TestListes::filtres()
{
    BlocFiltres bloc;
    bloc.setNomGestionnaires(QStringLiteral("lst_gest"));
    bloc.setNomCommentaires(QStringLiteral("lst_comment"));
    bloc.setNomProtocole(QStringLiteral("cmb_protoc"));
    bloc.resize(300, 500);
    bloc.show();
    auto *gest = bloc.findChild<ListeFiltree *>(QStringLiteral("lst_gest"));
    auto *comment = bloc.findChild<ListeFiltree *>(QStringLiteral("lst_comment"));
    auto *protocole = bloc.findChild<ZoneCombo *>(QStringLiteral("cmb_protoc"));
    QVERIFY(gest && comment && protocole);
    QVERIFY(gest->isVisible() && comment->isVisible() && protocole->isVisible());
    const auto listes = bloc.findChildren<ListeFiltree *>();
    for (const ListeFiltree *liste : listes)
        QCOMPARE(liste->isVisible(), !liste->objectName().isEmpty()); // the networks have no name here

    ListesFiltres choix;
    choix.gestionnaires = {{QStringLiteral("17"), QStringLiteral("Agence")},
                           {QStringLiteral("18"), QStringLiteral("Labo")}};
    choix.commentaires = {{QString(), QStringLiteral("- vide -")},
                          {QStringLiteral("crue"), QStringLiteral("crue")}};
    choix.protocoles = {{QStringLiteral("2"), QStringLiteral("Suivi pluie")}};
    bloc.remplir(choix);
    cliquer(*gest, 1);
    cliquer(*comment, 0);
    protocole->setCurrentIndex(0);
    QCOMPARE(bloc.gestionnaires(), QStringList{QStringLiteral("18")});
    QCOMPARE(bloc.commentaires(), QStringList{QString()});
    QCOMPARE(bloc.reseaux(), QStringList());
    QCOMPARE(bloc.protocole(), QStringLiteral("Suivi pluie"));
    QVERIFY(montre(bloc, QStringLiteral("1 choisi")));

    QToolButton *effacer = nullptr;
    const auto boutons = gest->parentWidget()->findChildren<QToolButton *>(Qt::FindDirectChildrenOnly);
    for (QToolButton *bouton : boutons)
        effacer = bouton->text() == QLatin1String("Effacer") ? bouton : effacer;
    QVERIFY(effacer && effacer->isVisible());
    effacer->click();
    QCOMPARE(bloc.gestionnaires(), QStringList());
    QVERIFY(!effacer->isVisible());

    bloc.vider();
    QCOMPARE(bloc.commentaires(), QStringList());
    QCOMPARE(bloc.protocole(), QString());
}

QTEST_MAIN(TestListes)
#include "test_listes.moc"
