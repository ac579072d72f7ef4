// The workbooks that go with the demonstration study, imported into it: no question asked, every row stored.
#include "BaseConstruite.h"
#include "DialogueDEssai.h"
#include "exchange/M_Import_OVRA.h"
#include "frame/Session.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestClasseursDemonstration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void analyses_data();
    void analyses();
    void uneSecondeFois();
    void analysesACorriger();
    void debits();
    void pluies();
    void lignesDuBanc();

private:
    QString importer(const QString &nom, TypeImport type);
    int compte(const QString &sql, const QVariantList &parametres = {});

    DialogueDEssai m_dialogue;
    Session m_session{m_dialogue};
    std::unique_ptr<QTemporaryDir> m_dossier;
};

void TestClasseursDemonstration::init()
{
    m_dossier = std::make_unique<QTemporaryDir>();
    const QString base = m_dossier->filePath("demonstration.mdb");
    QVERIFY(QFile::copy(DOSSIER_CONSTRUCTION "/installation/Projet/Base/demonstration.mdb", base));
    m_session.donnees.ouvrir(base);
    m_dialogue.messages.clear();
}

void TestClasseursDemonstration::cleanup()
{
    m_session.donnees.liberer();
}

// Runs the import of one of the built workbooks, or of another by its path, and gives the closing message, or what stood in its way.
QString TestClasseursDemonstration::importer(const QString &nom, TypeImport type)
{
    ImportSession &session = m_session.importSession;
    session = {};
    session.FichierImport = QDir(DOSSIER_CONSTRUCTION "/installation/Projet/Base").absoluteFilePath(nom);
    session.TitreImport = nom;
    session.typeImport = type;
    if (type == TypeImport::Physico)
        M_Import_OVRA::ImporterPhysico(m_session);
    else if (type == TypeImport::Hydro)
        M_Import_OVRA::ImporterHydro(m_session);
    else
        M_Import_OVRA::ImporterPluvio(m_session);
    return m_dialogue.messages.isEmpty() ? QStringLiteral("arrêt à la ligne %1").arg(session.LigneReprise)
                                         : m_dialogue.messages.last().texte;
}

int TestClasseursDemonstration::compte(const QString &sql, const QVariantList &parametres)
{
    Requete requete = m_session.donnees.executer(sql, parametres);
    return requete.suivant() ? requete.valeur(0).toInt() : -1;
}

void TestClasseursDemonstration::analyses_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::newRow("xls") << "analyses_laboratoire.xls";
    QTest::newRow("xlsx") << "analyses_laboratoire.xlsx";
}

void TestClasseursDemonstration::analyses()
{
    QFETCH(const QString, fichier);
    const int avant = compte("SELECT COUNT(*) FROM MESURE_PHYSICO");
    const int prelevements = compte("SELECT COUNT(*) FROM PRELEVEMENT");
    const int reseaux = compte("SELECT COUNT(*) FROM PRELEVEMENTRSX");
    // From the tables of campaigns, three months: 10 parameters of 3 rounds at the outlet and 3 nitrates apart; 6 of 2
    // rounds and 2 pesticides below the plant; 6 of 2 rounds in the reservoir: 30 + 3 + 12 + 2 + 12.
    QCOMPARE(
        importer(fichier, TypeImport::Physico),
        "L'import du fichier Excel vers la base de données est achevé.\n59 mesures physico-chimiques ont été "
        "enregistrées. ");
    QCOMPARE(m_dialogue.messages.size(), 1);
    QCOMPARE(compte("SELECT COUNT(*) FROM MESURE_PHYSICO") - avant, 59);
    // 3 + 3 + 2 + 2 samplings; the pesticides put one of them into a second network.
    QCOMPARE(compte("SELECT COUNT(*) FROM PRELEVEMENT") - prelevements, 10);
    QCOMPARE(compte("SELECT COUNT(*) FROM PRELEVEMENTRSX") - reseaux, 11);
    QCOMPARE(
        compte("SELECT COUNT(DISTINCT CodeReseau) FROM PRELEVEMENTRSX JOIN PRELEVEMENT USING (NumPrel) WHERE "
               "DatePrel >= '2019-01-01'"),
        4);
    // The code typed as a number keeps no decimals, the missing hour becomes ten o'clock.
    QCOMPARE(
        compte(
            "SELECT COUNT(*) FROM PRELEVEMENT WHERE CodeSandreStationM = '99010071' AND HeurePrel = '10:00:00' "
            "AND DatePrel >= '2019-01-01'"),
        2);
    // Remark codes and fractions as they stand elsewhere in the study; values typed with a comma are numbers.
    QCOMPARE(
        compte(
            "SELECT COUNT(*) FROM MESURE_PHYSICO JOIN PRELEVEMENT USING (NumPrel) WHERE DatePrel >= '2019-01-01' "
            "AND (CodeRemarqueAnaPC NOT IN ('1', '10') OR Cd_Fraction NOT IN ('3', '23') OR ResultatAnaPC <= 0)"),
        0);
    QVERIFY(
        compte(
            "SELECT COUNT(*) FROM MESURE_PHYSICO JOIN PRELEVEMENT USING (NumPrel) WHERE DatePrel >= '2019-01-01' "
            "AND CodeRemarqueAnaPC = '10'") > 0);
    QCOMPARE(
        compte(
            "SELECT COUNT(*) FROM MESURE_PHYSICO JOIN PRELEVEMENT USING (NumPrel) WHERE DatePrel >= '2019-01-01' "
            "AND CodeParam = '1841' AND CodeSandreStationM = '04999010'"),
        6);
}

void TestClasseursDemonstration::uneSecondeFois()
{
    importer("analyses_laboratoire.xls", TypeImport::Physico);
    const int mesures = compte("SELECT COUNT(*) FROM MESURE_PHYSICO");
    m_dialogue.messages.clear();
    // Stops at the first row to ask whether all is to be replaced; nothing written.
    QCOMPARE(importer("analyses_laboratoire.xls", TypeImport::Physico), "arrêt à la ligne 2");
    QCOMPARE(compte("SELECT COUNT(*) FROM MESURE_PHYSICO"), mesures);
}

void TestClasseursDemonstration::analysesACorriger()
{
    // Each of the three rows stops the run; ignored, it goes on at the next one. Two rows of five are stored.
    const auto ignorer = [&] {
        ++m_session.importSession.LigneReprise;
        return M_Import_OVRA::ImporterPhysico(m_session);
    };
    QCOMPARE(importer("analyses_a_corriger.xls", TypeImport::Physico), "arrêt à la ligne 3");
    QCOMPARE(m_session.importSession.typeElement, TypeElement::StationQualite);
    QCOMPARE(ignorer().fin, IssueImport::Fin::ChoixUnite);
    QCOMPARE(m_session.importSession.LigneReprise, 4);
    QCOMPARE(ignorer().fin, IssueImport::Fin::Choix);
    QCOMPARE(m_session.importSession.typeElement, TypeElement::Preleveur);
    QCOMPARE(m_session.importSession.LigneReprise, 5);
    QVERIFY(m_dialogue.messages.isEmpty());
    QCOMPARE(ignorer().fin, IssueImport::Fin::Terminee);
    QCOMPARE(
        m_dialogue.messages.last().texte,
        "L'import du fichier Excel vers la base de données est achevé.\n2 mesures physico-chimiques ont été "
        "enregistrées. ");
    QCOMPARE(compte("SELECT COUNT(*) FROM PRELEVEMENT WHERE DatePrel >= '2019-04-01'"), 2);
}

void TestClasseursDemonstration::debits()
{
    // January to March 2019: 31 + 28 + 31 days and 3 months at each of two gauges.
    QCOMPARE(
        importer("debits.xls", TypeImport::Hydro),
        "L'import du fichier Excel vers la base de données est achevé.\n186 mesures hydrométriques ont été "
        "enregistrées. ");
    QCOMPARE(compte("SELECT COUNT(DebitJourMesureHM) FROM MESURE_HYDRO WHERE DateMesureHM >= '2019-01-01'"),
             180);
    QCOMPARE(compte("SELECT COUNT(DebitMoisMesureHM) FROM MESURE_HYDRO WHERE DateMesureHM >= '2019-01-01'"),
             6);
}

void TestClasseursDemonstration::pluies()
{
    QCOMPARE(
        importer("pluies.xls", TypeImport::Pluvio),
        "L'import du fichier Excel vers la base de données est achevé.\n90 mesures pluviométriques ont été "
        "enregistrées. ");
    QCOMPARE(compte("SELECT COUNT(JourMesurePM) FROM MESURE_PLUVIO WHERE DateMesurePM >= '2019-01-01'"), 90);
}

void TestClasseursDemonstration::lignesDuBanc()
{
    const QString donnees = QDir::cleanPath(DONNEES_TESTS "/../../donnees");
    const QString base = m_dossier->filePath("elements.mdb"), classeur = m_dossier->filePath("banc.xls");
    QCOMPARE(
        QProcess::execute(DOSSIER_CONSTRUCTION "/bin/creer_bases", {"--donnees", donnees, "elements", base}),
        0);
    QCOMPARE(QProcess::execute(DOSSIER_CONSTRUCTION "/bin/creer_classeurs",
                               {"--donnees", donnees, "banc", "260", classeur}),
             0);
    m_session.donnees.ouvrir(base);
    // 260 rows go once through the 140 parameters other than nitrates, nearly twice; 25 rows a sampling: 11.
    QCOMPARE(
        importer(classeur, TypeImport::Physico),
        "L'import du fichier Excel vers la base de données est achevé.\n260 mesures physico-chimiques ont été "
        "enregistrées. ");
    QCOMPARE(compte("SELECT COUNT(*) FROM MESURE_PHYSICO"), 260);
    QCOMPARE(compte("SELECT COUNT(DISTINCT CodeParam) FROM MESURE_PHYSICO"), 140);
    QCOMPARE(compte("SELECT COUNT(*) FROM PRELEVEMENT"), 11);
    QCOMPARE(compte("SELECT COUNT(*) FROM PRELEVEMENTRSX"), 11);
}

QTEST_GUILESS_MAIN(TestClasseursDemonstration)
#include "test_classeurs_demonstration.moc"
