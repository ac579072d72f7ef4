#include "pilote/Scenario.h"

#include <QTest>

namespace
{
Scenario lire(const QString &texte)
{
    return lireScenario(QStringLiteral("essai.scn"), QStringLiteral("/dossier"), texte);
}

QString refus(const QString &texte)
{
    try {
        lire(texte);
    } catch (const ScenarioIllisible &erreur) {
        return QString::fromUtf8(erreur.what());
    }
    return {};
}
} // namespace

class TestScenario : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pasEtCommentaires()
    {
        const Scenario scenario = lire(QStringLiteral("# en tête\n"
                                                      "\n"
                                                      "  base annuler   # la fin\n"
                                                      "saisir F_X.txt_y \"un # dans le texte\"\r\n"
                                                      "termine"));
        QCOMPARE(scenario.pas.size(), 3);
        QCOMPARE(scenario.pas[0].ligne, 3);
        QCOMPARE(scenario.pas[0].verbe, QStringLiteral("base"));
        QVERIFY(scenario.pas[0].annuler);
        QCOMPARE(scenario.pas[1].ligne, 4);
        QCOMPARE(scenario.pas[1].arguments, QStringList({QStringLiteral("F_X"), QStringLiteral("txt_y"),
                                                         QStringLiteral("un # dans le texte")}));
        QCOMPARE(scenario.pas[2].verbe, QStringLiteral("termine"));
    }

    // In a text "\n", "\"" and "\\" are escapes and any other backslash is itself; in a path there are no escapes.
    void echappements_data()
    {
        QTest::addColumn<QString>("ligne");
        QTest::addColumn<QString>("lu");
        QTest::newRow("saut") << "message \"un\\ndeux\""
                              << "un\ndeux";
        QTest::newRow("guillemet") << "message \"dit \\\"oui\\\"\""
                                   << "dit \"oui\"";
        QTest::newRow("autre") << "message \"C:\\Projet\\Base\\x.mdb\""
                               << "C:\\Projet\\Base\\x.mdb";
        QTest::newRow("double") << "message \"C:\\\\nouveau\""
                                << "C:\\nouveau";
        QTest::newRow("chemin en n") << "fichier \"C:\\nouveau\\x.xls\""
                                     << "C:\\nouveau\\x.xls";
        QTest::newRow("chemin de dossier") << "fichier_existe \"C:\\Projet\\Base\\\""
                                           << "C:\\Projet\\Base\\";
        QTest::newRow("base") << "base \"C:\\Projet\\Base\\n.mdb\""
                              << "C:\\Projet\\Base\\n.mdb";
    }
    void echappements()
    {
        QFETCH(QString, ligne);
        QFETCH(QString, lu);
        QCOMPARE(lire(ligne).pas.value(0).texte(0), lu);
    }

    void facultatifs()
    {
        QCOMPARE(lire(QStringLiteral("attendre F_X")).pas[0].arguments.size(), 1);
        QCOMPARE(lire(QStringLiteral("attendre F_X 5")).pas[0].nombre(1), 5);
        QVERIFY(lire(QStringLiteral("deselectionner F_X.lst_y")).pas[0].texte(2).isNull());
        QCOMPARE(lire(QStringLiteral("tuer_tableur 300")).pas[0].nombre(0), 300);
    }

    void illisibles_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("debut");
        QTest::newRow("pas inconnu") << "titre \"x\"\nbondir F_X.y"
                                     << "essai.scn:2: pas inconnu : bondir";
        QTest::newRow("manquant") << "saisir F_X.txt_y"
                                  << "essai.scn:1: argument manquant";
        QTest::newRow("en trop") << "termine encore"
                                 << "essai.scn:1: argument en trop : encore";
        QTest::newRow("sans guillemet final") << "message \"ouvert"
                                              << "essai.scn:1: texte sans guillemet final";
        QTest::newRow("sans guillemets") << "message bonjour"
                                         << "essai.scn:1: texte entre guillemets";
        QTest::newRow("sans point") << "cliquer F_X"
                                    << "essai.scn:1: FORM.CONTROL";
        QTest::newRow("nombre") << "lignes F_X.lst_y trois"
                                << "essai.scn:1: nombre";
        QTest::newRow("négatif") << "lignes F_X.lst_y -1"
                                 << "essai.scn:1: nombre";
        QTest::newRow("réponse") << "reponse \"Peut-être\""
                                 << "essai.scn:1: réponse inconnue";
        QTest::newRow("réponse vérifiée") << "question \"?\" \"Si\""
                                          << "essai.scn:1: réponse inconnue";
        QTest::newRow("couleur") << "couleur \"rouge\""
                                 << "essai.scn:1: couleur";
        QTest::newRow("horloge") << "horloge \"31/01/2026\""
                                 << "essai.scn:1: date";
    }
    void illisibles()
    {
        QFETCH(QString, texte);
        QFETCH(QString, debut);
        const QString raison = refus(texte);
        QVERIFY2(raison.startsWith(debut), qPrintable(raison));
    }

    void fichierAbsent()
    {
        QVERIFY_EXCEPTION_THROWN(lireScenario(QStringLiteral("/nulle/part.scn")), ScenarioIllisible);
    }
};

QTEST_GUILESS_MAIN(TestScenario)
#include "test_scenario.moc"
