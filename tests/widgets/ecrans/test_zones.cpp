#include "DialogueDEssai.h"
#include "widgets/ZoneCombo.h"
#include "widgets/ZoneDate.h"
#include "widgets/ZoneMois.h"
#include "widgets/ZoneNombre.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCompleter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace
{
// A field, another one to go to, and a closing button.
template <typename Zone> struct Fenetre {
    DialogueDEssai dialogue;
    QWidget fenetre;
    Zone zone;
    QLineEdit autre;
    QPushButton fermer;

    Fenetre()
    {
        auto *colonne = new QVBoxLayout(&fenetre);
        colonne->addWidget(&zone);
        colonne->addWidget(&autre);
        colonne->addWidget(&fermer);
        fermer.setProperty("sansVerification", true);
        zone.brancher(&dialogue);
        fenetre.show();
        fenetre.activateWindow();
        zone.setFocus();
    }
    bool prete() { return QTest::qWaitForWindowActive(&fenetre) && zone.hasFocus(); }
    void ecrire(const QString &texte)
    {
        zone.selectAll();
        QTest::keyClick(&zone, Qt::Key_Delete);
        QTest::keyClicks(&zone, texte);
    }
    void quitter()
    {
        autre.setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
    }
};

struct FenetreCombo : Fenetre<ZoneCombo> {
    FenetreCombo()
    {
        zone.remplir(
            {{QStringLiteral("1340"), QStringLiteral("Nitrates")},
             {QStringLiteral("1302"), QStringLiteral("pH")},
             {QStringLiteral("1841"), QStringLiteral("Carbone Organique"), QStringLiteral("mg(C)/L")},
             {QStringLiteral("9999"), QStringLiteral("Énergie")}});
    }
    void ecrire(const QString &texte)
    {
        zone.lineEdit()->selectAll();
        QTest::keyClick(&zone, Qt::Key_Delete);
        QTest::keyClicks(&zone, texte);
        if (zone.completer()->popup()->isVisible())
            zone.completer()->popup()->hide();
    }
};
} // namespace

class TestZones : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void dateMiseEnForme();
    void dateRefusee();
    void dateVideAcceptee();
    void refusUneSeuleFois();
    void fermerNeVerifiePas();
    void verifierSansQuitter();
    void calendrier();
    void mois();
    void nombreEnQuittant();
    void nombreEnFrappant();
    void nombreNonVerifie();
    void comboChoixParTexte();
    void comboTexteInconnu();
    void comboVide();
    void comboRemplirGardeLeChoix();
    void comboSilence();
    void comboMemesTextes();
    void comboFiltre();
};

void TestZones::dateMiseEnForme()
{
    Fenetre<ZoneDate> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("1/3/09"));
    f.quitter();
    QCOMPARE(f.zone.text(), QStringLiteral("01/03/2009"));
    QCOMPARE(f.zone.date(), QDate(2009, 3, 1));
    QVERIFY(f.dialogue.messages.isEmpty());
    QVERIFY(f.autre.hasFocus());
}

void TestZones::dateRefusee()
{
    Fenetre<ZoneDate> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("31/02/2009"));
    f.quitter();
    QCOMPARE(f.dialogue.messages.size(), 1);
    QCOMPARE(f.dialogue.messages[0].texte,
             QStringLiteral("La date n'est pas au format adapté : \"jj/mm/aaaa\"."));
    QCOMPARE(f.dialogue.messages[0].titre, QStringLiteral("Erreur de type"));
    QVERIFY2(f.zone.hasFocus(), "the user stays on the field");
    QCOMPARE(f.zone.selectedText(), QStringLiteral("31/02/2009"));
    QVERIFY(f.zone.date().isNull());
}

void TestZones::dateVideAcceptee()
{
    Fenetre<ZoneDate> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("   "));
    f.quitter();
    QVERIFY(f.dialogue.messages.isEmpty());
    QVERIFY(f.zone.date().isNull());
}

// Left, come back and left again before the box could show: one box.
void TestZones::refusUneSeuleFois()
{
    Fenetre<ZoneDate> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("abc"));
    f.autre.setFocus(Qt::TabFocusReason);
    f.zone.setFocus(Qt::TabFocusReason);
    f.autre.setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    QCOMPARE(f.dialogue.messages.size(), 1);
}

void TestZones::fermerNeVerifiePas()
{
    Fenetre<ZoneDate> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("abc"));
    f.fermer.setFocus(Qt::MouseFocusReason);
    QCoreApplication::processEvents();
    QVERIFY(f.dialogue.messages.isEmpty());
}

// A command started by a key checks the field that has the focus; the box is not shown again for the same leaving.
void TestZones::verifierSansQuitter()
{
    Fenetre<ZoneDate> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("32/01/2009"));
    QVERIFY(!f.zone.verifier());
    QCOMPARE(f.dialogue.messages.size(), 1);
    f.ecrire(QStringLiteral("31/01/2009"));
    QVERIFY(f.zone.verifier());
    QCOMPARE(f.dialogue.messages.size(), 1);
}

void TestZones::calendrier()
{
    Fenetre<ZoneDate> f;
    QVERIFY(f.prete());
    f.zone.fixer(QDate(2009, 3, 15));
    QTest::keyClick(&f.zone, Qt::Key_Down, Qt::AltModifier);
    auto *calendrier = f.zone.findChild<QCalendarWidget *>();
    QVERIFY(calendrier);
    QCOMPARE(calendrier->selectedDate(), QDate(2009, 3, 15));
    Q_EMIT calendrier->clicked(QDate(2009, 3, 20));
    QCOMPARE(f.zone.text(), QStringLiteral("20/03/2009"));
    QVERIFY(f.dialogue.messages.isEmpty());
    QTRY_VERIFY(!f.zone.findChild<QCalendarWidget *>());

    f.zone.fixer(QDate());
    f.zone.proposer(QDate(2001, 6, 1));
    f.zone.ouvrirCalendrier();
    calendrier = f.zone.findChild<QCalendarWidget *>();
    QVERIFY(calendrier);
    QCOMPARE(calendrier->selectedDate(), QDate(2001, 6, 1));
}

void TestZones::mois()
{
    Fenetre<ZoneMois> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("03/09"));
    f.quitter();
    QCOMPARE(f.zone.text(), QStringLiteral("03/2009"));
    QVERIFY(f.dialogue.messages.isEmpty());

    f.zone.setFocus();
    f.ecrire(QStringLiteral("13/2009"));
    f.quitter();
    QCOMPARE(f.dialogue.messages.size(), 1);
    QCOMPARE(f.dialogue.messages[0].texte,
             QStringLiteral("La date n'est pas au format adapté : \"mm/aaaa\"."));
    QCOMPARE(f.dialogue.messages[0].titre, QStringLiteral("Erreur de type"));
    QVERIFY(f.zone.hasFocus());
}

void TestZones::nombreEnQuittant()
{
    Fenetre<ZoneNombre> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("12,5"));
    f.quitter();
    QVERIFY(f.dialogue.messages.isEmpty());
    QCOMPARE(f.zone.nombre(), std::optional(12.5));

    f.zone.setFocus();
    f.ecrire(QStringLiteral("abc"));
    f.quitter();
    QCOMPARE(f.dialogue.messages.size(), 1);
    QCOMPARE(f.dialogue.messages[0].texte, QStringLiteral("La valeur demandée est de type numérique."));
    QCOMPARE(f.dialogue.messages[0].titre, QStringLiteral("Erreur de type"));
    QVERIFY(f.zone.hasFocus());
    QVERIFY(!f.zone.nombre());

    f.ecrire(QStringLiteral("-"));
    f.quitter();
    QCOMPARE(f.dialogue.messages.size(), 2);
}

// Told when the typing pauses on a text that cannot become a number, and not before.
void TestZones::nombreEnFrappant()
{
    Fenetre<ZoneNombre> f;
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("-"));
    QTest::qWait(800);
    QVERIFY(f.dialogue.messages.isEmpty());
    f.ecrire(QStringLiteral("1a"));
    QVERIFY(f.dialogue.messages.isEmpty());
    QTRY_COMPARE(f.dialogue.messages.size(), 1);
    QCOMPARE(f.dialogue.messages[0].texte, QStringLiteral("La valeur demandée est de type numérique."));
    f.ecrire(QStringLiteral("1"));
    f.quitter();
    QTest::qWait(800);
    QCOMPARE(f.dialogue.messages.size(), 1);
}

void TestZones::nombreNonVerifie()
{
    Fenetre<ZoneNombre> f;
    f.zone.setVerifiee(false);
    QVERIFY(f.prete());
    f.ecrire(QStringLiteral("abc"));
    f.quitter();
    QTest::qWait(800);
    QVERIFY(f.dialogue.messages.isEmpty());
    QVERIFY(!f.zone.nombre());
}

void TestZones::comboChoixParTexte()
{
    FenetreCombo f;
    QVERIFY(f.prete());
    QSignalSpy change(&f.zone, &ZoneCombo::choixChange);
    f.ecrire(QStringLiteral("nitrates"));
    QVERIFY2(f.zone.estVide(), "nothing is chosen while one types");
    f.quitter();
    QCOMPARE(f.zone.code(), QStringLiteral("1340"));
    QCOMPARE(f.zone.currentText(), QStringLiteral("Nitrates"));
    QCOMPARE(change.size(), 1);

    f.zone.setFocus();
    f.ecrire(QStringLiteral("ÉNERGIE"));
    QCOMPARE(change.size(), 2); // emptied on the way
    QTest::keyClick(&f.zone, Qt::Key_Return);
    QCOMPARE(f.zone.code(), QStringLiteral("9999"));
    QCOMPARE(change.size(), 3);

    QTest::keyClick(&f.zone, Qt::Key_Up); // the row above
    QCOMPARE(f.zone.code(), QStringLiteral("1841"));
    QCOMPARE(change.size(), 4);
    QVERIFY(f.dialogue.messages.isEmpty());
}

void TestZones::comboTexteInconnu()
{
    FenetreCombo f;
    QVERIFY(f.prete());
    f.zone.choisir(QStringLiteral("1340"));
    QSignalSpy change(&f.zone, &ZoneCombo::choixChange);
    f.ecrire(QStringLiteral("Nitrat"));
    f.quitter();
    QCOMPARE(f.dialogue.messages.size(), 1);
    QCOMPARE(f.dialogue.messages[0].texte, QStringLiteral("Cette valeur n'existe pas dans la liste."));
    QCOMPARE(f.dialogue.messages[0].titre, QStringLiteral("Attention"));
    QVERIFY(f.zone.hasFocus());
    QVERIFY(!f.zone.verifier());
    QCOMPARE(f.dialogue.messages.size(), 2);
}

void TestZones::comboVide()
{
    FenetreCombo f;
    QVERIFY(f.prete());
    f.zone.choisir(QStringLiteral("1340"));
    QSignalSpy change(&f.zone, &ZoneCombo::choixChange);
    f.ecrire(QString());
    f.quitter();
    QVERIFY(f.zone.estVide());
    QCOMPARE(f.zone.code(), QString());
    QCOMPARE(change.size(), 1);
    QVERIFY(f.dialogue.messages.isEmpty());
}

void TestZones::comboRemplirGardeLeChoix()
{
    ZoneCombo zone;
    QSignalSpy change(&zone, &ZoneCombo::choixChange);
    zone.remplir(
        {{QStringLiteral("a"), QStringLiteral("Un")}, {QStringLiteral("b"), QStringLiteral("Deux")}});
    QVERIFY(zone.estVide());
    QCOMPARE(zone.currentText(), QString());
    zone.choisir(QStringLiteral("b"));
    zone.remplir(
        {{QStringLiteral("b"), QStringLiteral("Deux")}, {QStringLiteral("c"), QStringLiteral("Trois")}});
    QCOMPARE(zone.code(), QStringLiteral("b"));
    QCOMPARE(zone.currentText(), QStringLiteral("Deux"));
    zone.remplir({{QStringLiteral("c"), QStringLiteral("Trois")}});
    QVERIFY(zone.estVide());
    QCOMPARE(zone.currentText(), QString());
    QCOMPARE(change.size(), 0);
}

void TestZones::comboSilence()
{
    ZoneCombo zone;
    zone.remplir({{QStringLiteral("a"), QStringLiteral("Un")}});
    QSignalSpy change(&zone, &ZoneCombo::choixChange);
    zone.choisir(QStringLiteral("a"));
    zone.vider();
    zone.choisir(QStringLiteral("absent"));
    QVERIFY(zone.estVide());
    QCOMPARE(change.size(), 0);
    zone.setCurrentIndex(0); // as a click in its list does
    QCOMPARE(change.size(), 1);
    QCOMPARE(zone.texte(), QStringLiteral("Un"));
}

// The second of two rows of one text, picked in the list, stays the choice when the field is left.
void TestZones::comboMemesTextes()
{
    ZoneCombo zone;
    zone.remplir(
        {{QStringLiteral("a"), QStringLiteral("Même")}, {QStringLiteral("b"), QStringLiteral("Même")}});
    zone.setCurrentIndex(1);
    QVERIFY(zone.verifier());
    QCOMPARE(zone.code(), QStringLiteral("b"));
}

// Typing finds a row by any part of its text or complement, without regard to case and accents.
void TestZones::comboFiltre()
{
    FenetreCombo f;
    const auto trouves = [&f](const QString &texte) {
        f.zone.completer()->setCompletionPrefix(texte);
        QStringList resultat;
        for (int i = 0; f.zone.completer()->setCurrentRow(i); ++i)
            resultat << f.zone.completer()->currentCompletion();
        return resultat;
    };
    QCOMPARE(trouves(QStringLiteral("ORGA")), QStringList{QStringLiteral("Carbone Organique")});
    QCOMPARE(trouves(QStringLiteral("energ")), QStringList{QStringLiteral("Énergie")});
    QCOMPARE(trouves(QStringLiteral("(c)")), QStringList{QStringLiteral("Carbone Organique")});
    QCOMPARE(trouves(QStringLiteral("zzz")), QStringList());
}

QTEST_MAIN(TestZones)
#include "test_zones.moc"
