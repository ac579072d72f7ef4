#include "analysis/ReglesConcentrations.h"

#include <QTest>

using namespace ReglesConcentrations;

namespace
{
const QString TROIS_PARAMETRES = QStringLiteral("Vous ne pouvez pas sélectionner plus de deux paramètres. ");
const QString DEUX_FRACTIONS = QStringLiteral(
    "Vous avez sélectionné 2 fractions, vous ne pouvez pas sélectionner plus d'un paramètre. ");
const QString TROIS_FRACTIONS = QStringLiteral("Vous ne pouvez pas sélectionner plus de deux fractions. ");
const QString DEUX_PARAMETRES =
    QStringLiteral("Vous avez sélectionné 2 paramètres dont le carbone organique, vous ne pouvez pas "
                   "sélectionner plus d'une fraction. ");

QStringList codes(const char *texte)
{
    return QString::fromLatin1(texte).split(u' ', Qt::SkipEmptyParts);
}

// Everything that the three commands ask for.
Controles complet()
{
    Controles c;
    c.station = QStringLiteral("04211940");
    c.debut = QDate(2008, 1, 1);
    c.fin = QDate(2009, 12, 31);
    c.choix = ChoixParametres::UnSeul;
    c.parametres = 1;
    return c;
}

QString message(const Controles &controles, Commande commande)
{
    const auto refus = premierRefus(controles, commande);
    return refus ? refus->message : QString();
}
} // namespace

class TestReglesConcentrations : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void parametres_data();
    void parametres();
    void fractions_data();
    void fractions();
    void fractionDemandee();
    void controles_data();
    void controles();
    void ordreDesControles();
    void champs();
};

void TestReglesConcentrations::parametres_data()
{
    QTest::addColumn<QStringList>("choisis");
    QTest::addColumn<int>("fractions");
    QTest::addColumn<QString>("refus");
    QTest::newRow("none") << codes("") << 0 << QString();
    QTest::newRow("one") << codes("1340") << 0 << QString();
    QTest::newRow("two") << codes("1340 1302") << 0 << QString();
    QTest::newRow("three") << codes("1340 1302 1841") << 0 << TROIS_PARAMETRES;
    QTest::newRow("carbon alone, two fractions") << codes("1841") << 2 << QString();
    QTest::newRow("second beside two fractions") << codes("1841 1340") << 2 << DEUX_FRACTIONS;
    QTest::newRow("second beside one fraction") << codes("1841 1340") << 1 << QString();
    QTest::newRow("three come before the fractions") << codes("1841 1340 1302") << 2 << TROIS_PARAMETRES;
}

void TestReglesConcentrations::parametres()
{
    QFETCH(QStringList, choisis);
    QFETCH(int, fractions);
    QFETCH(QString, refus);
    QCOMPARE(refusParametres(choisis, fractions), refus);
}

void TestReglesConcentrations::fractions_data()
{
    QTest::addColumn<QStringList>("choisies");
    QTest::addColumn<QStringList>("parametres");
    QTest::addColumn<QString>("refus");
    QTest::newRow("one, carbon alone") << codes("23") << codes("1841") << QString();
    QTest::newRow("two, carbon alone") << codes("23 3") << codes("1841") << QString();
    QTest::newRow("three, carbon alone") << codes("23 3 0") << codes("1841") << TROIS_FRACTIONS;
    QTest::newRow("one, two parameters") << codes("23") << codes("1841 1340") << QString();
    QTest::newRow("two, two parameters with carbon")
        << codes("23 3") << codes("1841 1340") << DEUX_PARAMETRES;
    QTest::newRow("two, carbon second") << codes("23 3") << codes("1340 1841") << DEUX_PARAMETRES;
    QTest::newRow("two, two parameters without carbon") << codes("23 3") << codes("1340 1302") << QString();
    QTest::newRow("three come first") << codes("23 3 0") << codes("1841 1340") << TROIS_FRACTIONS;
}

void TestReglesConcentrations::fractions()
{
    QFETCH(QStringList, choisies);
    QFETCH(QStringList, parametres);
    QFETCH(QString, refus);
    QCOMPARE(refusFractions(choisies, parametres), refus);
}

void TestReglesConcentrations::fractionDemandee()
{
    QVERIFY(!demandeFraction({}));
    QVERIFY(!demandeFraction(codes("1340 1302")));
    QVERIFY(demandeFraction(codes("1841")));
    QVERIFY(demandeFraction(codes("1340 1841")));
}

// Each row spoils one control of a complete set; the three columns are what the three commands say of it, an empty text
// standing for nothing wrong.
void TestReglesConcentrations::controles_data()
{
    QTest::addColumn<Controles>("lus");
    QTest::addColumn<QString>("graphique");
    QTest::addColumn<QString>("rapport");
    QTest::addColumn<QString>("lesDeux");
    const auto cas = [](const char *nom, auto modifier, const QString &graphique, const QString &rapport,
                        const QString &lesDeux) {
        Controles c = complet();
        modifier(c);
        QTest::newRow(nom) << c << graphique << rapport << lesDeux;
    };
    const auto partout = [&cas](const char *nom, auto modifier, const QString &texte) {
        cas(nom, modifier, texte, texte, texte);
    };
    const QString rien;
    const QString periode = QStringLiteral("La période doit être entièrement renseignée");
    const QString parametre = QStringLiteral("Un paramètre doit être renseigné");
    partout(
        "complete", [](Controles &) {}, rien);
    partout(
        "no station", [](Controles &c) { c.station.clear(); },
        QStringLiteral("Le code de la station doit être renseigné"));
    partout(
        "no start", [](Controles &c) { c.debut = {}; }, periode);
    partout(
        "no end", [](Controles &c) { c.fin = {}; }, periode);
    partout(
        "no parameter", [](Controles &c) { c.parametres = 0; }, parametre);
    cas(
        "neither option",
        [](Controles &c) {
            c.choix = ChoixParametres::Aucun;
            c.parametres = 0;
        },
        QStringLiteral("Un choix entre un ou deux paramètre(s) doit être renseigné"), parametre, parametre);
    const QString unPourLeRapport =
        QStringLiteral("Vous devez sélectionner un paramètre avant d'éditer un rapport.");
    cas(
        "several, two chosen",
        [](Controles &c) {
            c.choix = ChoixParametres::Plusieurs;
            c.parametres = 2;
        },
        rien, unPourLeRapport, unPourLeRapport);
    cas(
        "several, none chosen",
        [](Controles &c) {
            c.choix = ChoixParametres::Plusieurs;
            c.parametres = 0;
        },
        parametre, unPourLeRapport, unPourLeRapport);
    const QString unSeul = QStringLiteral("Un seul paramètre doit être renseigné");
    cas(
        "more than one under the single choice", [](Controles &c) { c.parametres = 2; }, rien, unSeul,
        unSeul);
    partout(
        "end before start", [](Controles &c) { c.fin = QDate(2007, 12, 31); },
        QStringLiteral("Vous devez saisir une date de fin supérieure ou égale à la date de début"));
    partout(
        "one day", [](Controles &c) { c.fin = c.debut; }, rien);
    const QString sansValeur = QStringLiteral("Vous devez saisir une valeur pour l'échelle maximale");
    cas(
        "scale without a value", [](Controles &c) { c.echelleMaximale = true; }, sansValeur, rien,
        sansValeur);
    cas(
        "scale of blanks",
        [](Controles &c) {
            c.echelleMaximale = true;
            c.valeurEchelle = QStringLiteral("  ");
        },
        sansValeur, rien, sansValeur);
    const QString incorrecte = QStringLiteral("La saisie du nombre est incorrecte");
    cas(
        "scale that is no number",
        [](Controles &c) {
            c.echelleMaximale = true;
            c.valeurEchelle = QStringLiteral("cent");
        },
        incorrecte, rien, incorrecte);
    partout(
        "scale with a comma",
        [](Controles &c) {
            c.echelleMaximale = true;
            c.valeurEchelle = QStringLiteral("12,5");
        },
        rien);
    partout(
        "value without its box", [](Controles &c) { c.valeurEchelle = QStringLiteral("cent"); }, rien);
}

void TestReglesConcentrations::controles()
{
    QFETCH(Controles, lus);
    QFETCH(QString, graphique);
    QFETCH(QString, rapport);
    QFETCH(QString, lesDeux);
    QCOMPARE(message(lus, Commande::Graphique), graphique);
    QCOMPARE(message(lus, Commande::Rapport), rapport);
    QCOMPARE(message(lus, Commande::GraphiqueEtRapport), lesDeux);
}

// Everything is wrong at first; each thing put right lets the next check speak.
void TestReglesConcentrations::ordreDesControles()
{
    Controles c;
    c.echelleMaximale = true;
    c.valeurEchelle = QStringLiteral("x");
    const auto dit = [&c] { return message(c, Commande::Graphique); };
    QVERIFY(dit().startsWith(QStringLiteral("Le code de la station")));
    c.station = QStringLiteral("04211940");
    QVERIFY(dit().startsWith(QStringLiteral("La période")));
    c.debut = QDate(2009, 1, 2);
    c.fin = QDate(2009, 1, 1);
    QVERIFY(dit().startsWith(QStringLiteral("Un choix")));
    c.choix = ChoixParametres::UnSeul;
    QVERIFY(dit().startsWith(QStringLiteral("Un paramètre")));
    c.parametres = 1;
    QVERIFY(dit().startsWith(QStringLiteral("Vous devez saisir une date de fin")));
    c.fin = c.debut;
    QVERIFY(dit().startsWith(QStringLiteral("La saisie du nombre")));
    c.valeurEchelle = QStringLiteral("1");
    QCOMPARE(dit(), QString());
}

void TestReglesConcentrations::champs()
{
    Controles c;
    QVERIFY(premierRefus(c, Commande::Rapport)->champ == Champ::Station);
    c.station = QStringLiteral("04211940");
    QVERIFY(premierRefus(c, Commande::Rapport)->champ == Champ::DateDebut);
    c.debut = QDate(2009, 1, 1);
    QVERIFY(premierRefus(c, Commande::Rapport)->champ == Champ::DateFin);
    c.fin = c.debut;
    QVERIFY(premierRefus(c, Commande::Rapport)->champ == Champ::Parametre);
    QVERIFY(premierRefus(c, Commande::Graphique)->champ == Champ::ChoixParametres);
}

QTEST_GUILESS_MAIN(TestReglesConcentrations)
#include "test_regles_concentrations.moc"
