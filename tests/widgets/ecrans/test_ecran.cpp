#include "CadreDEssai.h"
#include "DialogueDEssai.h"
#include "frame/Session.h"
#include "platform/Erreur.h"
#include "widgets/Ecran.h"
#include "widgets/ZoneDate.h"

#include <QCheckBox>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace
{
class EcranDEssai : public Ecran
{
public:
    EcranDEssai(Session &s, Cadre &c) : Ecran(s, c)
    {
        auto *colonne = new QVBoxLayout(this);
        auto *libelle = new QLabel(QStringLiteral("&Date :"), this);
        libelle->setBuddy(&date);
        colonne->addWidget(libelle);
        colonne->addWidget(&date);
        colonne->addWidget(&case_);
        colonne->addWidget(&rapport);
        colonne->addWidget(&fermeture);
        preparer(&rapport, &fermeture);
        connect(&rapport, &QPushButton::clicked, this, [this] {
            ++appuis;
            valide = verifierZones();
        });
    }
    using Ecran::executer;
    ZoneDate date;
    QCheckBox case_{QStringLiteral("Case")};
    QPushButton rapport{QStringLiteral("&Rapport ...")};
    QPushButton fermeture{QStringLiteral("&Fermer")};
    int appuis = 0;
    bool valide = false;
};

struct Fenetre {
    DialogueDEssai dialogue;
    Session session{dialogue};
    CadreDEssai cadre;
    QMainWindow principale;
    QMdiArea *zone = new QMdiArea(&principale);
    EcranDEssai *ecran = new EcranDEssai(session, cadre);
    QMdiSubWindow *enfant = zone->addSubWindow(ecran);

    Fenetre()
    {
        principale.menuBar()->addMenu(QStringLiteral("Ca&rtographie"))->addAction(QStringLiteral("Carte"));
        principale.setCentralWidget(zone);
        enfant->setAttribute(Qt::WA_DeleteOnClose);
        principale.resize(600, 400);
        principale.show();
        enfant->show();
        ecran->date.setFocus();
    }
    bool prete() { return QTest::qWaitForWindowActive(&principale) && ecran->date.hasFocus(); }
};
} // namespace

class TestEcran : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void entreePresseLePrincipal();
    void echapFerme();
    void lettresAvantLesMenus();
    void lettreVersUnChamp();
    void commandeVerifieLesZones();
    void rapportEnCours();
    void erreurMontree();
};

void TestEcran::entreePresseLePrincipal()
{
    Fenetre f;
    QVERIFY(f.prete());
    QVERIFY(f.ecran->rapport.isDefault());
    QTest::keyClick(&f.ecran->date, Qt::Key_Return);
    QCOMPARE(f.ecran->appuis, 1);
    f.ecran->case_.setFocus();
    QTest::keyClick(&f.ecran->case_, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(f.ecran->appuis, 2);
    f.ecran->rapport.setEnabled(false);
    QTest::keyClick(&f.ecran->date, Qt::Key_Return);
    QCOMPARE(f.ecran->appuis, 2);
}

void TestEcran::echapFerme()
{
    Fenetre f;
    QVERIFY(f.prete());
    QSignalSpy parti(f.ecran, &QObject::destroyed);
    QTest::keyClicks(&f.ecran->date, QStringLiteral("abc"));
    QTest::keyClick(&f.ecran->date, Qt::Key_Escape);
    QTRY_COMPARE(parti.size(), 1);
    QVERIFY2(f.dialogue.messages.isEmpty(), "closing checks no field");
}

// Alt+R stands in the menu bar too: the screen's button answers, and the letter is not typed into the field.
void TestEcran::lettresAvantLesMenus()
{
    Fenetre f;
    QVERIFY(f.prete());
    QTest::keyClick(&f.ecran->date, Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(f.ecran->appuis, 1);
    QCOMPARE(f.ecran->date.text(), QString());
    QVERIFY(!QApplication::activePopupWidget());
}

void TestEcran::lettreVersUnChamp()
{
    Fenetre f;
    QVERIFY(f.prete());
    f.ecran->case_.setFocus();
    QTest::keyClick(&f.ecran->case_, Qt::Key_D, Qt::AltModifier);
    QVERIFY(f.ecran->date.hasFocus());
}

void TestEcran::commandeVerifieLesZones()
{
    Fenetre f;
    QVERIFY(f.prete());
    QTest::keyClicks(&f.ecran->date, QStringLiteral("abc"));
    QTest::keyClick(&f.ecran->date, Qt::Key_Return);
    QCOMPARE(f.ecran->appuis, 1);
    QVERIFY(!f.ecran->valide);
    QCOMPARE(f.dialogue.messages.size(), 1);
    QVERIFY(f.ecran->date.hasFocus());
    // By a letter: the field is left, its refusal comes first and the button is not pressed.
    QTest::keyClick(&f.ecran->date, Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(f.dialogue.messages.size(), 2);
    QTest::qWait(50);
    QCOMPARE(f.ecran->appuis, 1);
    QVERIFY(f.ecran->date.hasFocus());
}

void TestEcran::rapportEnCours()
{
    Fenetre f;
    QVERIFY(f.prete());
    f.session.etatRapport.definir(true);
    QVERIFY(!f.ecran->isEnabled());
    f.ecran->fermer();
    QVERIFY(f.enfant->isVisible());
    f.session.etatRapport.definir(false);
    QVERIFY(f.ecran->isEnabled());
    QVERIFY2(f.ecran->date.hasFocus(), "the user is where he was");
    // A screen opened while a report runs waits too.
    f.session.etatRapport.definir(true);
    EcranDEssai second(f.session, f.cadre);
    QVERIFY(!second.isEnabled());
    f.session.etatRapport.definir(false);
    QVERIFY(second.isEnabled());
}

void TestEcran::erreurMontree()
{
    Fenetre f;
    f.ecran->executer([] { throw Erreur(12, QStringLiteral("panne")); });
    QCOMPARE(f.dialogue.messages.size(), 1);
    QCOMPARE(f.dialogue.messages[0].texte,
             QStringLiteral("Une erreur s'est produite en cours de traitement : \n12 - panne"));
    QCOMPARE(f.dialogue.messages[0].titre, QStringLiteral("Erreur"));
}

QTEST_MAIN(TestEcran)
#include "test_ecran.moc"
