// The start-up, step by step, and every way in which it ends early.
#include "frame/Demarrage.h"
#include "frame/ecrans/DialogueFactice.h"
#include "frame/frmSplash.h"
#include "frame/MDIF_Mere.h"
#include "frame/Session.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace
{
const QString DEMONSTRATION =
    QStringLiteral(DOSSIER_CONSTRUCTION "/installation/Projet/Base/demonstration.mdb");

QWidget *splash()
{
    const QWidgetList fenetres = QApplication::topLevelWidgets();
    for (QWidget *fenetre : fenetres)
        if (fenetre->objectName() == QLatin1String("frmSplash") && fenetre->isVisible())
            return fenetre;
    return nullptr;
}
} // namespace

class TestDemarrage : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<QTemporaryDir> m_dossier;

    QString racine() const { return m_dossier->filePath(QStringLiteral("C")); }
    QString copie(const QString &nom) const
    {
        const QString chemin = m_dossier->filePath(nom);
        QDir().mkpath(QFileInfo(chemin).absolutePath());
        return QFile::copy(DEMONSTRATION, chemin) ? chemin : QString();
    }

private Q_SLOTS:
    void init()
    {
        m_dossier = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir().mkpath(racine()));
        Chemins::definirRacine(racine());
    }

    void choixAnnule()
    {
        DialogueFactice dialogue;
        Session session(dialogue);
        session.ModeSaisie = 3;
        session.OrigineSaisie = 12;
        session.CalculCarteEnCours = true;
        Demarrage demarrage(session, dialogue);
        QSignalSpy fin(&demarrage, &Demarrage::termine);
        // The state at the moment of the choice: step 4 and 5 are done, the window waits.
        bool vu = false;
        dialogue.auChoix = [&] {
            vu = true;
            QCOMPARE(session.ModeSaisie, 1);
            QCOMPARE(session.OrigineSaisie, 0);
            QVERIFY(!session.CalculCarteEnCours);
            QCOMPARE(session.CheminBase, QStringLiteral("C:\\Projet\\Base\\"));
            QVERIFY(demarrage.fenetre()->isVisible());
            QCOMPARE(demarrage.fenetre()->windowTitle(), QStringLiteral("En attente ..."));
            QVERIFY(!demarrage.fenetre()->entree(QStringLiteral("m_evolution_physico"))->isEnabled());
            QVERIFY(!splash());
        };
        demarrage.lancer();
        QVERIFY(splash());
        QTest::keyClick(splash(), Qt::Key_A);
        QVERIFY(fin.wait(5000));
        QVERIFY(vu);
        QCOMPARE(dialogue.demandes.size(), 1);
        const DemandeFichier &demande = dialogue.demandes[0];
        QCOMPARE(demande.titre, QStringLiteral("Choisissez la base de données par défaut"));
        QCOMPARE(demande.filtre, QStringLiteral("Access (*.mdb)|*.mdb"));
        QCOMPARE(demande.dossierInitial, QStringLiteral("C:\\Projet\\Base\\"));
        QVERIFY(!demande.enregistrer);
        QVERIFY(dialogue.messages.isEmpty());
        QVERIFY(!session.donnees.estOuvert());
        QCOMPARE(session.tableur.numeroProcessus(), 0);
        QVERIFY(!demarrage.fenetre());
        QVERIFY(!QFileInfo::exists(racine() + QStringLiteral("/Projet")));
    }

    void autreDossier()
    {
        DialogueFactice dialogue;
        Session session(dialogue);
        session.importSession.NbEnregistres = 7;
        session.importSession.LigneReprise = 12;
        Demarrage demarrage(session, dialogue);
        QSignalSpy pret(&demarrage, &Demarrage::estPret);
        const QString base = copie(QStringLiteral("Études d'été/mon étude.mdb"));
        QVERIFY(!base.isEmpty());
        dialogue.fichiers << base;
        demarrage.lancer();
        QTest::keyClick(splash(), Qt::Key_A);
        QVERIFY(pret.wait(5000));
        QCOMPARE(session.CheminBase, m_dossier->filePath(QStringLiteral("Études d'été/")));
        QCOMPARE(session.FichierBase, base);
        QCOMPARE(session.TitreBase, QStringLiteral("mon étude.mdb"));
        QCOMPARE(session.VersionAccess, QStringLiteral("09"));
        QVERIFY(session.donnees.estOuvert());
        QCOMPARE(session.CheminTravail, QStringLiteral("C:\\Projet\\Travail\\"));
        QCOMPARE(session.CheminCarteTravail, QStringLiteral("C:\\Projet\\Travail\\"));
        QCOMPARE(session.CheminDessin, QStringLiteral("C:\\Projet\\Dessin\\"));
        QCOMPARE(session.TypesCarte.join(u','),
                 QStringLiteral("Bilan,Evaluation,Référence,AEP,Drains,Impact,Retenue"));
        QVERIFY(!session.ChargementEnCours);
        QCOMPARE(session.importSession.NbEnregistres, 0);
        QCOMPARE(session.importSession.LigneReprise, 12);
        // The palette: the first colour of the default one is not black.
        QVERIFY(session.CouleurR[0] + session.CouleurG[0] + session.CouleurB[0] > 0);
        // Two folders are made, no other.
        const QDir projet(racine() + QStringLiteral("/Projet"));
        QCOMPARE(projet.entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList({QStringLiteral("Travail"), QStringLiteral("Validation_Fraction")}));
        QCOMPARE(demarrage.fenetre()->windowTitle(),
                 QStringLiteral("Ovralis - Outil Local / La Landrezelle"));
        QCOMPARE(demarrage.fenetre()->findChild<QLabel *>(QStringLiteral("lbl_etude"))->text(),
                 session.TitreBase);
        auto *timer = demarrage.fenetre()->findChild<QTimer *>(QStringLiteral("Timer1"));
        QVERIFY(timer && timer->isActive());
        QCOMPARE(timer->interval(), 50);
        QVERIFY(dialogue.messages.isEmpty());

        QSignalSpy fin(&demarrage, &Demarrage::termine);
        demarrage.fenetre()->close();
        QVERIFY(fin.wait(30000));
        QVERIFY(dialogue.questions.isEmpty());
        QVERIFY(!session.donnees.estOuvert());
        QCOMPARE(session.tableur.numeroProcessus(), 0);
        QVERIFY(!QFileInfo::exists(base + QStringLiteral("-wal")));
        demarrage.terminer();
        QTest::qWait(50);
        QCOMPARE(fin.size(), 1);
    }

    void baseRefusee()
    {
        DialogueFactice dialogue;
        Session session(dialogue);
        Demarrage demarrage(session, dialogue);
        QSignalSpy fin(&demarrage, &Demarrage::termine);
        dialogue.fichiers << QStringLiteral(DONNEES_TESTS "/frame/pas_une_base.mdb");
        demarrage.lancer();
        QTest::keyClick(splash(), Qt::Key_A);
        QVERIFY(fin.wait(5000));
        QCOMPARE(dialogue.messages.size(), 2);
        QCOMPARE(dialogue.messages[0].titre, QStringLiteral("Erreur d'ouverture"));
        QCOMPARE(dialogue.messages[1].texte,
                 QStringLiteral("Une erreur s'est produite, le programme va être arrêté."));
        QCOMPARE(dialogue.messages[1].titre, QStringLiteral("Fin du programme"));
        QCOMPARE(dialogue.messages[1].icone, Icone::Critique);
        QVERIFY(!QFileInfo::exists(racine() + QStringLiteral("/Projet")));
    }

    // Step 9 fails: "Projet" is a file. The program ends and says nothing.
    void dossierImpossible()
    {
        QFile obstacle(racine() + QStringLiteral("/Projet"));
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        obstacle.close();
        DialogueFactice dialogue;
        Session session(dialogue);
        Demarrage demarrage(session, dialogue);
        QSignalSpy fin(&demarrage, &Demarrage::termine);
        dialogue.fichiers << copie(QStringLiteral("etude.mdb"));
        demarrage.lancer();
        QTest::keyClick(splash(), Qt::Key_A);
        QVERIFY(fin.wait(5000));
        QVERIFY(dialogue.messages.isEmpty());
        QVERIFY(!session.donnees.estOuvert());
    }

    void presentationParLeTemps()
    {
        frmSplash fenetre;
        QSignalSpy ferme(&fenetre, &frmSplash::ferme);
        QElapsedTimer depuis;
        depuis.start();
        fenetre.show();
        QVERIFY(ferme.wait(5000));
        QVERIFY2(depuis.elapsed() >= 1900, qPrintable(QString::number(depuis.elapsed())));
        QCOMPARE(fenetre.findChild<QTimer *>(QStringLiteral("Timer1"))->interval(), 2000);
        QVERIFY(!fenetre.isVisible());
    }

    void presentationParUnGeste()
    {
        const auto essayer = [](const std::function<void(frmSplash &)> &geste) {
            frmSplash fenetre;
            QSignalSpy ferme(&fenetre, &frmSplash::ferme);
            fenetre.show();
            geste(fenetre);
            fenetre.close();
            return !fenetre.isVisible() && ferme.size() == 1;
        };
        QVERIFY(essayer([](frmSplash &f) { QTest::keyClick(&f, Qt::Key_F5); }));
        QVERIFY(essayer([](frmSplash &f) { QTest::keyClick(&f, Qt::Key_Shift); }));
        QVERIFY(essayer([](frmSplash &f) { QTest::mouseClick(&f, Qt::LeftButton); }));
        QVERIFY(essayer([](frmSplash &f) {
            QTest::mouseClick(f.findChild<QWidget *>(QStringLiteral("Frame1")), Qt::LeftButton);
        }));
    }

    // The window is closed while a routine yields: the base is let go only once the routine has come back, and what it
    // still says is not shown.
    void fermeturePendantUneRoutine()
    {
        DialogueFactice dialogue;
        Session session(dialogue);
        Demarrage demarrage(session, dialogue);
        QSignalSpy pret(&demarrage, &Demarrage::estPret);
        QSignalSpy fin(&demarrage, &Demarrage::termine);
        dialogue.fichiers << copie(QStringLiteral("etude.mdb"));
        demarrage.lancer();
        QTest::keyClick(splash(), Qt::Key_A);
        QVERIFY(pret.wait(5000));
        QTimer::singleShot(0, demarrage.fenetre(), [&] { demarrage.fenetre()->close(); });
        for (int i = 0; i < 20; ++i) {
            dialogue.ceder();
            QTest::qSleep(5);
            QVERIFY(session.donnees.estOuvert());
            QVERIFY(demarrage.fenetre());
        }
        QVERIFY(fin.isEmpty());
        dialogue.message(QStringLiteral("Terminé"), QString(), Icone::Aucune);
        QVERIFY(dialogue.messages.isEmpty());
        QVERIFY(fin.wait(30000));
        QVERIFY(!session.donnees.estOuvert());
    }
};

QTEST_MAIN(TestDemarrage)
#include "test_demarrage.moc"
