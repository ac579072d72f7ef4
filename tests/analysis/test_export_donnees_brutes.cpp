// The workbook, made by the real application and read back by another reader.
#include "analysis/EtudeBrute.h"
#include "analysis/ExportDonneesBrutes.h"
#include "ClasseurLu.h"
#include "DialogueDEssai.h"
#include "platform/Erreur.h"
#include "workbook/CoursRapport.h"

#include <QFile>
#include <QTest>

using namespace ExportDonneesBrutes;

namespace
{
const QString FEUILLE = QStringLiteral("Données brutes");

// Names and heights of a workbook's sheets, then cells ("0 G4": of the first sheet), by a reader that does not look at
// formats: a full sheet is read in seconds.
QString cellulesLues(const QString &chemin, const QStringList &cellules)
{
    static const char *const SCRIPT =
        "import sys, xlrd\n"
        "livre = xlrd.open_workbook(sys.argv[1])\n"
        "dits = [' '.join('%s:%d' % (f.name, f.nrows) for f in livre.sheets())]\n"
        "for lieu in sys.argv[2:]:\n"
        "    feuille, adresse = lieu.split()\n"
        "    dits.append(str(livre.sheet_by_index(int(feuille)).cell_value(int(adresse[1:]) - 1, ord(adresse[0]) - 65)))\n"
        "sys.stdout.buffer.write(' | '.join(dits).encode())\n";
    QProcess lecteur;
    lecteur.start(QStringLiteral("/usr/bin/python3"),
                  QStringList{QStringLiteral("-c"), QString::fromLatin1(SCRIPT), chemin} + cellules);
    lecteur.waitForFinished(120'000);
    return QString::fromUtf8(lecteur.readAllStandardOutput());
}
} // namespace

class TestExportDonneesBrutes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void feuillets();
    void avertissements();
    void classeur();
    void plusieursFeuilles();
    void annule();
    void annulePendantLaSauvegarde();
    void refus();
    void echec();

private:
    bool exporter(const EtudeBrute &etude, const std::shared_ptr<JeuDonneesBrutes> &jeu)
    {
        return ExportDonneesBrutes::exporter({m_dialogue, m_tableur, m_dossiers, m_etat}, etude.donnees, jeu);
    }
    void init()
    {
        m_dialogue.messages.clear();
        m_dialogue.questions.clear();
        m_dialogue.documents.clear();
        m_dialogue.aLaCession = {};
    }

    DialogueDEssai m_dialogue;
    Tableur m_tableur;
    DossiersRecents m_dossiers;
    EtatRapport m_etat;
};

void TestExportDonneesBrutes::feuillets()
{
    QCOMPARE(lignesParFeuille(QStringLiteral("/a/b.xls")), 65'535);
    QCOMPARE(lignesParFeuille(QStringLiteral("/a/b.XLSX")), 1'048'575);
    QCOMPARE(lignesParFeuille(QStringLiteral("/a/b.ods")), 1'048'575);
    QCOMPARE(lignesParFeuille(QStringLiteral("/a/b")), 65'535); // saved as .xls
    QCOMPARE(repartir(65'535, 65'535), (QList<Feuillet>{{FEUILLE, 0, 65'535}}));
    QCOMPARE(repartir(65'536, 65'535), (QList<Feuillet>{{FEUILLE + QStringLiteral(" 1"), 0, 65'535},
                                                        {FEUILLE + QStringLiteral(" 2"), 65'535, 1}}));
    // No row is left out, none stands twice.
    for (const qsizetype nombre : {1, 131'070, 131'071, 1'000'000, 3'000'000}) {
        qsizetype suivante = 0;
        for (const Feuillet &feuillet : repartir(nombre, 65'535)) {
            QCOMPARE(feuillet.premiere, suivante);
            QVERIFY(feuillet.nombre > 0 && feuillet.nombre <= 65'535);
            suivante += feuillet.nombre;
        }
        QCOMPARE(suivante, nombre);
    }
}

void TestExportDonneesBrutes::avertissements()
{
    QVERIFY(avertissement(65'535, QStringLiteral("a.xls")).isEmpty());
    QVERIFY(avertissement(1'000'000, QStringLiteral("a.xlsx")).isEmpty());
    // 1 000 000 / 65 535 = 15,26: sixteen sheets.
    QCOMPARE(avertissement(1'000'000, QStringLiteral("a.xls")),
             QStringLiteral(
                 "1\u00a0000\u00a0000 résultats sont à exporter, et une feuille de ce classeur en contient "
                 "65\u00a0535 au plus : ils seront répartis sur 16 feuilles.\nPour en mettre davantage sur "
                 "une feuille, répondez Non et choisissez le format .xlsx ; pour en exporter moins, utilisez "
                 "les filtres.\nVoulez-vous continuer ?"));
    QVERIFY(!avertissement(2'000'000, QStringLiteral("a.xlsx")).contains(QLatin1String(".xlsx")));
}

void TestExportDonneesBrutes::classeur()
{
    init();
    const EtudeBrute e;
    e.sql(QStringLiteral(
        "UPDATE STATION_QUALITE SET NomStationM = '=1+1' WHERE CodeSandreStationM = '04211950'"));
    const QString chemin = e.dossier.filePath(QStringLiteral("brutes.xls"));
    m_dialogue.fichiers.enqueue(chemin);
    QVERIFY(exporter(e, e.lire()));
    QCOMPARE(m_dialogue.messages.size(), 1);
    QCOMPARE(m_dialogue.messages[0].texte, QStringLiteral("L'export est terminé : 6 résultats écrits."));
    QCOMPARE(m_dialogue.documents, QStringList{chemin});
    QVERIFY(!m_etat.enCours());
    QVERIFY(!m_dialogue.progression(FenetreProgression::Principale).visible);
    QCOMPARE(m_dialogue.progression(FenetreProgression::Principale).derniereValeur, 6);

    const ClasseurLu lu(chemin);
    QVERIFY2(lu.lisible(), qPrintable(lu.erreurs()));
    QCOMPARE(lu.feuilles(), QStringList{FEUILLE});
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("A1")).toString(), QStringLiteral("Code station"));
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("N1")).toString(), QStringLiteral("Réseaux"));
    // Row 2 has lost its sampling; row 3 is nitrates of 01/03/2008, row 5 has an hour, row 6 another manager.
    QVERIFY(lu.valeur(FEUILLE, QStringLiteral("A2")).toString().isEmpty());
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("G2")).toDouble(), 99);
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("A3")).toString(), QStringLiteral("04211940"));
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("G3")).toDouble(), 12.25);
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("N3")).toString(),
             QStringLiteral("Réseau d'Armor | Réseau national"));
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("C3")).toString(), QStringLiteral("2008-03-01T00:00:00"));
    QCOMPARE(lu.cellule(FEUILLE, QStringLiteral("C3"))[QLatin1String("format")].toString().toLower(),
             QStringLiteral("dd/mm/yyyy"));
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("D5")).toString(), QStringLiteral("10:30:00"));
    QVERIFY(lu.valeur(FEUILLE, QStringLiteral("G5")).toVariant().toString().isEmpty());
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("G6")).toDouble(), 0.05);
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("I6")).toString(), QStringLiteral("10"));
    // A text that begins like a formula is a text.
    QCOMPARE(lu.valeur(FEUILLE, QStringLiteral("B6")).toString(), QStringLiteral("=1+1"));
}

// One row more than a sheet holds: the second sheet has it, in the order shown.
void TestExportDonneesBrutes::plusieursFeuilles()
{
    init();
    const EtudeBrute e;
    e.sql(QStringLiteral(
              "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 65530) "
              "INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC) SELECT ?, '1340', i FROM n"),
          {e.p1});
    const auto jeu = e.lire();
    QCOMPARE(jeu->nombre(), 65'536);
    const QString chemin = e.dossier.filePath(QStringLiteral("grand.xls"));
    m_dialogue.fichiers.enqueue(chemin);
    m_dialogue.reponses.enqueue(Reponse::Non);
    QVERIFY(!exporter(e, jeu));
    QVERIFY(!QFile::exists(chemin));
    m_dialogue.fichiers.enqueue(chemin);
    m_dialogue.reponses.enqueue(Reponse::Oui);
    QVERIFY(exporter(e, jeu));
    QCOMPARE(m_dialogue.questions.last().texte, avertissement(65'536, chemin));

    // After the lost one: the nitrates of p1 in the order of their keys, first 12,25, then 1, 2, … up to 65 530 in row
    // 65 533; its carbon, the pH without a value and the other station's nitrates fill the sheet.
    QCOMPARE(
        cellulesLues(chemin, QStringLiteral("0 G4;0 G65533;0 F65534;0 G65536;1 A1;1 F2;1 G2").split(u';')),
        QStringLiteral(
            "Données brutes 1:65536 Données brutes 2:2 | 1.0 | 65530.0 | Carbone Organique | 0.05 | "
            "Code station | Glyphosate | 0.1"));
}

// Given up: what stood under that name stays as it was.
void TestExportDonneesBrutes::annule()
{
    init();
    const EtudeBrute e;
    const QString chemin = e.dossier.filePath(QStringLiteral("ancien.xls"));
    QFile ancien(chemin);
    QVERIFY(ancien.open(QIODevice::WriteOnly));
    ancien.write("ancien");
    ancien.close();
    m_dialogue.fichiers.enqueue(chemin);
    m_dialogue.progression(FenetreProgression::Principale).annulationDemandee = true;
    QVERIFY(!exporter(e, e.lire()));
    m_dialogue.progression(FenetreProgression::Principale).annulationDemandee = false;
    QCOMPARE(m_dialogue.messages.last().texte,
             QStringLiteral("L'export est abandonné : aucun fichier n'a été créé ni remplacé."));
    QCOMPARE(QFile(chemin).size(), 6);
    QVERIFY(m_dialogue.documents.isEmpty());
}

// Given up while the application saves: it is ended, nothing is there, and the next export has another one.
void TestExportDonneesBrutes::annulePendantLaSauvegarde()
{
    init();
    const EtudeBrute e;
    e.sql(QStringLiteral(
              "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
              "INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC) SELECT ?, '1340', i FROM n"),
          {e.p1});
    const QString chemin = e.dossier.filePath(QStringLiteral("abandon.xlsx"));
    m_dialogue.fichiers.enqueue(chemin);
    ProgressionDEssai &barre = m_dialogue.progression(FenetreProgression::Principale);
    m_dialogue.aLaCession = [&barre] {
        barre.annulationDemandee = barre.texte == QLatin1String("Enregistrement du classeur");
    };
    QVERIFY(!exporter(e, e.lire()));
    m_dialogue.aLaCession = {};
    QVERIFY(barre.annulationDemandee);
    barre.annulationDemandee = false;
    QVERIFY(!QFile::exists(chemin));
    QCOMPARE(m_dialogue.messages.size(), 1);
    QCOMPARE(m_dialogue.messages[0].texte,
             QStringLiteral("L'export est abandonné : aucun fichier n'a été créé ni remplacé."));
    QVERIFY(!m_etat.enCours());

    m_dialogue.fichiers.enqueue(chemin);
    QVERIFY(exporter(e, e.lire()));
    QVERIFY(QFile::exists(chemin));
}

void TestExportDonneesBrutes::refus()
{
    init();
    const EtudeBrute e;
    QVERIFY(!exporter(e, nullptr));
    DemandeDonneesBrutes rien;
    rien.station = QStringLiteral("absente");
    QVERIFY(!exporter(e, e.lire(rien)));
    m_dialogue.fichiers.enqueue(std::nullopt);
    QVERIFY(!exporter(e, e.lire()));
    m_etat.definir(true);
    QVERIFY(!exporter(e, e.lire()));
    m_etat.definir(false);
    QVERIFY(m_dialogue.messages.isEmpty());
}

// The spreadsheet dies, or the folder is not there: a failure with its words, no file, everything given back.
void TestExportDonneesBrutes::echec()
{
    init();
    const EtudeBrute e;
    m_dialogue.fichiers.enqueue(e.dossier.filePath(QStringLiteral("absent/brutes.xls")));
    QVERIFY_EXCEPTION_THROWN(exporter(e, e.lire()), Erreur);
    QVERIFY(!m_etat.enCours());
    QVERIFY(!m_dialogue.progression(FenetreProgression::Principale).visible);

    Tableur absent;
    absent.definirProgramme(QStringLiteral("/nulle/part/soffice"));
    const QString chemin = e.dossier.filePath(QStringLiteral("sans.xls"));
    m_dialogue.fichiers.enqueue(chemin);
    QVERIFY_EXCEPTION_THROWN(
        ExportDonneesBrutes::exporter({m_dialogue, absent, m_dossiers, m_etat}, e.donnees, e.lire()),
        ErreurTableur);
    QVERIFY(!QFile::exists(chemin));
    QVERIFY(!m_etat.enCours());
}

QTEST_GUILESS_MAIN(TestExportDonneesBrutes)
#include "test_export_donnees_brutes.moc"
