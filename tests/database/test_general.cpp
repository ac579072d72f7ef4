// The registry helpers and the run log.
#include "database/General.h"
#include "database/Utilitaires.h"
#include "DialogueDEssai.h"
#include "platform/Chemins.h"
#include "platform/Horloge.h"

#include <QTemporaryDir>
#include <QTest>

using namespace General;
using Registre::Racine;

class TestGeneral : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_racine = std::make_unique<QTemporaryDir>();
        Chemins::definirRacine(m_racine->path());
    }
    void cleanup() { Horloge::regler(std::nullopt); }

    void racines_data();
    void racines();
    void cheminMalForme_data();
    void cheminMalForme();
    void valeurs();
    void journal();
    void journalImpossible();
    void journalFerme();

private:
    std::unique_ptr<QTemporaryDir> m_racine;
};

void TestGeneral::racines_data()
{
    QTest::addColumn<quint32>("poignee");
    // The handles are those of winreg.h.
    QTest::newRow("HKEY_CLASSES_ROOT") << 0x80000000U;
    QTest::newRow("HKEY_CURRENT_USER") << 0x80000001U;
    QTest::newRow("HKEY_LOCAL_MACHINE") << 0x80000002U;
    QTest::newRow("HKEY_USERS") << 0x80000003U;
    QTest::newRow("HKEY_PERFORMANCE_DATA") << 0x80000004U;
    QTest::newRow("HKEY_CURRENT_CONFIG") << 0x80000005U;
    QTest::newRow("HKEY_DYN_DATA") << 0x80000006U;
    QTest::newRow("HKEY_AUTRE") << 0U;
    QTest::newRow("") << 0U;
}

void TestGeneral::racines()
{
    QFETCH(quint32, poignee);
    QCOMPARE(static_cast<quint32>(RacineRegistre(QString::fromLatin1(QTest::currentDataTag()))), poignee);
}

void TestGeneral::cheminMalForme_data()
{
    QTest::addColumn<QString>("chemin");
    QTest::newRow("sans HKEY_") << QStringLiteral("Software\\Ovralis");
    QTest::newRow("vide") << QString();
    QTest::newRow("barre finale") << QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\");
}

void TestGeneral::cheminMalForme()
{
    QFETCH(QString, chemin);
    DialogueDEssai dialogue;
    QCOMPARE(LireRegistre(dialogue, chemin, QStringLiteral("Path")), QString());
    QCOMPARE(dialogue.messages.size(), 1);
    QCOMPARE(dialogue.messages[0].texte, QStringLiteral("Incorrect Format:\n\n") + chemin);
}

void TestGeneral::valeurs()
{
    DialogueDEssai dialogue;
    const QString chemin = QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\Ovralis");
    const QString cle = QStringLiteral("Software\\Ovralis");
    QCOMPARE(LireRegistre(dialogue, chemin, QStringLiteral("MapInfo")), QStringLiteral("Error"));
    QCOMPARE(LireValeur(Racine::HKEY_LOCAL_MACHINE, cle, QStringLiteral("MapInfo")), QString());
    QVERIFY(CreerCle(Racine::HKEY_LOCAL_MACHINE, cle));
    QCOMPARE(LireRegistre(dialogue, chemin, QStringLiteral("MapInfo")), QStringLiteral("Error"));
    QVERIFY(EcrireValeur(Racine::HKEY_LOCAL_MACHINE, cle, QStringLiteral("MapInfo"),
                         QStringLiteral("C:\\Programmes\\Été\\mapinfow.exe")));
    const QString attendu = QStringLiteral("C:\\Programmes\\Été\\mapinfow.exe");
    QCOMPARE(LireRegistre(dialogue, chemin, QStringLiteral("MapInfo")), attendu);
    // Names of keys and values are those of the registry: their case makes no difference.
    QCOMPARE(LireRegistre(dialogue, QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\ovralis"),
                          QStringLiteral("MAPINFO")),
             attendu);
    QCOMPARE(LireValeur(Racine::HKEY_LOCAL_MACHINE, cle, QStringLiteral("MapInfo")), attendu);
    // Another root, and a root that is none.
    QCOMPARE(LireRegistre(dialogue, QStringLiteral("HKEY_CURRENT_USER\\Software\\Ovralis"),
                          QStringLiteral("MapInfo")),
             QStringLiteral("Error"));
    QCOMPARE(LireRegistre(dialogue, QStringLiteral("HKEY_AUTRE\\Software"), QStringLiteral("x")),
             QStringLiteral("Error"));
    QCOMPARE(LireRegistre(dialogue, QStringLiteral("HKEY_LOCAL_MACHINE"), QStringLiteral("x")),
             QStringLiteral("Error"));
    QVERIFY(!EcrireValeur(Racine::Aucune, cle, QStringLiteral("x"), QStringLiteral("y")));
    // A value is cut at its first NUL; one without is whole.
    QVERIFY(EcrireValeur(Racine::HKEY_CURRENT_USER, cle, QStringLiteral("Nul"),
                         QStringLiteral("avant") + QChar(u'\0') + QStringLiteral("après")));
    QCOMPARE(LireValeur(Racine::HKEY_CURRENT_USER, cle, QStringLiteral("Nul")), QStringLiteral("avant"));
    QVERIFY(dialogue.messages.isEmpty());
}

void TestGeneral::journal()
{
    DialogueDEssai dialogue;
    Horloge::regler(QDateTime(QDate(2026, 1, 31), QTime(9, 5, 7)));
    Utilitaires::Journal journal(dialogue);
    const QString prefixe = QStringLiteral("Importation MAJ codes intervenants");
    const QString chemin = journal.OuvrirJournal(prefixe);
    QCOMPARE(chemin, QStringLiteral(
                         "C:\\Projet\\MajIntervenant\\Importation MAJ codes intervenants_202601310905.log"));
    journal.EcrireJournal(QStringLiteral("Créée"));
    journal.FermerJournal(prefixe);
    QFile fichier(Chemins::versHote(chemin));
    QVERIFY(fichier.open(QIODevice::ReadOnly | QIODevice::Text));
    QStringList lignes = QString::fromUtf8(fichier.readAll()).split(u'\n');
    QCOMPARE(lignes.size(), 8);
    const QString trait(65, u'=');
    QCOMPARE(lignes[0], trait);
    QCOMPARE(lignes[1], QStringLiteral("DEBUT Importation MAJ codes intervenants : 31-01-2026 09:05:07"));
    QCOMPARE(lignes[2], trait);
    QCOMPARE(lignes[3], QStringLiteral("Créée"));
    QCOMPARE(lignes[4], trait);
    QVERIFY(
        lignes[5].startsWith(QLatin1String("FIN Importation MAJ codes intervenants : 31-01-2026 09:05:0")));
    QCOMPARE(lignes[6], trait);
    QVERIFY(dialogue.messages.isEmpty());
}

// A file stands where the folder should be.
void TestGeneral::journalImpossible()
{
    QFile obstacle(m_racine->filePath(QStringLiteral("Projet")));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    DialogueDEssai dialogue;
    Utilitaires::Journal journal(dialogue);
    QVERIFY(!journal.OuvrirJournal(QStringLiteral("Essai")).isEmpty());
    QCOMPARE(dialogue.messages.size(), 1);
    QVERIFY(dialogue.messages[0].texte.startsWith(
        QLatin1String("Une erreur s'est produite en cours de traitement : \n")));
    QCOMPARE(dialogue.messages[0].titre, QStringLiteral("Erreur"));
    journal.EcrireJournal(QStringLiteral("perdu"));
    journal.FermerJournal(QStringLiteral("Essai"));
    QCOMPARE(dialogue.messages.size(), 1);
}

void TestGeneral::journalFerme()
{
    DialogueDEssai dialogue;
    Utilitaires::Journal journal(dialogue);
    journal.EcrireJournal(QStringLiteral("nulle part"));
    journal.FermerJournal(QStringLiteral("Essai"));
    QVERIFY(QDir(m_racine->path()).isEmpty());
}

QTEST_GUILESS_MAIN(TestGeneral)
#include "test_general.moc"
