// Workbooks, sheets and values on the real application, each through a file and back.
#include "ClasseurLu.h"
#include "workbook/BlocValeurs.h"
#include "workbook/Tableur.h"

#include <limits>
#include <QTemporaryDir>
#include <QtTest>

class TestClasseur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_tableur.demarrerEnAvance(); }
    void valeursAllerRetour_data();
    void valeursAllerRetour();
    void textesJamaisFormules();
    void texteTropLong();
    void valeursEtFormats();
    void datesGardentLeurFormat();
    void contenuSansFormats();
    void blocsPrets();
    void blocDansUnClasseurDe1904();
    void formatStandard();
    void hauteursFigees();
    void uneValeurPartout();
    void tailleDifferente();
    void valeurInconnue();
    void cellulesEnErreur();
    void grandePlageEnPlusieursMessages();
    void feuilles();
    void adresses();
    void noms();
    void lignesInserees();
    void cellulesDeplacees();
    void contenuVide();
    void blocCopieEtEfface();
    void repriseSousUnNom();
    void etendue();
    void classeurFerme();
    void modeleIntact();

private:
    QString chemin(const char *nom) const { return m_dossier.filePath(QString::fromUtf8(nom)); }
    std::unique_ptr<Classeur> relire(std::unique_ptr<Classeur> classeur, const QString &fichier)
    {
        classeur->enregistrerSous(fichier);
        classeur->fermer();
        return m_tableur.ouvrir(fichier);
    }
    static QString description(const std::function<void()> &appels)
    {
        try {
            appels();
        } catch (const Erreur &e) {
            return e.description();
        }
        return {};
    }

    Tableur m_tableur;
    QTemporaryDir m_dossier;
};

void TestClasseur::valeursAllerRetour_data()
{
    QTest::addColumn<QString>("fichier");
    QTest::newRow("xls") << chemin("écrit.xls");
    QTest::newRow("xlsx") << chemin("écrit.xlsx");
    QTest::newRow("ods") << chemin("écrit.ods");
    QTest::newRow("extension en capitales") << chemin("ÉCRIT.XLS");
}

void TestClasseur::valeursAllerRetour()
{
    QFETCH(QString, fichier);
    const Valeurs ecrites{
        {QStringLiteral("Évian"), QStringLiteral("00123"), 12.5, -3, QStringLiteral("sur\ndeux lignes")},
        {QDate(2009, 3, 1), QDateTime(QDate(2010, 12, 31), QTime(23, 59, 58)), QTime(14, 30), {}, 0.0}};
    auto classeur = m_tableur.ajouter();
    classeur->feuille(1).plage(2, 3, 3, 7).ecrire(ecrites);
    classeur = relire(std::move(classeur), fichier);
    QCOMPARE(classeur->chemin(), fichier);

    const Valeurs lues = classeur->feuille(1).plage(QStringLiteral("C2:G3")).valeurs();
    const QVector<QVariant> premiere{QStringLiteral("Évian"), QStringLiteral("00123"), 12.5, -3.0,
                                     QStringLiteral("sur\ndeux lignes")};
    const QVector<QVariant> seconde{QDateTime(QDate(2009, 3, 1), QTime(0, 0), Qt::UTC),
                                    QDateTime(QDate(2010, 12, 31), QTime(23, 59, 58), Qt::UTC), QTime(14, 30),
                                    QVariant(), 0.0};
    QCOMPARE(lues, (Valeurs{premiere, seconde}));
    QCOMPARE(classeur->feuille(1).cellule(2, 3).valeur(), QVariant(QStringLiteral("Évian")));
}

void TestClasseur::textesJamaisFormules()
{
    const QStringList textes{QStringLiteral("=1+1"),  QStringLiteral("+33 2 98"),
                             QStringLiteral("-5"),    QStringLiteral("@SOMME"),
                             QStringLiteral("'cité"), QStringLiteral("1/2"),
                             QStringLiteral("TRUE"),  QStringLiteral("  bords "),
                             QStringLiteral("1e3"),   QStringLiteral("=HYPERLINK(\"http://exemple\")")};
    auto classeur = m_tableur.ajouter();
    Valeurs colonne;
    for (const QString &texte : textes)
        colonne.append({texte});
    classeur->feuille(1).plage(1, 1, textes.size(), 1).ecrire(colonne);
    const QString fichier = chemin("textes.xls");
    classeur = relire(std::move(classeur), fichier);
    QCOMPARE(classeur->feuille(1).plage(1, 1, textes.size(), 1).valeurs(), colonne);

    const ClasseurLu lu(fichier);
    QVERIFY2(lu.lisible(), qPrintable(lu.erreurs()));
    const QString feuille = lu.feuilles().first();
    for (int i = 0; i < textes.size(); ++i) {
        const QString adresse = QStringLiteral("A%1").arg(i + 1);
        QCOMPARE(lu.cellule(feuille, adresse)[QLatin1String("type")].toString(), QStringLiteral("texte"));
        QCOMPARE(lu.valeur(feuille, adresse).toString(), textes.at(i));
    }
}

// A cell of a .xls holds 32 767 characters.
void TestClasseur::texteTropLong()
{
    auto classeur = m_tableur.ajouter();
    classeur->feuille(1)
        .plage(QStringLiteral("A1:A2"))
        .ecrire(Valeurs{{QString(32'767, u'é')}, {QString(100'000, u'z')}});
    classeur = relire(std::move(classeur), chemin("longs.xls"));
    const Valeurs lues = classeur->feuille(1).plage(QStringLiteral("A1:A2")).valeurs();
    QCOMPARE(lues.at(0).first().toString(), QString(32'767, u'é'));
    QCOMPARE(lues.at(1).first().toString(), QString(32'766, u'z') + QStringLiteral("…"));
}

// The formats that values call for, as xlrd sees them, and the serial numbers that Gnumeric sees: 1 March 2009 is day
// 39873 of the spreadsheet (day 1: 1 January 1900, with the 29 February 1900 that never was: 109 years of 365 days, 27
// leap days of 1904 to 2008, the one of 1900, then 31 + 28 days and one: 39785 + 27 + 1 + 59 + 1).
void TestClasseur::valeursEtFormats()
{
    auto classeur = m_tableur.ajouter();
    classeur->feuille(1).renommer(QStringLiteral("Données"));
    classeur->feuille(1)
        .plage(1, 1, 1, 4)
        .ecrire(Valeurs{{QDate(2009, 3, 1), QDateTime(QDate(2009, 3, 1), QTime(6, 0)), QTime(18, 0),
                         QStringLiteral("00123")}});
    const QString fichier = chemin("formats.xls");
    classeur->enregistrerSous(fichier);
    const ClasseurLu lu(fichier);
    const auto format = [&lu](const char *adresse) {
        return lu.cellule(QStringLiteral("Données"), QLatin1String(adresse))[QLatin1String("format")]
            .toString();
    };
    QCOMPARE(format("A1"), QStringLiteral("dd/mm/yyyy"));
    QCOMPARE(format("B1"), QStringLiteral("dd/mm/yyyy\\ hh:mm"));
    QCOMPARE(format("C1"), QStringLiteral("hh:mm"));
    QCOMPARE(lu.valeur(QStringLiteral("Données"), QStringLiteral("B1")).toString(),
             QStringLiteral("2009-03-01T06:00:00"));

    // The same cells in a second, independent spreadsheet.
    classeur->feuille(1).plage(QStringLiteral("A1:C1")).formatNombre(QStringLiteral("0.00"));
    classeur->enregistrer();
    QProcess gnumeric;
    gnumeric.start(QStringLiteral("ssconvert"), {fichier, chemin("formats.csv")});
    QVERIFY2(gnumeric.waitForFinished(30'000) && gnumeric.exitCode() == 0, "ssconvert (gnumeric)");
    QFile csv(chemin("formats.csv"));
    QVERIFY(csv.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(csv.readAll()), QStringLiteral("39873,39873.25,0.75,00123\n"));
}

void TestClasseur::datesGardentLeurFormat()
{
    auto classeur = m_tableur.ajouter();
    const Feuille feuille = classeur->feuille(1);
    feuille.plage(QStringLiteral("A1:A2")).formatNombre(QStringLiteral("dd/mm/yy"));
    feuille.plage(QStringLiteral("A1:B3")).ecrire(QDate(2010, 5, 20));
    const QString fichier = chemin("dates.xls");
    classeur->enregistrerSous(fichier);
    const ClasseurLu lu(fichier);
    const QString nom = lu.feuilles().first();
    for (const auto &[adresse, format] : {std::pair("A1", "dd/mm/yy"),
                                          {"A2", "dd/mm/yy"},
                                          {"A3", "dd/mm/yyyy"},
                                          {"B1", "dd/mm/yyyy"},
                                          {"B3", "dd/mm/yyyy"}})
        QCOMPARE(lu.cellule(nom, QLatin1String(adresse))[QLatin1String("format")].toString(),
                 QLatin1String(format));
}

// A date comes as its number, and goes in without its cell being given a format: 1 March 2009 is day 39 873 after
// 30 December 1899 (109 years of 365 days, 27 leap days from 1904 to 2008, 2 days of December, 31 + 28 days).
void TestClasseur::contenuSansFormats()
{
    const auto classeur = m_tableur.ajouter();
    const Feuille feuille = classeur->feuille(1);
    Plage plage = feuille.plage(1, 1, 1, 3);
    plage.ecrireContenu({{QDate(2009, 3, 1), QStringLiteral("=1+1"), QVariant()}});
    QCOMPARE(plage.contenu(), (Valeurs{{39873.0, QStringLiteral("=1+1"), QVariant()}}));
    QCOMPARE(feuille.cellule(1, 1).valeur(), QVariant(39873.0));
    feuille.cellule(1, 1).formatNombre(QStringLiteral("dd/mm/yyyy"));
    QCOMPARE(feuille.cellule(1, 1).valeur().toDateTime().date(), QDate(2009, 3, 1));
    QCOMPARE(plage.contenu().first().first(), QVariant(39873.0));
    QVERIFY(
        description([&] { plage.ecrireContenu({{1.0}}); }).contains(QStringLiteral("la taille de la plage")));
}

// Made ready before there is a workbook; a number that is not finite is the error of a cell, here too.
void TestClasseur::blocsPrets()
{
    const BlocValeurs bloc(
        {{QDate(2009, 3, 1), QStringLiteral("=1+1")}, {QVariant(), std::numeric_limits<double>::infinity()}});
    QCOMPARE(bloc.lignes(), 2);
    QCOMPARE(bloc.colonnes(), 2);
    QVERIFY(description([] {
                BlocValeurs({{QVariant(QByteArray("x"))}});
            }).contains(QStringLiteral("ne peut pas être écrite")));

    const auto classeur = m_tableur.ajouter();
    Feuille feuille = classeur->feuille(1);
    feuille.plage(2, 1, 3, 2).ecrireBloc(bloc);
    // A block of many messages' rows beside another: none in the other's place.
    Valeurs longues;
    for (int i = 0; i < 90'000; ++i)
        longues.append(QVector<QVariant>{double(i)});
    ecrireBlocs(feuille, {{2, 4, bloc}, {1, 7, BlocValeurs(longues)}, {4, 4, bloc}});
    const Valeurs lues = feuille.plage(1, 1, 6, 6).contenu();
    for (const auto &[ligne, colonne] : {std::pair(1, 0), std::pair(1, 3), std::pair(3, 3)}) {
        QCOMPARE(lues[ligne][colonne], QVariant(39873.0));
        QCOMPARE(lues[ligne][colonne + 1], QVariant(QStringLiteral("=1+1")));
        QVERIFY(!lues[ligne + 1][colonne].isValid());
        QCOMPARE(lues[ligne + 1][colonne + 1].value<ErreurCellule>().signe, QStringLiteral("#N/A"));
    }
    QVERIFY(!lues[0][0].isValid() && !lues[5][3].isValid());
    QCOMPARE(feuille.plage(1, 7, 90'000, 7).contenu(), longues);

    QVERIFY(description([&] {
                feuille.plage(1, 1, 3, 2).ecrireBloc(bloc);
            }).contains(QStringLiteral("la taille de la plage")));
}

// Some workbooks of old count their days from 1 January 1904: the same date is then another number.
void TestClasseur::blocDansUnClasseurDe1904()
{
    const QString fichier = chemin("1904.xls");
    m_tableur.ajouter()->enregistrerSous(fichier);
    QFile octets(fichier);
    QVERIFY(octets.open(QIODevice::ReadWrite));
    QByteArray contenu = octets.readAll();
    const QByteArray comptage("\x22\x00\x02\x00\x00\x00", 6); // the record of the day's origin, as usual
    QCOMPARE(contenu.count(comptage), 1);
    contenu[contenu.indexOf(comptage) + 4] = 1;
    octets.seek(0);
    octets.write(contenu);
    octets.close();

    const auto classeur = m_tableur.ouvrir(fichier);
    Feuille feuille = classeur->feuille(1);
    const BlocValeurs bloc({{QDate(2009, 3, 1)}});
    feuille.cellule(1, 1).ecrireBloc(bloc);
    ecrireBlocs(feuille, {{2, 1, bloc}});
    feuille.plage(1, 1, 2, 1).formatNombre(QStringLiteral("dd/mm/yyyy"));
    const Valeurs lues = feuille.plage(1, 1, 2, 1).valeurs();
    for (const QVector<QVariant> &rangee : lues)
        QCOMPARE(rangee.first().toDateTime().date(), QDate(2009, 3, 1));
    // 1 March 2009 less 1 January 1904: 1 462 days fewer than from 30 December 1899.
    QCOMPARE(feuille.cellule(1, 1).contenu().first().first(), QVariant(39873.0 - 1462.0));
}

// The standard format is taken back to where there was another; cells that have it do not enter the file for it.
void TestClasseur::formatStandard()
{
    const auto classeur = m_tableur.ajouter();
    Feuille feuille = classeur->feuille(1);
    feuille.renommer(QStringLiteral("F"));
    feuille.cellule(1, 1).ecrire(QDate(2009, 3, 1));
    feuille.plage(1, 1, 4, 2).formatNombre(QStringLiteral("General"));
    feuille.plage(1, 3, 4, 4).formatNombre(QStringLiteral("General"));
    feuille.cellule(1, 3).ecrire(2.5);
    const QString fichier = chemin("standard.xls");
    classeur->enregistrerSous(fichier);
    const ClasseurLu lu(fichier);
    for (const char *adresse : {"A1", "C1"})
        QCOMPARE(lu.cellule("F", QLatin1String(adresse))[QLatin1String("format")].toString(),
                 QStringLiteral("General"));
    for (const auto &[adresse, ecrite] : {std::pair("B4", true), {"C1", true}, {"C2", false}, {"D1", false}})
        QCOMPARE(lu.cellule("F", QLatin1String(adresse))[QLatin1String("ecrite")].toBool(), ecrite);
}

// A text of several lines makes its row grow, except in a workbook whose heights are fixed.
void TestClasseur::hauteursFigees()
{
    // In points, as an independent reader finds it in the file.
    const auto hauteur = [this](bool figees) {
        const auto classeur = m_tableur.ajouter();
        Feuille feuille = classeur->feuille(1);
        feuille.renommer(QStringLiteral("F"));
        feuille.hauteurLigne(2, 500);
        feuille.plage(1, 1, 2, 1).renvoiALaLigne(true);
        if (figees)
            classeur->figerHauteurs();
        feuille.cellule(1, 1).ecrire(QStringLiteral("un mot puis un autre ").repeated(10));
        const QString fichier = chemin(figees ? "figees.xls" : "libres.xls");
        classeur->enregistrerSous(fichier);
        return ClasseurLu(fichier).feuille("F")["hauteurs"].toObject()[QLatin1String("1")].toDouble();
    };
    QVERIFY(hauteur(true) > 0);
    QVERIFY(hauteur(false) > 2 * hauteur(true));
}

void TestClasseur::uneValeurPartout()
{
    auto classeur = m_tableur.ajouter();
    Plage plage = classeur->feuille(1).plage(QStringLiteral("B2:C4"));
    plage.ecrire(QStringLiteral("-"));
    const QVector<QVariant> rangee(2, QStringLiteral("-"));
    QCOMPARE(plage.valeurs(), Valeurs(3, rangee));
    plage.cellule(3, 1).ecrire(QVariant()); // B4
    QVERIFY(!classeur->feuille(1).cellule(4, 2).valeur().isValid());
    QCOMPARE(classeur->feuille(1).cellule(4, 3).valeur().toString(), QStringLiteral("-"));
    plage.ecrire(QString());
    QCOMPARE(classeur->feuille(1).derniereLigne(), 0);
}

void TestClasseur::tailleDifferente()
{
    auto classeur = m_tableur.ajouter();
    Plage plage = classeur->feuille(1).plage(1, 1, 2, 2);
    const QString attendu =
        QStringLiteral("Les valeurs à écrire n'ont pas la taille de la plage (2 lignes, 2 colonnes).");
    QCOMPARE(description([&plage] { plage.ecrire(Valeurs{{1.0, 2.0}}); }), attendu);
    QCOMPARE(description([&plage] { plage.ecrire(Valeurs{{1.0, 2.0}, {3.0}}); }), attendu);
}

void TestClasseur::valeurInconnue()
{
    auto classeur = m_tableur.ajouter();
    Plage cellule = classeur->feuille(1).cellule(1, 1);
    QCOMPARE(description([&cellule] { cellule.ecrire(QVariant(QSize(1, 2))); }),
             QStringLiteral("Une valeur de type « QSize » ne peut pas être écrite dans une cellule."));
}

void TestClasseur::cellulesEnErreur()
{
    auto classeur = m_tableur.ajouter();
    const Feuille feuille = classeur->feuille(1);
    Plage plage = feuille.plage(QStringLiteral("A1:C1"));
    plage.ecrire(Valeurs{{1.0, std::numeric_limits<double>::quiet_NaN(), QStringLiteral("#N/A")}});
    classeur = relire(std::move(classeur), chemin("erreurs.xls"));
    const Valeurs lues = classeur->feuille(1).plage(QStringLiteral("A1:C1")).valeurs();
    QCOMPARE(lues.first().at(0), QVariant(1.0));
    QVERIFY(lues.first().at(1).canConvert<ErreurCellule>());
    QCOMPARE(lues.first().at(1).value<ErreurCellule>().signe, QStringLiteral("#N/A"));
    QCOMPARE(lues.first().at(2), QVariant(QStringLiteral("#N/A"))); // a text that only looks like one
}

void TestClasseur::grandePlageEnPlusieursMessages()
{
    // More than what one message carries, with dates on both sides of the cut.
    constexpr int LIGNES = 12'000;
    constexpr int COLONNES = 10;
    Valeurs ecrites(LIGNES, QVector<QVariant>(COLONNES));
    for (int l = 0; l < LIGNES; ++l) {
        ecrites[l][0] = QDateTime(QDate(2000, 1, 1).addDays(l), QTime(0, 0), Qt::UTC);
        ecrites[l][1] = QStringLiteral("ligne %1").arg(l);
        for (int c = 2; c < COLONNES; ++c)
            ecrites[l][c] = l * 10.0 + c;
    }
    auto classeur = m_tableur.ajouter();
    Plage plage = classeur->feuille(1).plage(1, 1, LIGNES, COLONNES);
    plage.ecrire(ecrites);
    QCOMPARE(classeur->feuille(1).derniereLigne(), LIGNES);
    QCOMPARE(plage.valeurs(), ecrites);
}

void TestClasseur::feuilles()
{
    auto classeur = m_tableur.ajouter();
    QCOMPARE(classeur->feuilles().size(), 1);
    classeur->feuille(1).renommer(QStringLiteral("Données"));
    classeur->ajouterFeuille(QStringLiteral("Flux_Cumulé")).cellule(1, 1).ecrire(1.0);
    classeur->ajouterFeuille(QStringLiteral("Cachée")).cacher(true);
    classeur = relire(std::move(classeur), chemin("feuilles.xls"));
    QCOMPARE(classeur->feuilles(), (QStringList{QStringLiteral("Données"), QStringLiteral("Flux_Cumulé"),
                                                QStringLiteral("Cachée")}));
    QCOMPARE(classeur->feuille(2).nom(), QStringLiteral("Flux_Cumulé"));
    QCOMPARE(classeur->feuille(QStringLiteral("Flux_Cumulé")).cellule(1, 1).valeur().toDouble(), 1.0);
    QCOMPARE(description([&] { classeur->feuille(QStringLiteral("Mesures")); }),
             QStringLiteral("Le classeur n'a pas de feuille « Mesures »."));
    QCOMPARE(description([&] { classeur->feuille(4); }),
             QStringLiteral("Le classeur n'a pas de feuille n° 4."));
    QCOMPARE(description([&] { classeur->feuille(0); }),
             QStringLiteral("Le classeur n'a pas de feuille n° 0."));
    QCOMPARE(description([&] { classeur->ajouterFeuille(QStringLiteral("Données")); }),
             QStringLiteral("Le classeur a déjà une feuille « Données »."));
}

void TestClasseur::adresses()
{
    auto classeur = m_tableur.ajouter();
    const Feuille feuille = classeur->feuille(1);
    const Plage plage = feuille.plage(QStringLiteral("B2:D10"));
    QCOMPARE(QList<int>({plage.ligne(), plage.colonne(), plage.lignes(), plage.colonnes()}),
             QList<int>({2, 2, 9, 3}));
    const Plage cellule = plage.cellule(9, 3);
    QCOMPARE(QList<int>({cellule.ligne(), cellule.colonne(), cellule.lignes(), cellule.colonnes()}),
             QList<int>({10, 4, 1, 1}));
    QCOMPARE(description([&] { feuille.plage(QStringLiteral("pas une adresse")); }),
             QStringLiteral("« pas une adresse » n'est pas une adresse de cellules."));
    QCOMPARE(description([&] { feuille.cellule(0, 1); }),
             QStringLiteral("Les cellules L0C1 à L0C1 sont hors de la feuille."));
}

void TestClasseur::noms()
{
    auto classeur = m_tableur.ajouter();
    classeur->feuille(1).renommer(QStringLiteral("Codes réseaux"));
    classeur->nommerPlage(QStringLiteral("reseau_sandre"),
                          classeur->feuille(1).plage(QStringLiteral("A1:A2")));
    classeur->nommerPlage(QStringLiteral("reseau_sandre"),
                          classeur->feuille(1).plage(QStringLiteral("B2:C4")));
    classeur->feuille(1).cellule(2, 2).ecrire(QStringLiteral("ici"));
    const QString fichier = chemin("noms.xls");
    classeur = relire(std::move(classeur), fichier);
    const auto plage = classeur->plageNommee(QStringLiteral("reseau_sandre"));
    QVERIFY(plage.has_value());
    QCOMPARE(plage->lignes(), 3);
    QCOMPARE(plage->valeur().toString(), QStringLiteral("ici"));
    QVERIFY(!classeur->plageNommee(QStringLiteral("absent")).has_value());
    QCOMPARE(ClasseurLu(fichier).nom(QStringLiteral("reseau_sandre")),
             QStringLiteral("'Codes réseaux'!$B$2:$C$4"));
}

void TestClasseur::lignesInserees()
{
    auto classeur = m_tableur.ajouter();
    Feuille feuille = classeur->feuille(1);
    feuille.plage(QStringLiteral("A1:A3")).ecrire(Valeurs{{1.0}, {2.0}, {3.0}});
    feuille.cellule(2, 1).fond(33);
    feuille.insererLignes(3, 14);
    QCOMPARE(feuille.cellule(17, 1).valeur().toDouble(), 3.0);
    QCOMPARE(feuille.derniereLigne(), 17);
    QCOMPARE(feuille.cellule(3, 1).couleurFond(), 0x00CCFF); // the format of the row above
    feuille.supprimerLignes(2, 15);
    QCOMPARE(feuille.plage(QStringLiteral("A1:A2")).valeurs(), (Valeurs{{1.0}, {3.0}}));
}

void TestClasseur::cellulesDeplacees()
{
    auto classeur = m_tableur.ajouter();
    const Feuille feuille = classeur->feuille(1);
    feuille.plage(QStringLiteral("A1:B3")).ecrire(Valeurs{{1.0, 10.0}, {2.0, 20.0}, {3.0, 30.0}});
    feuille.cellule(2, 1).supprimerCellules(true);
    QCOMPARE(feuille.plage(QStringLiteral("A1:B3")).valeurs(),
             (Valeurs{{1.0, 10.0}, {3.0, 20.0}, {{}, 30.0}}));
    feuille.cellule(1, 1).insererCellules(true);
    QCOMPARE(feuille.plage(QStringLiteral("A1:B3")).valeurs(),
             (Valeurs{{{}, 10.0}, {1.0, 20.0}, {3.0, 30.0}}));
    feuille.cellule(2, 1).supprimerCellules(false);
    feuille.cellule(3, 1).insererCellules(false);
    QCOMPARE(feuille.plage(QStringLiteral("A1:C3")).valeurs(),
             (Valeurs{{{}, 10.0, {}}, {20.0, {}, {}}, {{}, 3.0, 30.0}}));
}

void TestClasseur::contenuVide()
{
    auto classeur = m_tableur.ajouter();
    Plage plage = classeur->feuille(1).plage(QStringLiteral("A1:B1"));
    plage.ecrire(Valeurs{{QDate(2009, 1, 1), QStringLiteral("x")}});
    plage.fond(6);
    plage.viderContenu();
    QCOMPARE(plage.valeurs(), (Valeurs{{QVariant(), QVariant()}}));
    QCOMPARE(plage.couleurFond(), 0xFFFF00);
}

void TestClasseur::blocCopieEtEfface()
{
    auto classeur = m_tableur.ajouter();
    Feuille feuille = classeur->feuille(1);
    Plage bloc = feuille.plage(QStringLiteral("A1:B2"));
    bloc.ecrire(Valeurs{{1.0, QStringLiteral("x")}, {QDate(2009, 1, 1), {}}});
    bloc.fond(33);
    const Valeurs attendues = bloc.valeurs();
    feuille.copier(bloc, 10, 3);
    const Plage copie = feuille.plage(QStringLiteral("C10:D11"));
    QCOMPARE(copie.valeurs(), attendues);
    QCOMPARE(copie.couleurFond(), 0x00CCFF);
    bloc.effacer();
    QCOMPARE(bloc.couleurFond(), -1);
    QVERIFY(!bloc.valeur().isValid());
    QCOMPARE(copie.valeurs(), attendues);
}

void TestClasseur::repriseSousUnNom()
{
    const QString modele = chemin("souche.xls");
    const QString rempli = chemin("repris.xls");
    {
        auto classeur = m_tableur.ajouter();
        classeur->feuille(1).cellule(1, 1).ecrire(QStringLiteral("souche"));
        classeur->enregistrerSous(modele);
    }
    auto classeur = m_tableur.ouvrir(modele);
    classeur->reprendreSous(rempli);
    QCOMPARE(classeur->chemin(), rempli);
    QCOMPARE(m_tableur.ouvrir(rempli)->feuille(1).cellule(1, 1).valeur().toString(),
             QStringLiteral("souche"));
    classeur->feuille(1).cellule(1, 1).ecrire(QStringLiteral("rempli"));
    classeur->enregistrer();
    QCOMPARE(m_tableur.ouvrir(rempli)->feuille(1).cellule(1, 1).valeur().toString(),
             QStringLiteral("rempli"));
    QCOMPARE(m_tableur.ouvrir(modele)->feuille(1).cellule(1, 1).valeur().toString(),
             QStringLiteral("souche"));
}

void TestClasseur::etendue()
{
    auto classeur = m_tableur.ajouter();
    Feuille feuille = classeur->feuille(1);
    QCOMPARE(feuille.derniereLigne(), 0);
    QCOMPARE(feuille.derniereColonne(), 0);
    feuille.cellule(40, 2).ecrire(QStringLiteral("bas"));
    feuille.cellule(3, 7).ecrire(1.0);
    feuille.cellule(100, 20).fond(3); // a format is not a content
    QCOMPARE(feuille.derniereLigne(), 40);
    QCOMPARE(feuille.derniereColonne(), 7);
}

void TestClasseur::classeurFerme()
{
    auto classeur = m_tableur.ajouter();
    const Feuille feuille = classeur->feuille(1);
    Plage cellule = feuille.cellule(1, 1);
    classeur->fermer();
    classeur->fermer(); // harmless
    const QString attendu = QStringLiteral("Le classeur est déjà fermé.");
    QCOMPARE(description([&] { classeur->feuilles(); }), attendu);
    QCOMPARE(description([&] { feuille.nom(); }), attendu);
    QCOMPARE(description([&] { cellule.ecrire(1.0); }), attendu);
    QCOMPARE(description([&] { classeur->enregistrerSous(chemin("ferme.xls")); }), attendu);
}

void TestClasseur::modeleIntact()
{
    const QString modele = chemin("modele.xls");
    {
        auto classeur = m_tableur.ajouter();
        classeur->feuille(1).cellule(1, 1).ecrire(QStringLiteral("modèle"));
        classeur->enregistrerSous(modele);
    }
    QFile fichier(modele);
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    const QByteArray avant = fichier.readAll();
    fichier.close();

    auto classeur = m_tableur.ouvrir(modele);
    classeur->enregistrerSous(chemin("rempli.xls"));
    classeur->feuille(1).cellule(1, 1).ecrire(QStringLiteral("rempli"));
    classeur->enregistrer();
    classeur->fermer();
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    QCOMPARE(fichier.readAll(), avant);
    QCOMPARE(m_tableur.ouvrir(chemin("rempli.xls"))->feuille(1).cellule(1, 1).valeur().toString(),
             QStringLiteral("rempli"));

    // Opened for reading only, it keeps its file from us.
    auto lecture = m_tableur.ouvrir(modele, true);
    QVERIFY(!description([&] { lecture->enregistrer(); }).isEmpty());
}

QTEST_GUILESS_MAIN(TestClasseur)
#include "test_classeur.moc"
