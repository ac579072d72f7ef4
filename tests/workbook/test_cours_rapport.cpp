// The course of a report command: its order, its boxes word for word, and every way in which it can end.
#include "DialogueDEssai.h"
#include "platform/Chemins.h"
#include "workbook/CoursRapport.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class TestCoursRapport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void rapportFini();
    void graphiqueFini();
    void abandonDuDialogue();
    void dossierRetenu();
    void rienDEcrit();
    void echecDuRemplissage();
    void preparationPendantLOuverture();
    void echecDeLaPreparation();
    void tableurTuePendantLaPreparation();
    void tableurTuePendantLeRemplissage();
    void tableurTueSansQueLeRemplissageLeVoie();
    void tableurAbsent();
    void modeleAbsent();
    void modeleChoisiCommeNom();
    void enregistrementRefuse();
    void unSeulALaFois();
    void quitterPendantLAttente();

private:
    CommandeRapport commande(const std::function<int(Classeur &)> &remplir) const
    {
        CommandeRapport commande;
        commande.modele = QStringLiteral("rapport.xls");
        commande.remplir = remplir;
        commande.avertissementVide = QStringLiteral("Il n'y a aucune donnée dans le rapport. ");
        return commande;
    }
    bool executer(const CommandeRapport &commande)
    {
        return CoursRapport(*m_dialogue, *m_tableur, m_dossiers, m_etat).executer(commande);
    }
    static int ecrireUneMesure(Classeur &classeur)
    {
        classeur.feuille(QStringLiteral("Données")).cellule(4, 3).ecrire(QStringLiteral("Le Bélon"));
        return 1;
    }
    QString sortie() const { return m_dossier.filePath(QStringLiteral("Mes rapports/sortie.xls")); }
    // What must hold at the end of every run.
    void verifierRepos()
    {
        QVERIFY(!m_etat.enCours());
        QVERIFY(m_dialogue->imprevus.isEmpty());
        QCOMPARE(m_modele, lire(m_cheminModele));
    }
    void verifierErreurDeLApplication(const QString &raison)
    {
        QCOMPARE(m_dialogue->messages, (QList<BoiteDEssai>{{QStringLiteral("Erreur de l'application"),
                                                            QStringLiteral("Attention"), Icone::Critique}}));
        const ProgressionDEssai &principale = m_dialogue->progression(FenetreProgression::Principale);
        QVERIFY(principale.visible);
        QCOMPARE(principale.texte, raison);
        QCOMPARE(principale.dernierMaximum, 0);
        QVERIFY(m_dialogue->documents.isEmpty());
        verifierRepos();
    }
    void verifierLeSuivant()
    {
        m_dialogue = std::make_unique<DialogueDEssai>();
        rapportFini();
    }
    static QByteArray lire(const QString &chemin)
    {
        QFile fichier(chemin);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }

    QTemporaryDir m_dossier;
    QString m_cheminModele;
    QByteArray m_modele;
    std::unique_ptr<Tableur> m_tableur;
    std::unique_ptr<DialogueDEssai> m_dialogue;
    DossiersRecents m_dossiers;
    EtatRapport m_etat;
};

void TestCoursRapport::initTestCase()
{
    Chemins::definirRacine(m_dossier.path());
    QVERIFY(QDir(m_dossier.path()).mkpath(QStringLiteral("Projet/Modèles")));
    QVERIFY(QDir(m_dossier.path()).mkpath(QStringLiteral("Mes rapports")));
    m_tableur = std::make_unique<Tableur>();
    m_cheminModele = Chemins::versHote(QString::fromUtf16(Chemins::MODELES) + QStringLiteral("rapport.xls"));
    auto classeur = m_tableur->ajouter();
    classeur->feuille(1).renommer(QStringLiteral("Données"));
    classeur->feuille(1).cellule(4, 1).ecrire(QStringLiteral("Bassin versant"));
    classeur->enregistrerSous(m_cheminModele);
    classeur->fermer();
    m_modele = lire(m_cheminModele);
    QVERIFY(!m_modele.isEmpty());
}

void TestCoursRapport::init()
{
    m_dialogue = std::make_unique<DialogueDEssai>();
    QFile::remove(sortie());
}

void TestCoursRapport::rapportFini()
{
    m_dialogue->fichiers.enqueue(sortie());
    const QSignalSpy changements(&m_etat, &EtatRapport::change);
    bool dejaEnregistre = false;
    bool enCours = false;
    QVERIFY(executer(commande([&](Classeur &classeur) {
        dejaEnregistre = QFile::exists(sortie()) && classeur.chemin() == sortie();
        enCours = m_etat.enCours();
        return ecrireUneMesure(classeur);
    })));
    QVERIFY(dejaEnregistre);
    QVERIFY(enCours);
    QCOMPARE(changements, (QList<QVariantList>{{true}, {false}}));

    QCOMPARE(m_dialogue->demandes.size(), 1);
    const DemandeFichier &demande = m_dialogue->demandes.first();
    QCOMPARE(demande.titre, QStringLiteral("Saisissez le nom du fichier à créer"));
    QCOMPARE(demande.filtre, QStringLiteral("Excel (*.xls)|*.xls"));
    QCOMPARE(demande.extensionDefaut, QStringLiteral("xls"));
    QVERIFY(demande.enregistrer);

    QCOMPARE(m_dialogue->messages,
             (QList<BoiteDEssai>{{QStringLiteral("L'édition du rapport est terminée. "),
                                  QStringLiteral("Fin de création"), Icone::Information}}));
    QCOMPARE(m_dialogue->documents, QStringList{sortie()});
    QVERIFY(!m_dialogue->progression(FenetreProgression::Principale).visible);
    const auto relu = m_tableur->ouvrir(sortie(), true);
    QCOMPARE(relu->feuille(QStringLiteral("Données")).plage(QStringLiteral("A4:C4")).valeurs(),
             (Valeurs{{QStringLiteral("Bassin versant"), {}, QStringLiteral("Le Bélon")}}));
    verifierRepos();
}

void TestCoursRapport::graphiqueFini()
{
    m_dialogue->fichiers.enqueue(sortie());
    CommandeRapport graphique = commande(&TestCoursRapport::ecrireUneMesure);
    graphique.fin = FinRapport::Graphique;
    QVERIFY(executer(graphique));
    QCOMPARE(m_dialogue->messages,
             (QList<BoiteDEssai>{{QStringLiteral("La création du graphique est terminée. "),
                                  QStringLiteral("Fin du graphique"), Icone::Information}}));

    init();
    m_dialogue->fichiers.enqueue(sortie());
    graphique.texteFin = QStringLiteral("La création de la synthèse est terminée. ");
    QVERIFY(executer(graphique));
    QCOMPARE(m_dialogue->messages.first().texte, graphique.texteFin);
    verifierRepos();
}

void TestCoursRapport::abandonDuDialogue()
{
    m_dialogue->fichiers.enqueue(std::nullopt);
    const QSignalSpy changements(&m_etat, &EtatRapport::change);
    QVERIFY(!executer(commande([](Classeur &) -> int { qFatal("rien ne doit être rempli"); })));
    QVERIFY(m_dialogue->messages.isEmpty());
    QVERIFY(changements.isEmpty());
    verifierRepos();
}

void TestCoursRapport::dossierRetenu()
{
    DossiersRecents dossiers;
    QCOMPARE(dossiers.dossier(QStringLiteral("Document Excel")), QString());
    m_dialogue->fichiers.enqueue(sortie());
    m_dialogue->fichiers.enqueue(std::nullopt);
    const auto rien = commande([](Classeur &) { return 0; });
    CoursRapport(*m_dialogue, *m_tableur, dossiers, m_etat).executer(rien);
    CoursRapport(*m_dialogue, *m_tableur, dossiers, m_etat).executer(rien);
    QCOMPARE(m_dialogue->demandes.at(0).dossierInitial, QString());
    QCOMPARE(m_dialogue->demandes.at(1).dossierInitial, m_dossier.filePath(QStringLiteral("Mes rapports/")));
    QCOMPARE(dossiers.dossier(QStringLiteral("Document texte (SANDRE)")), QString());
}

void TestCoursRapport::rienDEcrit()
{
    m_dialogue->fichiers.enqueue(sortie());
    QVERIFY(!executer(commande([](Classeur &) { return 0; })));
    QCOMPARE(m_dialogue->messages,
             (QList<BoiteDEssai>{{QStringLiteral("Il n'y a aucune donnée dans le rapport. "),
                                  QStringLiteral("Attention"), Icone::Exclamation}}));
    QVERIFY(m_dialogue->documents.isEmpty());
    QVERIFY(!QFile::exists(sortie()));
    QVERIFY(!m_dialogue->progression(FenetreProgression::Principale).visible);
    verifierRepos();
}

void TestCoursRapport::echecDuRemplissage()
{
    m_dialogue->fichiers.enqueue(sortie());
    QVERIFY(!executer(commande([](Classeur &classeur) {
        ecrireUneMesure(classeur);
        classeur.feuille(QStringLiteral("Mesures"));
        return 1;
    })));
    QCOMPARE(m_dialogue->messages,
             (QList<BoiteDEssai>{{QStringLiteral("Une erreur s'est produite en cours de traitement : \n"
                                                 "Le classeur n'a pas de feuille « Mesures »."),
                                  QStringLiteral("Erreur"), Icone::Critique}}));
    QVERIFY(!QFile::exists(sortie()));
    QVERIFY(!m_dialogue->progression(FenetreProgression::Principale).visible);
    verifierRepos();
    verifierLeSuivant();
}

// What is read comes before anything is written, the file's own name included: what stood there stays when it fails.
void TestCoursRapport::preparationPendantLOuverture()
{
    m_dialogue->fichiers.enqueue(sortie());
    QStringList ordre;
    CommandeRapport preparee = commande([&](Classeur &classeur) {
        ordre << QStringLiteral("remplir");
        return ecrireUneMesure(classeur);
    });
    preparee.preparer = [&] {
        ordre << (QFile::exists(sortie()) ? QStringLiteral("trop tard") : QStringLiteral("préparer"));
        QVERIFY(m_etat.enCours());
    };
    QVERIFY(executer(preparee));
    QCOMPARE(ordre, (QStringList{QStringLiteral("préparer"), QStringLiteral("remplir")}));
    QVERIFY(QFile::exists(sortie()));
    verifierRepos();
}

void TestCoursRapport::echecDeLaPreparation()
{
    QFile ancien(sortie());
    QVERIFY(ancien.open(QIODevice::WriteOnly) && ancien.write("un ancien rapport") > 0);
    ancien.close();
    m_dialogue->fichiers.enqueue(sortie());
    bool rempli = false;
    CommandeRapport preparee = commande([&](Classeur &) {
        rempli = true;
        return 1;
    });
    preparee.preparer = [] { throw Erreur(7, QStringLiteral("La base ne répond plus.")); };
    QVERIFY(!executer(preparee));
    QVERIFY(!rempli);
    QCOMPARE(m_dialogue->messages,
             (QList<BoiteDEssai>{{QStringLiteral("Une erreur s'est produite en cours de traitement : \n"
                                                 "La base ne répond plus."),
                                  QStringLiteral("Erreur"), Icone::Critique}}));
    QCOMPARE(lire(sortie()), QByteArray("un ancien rapport"));
    QVERIFY(!m_dialogue->progression(FenetreProgression::Principale).visible);
    verifierRepos();

    // A template that does not open comes before what was read without it.
    m_dialogue = std::make_unique<DialogueDEssai>();
    m_dialogue->fichiers.enqueue(sortie());
    preparee.modele = QStringLiteral("Profil.xls");
    QVERIFY(!executer(preparee));
    verifierErreurDeLApplication(QStringLiteral("Le fichier « Profil.xls » n'existe pas."));
    QFile::remove(sortie());
    verifierLeSuivant();
}

void TestCoursRapport::tableurTuePendantLaPreparation()
{
    m_dialogue->fichiers.enqueue(sortie());
    CommandeRapport preparee = commande(&TestCoursRapport::ecrireUneMesure);
    preparee.preparer = [this] { m_tableur->tuer(); };
    QVERIFY(!executer(preparee));
    verifierErreurDeLApplication(QStringLiteral("LibreOffice Calc s'est arrêté brusquement."));
    QVERIFY(!QFile::exists(sortie()));
    verifierLeSuivant();
}

void TestCoursRapport::tableurTuePendantLeRemplissage()
{
    m_dialogue->fichiers.enqueue(sortie());
    QVERIFY(!executer(commande([this](Classeur &classeur) {
        ecrireUneMesure(classeur);
        m_tableur->tuer();
        return ecrireUneMesure(classeur);
    })));
    verifierErreurDeLApplication(QStringLiteral("LibreOffice Calc s'est arrêté brusquement."));
    QVERIFY(!QFile::exists(sortie()));
    verifierLeSuivant();
}

void TestCoursRapport::tableurTueSansQueLeRemplissageLeVoie()
{
    m_dialogue->fichiers.enqueue(sortie());
    QVERIFY(!executer(commande([this](Classeur &classeur) {
        ecrireUneMesure(classeur);
        m_tableur->tuer();
        return 1;
    })));
    verifierErreurDeLApplication(QStringLiteral("LibreOffice Calc s'est arrêté brusquement."));
    QVERIFY(!QFile::exists(sortie()));
    verifierLeSuivant();
}

void TestCoursRapport::tableurAbsent()
{
    m_tableur->quitter();
    m_tableur->definirProgramme(m_dossier.filePath(QStringLiteral("soffice")));
    m_dialogue->fichiers.enqueue(sortie());
    QVERIFY(!executer(commande(&TestCoursRapport::ecrireUneMesure)));
    m_tableur->definirProgramme({});
    verifierErreurDeLApplication(QStringLiteral(
        "LibreOffice Calc est introuvable sur cet ordinateur. Installez-le, puis recommencez."));
    QVERIFY(!QFile::exists(sortie()));
    verifierLeSuivant();
}

void TestCoursRapport::modeleAbsent()
{
    m_dialogue->fichiers.enqueue(sortie());
    CommandeRapport absent = commande(&TestCoursRapport::ecrireUneMesure);
    absent.modele = QStringLiteral("Profil.xls");
    QVERIFY(!executer(absent));
    verifierErreurDeLApplication(QStringLiteral("Le fichier « Profil.xls » n'existe pas."));
    QVERIFY(!QFile::exists(sortie()));
}

void TestCoursRapport::modeleChoisiCommeNom()
{
    m_dialogue->fichiers.enqueue(m_cheminModele);
    QVERIFY(!executer(commande(&TestCoursRapport::ecrireUneMesure)));
    verifierErreurDeLApplication(
        QStringLiteral("Le fichier à créer est le modèle lui-même : choisissez un autre nom."));
}

// A file that cannot be replaced is not ours to delete.
void TestCoursRapport::enregistrementRefuse()
{
    QFile ancien(sortie());
    QVERIFY(ancien.open(QIODevice::WriteOnly) && ancien.write("un ancien rapport") > 0);
    ancien.close();
    QFile verrou(m_dossier.filePath(QStringLiteral("Mes rapports/.~lock.sortie.xls#")));
    QVERIFY(verrou.open(QIODevice::WriteOnly));
    verrou.close();
    m_dialogue->fichiers.enqueue(sortie());
    QVERIFY(!executer(commande(&TestCoursRapport::ecrireUneMesure)));
    QVERIFY(verrou.remove());
    verifierErreurDeLApplication(
        QStringLiteral("Le fichier « sortie.xls » ne peut pas être enregistré : ce fichier est "
                       "ouvert dans un autre programme. Fermez-le, puis recommencez."));
    QCOMPARE(lire(sortie()), QByteArray("un ancien rapport"));
}

void TestCoursRapport::unSeulALaFois()
{
    m_dialogue->fichiers.enqueue(sortie());
    bool second = true;
    QVERIFY(executer(commande([&](Classeur &classeur) {
        second = executer(commande(&TestCoursRapport::ecrireUneMesure));
        return ecrireUneMesure(classeur);
    })));
    QVERIFY(!second);
    QCOMPARE(m_dialogue->demandes.size(), 1);
    verifierRepos();
}

// The user may end the program while the spreadsheet is still starting, as the windows stay alive.
void TestCoursRapport::quitterPendantLAttente()
{
    m_tableur->quitter();
    m_dialogue->fichiers.enqueue(sortie());
    m_dialogue->aLaCession = [this] { m_tableur->quitter(); };
    QVERIFY(!executer(commande(&TestCoursRapport::ecrireUneMesure)));
    QVERIFY(m_dialogue->cessions > 0);
    verifierErreurDeLApplication(QStringLiteral("LibreOffice Calc a été arrêté."));
    verifierLeSuivant();
}

QTEST_GUILESS_MAIN(TestCoursRapport)
#include "test_cours_rapport.moc"
