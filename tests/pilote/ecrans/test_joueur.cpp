// The player itself: the program `pilote` from outside, by its lines and exit codes, and its event-driven course inside.
#include "frame/Demarrage.h"
#include "frame/Session.h"
#include "pilote/DialoguePilote.h"
#include "pilote/ecrans/FormEssai.h"
#include "pilote/Joueur.h"

#include <QProcess>
#include <QTest>

namespace
{
const QString INSTALLATION = QStringLiteral(DOSSIER_CONSTRUCTION "/installation");

struct Partie {
    int code = -1;
    QStringList lignes;
    QString derniere() const { return lignes.isEmpty() ? QString() : lignes.last(); }
};
} // namespace

class TestJoueur : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dossier;
    std::unique_ptr<F_Essai> m_form;

    // Runs the program on a scenario file holding `texte`.
    Partie lancer(const QString &texte, const QStringList &options = {})
    {
        const QString fichier = m_dossier.filePath(QStringLiteral("essai.scn"));
        QFile scenario(fichier);
        if (!scenario.open(QIODevice::WriteOnly))
            return {};
        scenario.write(texte.toUtf8());
        scenario.close();
        QProcess pilote;
        pilote.start(QStringLiteral(DOSSIER_CONSTRUCTION "/bin/pilote"), options + QStringList{fichier});
        if (!pilote.waitForFinished(120000))
            return {};
        const QString sortie = QString::fromUtf8(pilote.readAllStandardOutput());
        return {pilote.exitCode(), sortie.split(u'\n', Qt::SkipEmptyParts)};
    }

    // Plays `texte` in this process, on the demonstration study and with m_form on the screen.
    Partie jouer(const QString &texte, const std::function<void(Session &)> &preparer = {})
    {
        Partie partie;
        m_form = std::make_unique<F_Essai>();
        DialoguePilote dialogue;
        dialogue.ecrire = [&](const QString &ligne) { partie.lignes << ligne; };
        Session session(dialogue);
        Demarrage demarrage(session, dialogue);
        const QString base = INSTALLATION + QStringLiteral("/Projet/Base/demonstration.mdb");
        const QString copie = m_dossier.filePath(QStringLiteral("etude.mdb"));
        QFile::remove(copie);
        QFile::copy(base, copie);
        const Scenario scenario =
            lireScenario(QStringLiteral("essai.scn"), m_dossier.path(),
                         QStringLiteral("base \"etude.mdb\"\nattendre F_Essai\n") + texte);
        Joueur joueur(scenario, m_dossier.path(), session, dialogue, demarrage);
        joueur.ecrire = dialogue.ecrire;
        joueur.delaiMs = 3000;
        QEventLoop boucle;
        QObject::connect(&joueur, &Joueur::fini, &boucle, [&](int code) {
            partie.code = code;
            boucle.quit();
        });
        QObject::connect(&demarrage, &Demarrage::estPret, this, [&] {
            if (preparer)
                preparer(session);
            m_form->show();
        });
        joueur.lancer();
        boucle.exec();
        return partie;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_dossier.isValid());
        Chemins::definirRacine(m_dossier.filePath(QStringLiteral("C")));
    }

    void codesDeSortie()
    {
        QCOMPARE(lancer(QStringLiteral("base annuler\ntermine\naucun_message\n")).code, 0);
        QCOMPARE(lancer(QStringLiteral("base annuler\nbondir\n")).code, 2);
        QCOMPARE(lancer(QStringLiteral("termine\n"), {QStringLiteral("--inconnue")}).code, 2);
        const Partie echouee = lancer(QStringLiteral("# un\nbase annuler\ntermine\nmessage \"Bonjour\"\n"));
        QCOMPARE(echouee.code, 1);
        QVERIFY2(echouee.derniere().contains(QStringLiteral("essai.scn:4: message attendu")),
                 qPrintable(echouee.derniere()));
    }

    void lignesEcrites()
    {
        const Partie partie = lancer(QStringLiteral("base \"C:\\Projet\\Base\\absente.mdb\"\n"
                                                    "termine\n"));
        QCOMPARE(partie.code, 0);
        QCOMPARE(partie.lignes.value(0),
                 QStringLiteral("FICHIER | Choisissez la base de données par défaut | Access (*.mdb)|*.mdb | "
                                "C:\\Projet\\Base\\absente.mdb"));
        QVERIFY2(partie.lignes.value(1).startsWith(QStringLiteral(
                     "MESSAGE | Exclamation | Erreur d'ouverture | Erreur à l'ouverture de la base de "
                     "données : \\n ")),
                 qPrintable(partie.lignes.value(1)));
        QCOMPARE(partie.lignes.value(2),
                 QStringLiteral("MESSAGE | Critique | Fin du programme | Une erreur s'est "
                                "produite, le programme va être arrêté."));
        QCOMPARE(partie.lignes.size(), 3);
    }

    void racineGarnie()
    {
        const QString racine = m_dossier.filePath(QStringLiteral("garnie"));
        const Partie partie = lancer(QStringLiteral("base annuler\n"
                                                    "fichier_existe \"C:\\Projet\\Base\\demonstration.mdb\"\n"
                                                    "fichier_existe \"C:\\Projet\\Travail\"\n"
                                                    "fichier_absent \"C:\\Projet\\Base\\ailleurs.mdb\"\n"),
                                     {QStringLiteral("--racine"), racine});
        QCOMPARE(partie.code, 0);
        QVERIFY(QFile::exists(racine + QStringLiteral("/Projet/Base/demonstration.mdb")));
        // What is there already is left alone.
        QVERIFY(QFile::remove(racine + QStringLiteral("/Projet/Base/demonstration.mdb")));
        QCOMPARE(
            lancer(QStringLiteral("base annuler\nfichier_absent \"C:\\Projet\\Base\\demonstration.mdb\"\n"),
                   {QStringLiteral("--racine"), racine})
                .code,
            0);
    }

    // Asked to end from outside, the play lets the base and the spreadsheet go before it does.
    void arretDemande()
    {
        const QString racine = m_dossier.filePath(QStringLiteral("arret"));
        QFile scenario(m_dossier.filePath(QStringLiteral("arret.scn")));
        QVERIFY(scenario.open(QIODevice::WriteOnly));
        scenario.write("base \"C:\\Projet\\Base\\demonstration.mdb\"\nattendre F_Jamais 60\n");
        scenario.close();
        QProcess pilote;
        pilote.start(QStringLiteral(DOSSIER_CONSTRUCTION "/bin/pilote"),
                     {QStringLiteral("--racine"), racine, scenario.fileName()});
        const QString base = racine + QStringLiteral("/Projet/Base/demonstration.mdb");
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(base + QStringLiteral("-wal")), 20000);
        // The spreadsheet is being started by now.
        QTest::qWait(1000);
        pilote.terminate();
        QVERIFY(pilote.waitForFinished(30000));
        QCOMPARE(pilote.exitStatus(), QProcess::NormalExit);
        QCOMPARE(pilote.exitCode(), 1);
        QVERIFY(!QFile::exists(base + QStringLiteral("-wal")));
    }

    void toutesSortesDePas()
    {
        const Partie partie =
            jouer(QStringLiteral("saisir F_Essai.txt_nom \"Le Moulin\"\n"
                                 "verifier F_Essai.txt_nom \"Le Moulin\"\n"
                                 "foyer F_Essai.txt_suivant\n"
                                 "taper F_Essai.txt_suivant \"x\"\n"
                                 "touche F_Essai.txt_nom \"Esc\"\n"
                                 "choisir F_Essai.cmb_station \"Étang\"\n"
                                 "lignes F_Essai.cmb_station 3\n"
                                 "verifier_ligne F_Essai.cmb_station 0 \"Amont\"\n"
                                 "choisir F_Essai.lst_plusieurs \"c\"\n"
                                 "choisir F_Essai.lst_plusieurs \"a\"\n"
                                 "selection F_Essai.lst_plusieurs \"a\\nc\"\n"
                                 "deselectionner F_Essai.lst_plusieurs \"a\"\n"
                                 "selection F_Essai.lst_plusieurs \"c\"\n"
                                 "deselectionner F_Essai.lst_plusieurs\n"
                                 "selection F_Essai.lst_plusieurs \"\"\n"
                                 "double_clic F_Essai.lst_une \"b\"\n"
                                 "cocher F_Essai.chk_usuel\n"
                                 "coche F_Essai.chk_usuel\n"
                                 "decocher F_Essai.chk_usuel\n"
                                 "decoche F_Essai.chk_usuel\n"
                                 "onglet F_Essai.SSTab1 \"Flux\"\n"
                                 "cellule F_Essai.grd_mesures 0 0 \"3\"\n"
                                 "verifier_cellule F_Essai.grd_mesures 0 0 \"3\"\n"
                                 "bouton_cellule F_Essai.grd_mesures 0 1\n"
                                 "supprimer_ligne F_Essai.grd_mesures 1\n"
                                 "lignes F_Essai.grd_mesures 1\n"
                                 "cliquer F_Essai.cmd_valider_0\n"
                                 "actif F_Essai.cmd_valider_0\n"
                                 "inactif F_Essai.cmd_inerte\n"
                                 "visible F_Essai.cmd_valider_0\n"
                                 "invisible F_Essai.cmd_cache\n"
                                 "menu_actif m_quitter\n"
                                 "menu_inactif m_import_stations\n"
                                 "titre_fenetre F_Essai \"Un essai\"\n"
                                 "titre \"Ovralis - Outil Local / La Landrezelle\"\n"
                                 "capture \"mere.png\"\n"
                                 "capture_fenetre F_Essai \"essai.png\"\n"
                                 "fichier_existe \"mere.png\"\n"
                                 "fichier_existe \"essai.png\"\n"
                                 "tuer_tableur\n"
                                 "fermer F_Essai\n"
                                 "ferme F_Essai\n"
                                 "aucun_message\n"
                                 "quitter\n"
                                 "question \"Etes-vous sûr de vouloir quitter l'application?\" \"Oui\"\n"
                                 "termine\n"));
        QVERIFY2(partie.code == 0, qPrintable(partie.derniere()));
        QCOMPARE(m_form->clics, 2);
        QCOMPARE(m_form->touchesEchap, 1);
        QCOMPARE(m_form->doubles, QStringList{QStringLiteral("b")});
    }

    // Each of these steps does not hold; the line says which, and what was there.
    void echecs_data()
    {
        QTest::addColumn<QString>("pas");
        QTest::addColumn<QString>("raison");
        const auto cas = [](const char *pas, const char *raison) {
            QTest::newRow(pas) << QString::fromUtf8(pas) << QString::fromUtf8(raison);
        };
        cas("cliquer F_Essai.cmd_absent", "n'a pas de contrôle cmd_absent");
        cas("cliquer F_Essai.cmd_inerte", "est désactivé");
        cas("cliquer F_Essai.cmd_cache", "est caché");
        cas("cliquer F_Absente.cmd_x", "la fenêtre F_Absente n'existe pas");
        cas("attendre F_Absente 1", "n'est pas montrée après 1 s");
        cas("menu m_import_donnees_phyto", "est cachée");
        cas("menu m_import_stations", "est désactivée");
        cas("menu m_rien", "pas d'entrée de menu m_rien");
        cas("verifier F_Essai.lbl_titre \"Débit\"", "« Débit » attendu, « Débit (l/s) » trouvé");
        cas("lignes F_Essai.lst_une 2", "2 lignes attendues, 3 trouvées");
        cas("selection F_Essai.lst_une \"a\"", "« a » attendu, «  » trouvé");
        cas("coche F_Essai.chk_usuel", "n'est pas coché");
        cas("actif F_Essai.cmd_inerte", "est désactivé");
        cas("inactif F_Essai.cmd_valider_0", "est actif");
        cas("visible F_Essai.cmd_cache", "est caché");
        cas("foyer F_Essai.txt_suivant", "n'a pas le foyer");
        cas("ferme F_Essai", "est montrée");
        cas("titre \"x\"", "« x » attendu");
        cas("fichier_existe \"rien.xls\"", "n'existe pas");
        cas("fichier_absent \"etude.mdb\"", "existe");
        cas("ouvert \"rien.xls\"", "attendu, remis");
        cas("message \"Rien\"", "aucun n'est venu");
        cas("question \"Rien\" \"Oui\"", "aucune n'est venue");
        cas("termine", "n'est pas terminé");
        cas("base annuler", "déjà démarré");
    }
    void echecs()
    {
        QFETCH(QString, pas);
        QFETCH(QString, raison);
        const Partie partie = jouer(pas + u'\n');
        QCOMPARE(partie.code, 1);
        QVERIFY2(partie.derniere().startsWith(QStringLiteral("essai.scn:3: ")),
                 qPrintable(partie.derniere()));
        QVERIFY2(partie.derniere().contains(raison), qPrintable(partie.derniere()));
    }

    void messagesDansLOrdre()
    {
        const auto deux = [this](Session &session) {
            m_form->auClic = [&session] {
                session.dialogue.message(QStringLiteral("Un\r\ndeux"), QStringLiteral("Titre"),
                                         Icone::Critique);
                session.dialogue.message(QStringLiteral("Trois"), QStringLiteral("Autre"), Icone::Aucune);
            };
        };
        Partie partie = jouer(QStringLiteral("cliquer F_Essai.cmd_valider_0\n"
                                             "message \"Un\\ndeux\"\n"
                                             "message_titre \"Autre\" \"Trois\"\n"
                                             "aucun_message\n"),
                              deux);
        QVERIFY2(partie.code == 0, qPrintable(partie.derniere()));
        QVERIFY(partie.lignes.contains(QStringLiteral("MESSAGE | Critique | Titre | Un\\ndeux")));
        partie = jouer(QStringLiteral("cliquer F_Essai.cmd_valider_0\nmessage \"Trois\"\n"), deux);
        QCOMPARE(partie.code, 1);
        QVERIFY(partie.derniere().contains(
            QStringLiteral("essai.scn:4: message : « Trois » attendu, « Un\\ndeux » trouvé")));
        partie =
            jouer(QStringLiteral("cliquer F_Essai.cmd_valider_0\nmessage_titre \"x\" \"Un\\ndeux\"\n"), deux);
        QCOMPARE(partie.code, 1);
        partie = jouer(
            QStringLiteral("cliquer F_Essai.cmd_valider_0\nmessage \"Un\\ndeux\"\naucun_message\n"), deux);
        QCOMPARE(partie.code, 1);
        QVERIFY(partie.derniere().contains(QStringLiteral("message non vérifié : « Trois »")));
    }

    void questionsEtDialogues()
    {
        const auto demander = [this](Session &session) {
            m_form->auClic = [this, &session] {
                const Reponse r =
                    session.dialogue.question(QStringLiteral("Continuer ?"), QStringLiteral("Q"),
                                              {Reponse::Oui, Reponse::Non}, Reponse::Oui);
                m_form->texte->setText(r == Reponse::Oui ? QStringLiteral("oui") : QStringLiteral("non"));
                DemandeFichier demande;
                demande.titre = QStringLiteral("Enregistrer");
                demande.filtre = QStringLiteral("Excel (*.xls)|*.xls");
                demande.extensionDefaut = QStringLiteral("xls");
                demande.enregistrer = true;
                m_form->suivant->setText(
                    session.dialogue.choisirFichier(demande).value_or(QStringLiteral("annulé")));
                const std::optional<Couleur> couleur = session.dialogue.choisirCouleur({});
                m_form->notes->setPlainText(couleur ? QString::number(couleur->g) : QStringLiteral("annulé"));
                session.dialogue.ouvrirDocument(m_dossier.filePath(QStringLiteral("etude.mdb")));
            };
        };
        const QString racine = Chemins::racine();
        Partie partie = jouer(QStringLiteral("reponse \"Oui\"\n"
                                             "fichier \"C:\\Projet\\Export\\rapport\"\n"
                                             "couleur \"#10FF20\"\n"
                                             "cliquer F_Essai.cmd_valider_0\n"
                                             "question \"Continuer ?\" \"Oui\"\n"
                                             "verifier F_Essai.txt_nom \"oui\"\n"
                                             "verifier F_Essai.txt_suivant \"%1/Projet/Export/rapport.xls\"\n"
                                             "verifier F_Essai.txt_notes \"255\"\n"
                                             "ouvert \"etude.mdb\"\n")
                                  .arg(racine),
                              demander);
        QVERIFY2(partie.code == 0, qPrintable(partie.derniere()));
        QVERIFY(partie.lignes.contains(QStringLiteral("QUESTION | Q | Continuer ? | Oui")));
        QVERIFY(partie.lignes.contains(
            QStringLiteral("FICHIER | Enregistrer | Excel (*.xls)|*.xls | C:\\Projet\\Export\\rapport")));
        QVERIFY(partie.lignes.contains(QStringLiteral("OUVRIR | ") +
                                       m_dossier.filePath(QStringLiteral("etude.mdb"))));

        partie = jouer(QStringLiteral("reponse \"Non\"\nfichier annuler\ncouleur annuler\n"
                                      "cliquer F_Essai.cmd_valider_0\n"
                                      "verifier F_Essai.txt_nom \"non\"\n"
                                      "verifier F_Essai.txt_suivant \"annulé\"\n"
                                      "verifier F_Essai.txt_notes \"annulé\"\n"),
                       demander);
        QVERIFY2(partie.code == 0, qPrintable(partie.derniere()));

        // Nobody has answered: the scenario fails at once, at the step that set it going.
        partie = jouer(QStringLiteral("cliquer F_Essai.cmd_valider_0\nmessage \"jamais\"\n"), demander);
        QCOMPARE(partie.code, 1);
        QVERIFY(
            partie.lignes.filter(QStringLiteral("essai.scn:3: question sans réponse prévue : Continuer ?"))
                .size() == 1);
        partie = jouer(QStringLiteral("reponse \"OK\"\ncliquer F_Essai.cmd_valider_0\n"), demander);
        QCOMPARE(partie.code, 1);
    }

    // A routine that yields in a long loop: the steps after the click that started it are played inside the loop.
    void pasPendantUneRoutine()
    {
        bool continuer = true;
        bool finie = false;
        const auto longue = [&](Session &session) {
            m_form->auClic = [&] {
                m_form->bouton->setEnabled(false);
                while (continuer)
                    session.dialogue.ceder();
                m_form->bouton->setEnabled(true);
                session.dialogue.message(QStringLiteral("Fini"), QString(), Icone::Aucune);
                finie = true;
            };
            connect(m_form->inerte, &QPushButton::clicked, m_form.get(), [&] { continuer = false; });
            m_form->inerte->setEnabled(true);
        };
        const Partie partie = jouer(QStringLiteral("cliquer F_Essai.cmd_valider_0\n"
                                                   "inactif F_Essai.cmd_valider_0\n"
                                                   "aucun_message\n"
                                                   "cliquer F_Essai.cmd_inerte\n"
                                                   "message \"Fini\"\n"
                                                   "actif F_Essai.cmd_valider_0\n"),
                                    longue);
        QVERIFY2(partie.code == 0, qPrintable(partie.derniere()));
        QVERIFY(finie);
    }

    // A gesture waits until the wait window that covers everything is gone.
    void gesteDerriereUneAttente()
    {
        const auto attente = [this](Session &session) {
            m_form->auClic = [&session] {
                Progression &fenetre = session.dialogue.progression(FenetreProgression::FProgress);
                fenetre.montrer(QStringLiteral("Import"), QStringLiteral("Lecture"));
                QElapsedTimer depuis;
                depuis.start();
                while (depuis.elapsed() < 300)
                    session.dialogue.ceder();
                fenetre.cacher();
            };
        };
        const Partie partie = jouer(QStringLiteral("cliquer F_Essai.cmd_valider_0\n"
                                                   "titre_fenetre FProgress \"Import\"\n"
                                                   "verifier FProgress.lbl_texte \"Lecture\"\n"
                                                   "saisir F_Essai.txt_nom \"après\"\n"
                                                   "ferme FProgress\n"),
                                    attente);
        QVERIFY2(partie.code == 0, qPrintable(partie.derniere()));
    }

    void apresLaFin()
    {
        const Partie partie = jouer(QStringLiteral(
            "quitter\ntermine\nfichier_existe \"etude.mdb\"\ncliquer F_Essai.cmd_valider_0\n"));
        QCOMPARE(partie.code, 1);
        QVERIFY(partie.derniere().contains(QStringLiteral("essai.scn:6: le programme est terminé")));
        QCOMPARE(lancer(QStringLiteral("menu m_quitter\n")).derniere().section(u':', 2),
                 QStringLiteral(" le programme n'est pas démarré (pas « base »)"));
    }
};

QTEST_MAIN(TestJoueur)
#include "test_joueur.moc"
