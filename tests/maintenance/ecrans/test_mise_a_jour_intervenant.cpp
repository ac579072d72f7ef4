// The screen of the bodies' codes, its buttons pressed; the workbooks are made by the real spreadsheet.
#include "BaseDEssai.h"
#include "CadreDEssai.h"
#include "DialogueDEssai.h"
#include "frame/Session.h"
#include "maintenance/ecrans/F_couleurs.h"
#include "maintenance/ecrans/F_MiseAJour_Intervenant.h"
#include "platform/Chemins.h"
#include "platform/Horloge.h"

#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

class TestMiseAJourIntervenant : public QObject
{
    Q_OBJECT

private:
    QString classeur(const QString &nom, const Valeurs &lignes,
                     const QString &feuille = "IMPORT_MAJ_INTERVENANTS")
    {
        const QString chemin = m_racine.filePath(nom);
        const auto ouvert = m_session->tableur.ajouter();
        Feuille premiere = ouvert->feuille(1);
        premiere.renommer(feuille);
        premiere.plage(1, 1, static_cast<int>(lignes.size()), static_cast<int>(lignes[0].size()))
            .ecrire(lignes);
        ouvert->enregistrerSous(chemin);
        ouvert->fermer();
        return chemin;
    }
    static QStringList lignes(const QWidget &ecran, const char *liste)
    {
        QStringList textes;
        const auto *widget = ecran.findChild<QListWidget *>(liste);
        for (int i = 0; i < widget->count(); ++i)
            textes << widget->item(i)->text();
        return textes;
    }
    static void presser(QWidget &ecran, const char *bouton)
    {
        auto *widget = ecran.findChild<QPushButton *>(bouton);
        QVERIFY(widget);
        QVERIFY2(widget->isEnabled(), bouton);
        widget->click();
    }
    static QString journal(const QString &chemin)
    {
        QFile fichier(chemin);
        return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString("absent");
    }

private Q_SLOTS:
    void initTestCase()
    {
        Chemins::definirRacine(m_racine.path());
        m_session = std::make_unique<Session>(m_dialogue);
    }

    void init()
    {
        m_dialogue.messages.clear();
        m_dialogue.questions.clear();
        m_dialogue.demandes.clear();
        m_base = std::make_unique<QTemporaryDir>();
        {
            BaseDEssai modele;
            modele.donnees.liberer();
            QVERIFY(QFile::copy(modele.chemin, m_base->filePath("etude.mdb")));
        }
        m_session->donnees.ouvrir(m_base->filePath("etude.mdb"));
    }

    void sansMode()
    {
        F_MiseAJour_Intervenant ecran(*m_session, m_cadre);
        ecran.show();
        presser(ecran, "PB_IMPORTER");
        QCOMPARE(m_dialogue.messages.size(), 1);
        QCOMPARE(m_dialogue.messages[0].texte, QString("Vous devez sélectionner un mode d'import !"));
        QCOMPARE(m_dialogue.messages[0].titre, QString("Importation des correspondances Intervenants"));
        QVERIFY(m_dialogue.demandes.isEmpty());
    }

    void importPuisMiseAJour()
    {
        // A code typed as a number is a whole number; the reading stops at the row without an old code.
        const QString chemin =
            classeur("siret.xls", {{QString("CodeSandreAncien"), QString("CodeSiretNouveau")},
                                   {17.0, 20000000000017.0},
                                   {QString("18"), QString("19")},
                                   {QString(), QString("rien")},
                                   {QString("19"), QString("au-delà")}});
        Horloge::regler(QDateTime(QDate(2026, 1, 31), QTime(10, 5)));
        F_MiseAJour_Intervenant ecran(*m_session, m_cadre);
        ecran.show();
        QVERIFY(!ecran.findChild<QPushButton *>("PB_MAJ")->isEnabled());
        ecran.findChild<QRadioButton *>("RB_IMPORT_NOUVEAU")->click();
        m_dialogue.fichiers.enqueue(chemin);
        presser(ecran, "PB_IMPORTER");
        QCOMPARE(m_dialogue.demandes[0].titre, QString("Choisissez le fichier à importer"));
        QCOMPARE(m_dialogue.demandes[0].filtre, QString("Excel (*.xls)|*.xls"));
        const QString log("C:\\Projet\\MajIntervenant\\Importation MAJ codes intervenants_202601311005.log");
        QCOMPARE(m_dialogue.messages.size(), 1);
        QCOMPARE(m_dialogue.messages[0].texte,
                 QString("Importation terminée. Le fichier journal %1 a été créé.").arg(log));
        const QString recit = journal(Chemins::versHote(log));
        QVERIFY2(recit.contains("DEBUT Importation MAJ codes intervenants : "), qPrintable(recit));
        QVERIFY(recit.contains("Correspondance code Sandre Intervenant 17 -> 20000000000017 : créée"));
        QVERIFY(recit.contains("Correspondance code Sandre Intervenant 18 -> 19 : créée"));
        QVERIFY(!recit.contains("au-delà"));
        QVERIFY(recit.contains("2 correspondances code Sandre Intervenant -> code Siret importées."));
        QVERIFY(recit.contains("FIN Importation MAJ codes intervenants : "));

        // The lists in step, in the three orders: Agence (17), Laboratoire (18), Préleveur (19).
        QCOMPARE(lignes(ecran, "ZL_CODE_SANDRE"), (QStringList{"17", "18", "19"}));
        QCOMPARE(lignes(ecran, "ZL_CODE_SIRET"), (QStringList{"20000000000017", "19", ""}));
        presser(ecran, "PB_TRI_NOUVEAU");
        QCOMPARE(lignes(ecran, "ZL_CODE_SANDRE"), (QStringList{"18", "17", "19"}));
        QCOMPARE(lignes(ecran, "ZL_LIBELLE").first(), QString("Laboratoire d'Armor"));
        presser(ecran, "PB_TRI_ANCIEN");
        QCOMPARE(lignes(ecran, "ZL_CODE_SANDRE"), (QStringList{"17", "18", "19"}));
        ecran.findChild<QListWidget *>("ZL_CODE_SIRET")->setCurrentRow(1);
        QCOMPARE(ecran.findChild<QListWidget *>("ZL_LIBELLE")->currentRow(), 1);
        QCOMPARE(ecran.findChild<QListWidget *>("ZL_CODE_SANDRE")->currentRow(), 1);

        m_dialogue.reponses.enqueue(Reponse::Non);
        presser(ecran, "PB_MAJ");
        QCOMPARE(m_dialogue.questions.size(), 1);
        QCOMPARE(m_dialogue.questions[0].texte,
                 QString("Mise à jour de 2 codes intervenants (cf Liste des nouveaux codes Siret). "
                         "Confirmez-vous cette mise à jour ?"));
        QCOMPARE(m_dialogue.questions[0].titre, QString("OVL - Mise à jour des codes intervenants"));
        QCOMPARE(lignes(ecran, "ZL_CODE_SANDRE"), (QStringList{"17", "18", "19"}));

        m_dialogue.reponses.enqueue(Reponse::Oui);
        presser(ecran, "PB_MAJ");
        QCOMPARE(
            m_dialogue.messages.last().texte,
            QString(
                "Mise à jour terminée.\n1 nouveau code désignait déjà un intervenant : les mesures de l'ancien "
                "lui ont été rattachées."));
        QCOMPARE(lignes(ecran, "ZL_CODE_SANDRE"), (QStringList{"18", "19", "20000000000017"}));
    }

    void ecraserEtFichierVide()
    {
        m_session->donnees.executer("INSERT INTO CORRESP_INTERVENANT VALUES ('17', '1')");
        F_MiseAJour_Intervenant ecran(*m_session, m_cadre);
        ecran.show();
        ecran.findChild<QRadioButton *>("RB_ECRASER")->click();
        m_dialogue.fichiers.enqueue(
            classeur("ecraser.xls", {{QString("CodeSandreAncien"), QString("CodeSiretNouveau")},
                                     {QString("17"), QString("2")}}));
        Horloge::regler(QDateTime(QDate(2026, 1, 31), QTime(11, 0)));
        presser(ecran, "PB_IMPORTER");
        QCOMPARE(lignes(ecran, "ZL_CODE_SIRET"), (QStringList{"2", "", ""}));
        m_dialogue.fichiers.enqueue(
            classeur("vide.xls", {{QString("CodeSandreAncien"), QString("CodeSiretNouveau")}}));
        Horloge::regler(QDateTime(QDate(2026, 1, 31), QTime(12, 0)));
        presser(ecran, "PB_IMPORTER");
        QVERIFY(journal(m_racine.filePath(
                            "Projet/MajIntervenant/Importation MAJ codes intervenants_202601311200.log"))
                    .contains("Aucune correspondance code Sandre Intervenant -> code Siret importée."));
    }

    // The columns are right but the sheet bears another name: told, nothing changed.
    void autreFeuille()
    {
        F_MiseAJour_Intervenant ecran(*m_session, m_cadre);
        ecran.show();
        ecran.findChild<QRadioButton *>("RB_ECRASER")->click();
        m_dialogue.fichiers.enqueue(classeur(
            "feuille.xls",
            {{QString("CodeSandreAncien"), QString("CodeSiretNouveau")}, {QString("17"), QString("2")}},
            "Autre"));
        presser(ecran, "PB_IMPORTER");
        QCOMPARE(m_dialogue.messages.size(), 1);
        QCOMPARE(m_dialogue.messages[0].titre, QString("Erreur"));
        QVERIFY(
            m_dialogue.messages[0].texte.startsWith("Une erreur s'est produite en cours de traitement : \n"));
        QVERIFY(m_dialogue.messages[0].texte.contains("IMPORT_MAJ_INTERVENANTS"));
        QCOMPARE(lignes(ecran, "ZL_CODE_SIRET"), (QStringList{"", "", ""}));
        QVERIFY(ecran.isEnabled());
    }

    void couleursModifiees()
    {
        m_session->donnees.executer(
            "CREATE TABLE COULEURS_GRAPH (ordre integer, R integer, G integer, B integer)");
        m_session->donnees.executer("INSERT INTO COULEURS_GRAPH VALUES (1, 1, 2, 3), (2, 4, 5, 6)");
        {
            F_couleurs ecran(*m_session, m_cadre);
            ecran.show();
            m_dialogue.couleurs.enqueue(Couleur{10, 20, 30});
            ecran.findChild<QAbstractButton *>("Label1_1")->click();
            presser(ecran, "Command1"); // Annuler: nothing is written
        }
        Requete avant = m_session->donnees.executer("SELECT R FROM COULEURS_GRAPH WHERE ordre = 2");
        QVERIFY(avant.suivant());
        QCOMPARE(avant.valeur(0).toInt(), 4);
        avant.finir();
        F_couleurs ecran(*m_session, m_cadre);
        ecran.show();
        m_dialogue.couleurs.enqueue(Couleur{10, 20, 30});
        ecran.findChild<QAbstractButton *>("Label1_1")->click();
        presser(ecran, "Command2");
        Requete apres = m_session->donnees.executer("SELECT R, G, B FROM COULEURS_GRAPH ORDER BY ordre");
        QVERIFY(apres.suivant());
        QCOMPARE(apres.valeur(0).toInt(), 1);
        QVERIFY(apres.suivant());
        QCOMPARE(apres.valeur(2).toInt(), 30);
        QCOMPARE(m_session->CouleurG[1], 20);
    }

private:
    QTemporaryDir m_racine;
    DialogueDEssai m_dialogue;
    CadreDEssai m_cadre;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<QTemporaryDir> m_base;
};

QTEST_MAIN(TestMiseAJourIntervenant)
#include "test_mise_a_jour_intervenant.moc"
