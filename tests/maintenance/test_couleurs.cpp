// The palette: made once, from a workbook beside the base or from the spreadsheet's own colours.
#include "BaseDEssai.h"
#include "maintenance/M_Couleurs.h"
#include "platform/Erreur.h"
#include "workbook/Tableur.h"

#include <QTest>

using namespace M_Couleurs;

class TestCouleurs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sansFichier();
    void avecFichier();
    void fichierIllisible();
    void chargerQuaranteLignesAuPlus();
    void uneTableDejaLa();

private:
    static QString cheminBase(const BaseDEssai &base) { return base.dossier.path() + u'/'; }
};

// Colours 17 to 56 of the classic palette of spreadsheets, as their documentation lists them: 17 is 9999FF (periwinkle), 56
// is 333333, 34 (light turquoise) is CCFFFF.
void TestCouleurs::sansFichier()
{
    const BaseDEssai base;
    Tableur tableur;
    CreerCouleurs(base.donnees, tableur, cheminBase(base));
    QCOMPARE(tableur.numeroProcessus(), 0); // not started for nothing
    QCOMPARE(base.compter(QStringLiteral("COULEURS_GRAPH")), 40);
    QCOMPARE(
        base.valeur(QStringLiteral("SELECT R || ' ' || G || ' ' || B FROM COULEURS_GRAPH WHERE ordre = 1"))
            .toString(),
        QStringLiteral("153 153 255"));
    QCOMPARE(
        base.valeur(QStringLiteral("SELECT R || ' ' || G || ' ' || B FROM COULEURS_GRAPH WHERE ordre = 18"))
            .toString(),
        QStringLiteral("204 255 255"));
    QCOMPARE(
        base.valeur(QStringLiteral("SELECT R || ' ' || G || ' ' || B FROM COULEURS_GRAPH WHERE ordre = 40"))
            .toString(),
        QStringLiteral("51 51 51"));
    const Palette palette = ChargerCouleurs(base.donnees);
    QCOMPARE(palette.R[0], 153);
    QCOMPARE(palette.B[39], 51);
}

// Row i holds i, 2i, 3i; one cell holds a text, one a number beyond a channel.
void TestCouleurs::avecFichier()
{
    const BaseDEssai base;
    Tableur tableur;
    {
        const auto classeur = tableur.ajouter();
        Valeurs lignes;
        for (int i = 1; i <= 40; ++i)
            lignes.append({double(i), double(2 * i), double(3 * i)});
        lignes[4][1] = QStringLiteral("rouge");
        lignes[5][2] = 999.0;
        classeur->feuille(1).plage(1, 1, 40, 3).ecrire(lignes);
        classeur->enregistrerSous(base.dossier.filePath(FICHIER.toString()));
        classeur->fermer();
    }
    CreerCouleurs(base.donnees, tableur, cheminBase(base));
    const Palette palette = ChargerCouleurs(base.donnees);
    for (std::size_t i = 0; i < 40; ++i) {
        const int n = static_cast<int>(i) + 1;
        QCOMPARE(palette.R[i], n);
        QCOMPARE(palette.G[i], n == 5 ? 0 : 2 * n);
        QCOMPARE(palette.B[i], n == 6 ? 255 : 3 * n);
    }
}

void TestCouleurs::fichierIllisible()
{
    const BaseDEssai base;
    QFile fichier(base.dossier.filePath(FICHIER.toString()));
    QVERIFY(fichier.open(QIODevice::WriteOnly));
    fichier.write(QByteArray("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1 cut short"));
    fichier.close();
    Tableur tableur;
    CreerCouleurs(base.donnees, tableur, cheminBase(base));
    QCOMPARE(ChargerCouleurs(base.donnees).R[0], 153);
}

void TestCouleurs::chargerQuaranteLignesAuPlus()
{
    const BaseDEssai base;
    base.sql(QStringLiteral("CREATE TABLE COULEURS_GRAPH (ordre integer, R integer, G integer, B integer)"));
    QCOMPARE(ChargerCouleurs(base.donnees), Palette());
    // In the order of `ordre`, whatever that of the rows.
    for (int i = 45; i >= 1; --i)
        base.sql(QStringLiteral("INSERT INTO COULEURS_GRAPH VALUES (?, ?, 0, 1)"), {i, i});
    const Palette palette = ChargerCouleurs(base.donnees);
    QCOMPARE(palette.R[0], 1);
    QCOMPARE(palette.R[39], 40);
    QCOMPARE(palette.B[39], 1);
}

// Nothing is left half made.
void TestCouleurs::uneTableDejaLa()
{
    const BaseDEssai base;
    base.sql(QStringLiteral("CREATE TABLE COULEURS_GRAPH (ordre integer)"));
    Tableur tableur;
    QVERIFY_THROWS_EXCEPTION(Erreur, CreerCouleurs(base.donnees, tableur, cheminBase(base)));
    QCOMPARE(base.compter(QStringLiteral("COULEURS_GRAPH")), 0);
    // No transaction is left open.
    base.sql(QStringLiteral("BEGIN"));
    base.sql(QStringLiteral("ROLLBACK"));
}

QTEST_GUILESS_MAIN(TestCouleurs)
#include "test_couleurs.moc"
