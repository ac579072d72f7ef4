// The main window by itself: menu, screens as children, help, quitting, progress bar.
#include "frame/ecrans/DialogueFactice.h"
#include "frame/MDIF_Mere.h"
#include "frame/MenuPrincipal.h"
#include "frame/RegistreEcrans.h"
#include "frame/Session.h"

#include <QtWidgets>

#include <QSignalSpy>
#include <QTest>

class F_Essai : public QWidget
{
    Q_OBJECT
public:
    explicit F_Essai(QSize taille = {300, 200}) : m_taille(taille)
    {
        setWindowTitle(QStringLiteral("Essai"));
    }
    QSize sizeHint() const override { return m_taille; }
    bool refuse = false;

protected:
    void closeEvent(QCloseEvent *evenement) override { evenement->setAccepted(!refuse); }

private:
    QSize m_taille;
};

class TestFenetrePrincipale : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<DialogueFactice> m_dialogue;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<MDIF_Mere> m_mere;

    QMdiArea *zone() const { return m_mere->findChild<QMdiArea *>(); }
    qsizetype fenetres() const { return zone()->subWindowList().size(); }

private Q_SLOTS:
    void init()
    {
        m_dialogue = std::make_unique<DialogueFactice>();
        m_session = std::make_unique<Session>(*m_dialogue);
        m_mere = std::make_unique<MDIF_Mere>(*m_session, *m_dialogue);
        m_mere->show();
        m_mere->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_mere.get()));
        m_mere->activerMenu(true);
    }
    void cleanup()
    {
        m_mere.reset();
        m_session.reset();
        m_dialogue.reset();
    }

    void barre()
    {
        QStringList barre;
        const QList<QAction *> actions = m_mere->menuBar()->actions();
        for (const QAction *action : actions)
            barre << action->text();
        QCOMPARE(barre,
                 QStringList({QStringLiteral("&Physico-chimie"), QStringLiteral("P&esticides"),
                              QStringLiteral("&Hydrologie"), QStringLiteral("&Synthèse locale"),
                              QStringLiteral("&Autres indicateurs"), QStringLiteral("&Import/Export"),
                              QStringLiteral("&Compléments"), QStringLiteral("Ca&rtographie"),
                              QStringLiteral("Fe&nêtre"), QStringLiteral("&?"), QStringLiteral("&Quitter")}));
    }

    void entrees()
    {
        QSet<QString> noms;
        QStringList commandes = {QStringLiteral("m_cascade"), QStringLiteral("m_aide"),
                                 QStringLiteral("m_quitter")};
        for (const EntreeRegistre &entree : registreEcrans())
            commandes << entree.menu;
        for (const EntreeMenu &entree : menuPrincipal()) {
            const QString nom = entree.nom.toString();
            QVERIFY2(!noms.contains(nom), qPrintable(nom));
            QVERIFY2(entree.parent.isEmpty() || noms.contains(entree.parent.toString()), qPrintable(nom));
            noms << nom;
            const QAction *action = m_mere->entree(nom);
            QVERIFY2(action, qPrintable(nom));
            QCOMPARE(action->text(), entree.libelle.toString());
            QCOMPARE(action->isVisible(), nom != QLatin1String("m_import_donnees_phyto"));
            // A hidden action counts as disabled.
            if (!action->menu() && action->isVisible())
                // Nothing stands behind a name without a command, and nothing pretends to.
                QVERIFY2(action->isEnabled() == commandes.contains(nom), qPrintable(nom));
            if (!entree.icone.isEmpty())
                QVERIFY2(QFile::exists(QStringLiteral(":/icones/%1.svg").arg(entree.icone)), qPrintable(nom));
        }
        for (const QString &commande : std::as_const(commandes))
            QVERIFY2(noms.contains(commande), qPrintable(commande));
        QVERIFY(!m_mere->ouvrir(QStringLiteral("mnuCarte1")));
    }

    void sansBase()
    {
        m_mere->activerMenu(false);
        for (const EntreeMenu &entree : menuPrincipal()) {
            const QAction *action = m_mere->entree(entree.nom.toString());
            if (!action->menu())
                QCOMPARE(action->isEnabled(), entree.nom == u"m_aide" || entree.nom == u"m_quitter");
        }
    }

    // While a report runs nothing else can be started; help and quit stay.
    void pendantUnRapport()
    {
        const auto actives = [this](const char *nom) {
            return m_mere->findChild<QAction *>(QString::fromLatin1(nom))->isEnabled();
        };
        QVERIFY(actives("mnu_compact"));
        m_session->etatRapport.definir(true);
        QVERIFY(!actives("mnu_compact"));
        QVERIFY(!actives("m_import_donnees_physico"));
        QVERIFY(!actives("m_evolution_physico"));
        QVERIFY(actives("m_aide"));
        QVERIFY(actives("m_quitter"));
        m_session->etatRapport.definir(false);
        QVERIFY(actives("mnu_compact"));
        QVERIFY(actives("m_evolution_physico"));
    }

    // A command of the menu yields while it works: the others wait for its end.
    void pendantUneCommande()
    {
        bool active = true;
        m_dialogue->auChoix = [&] {
            active = m_mere->findChild<QAction *>(QStringLiteral("mnu_compact"))->isEnabled();
        };
        m_mere->ouvrir(QStringLiteral("mnu_trans_res"));
        QVERIFY(!active);
        QVERIFY(m_mere->findChild<QAction *>(QStringLiteral("mnu_compact"))->isEnabled());
    }

    void importPhyto()
    {
        QVERIFY(m_mere->ouvrir(QStringLiteral("m_import_donnees_phyto")));
        QCOMPARE(m_dialogue->messages.size(), 1);
        QCOMPARE(m_dialogue->messages[0].texte, QStringLiteral("Import PC/PS réuni"));
        QCOMPARE(fenetres(), 0);
    }

    void ecranPlace()
    {
        auto *ecran = new F_Essai;
        const QPointer<QWidget> garde(ecran);
        m_mere->montrer(ecran);
        QVERIFY(ecran->isVisible());
        QCOMPARE(fenetres(), 1);
        QMdiSubWindow *fenetre = zone()->subWindowList().first();
        QCOMPARE(fenetre->pos(), QPoint(0, 0));
        QCOMPARE(fenetre->windowTitle(), QStringLiteral("Essai"));
        // Moved away, then asked for again: back in its place, the same one.
        fenetre->move(100, 80);
        m_mere->montrer(ecran);
        QCOMPARE(fenetre->pos(), QPoint(0, 0));
        QCOMPARE(fenetres(), 1);
        fenetre->close();
        QTRY_VERIFY(!garde);
        QCOMPARE(fenetres(), 0);
    }

    void ecranTropGrand()
    {
        m_mere->montrer(new F_Essai({5000, 4000}));
        const QRect fenetre = zone()->subWindowList().first()->geometry();
        QVERIFY(zone()->viewport()->rect().contains(fenetre));
    }

    void ecranQuiSeFerme()
    {
        auto *ecran = new F_Essai;
        const QPointer<QWidget> garde(ecran);
        m_mere->montrer(ecran);
        ecran->refuse = true;
        ecran->close();
        QTest::qWait(20);
        QVERIFY(garde && ecran->isVisible());
        zone()->subWindowList().first()->close();
        QTest::qWait(20);
        QVERIFY(garde && ecran->isVisible());
        ecran->refuse = false;
        ecran->close();
        QTRY_VERIFY(!garde);
        QCOMPARE(fenetres(), 0);
    }

    void ecranCache()
    {
        auto *ecran = new F_Essai;
        m_mere->montrer(ecran);
        ecran->hide();
        QVERIFY(!zone()->subWindowList().first()->isVisible());
        ecran->show();
        QVERIFY(zone()->subWindowList().first()->isVisible());
    }

    void cascade()
    {
        m_mere->montrer(new F_Essai);
        m_mere->montrer(new F_Essai);
        QVERIFY(m_mere->ouvrir(QStringLiteral("m_cascade")));
        QVERIFY(zone()->subWindowList().at(0)->pos() != zone()->subWindowList().at(1)->pos());
    }

    void aide()
    {
        const QString dossier = QCoreApplication::applicationDirPath() + QStringLiteral("/aide/");
        QVERIFY(m_mere->ouvrir(QStringLiteral("m_aide")));
        QCOMPARE(m_dialogue->documents, QStringList{dossier + QStringLiteral("index.html")});
        // F1: the page of the screen that is in front, if there is one.
        m_mere->montrer(new F_Essai);
        QTest::keyClick(m_mere.get(), Qt::Key_F1);
        QCOMPARE(m_dialogue->documents.last(), dossier + QStringLiteral("index.html"));
        QVERIFY(QDir().mkpath(dossier));
        QFile page(dossier + QStringLiteral("F_Essai.html"));
        QVERIFY(page.open(QIODevice::WriteOnly));
        page.close();
        QTest::keyClick(m_mere.get(), Qt::Key_F1);
        const QString derniere = m_dialogue->documents.last();
        page.remove();
        QCOMPARE(derniere, dossier + QStringLiteral("F_Essai.html"));
        // No browser: the box says where the page is.
        m_dialogue->ouvrable = false;
        m_mere->ouvrir(QStringLiteral("m_aide"));
        QVERIFY(m_dialogue->messages.last().texte.contains(QDir::toNativeSeparators(dossier)));
    }

    void quitter()
    {
        QSignalSpy fin(m_mere.get(), &MDIF_Mere::finDemandee);
        m_dialogue->reponses << Reponse::Non << Reponse::Oui;
        m_mere->ouvrir(QStringLiteral("m_quitter"));
        QVERIFY(fin.isEmpty());
        m_mere->ouvrir(QStringLiteral("m_quitter"));
        QCOMPARE(fin.size(), 1);
        QCOMPARE(m_dialogue->questions.size(), 2);
        QCOMPARE(
            m_dialogue->questions[0],
            QStringLiteral("Fermeture de l'application|Etes-vous sûr de vouloir quitter l'application?"));
        m_mere->close();
        QCOMPARE(fin.size(), 2);
        QCOMPARE(m_dialogue->questions.size(), 2);
    }

    void progression()
    {
        Progression &barre = m_dialogue->progression(FenetreProgression::Principale);
        auto *texte = m_mere->findChild<QLabel *>(QStringLiteral("lbl_etat"));
        auto *jauge = m_mere->findChild<QProgressBar *>(QStringLiteral("progression"));
        auto *annuler = m_mere->findChild<QToolButton *>(QStringLiteral("cmd_annuler"));
        barre.libelle(QStringLiteral("sans effet"));
        QVERIFY(texte->text().isEmpty());
        barre.montrer(QString(), QStringLiteral("Edition du rapport"));
        QCOMPARE(texte->text(), QStringLiteral("Edition du rapport"));
        QVERIFY(!jauge->isVisible());
        barre.maximum(50);
        barre.valeur(20);
        QVERIFY(jauge->isVisible());
        QCOMPARE(jauge->value(), 20);
        QCOMPARE(jauge->maximum(), 50);
        QVERIFY(!annuler->isVisible());
        barre.permettreAnnulation(true);
        QTest::mouseClick(annuler, Qt::LeftButton);
        QVERIFY(barre.annulee());
        barre.cacher();
        QVERIFY(!jauge->isVisible() && !annuler->isVisible() && texte->text().isEmpty());
        barre.montrer(QString(), QStringLiteral("Encore"));
        QVERIFY(!barre.annulee());
        barre.cacher();
    }

    // Every size of screen that it is made for holds the window.
    void tailleInitiale()
    {
        QVERIFY(m_mere->screen()->availableGeometry().contains(m_mere->geometry()));
        QVERIFY(m_mere->minimumSizeHint().width() <= 1366 && m_mere->minimumSizeHint().height() <= 768);
    }
};

QTEST_MAIN(TestFenetrePrincipale)
#include "test_fenetre_principale.moc"
