#include "BaseDEssai.h"
#include "DialogueDEssai.h"
#include "maintenance/M_Compactage.h"
#include "platform/Chemins.h"
#include "platform/Erreur.h"

#include <csignal>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <sys/wait.h>
#include <unistd.h>

using M_Compactage::Issue;

class TestCompactage : public QObject
{
    Q_OBJECT

private:
    // A study with free space: many rows, most of them deleted.
    static void gonfler(const BaseDEssai &base, int prelevements = 20000)
    {
        base.sql(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
            "INSERT INTO PRELEVEMENT (CodeSandreStationM, DatePrel) SELECT '04211940', date('2000-01-01', i || "
            "' days') FROM n",
            {prelevements});
        base.sql("DELETE FROM PRELEVEMENT WHERE NumPrel % 10 <> 0");
    }
    static QByteArray contenu(const QString &chemin)
    {
        QFile fichier(chemin);
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }
    static int restants(const QString &chemin)
    {
        DataEnvironment1 donnees;
        donnees.ouvrir(chemin);
        Requete sain = donnees.executer("PRAGMA integrity_check");
        if (!sain.suivant() || sain.texte(0) != "ok")
            return -1;
        Requete r = donnees.executer("SELECT COUNT(*) FROM PRELEVEMENT");
        return r.suivant() ? r.valeur(0).toInt() : -1;
    }

private Q_SLOTS:
    void init()
    {
        m_racine = std::make_unique<QTemporaryDir>();
        Chemins::definirRacine(m_racine->path());
        QDir(m_racine->path()).mkpath("Projet/Base");
    }

    void plusPetitAuMemeEndroit()
    {
        BaseDEssai base;
        gonfler(base);
        base.donnees.liberer();
        const qint64 avant = QFileInfo(base.chemin).size();
        DialogueDEssai dialogue;
        const auto rouvrir = [&] {
            base.donnees.ouvrir(base.chemin);
            return true;
        };
        base.donnees.ouvrir(base.chemin);
        QCOMPARE(M_Compactage::compacter(base.donnees, base.chemin, dialogue, rouvrir), Issue::Termine);
        QVERIFY(base.donnees.estOuvert());
        QCOMPARE(dialogue.messages.size(), 1);
        QCOMPARE(dialogue.messages[0].texte, QString("Le compactage de la base de données est terminée. "));
        QCOMPARE(dialogue.messages[0].titre, QString("Fin de compactage"));
        QCOMPARE(dialogue.progression(FenetreProgression::FProgress3).titre,
                 QString("Compactage de la base de données"));
        QVERIFY(!dialogue.progression(FenetreProgression::FProgress3).visible);
        base.donnees.liberer();
        QVERIFY2(QFileInfo(base.chemin).size() < avant / 2, "the file is not smaller");
        QCOMPARE(restants(base.chemin), 2000);
        QCOMPARE(QDir(base.dossier.path()).entryList(QDir::Files), QStringList{"essai.mdb"});
        QVERIFY(QDir(m_racine->filePath("Projet/Base")).isEmpty());
    }

    void fichierDeTravailRefuse()
    {
        BaseDEssai base;
        QFile travail(m_racine->filePath("Projet/Base/Temp_bd_ovra.mdb"));
        QVERIFY(travail.open(QIODevice::WriteOnly));
        travail.close();
        DialogueDEssai dialogue;
        dialogue.reponses.enqueue(Reponse::Annuler);
        QCOMPARE(M_Compactage::compacter(base.donnees, base.chemin, dialogue, [] { return true; }),
                 Issue::Annule);
        QCOMPARE(dialogue.questions.size(), 1);
        QCOMPARE(dialogue.questions[0].titre, QString("Base existante"));
        QCOMPARE(
            dialogue.questions[0].texte,
            QString(
                "Le fichier \"Temp_bd_ovra.mdb\" situé dans le répertoire \"C:\\PROJET\\Base\\\" existe déjà, "
                "pour le bon déroulement du compactage de la base de données, il est nécessaire de supprimer "
                "ou déplacer cette base de données. Cliquez sur \"Ok\" pour la supprimer ou sur \"Annuler\" "
                "pour annuler le compactage. "));
        QCOMPARE(dialogue.messages.size(), 1);
        QCOMPARE(dialogue.messages[0].texte, QString("Le compactage a été annulé."));
        QCOMPARE(dialogue.messages[0].titre, QString("Attention"));
        QVERIFY(travail.exists());
        QVERIFY(base.donnees.estOuvert());
    }

    void fichierDeTravailSupprime()
    {
        BaseDEssai base;
        QFile travail(m_racine->filePath("Projet/Base/Temp_bd_ovra.mdb"));
        QVERIFY(travail.open(QIODevice::WriteOnly));
        travail.close();
        travail.setPermissions(QFile::ReadOwner);
        DialogueDEssai dialogue;
        dialogue.reponses.enqueue(Reponse::OK);
        QCOMPARE(M_Compactage::compacter(base.donnees, base.chemin, dialogue,
                                         [&] {
                                             base.donnees.ouvrir(base.chemin);
                                             return true;
                                         }),
                 Issue::Termine);
        QVERIFY(!travail.exists());
    }

    void baseQuiEstLeFichierDeTravail()
    {
        BaseDEssai base;
        const QString chemin = m_racine->filePath("Projet/Base/Temp_bd_ovra.mdb");
        base.donnees.liberer();
        QVERIFY(QFile::rename(base.chemin, chemin));
        base.donnees.ouvrir(chemin);
        DialogueDEssai dialogue;
        QCOMPARE(M_Compactage::compacter(base.donnees, chemin, dialogue, [] { return true; }), Issue::Annule);
        QVERIFY(dialogue.questions.isEmpty());
        QCOMPARE(dialogue.messages.size(), 1);
        QVERIFY(QFile::exists(chemin));
    }

    // Another program has the file open: its changes would be lost.
    void ouverteAilleurs()
    {
        BaseDEssai base;
        gonfler(base, 100);
        DataEnvironment1 autre;
        autre.ouvrir(base.chemin);
        autre.executer("UPDATE BASSIN_VERSANT SET ObjBV = 'x'");
        DialogueDEssai dialogue;
        QCOMPARE(M_Compactage::compacter(base.donnees, base.chemin, dialogue,
                                         [&] {
                                             base.donnees.ouvrir(base.chemin);
                                             return true;
                                         }),
                 Issue::Impossible);
        QCOMPARE(dialogue.messages.size(), 1);
        QCOMPARE(dialogue.messages[0].titre, QString("Compactage impossible"));
        QCOMPARE(
            dialogue.messages[0].texte,
            QString(
                "Erreur : 5 - La base est utilisée par un autre programme.\nCette fonction n'est utilisable que "
                "si vous possédez Microsoft ACCESS sur votre poste !"));
        QVERIFY(base.donnees.estOuvert());
        autre.liberer();
        base.donnees.liberer();
        QCOMPARE(restants(base.chemin), 10);
    }

    void reouvertureRefusee()
    {
        BaseDEssai base;
        DialogueDEssai dialogue;
        QCOMPARE(M_Compactage::compacter(base.donnees, base.chemin, dialogue,
                                         []() -> bool { throw Erreur(26, "file is not a database"); }),
                 Issue::BasePerdue);
        QCOMPARE(dialogue.messages.size(), 1);
        QCOMPARE(dialogue.messages[0].titre, QString("Erreur d'ouverture"));
        QCOMPARE(dialogue.messages[0].texte,
                 QString("Une erreur s'est produite. : \n26 - file is not a database"));
    }

    // Twenty kills at random moments: the path always holds a whole study.
    void tueAToutMoment()
    {
        BaseDEssai modele;
        gonfler(modele, 3000);
        modele.donnees.liberer();
        QRandomGenerator hasard(20260131);
        for (int essai = 0; essai < 20; ++essai) {
            QTemporaryDir dossier;
            const QString chemin = dossier.filePath("etude.mdb");
            QVERIFY(QFile::copy(modele.chemin, chemin));
            const pid_t enfant = ::fork();
            if (enfant == 0) {
                try {
                    M_Compactage::reecrire(chemin, dossier.filePath("travail.mdb"), [](int) {});
                } catch (...) {
                }
                ::_exit(0);
            }
            ::usleep(hasard.bounded(25000u));
            ::kill(enfant, SIGKILL);
            ::waitpid(enfant, nullptr, 0);
            QCOMPARE(restants(chemin), 300);
            // The next run cleans up and works.
            QFile::remove(dossier.filePath("travail.mdb"));
            M_Compactage::reecrire(chemin, dossier.filePath("travail.mdb"), [](int) {});
            QCOMPARE(restants(chemin), 300);
            QCOMPARE(QDir(dossier.path()).entryList(QDir::Files), QStringList{"etude.mdb"});
        }
    }

    // A full disk where the scratch file goes, then where the study stands.
    void disquePlein_data()
    {
        QTest::addColumn<bool>("etudeSurLePetitDisque");
        QTest::newRow("scratch") << false;
        QTest::newRow("study") << true;
    }
    void disquePlein()
    {
        QFETCH(bool, etudeSurLePetitDisque);
        QTemporaryDir petit;
        QTemporaryDir grand;
        if (QProcess::execute("mount", {"-t", "tmpfs", "-o", "size=1200k", "tmpfs", petit.path()}) != 0)
            QSKIP("needs the right to mount a small tmpfs");
        const auto demonter = qScopeGuard([&] { QProcess::execute("umount", {petit.path()}); });
        BaseDEssai modele;
        gonfler(modele, 12000);
        modele.sql("CREATE TABLE remplissage AS SELECT randomblob(700000) AS x");
        modele.sql("VACUUM");
        modele.donnees.liberer();
        const QString chemin = (etudeSurLePetitDisque ? petit : grand).filePath("etude.mdb");
        const QString travail = (etudeSurLePetitDisque ? grand : petit).filePath("travail.mdb");
        if (!etudeSurLePetitDisque) {
            QFile bouchon(petit.filePath("bouchon"));
            QVERIFY(bouchon.open(QIODevice::WriteOnly));
            bouchon.write(QByteArray(600000, 'x'));
        }
        QVERIFY(QFile::copy(modele.chemin, chemin));
        const QByteArray avant = contenu(chemin);
        QVERIFY(avant.size() > 700000);
        QVERIFY_THROWS_EXCEPTION(Erreur, M_Compactage::reecrire(chemin, travail, [](int) {}));
        QCOMPARE(contenu(chemin), avant);
        QVERIFY(!QFile::exists(travail));
        QCOMPARE(restants(chemin), 1200);
    }

private:
    std::unique_ptr<QTemporaryDir> m_racine;
};

QTEST_GUILESS_MAIN(TestCompactage)
#include "test_compactage.moc"
