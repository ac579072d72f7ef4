// The looks of cells, read back by an independent reader.
#include "ClasseurLu.h"
#include "workbook/PaletteParDefaut.h"
#include "workbook/Tableur.h"

#include <QTemporaryDir>
#include <QtTest>

class TestStylePlage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void palette();
    void paletteHorsBornes();
    void fonds();
    void formats_data();
    void formats();
    void polices();
    void alignements();
    void bords();
    void fusionEtTailles();
    void impression();

private:
    QJsonObject cellule(const char *adresse) const
    {
        return m_lu->cellule(QStringLiteral("Données"), QLatin1String(adresse));
    }
    QJsonObject partie(const char *adresse, const char *nom) const
    {
        return cellule(adresse)[QLatin1String(nom)].toObject();
    }

    Tableur m_tableur;
    QTemporaryDir m_dossier;
    std::unique_ptr<ClasseurLu> m_lu;
};

namespace
{
constexpr const char *FORMATS[] = {"General", "@", "0", "0.00", "dd/mm/yyyy", "dd/mm/yy", "0.00%", "hh:mm"};
}

// One workbook holds it all: rows 1 to 56 the palette, then each test's cells.
void TestStylePlage::initTestCase()
{
    auto classeur = m_tableur.ajouter();
    Feuille feuille = classeur->feuille(1);
    feuille.renommer(QStringLiteral("Données"));
    for (int i = 1; i <= 56; ++i)
        feuille.cellule(i, 1).fond(i);
    feuille.plage(QStringLiteral("B1:B3")).fondRvb(0x123456);
    feuille.cellule(2, 2).sansFond();
    QCOMPARE(feuille.cellule(1, 2).couleurFond(), 0x123456);
    QCOMPARE(feuille.cellule(2, 2).couleurFond(), -1);

    int ligne = 1;
    for (const char *format : FORMATS) {
        Plage cellule = feuille.cellule(ligne++, 3);
        cellule.ecrire(39873.5);
        cellule.formatNombre(QLatin1String(format));
    }

    Plage police = feuille.plage(QStringLiteral("D1:D2"));
    police.ecrire(QStringLiteral("texte"));
    police.gras(true);
    police.italique(true);
    police.taillePolice(14);
    police.nomPolice(QStringLiteral("Courier New"));
    police.couleurPolice(0xFF0000);
    feuille.cellule(2, 4).gras(false);
    feuille.cellule(2, 4).italique(false);

    const Alignement horizontaux[] = {Alignement::Standard, Alignement::Gauche, Alignement::Centre,
                                      Alignement::Droite};
    for (int i = 0; i < 4; ++i)
        feuille.cellule(1 + i, 5).alignementHorizontal(horizontaux[i]);
    const Alignement verticaux[] = {Alignement::Haut, Alignement::Milieu, Alignement::Bas};
    for (int i = 0; i < 3; ++i)
        feuille.cellule(5 + i, 5).alignementVertical(verticaux[i]);
    feuille.cellule(8, 5).orientation(90);
    feuille.cellule(9, 5).renvoiALaLigne(true);

    // A block framed and ruled as the reports do: medium outside, thin inside.
    Plage bloc = feuille.plage(QStringLiteral("G2:I4"));
    for (const Bord cote : {Bord::Gauche, Bord::Haut, Bord::Bas, Bord::Droite})
        bloc.bord(cote, TraitBord::Continu, EpaisseurBord::Moyen);
    bloc.bord(Bord::InterieurVertical, TraitBord::Continu);
    bloc.bord(Bord::InterieurHorizontal, TraitBord::Continu);
    Plage diagonales = feuille.plage(QStringLiteral("G6:G7"));
    diagonales.bord(Bord::DiagonaleBas, TraitBord::Continu);
    diagonales.bord(Bord::DiagonaleHaut, TraitBord::Continu);
    feuille.cellule(7, 7).bord(Bord::DiagonaleHaut, TraitBord::Aucun);
    Plage seule = feuille.cellule(9, 7);
    for (const Bord cote : {Bord::Gauche, Bord::Haut, Bord::Bas, Bord::Droite, Bord::InterieurHorizontal,
                            Bord::InterieurVertical})
        seule.bord(cote, TraitBord::Continu, EpaisseurBord::Moyen);
    seule.bord(Bord::Haut, TraitBord::Aucun);

    feuille.plage(QStringLiteral("K2:L3")).fusionner();
    feuille.hauteurLigne(10, 1500);
    feuille.largeurColonne(11, 5000);

    const QString fichier = m_dossier.filePath(QStringLiteral("style.xls"));
    classeur->enregistrerSous(fichier);
    m_lu = std::make_unique<ClasseurLu>(fichier);
    QVERIFY2(m_lu->lisible(), qPrintable(m_lu->erreurs()));
}

// The indices that the reports use, from the classic palette: 3 red, 6 yellow, 33 sky blue, 34 light turquoise, 35 light
// green, 36 light yellow, 40 tan, 44 gold.
void TestStylePlage::palette()
{
    const QList<QPair<int, int>> connues{{1, 0x000000},  {2, 0xFFFFFF},  {3, 0xFF0000},  {6, 0xFFFF00},
                                         {15, 0xC0C0C0}, {33, 0x00CCFF}, {34, 0xCCFFFF}, {35, 0xCCFFCC},
                                         {36, 0xFFFF99}, {40, 0xFFCC99}, {44, 0xFFCC00}, {56, 0x333333}};
    for (const auto &[index, couleur] : connues)
        QCOMPARE(couleurParDefaut(index), couleur);
}

void TestStylePlage::paletteHorsBornes()
{
    QVERIFY_EXCEPTION_THROWN(couleurParDefaut(0), Erreur);
    QVERIFY_EXCEPTION_THROWN(couleurParDefaut(57), Erreur);
}

void TestStylePlage::fonds()
{
    // Ten colours stand twice in the palette (25 to 32, 34 and 54): a file bears either number for them. The others
    // keep theirs, since the reader knows the palette by itself.
    const QSet<int> doubles{25, 26, 27, 28, 29, 30, 31, 32, 34, 54};
    for (int i = 1; i <= 56; ++i) {
        const QJsonObject lue = cellule(qPrintable(QStringLiteral("A%1").arg(i)));
        QCOMPARE(lue[QLatin1String("fond")].toString(),
                 QStringLiteral("#%1").arg(couleurParDefaut(i), 6, 16, QLatin1Char('0')).toUpper());
        if (!doubles.contains(i))
            QCOMPARE(lue[QLatin1String("index_fond")].toInt(), i);
    }
    QCOMPARE(cellule("B1")[QLatin1String("fond")].toString(), QStringLiteral("#123456"));
    QVERIFY(cellule("B2")[QLatin1String("fond")].isNull());
    QCOMPARE(cellule("B3")[QLatin1String("fond")].toString(), QStringLiteral("#123456"));
}

void TestStylePlage::formats_data()
{
    QTest::addColumn<QString>("adresse");
    QTest::addColumn<QString>("format");
    int ligne = 1;
    for (const char *format : FORMATS)
        QTest::newRow(format) << QStringLiteral("C%1").arg(ligne++) << QString::fromLatin1(format);
}

void TestStylePlage::formats()
{
    QFETCH(QString, adresse);
    QFETCH(QString, format);
    QCOMPARE(cellule(qPrintable(adresse))[QLatin1String("format")].toString(), format);
}

void TestStylePlage::polices()
{
    const QJsonObject d1 = partie("D1", "police");
    QCOMPARE(d1[QLatin1String("gras")].toBool(), true);
    QCOMPARE(d1[QLatin1String("italique")].toBool(), true);
    QCOMPARE(d1[QLatin1String("taille")].toDouble(), 14.0);
    QCOMPARE(d1[QLatin1String("nom")].toString(), QStringLiteral("Courier New"));
    QCOMPARE(d1[QLatin1String("couleur")].toString(), QStringLiteral("#FF0000"));
    const QJsonObject d2 = partie("D2", "police");
    QCOMPARE(d2[QLatin1String("gras")].toBool(), false);
    QCOMPARE(d2[QLatin1String("italique")].toBool(), false);
    QCOMPARE(d2[QLatin1String("taille")].toDouble(), 14.0);
}

// Numbers of [MS-XLS] 2.4.353: horizontal 0 general, 1 left, 2 centre, 3 right; vertical 0 top, 1 centre, 2 bottom.
void TestStylePlage::alignements()
{
    for (int i = 0; i < 4; ++i)
        QCOMPARE(
            partie(qPrintable(QStringLiteral("E%1").arg(1 + i)), "alignement")[QLatin1String("horizontal")]
                .toInt(),
            i);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(partie(qPrintable(QStringLiteral("E%1").arg(5 + i)), "alignement")[QLatin1String("vertical")]
                     .toInt(),
                 i);
    QCOMPARE(partie("E8", "alignement")[QLatin1String("rotation")].toInt(), 90);
    QVERIFY(partie("E9", "alignement")[QLatin1String("renvoi")].toBool());
    QVERIFY(!partie("E8", "alignement")[QLatin1String("renvoi")].toBool());
}

// Line styles of [MS-XLS] 2.5.11: 0 none, 1 thin, 2 medium. A line between two cells may be borne by either.
void TestStylePlage::bords()
{
    const auto trait = [this](const char *adresse, const char *cote) {
        return partie(adresse, "bords")[QLatin1String(cote)].toInt();
    };
    for (const char *adresse : {"G2", "G3", "G4"})
        QCOMPARE(trait(adresse, "gauche"), 2);
    for (const char *adresse : {"I2", "I3", "I4"})
        QCOMPARE(trait(adresse, "droite"), 2);
    for (const char *adresse : {"G2", "H2", "I2"})
        QCOMPARE(trait(adresse, "haut"), 2);
    for (const char *adresse : {"G4", "H4", "I4"})
        QCOMPARE(trait(adresse, "bas"), 2);
    QCOMPARE(qMax(trait("G3", "droite"), trait("H3", "gauche")), 1);
    QCOMPARE(qMax(trait("H2", "bas"), trait("H3", "haut")), 1);
    QCOMPARE(qMax(trait("F3", "droite"), trait("H1", "bas")), 0);
    QCOMPARE(qMax(trait("J3", "gauche"), trait("H5", "haut")), 0);

    QCOMPARE(trait("G6", "diagonale"), 1);
    QVERIFY(partie("G6", "diagonales")[QLatin1String("bas")].toBool());
    QVERIFY(partie("G6", "diagonales")[QLatin1String("haut")].toBool());
    QVERIFY(partie("G7", "diagonales")[QLatin1String("bas")].toBool());
    QVERIFY(!partie("G7", "diagonales")[QLatin1String("haut")].toBool());

    QCOMPARE(trait("G9", "haut"), 0);
    QCOMPARE(trait("G9", "bas"), 2);
    QCOMPARE(trait("G9", "gauche"), 2);
    QCOMPARE(trait("G9", "droite"), 2);
}

void TestStylePlage::fusionEtTailles()
{
    const QJsonObject feuille = m_lu->feuille(QStringLiteral("Données"));
    QCOMPARE(feuille[QLatin1String("fusions")].toArray(), (QJsonArray{QStringLiteral("K2:L3")}));
    // 15 mm in points of 1/72 inch: 42.5, to the twentieth.
    QVERIFY(qAbs(feuille[QLatin1String("hauteurs")].toObject()[QLatin1String("10")].toDouble() - 42.5) < 0.1);
}

// What is laid out for printing survives the file: pages counted in the PDF made from it. 120 rows of about 4.5 mm in
// portrait with 15 mm margins (267 mm high) take 3 pages at most and 2 at least; fitted to one page they take one.
void TestStylePlage::impression()
{
    const QString fichier = m_dossier.filePath(QStringLiteral("impression.xls"));
    const auto pages = [this](const QString &pdf) {
        QProcess lecteur;
        lecteur.start(QStringLiteral("pdfinfo"), {pdf});
        lecteur.waitForFinished(30'000);
        return QString::fromUtf8(lecteur.readAllStandardOutput());
    };
    {
        auto classeur = m_tableur.ajouter();
        Feuille longue = classeur->feuille(1);
        longue.plage(1, 1, 120, 12).ecrire(QVariant(1.5));
        MiseEnPage page;
        page.paysage = true;
        page.pagesEnHauteur = 1;
        page.piedDroite = QStringLiteral("Page &P sur &N");
        longue.mettreEnPage(page);
        classeur->enregistrerSous(fichier);
    }
    auto classeur = m_tableur.ouvrir(fichier);
    const QString pdf = m_dossier.filePath(QStringLiteral("impression.pdf"));
    classeur->exporterPdf(pdf);
    const QString infos = pages(pdf);
    QVERIFY2(infos.contains(QRegularExpression(QStringLiteral("Pages: +1\\n"))), qPrintable(infos));
    QVERIFY2(infos.contains(QRegularExpression(QStringLiteral("Page size: +84[12][.0-9]* x 595"))),
             qPrintable(infos));
    QProcess texte;
    texte.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    texte.waitForFinished(30'000);
    QVERIFY(texte.readAllStandardOutput().contains("Page 1 sur 1"));

    MiseEnPage portrait;
    portrait.premiereLigneRepetee = 1;
    classeur->feuille(1).cellule(1, 1).ecrire(QStringLiteral("Repris en tête"));
    classeur->feuille(1).mettreEnPage(portrait);
    classeur->exporterPdf(pdf);
    const QString enPortrait = pages(pdf);
    const auto nombre = QRegularExpression(QStringLiteral("Pages: +([23])\\n")).match(enPortrait);
    QVERIFY2(nombre.hasMatch(), qPrintable(enPortrait));
    texte.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    texte.waitForFinished(30'000);
    QCOMPARE(texte.readAllStandardOutput().count("Repris en"), nombre.captured(1).toInt());
}

QTEST_GUILESS_MAIN(TestStylePlage)
#include "test_style_plage.moc"
