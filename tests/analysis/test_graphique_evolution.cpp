// The evolution chart wired on the real template, saved, and read back from the file's records and by Gnumeric.
//
// With OVRALIS_GARDER=DIR in the environment the workbooks stay there, to be looked at.
#include "analysis/DispositionEvolution.h"
#include "analysis/GraphiqueEvolution.h"
#include "ClasseurLu.h"
#include "GraphiqueLu.h"
#include "workbook/AxeGraphique.h"
#include "workbook/BoiteTexte.h"
#include "workbook/SerieGraphique.h"
#include "workbook/Tableur.h"

#include <cmath>
#include <QTemporaryDir>
#include <QtTest>

using namespace DispositionEvolution;

namespace
{
struct Cas {
    int jours = 350;     // of the period
    int pas = 7;         // days between two samples
    bool deux = false;   // a second curve, sampled the day after
    bool debit = false;  // a flow a day
    bool pluie = false;  // rain each third day
    bool reperes = true; // objectives, threshold, quantile, norm, bands
    bool codes = true;   // some points with remark codes
    std::optional<double> maximum;
};

struct Feuillet {
    Valeurs valeurs;
    DescriptionGraphiqueEvolution description;
};

double concentration(int jour, double decalage)
{
    return std::round((28 + decalage + 14 * std::cos(jour * 6.283 / 365) + 5 * std::sin(jour * 2.7)) * 10) /
           10;
}

// Rows as the filling routine writes them, merged by date.
Feuillet feuillet(const Cas &cas)
{
    Feuillet f;
    DescriptionGraphiqueEvolution &d = f.description;
    QVector<QVariant> noms(DERNIERE_COLONNE);
    const auto nommer = [&noms](int colonne, const char *nom) { noms[colonne - 1] = QString::fromUtf8(nom); };
    nommer(COLONNE_DATE, "Date");
    nommer(COLONNE_COURBE, "Nitrates (mg(NO3)/L)");
    nommer(COLONNE_COURBE + 1, "Phosphates (mg(PO4)/L)");
    nommer(COLONNE_OBJECTIF_MOYEN, "Objectif moyen (25 mg(NO3)/L)");
    nommer(COLONNE_OBJECTIF_MAXIMAL, "Objectif maximal (45 mg(NO3)/L)");
    nommer(COLONNE_DEBIT, "Débit - L'Arz à Molac (l/s)");
    nommer(COLONNE_PLUIE, "Pluie - Questembert (mm)");
    const char *const classes[] = {"SEQ-Eau bleu",        "SEQ-Eau vert",   "SEQ-Eau jaune",
                                   "SEQ-Eau jaune clair", "SEQ-Eau orange", "SEQ-Eau orange foncé",
                                   "SEQ-Eau rouge"};
    for (int bande = 0; bande < BANDES; ++bande)
        nommer(COLONNE_BANDES + bande, classes[bande]);
    nommer(COLONNE_SEUIL, "Seuil d'alerte (40 mg(NO3)/L)");
    nommer(COLONNE_QUANTILE, "Quantile 90 (43,1 mg(NO3)/L)");
    nommer(COLONNE_MEDIANE, "Médiane (28,3 mg(NO3)/L)");
    nommer(COLONNE_NORME, "Norme eau potable (50 mg(NO3)/L)");
    f.valeurs.append(noms);

    const QDate debut(2000, 1, 3);
    const double hauteurs[BANDES] = {2, 8, 15, 0, 25, 0, 25};
    for (int jour = 0; jour < cas.jours; ++jour) {
        QVector<QVariant> rangee(DERNIERE_COLONNE);
        const auto mettre = [&rangee](int colonne, double valeur) { rangee[colonne - 1] = valeur; };
        const bool premiere = jour % cas.pas == 0;
        const bool seconde = cas.deux && jour % cas.pas == 1;
        const bool pleut = cas.pluie && jour % 3 == 0;
        if (!premiere && !seconde && !cas.debit && !pleut)
            continue;
        rangee[COLONNE_DATE - 1] = debut.addDays(jour);
        for (const int courbe : {0, 1}) {
            if (!(courbe == 0 ? premiere : seconde))
                continue;
            mettre(COLONNE_COURBE + courbe, concentration(jour, courbe * 8));
            const int code =
                cas.codes ? (jour / cas.pas % 10 == 4 ? 2 : (jour / cas.pas % 10 == 7 ? 3 : 1)) : 1;
            mettre(COLONNE_CODE + courbe, code);
            if (code > 1)
                d.points.append({courbe, d.lignes, code});
            ++d.effectifs[static_cast<size_t>(courbe)];
        }
        if (cas.debit)
            mettre(COLONNE_DEBIT,
                   std::round(900 + 800 * std::cos(jour * 6.283 / 365) + 200 * std::sin(jour * 1.3)));
        if (pleut)
            mettre(COLONNE_PLUIE, jour % 15);
        mettre(COLONNE_MEDIANE, 28.3);
        if (cas.reperes) {
            mettre(COLONNE_OBJECTIF_MOYEN, 25);
            mettre(COLONNE_OBJECTIF_MAXIMAL, 45);
            for (int bande = 0; bande < BANDES; ++bande)
                mettre(COLONNE_BANDES + bande, hauteurs[bande]);
            mettre(COLONNE_SEUIL, 40);
            mettre(COLONNE_QUANTILE, 43.1);
            mettre(COLONNE_NORME, 50);
        }
        f.valeurs.append(rangee);
        ++d.lignes;
    }
    d.deuxCourbes = cas.deux;
    d.debit = cas.debit;
    d.pluie = cas.pluie;
    d.maximumSecondaire = cas.debit ? 1900 : (cas.pluie ? 12 : 0);
    d.objectifMoyen = d.objectifMaximal = d.seuil = d.quantile = d.norme = d.bandes = cas.reperes;
    d.mediane = !cas.deux;
    d.echelleMaximale = cas.maximum;
    d.titre = {QStringLiteral("BASSIN VERSANT :  L'Arz"),
               QStringLiteral("Evolution des teneurs en Nitrates à la station de mesure : 04200100"),
               QStringLiteral("Cours d'eau : L'Arz  -  Lieu-dit : Pont de Molac"),
               QStringLiteral("Période : janvier 2000 - décembre 2000")};
    d.figures = {
        QStringLiteral("Nombre de prélèvements : 50   Maximum : 47 mg(NO3)/L   Minimum : 9 mg(NO3)/L"),
        QStringLiteral("Source de données : Agence de l'eau")};
    d.titreAxe = QStringLiteral(" ( mg(NO3)/L ) ");
    d.titreAxeSecondaire = cas.debit ? QStringLiteral(" ( Débit l/s ) ")
                                     : (cas.pluie ? QStringLiteral(" ( Précipitations mm ) ")
                                                  : QStringLiteral(" ( mg(PO4)/L ) "));
    return f;
}
} // namespace

class TestGraphiqueEvolution : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dossier.isValid()); }
    void modeles_data();
    void modeles();
    void uneCourbe();
    void pointsMarques();
    void cinquantePoints_data();
    void cinquantePoints();
    void deuxCourbes();
    void deuxCourbesEtDebit();
    void debit();
    void pluie();
    void bandesVides();
    void ceQuiNeSertPas();
    void texteLong();
    void periodes_data();
    void periodes();
    void gnumeric();

private:
    static QString modele(const QString &nom)
    {
        return QStringLiteral(DOSSIER_CONSTRUCTION "/installation/Projet/Modèles/") + nom;
    }
    QString chemin(const QString &nom) const
    {
        const QString garde = qEnvironmentVariable("OVRALIS_GARDER");
        return (garde.isEmpty() ? m_dossier.path() : garde) + QLatin1Char('/') + nom + QStringLiteral(".xls");
    }
    // Fills the template, wires the chart, saves; the path of the file.
    QString tracer(const QString &nom, const Cas &cas,
                   const std::function<void(DescriptionGraphiqueEvolution &)> &retoucher = {})
    {
        const auto classeur = m_tableur.ouvrir(modele(QStringLiteral("Modele_concentr.xls")));
        Feuille feuille = classeur->feuille(QStringLiteral("Mesures"));
        Feuillet f = feuillet(cas);
        const int derniere = LIGNE_INTITULES + f.description.lignes;
        feuille.plage(LIGNE_INTITULES, 1, derniere, DERNIERE_COLONNE).ecrire(f.valeurs);
        feuille.plage(PREMIERE_LIGNE, 1, derniere, 1).formatNombre(QStringLiteral("dd/mm/yyyy"));
        if (retoucher)
            retoucher(f.description);
        cablerGraphiqueEvolution(feuille, f.description);
        classeur->enregistrerSous(chemin(nom));
        m_lignes = f.description.lignes;
        return chemin(nom);
    }
    QJsonObject relire(const QString &fichier)
    {
        const GraphiquesLus lus(fichier);
        if (!lus.lisible())
            qWarning("%s", qPrintable(lus.erreurs()));
        return lus.graphique(QStringLiteral("Mesures"));
    }
    // "Mesures!B9:B58" for "B", over the rows of the last file made.
    QString colonne(const char *lettre) const
    {
        return QStringLiteral("Mesures!%1%2:%1%3")
            .arg(QLatin1String(lettre))
            .arg(PREMIERE_LIGNE)
            .arg(PREMIERE_LIGNE + m_lignes - 1);
    }
    QStringList colonnes(std::initializer_list<const char *> lettres) const
    {
        QStringList adresses;
        for (const char *lettre : lettres)
            adresses << colonne(lettre);
        return adresses;
    }

    Tableur m_tableur;
    QTemporaryDir m_dossier;
    int m_lignes = 0;
};

namespace
{
int entier(const QJsonObject &objet, const char *nom)
{
    return objet[QLatin1String(nom)].toInt(-9999);
}
QString texte(const QJsonObject &objet, const char *nom)
{
    return objet[QLatin1String(nom)].toString();
}
QJsonObject partie(const QJsonObject &objet, const char *nom)
{
    return objet[QLatin1String(nom)].toObject();
}
} // namespace

void TestGraphiqueEvolution::modeles_data()
{
    QTest::addColumn<QString>("nom");
    QTest::addColumn<QStringList>("feuilles");
    QTest::newRow("graphique") << QStringLiteral("Modele_concentr.xls")
                               << QStringList{QStringLiteral("Mesures")};
    QTest::newRow("graphique et rapport")
        << QStringLiteral("Concentr_Rapport.xls")
        << QStringList{QStringLiteral("Données"), QStringLiteral("Mesures"), QStringLiteral("Rapport")};
}

// The series of a template are found by their numbers: their order is that of SerieEvolution, whoever reads the file.
void TestGraphiqueEvolution::modeles()
{
    QFETCH(QString, nom);
    QFETCH(QStringList, feuilles);
    const auto classeur = m_tableur.ouvrir(modele(nom), true);
    QCOMPARE(classeur->feuilles(), feuilles);
    const Graphique graphique =
        classeur->feuille(QStringLiteral("Mesures")).graphique(QStringLiteral("Graphique"));
    QCOMPARE(graphique.nombreSeries(), static_cast<int>(SERIES_EVOLUTION));
    const std::tuple<int, const char *, TypeSerie, int> attendues[] = {
        {SERIE_BLEU, "H", TypeSerie::AireEmpilee, 1},
        {SERIE_VERT, "I", TypeSerie::AireEmpilee, 1},
        {SERIE_JAUNE_CLAIR, "K", TypeSerie::AireEmpilee, 1},
        {SERIE_JAUNE, "J", TypeSerie::AireEmpilee, 1},
        {SERIE_ORANGE, "L", TypeSerie::AireEmpilee, 1},
        {SERIE_ORANGE_FONCE, "M", TypeSerie::AireEmpilee, 1},
        {SERIE_ROUGE, "N", TypeSerie::AireEmpilee, 1},
        {SERIE_COURBE_1, "B", TypeSerie::Ligne, 1},
        {SERIE_COURBE_2, "C", TypeSerie::Ligne, 1},
        {SERIE_OBJECTIF_MOYEN, "D", TypeSerie::Ligne, 1},
        {SERIE_OBJECTIF_MAXIMAL, "E", TypeSerie::Ligne, 1},
        {SERIE_SEUIL, "O", TypeSerie::Ligne, 1},
        {SERIE_QUANTILE, "P", TypeSerie::Ligne, 1},
        {SERIE_MEDIANE, "Q", TypeSerie::Ligne, 1},
        {SERIE_NORME, "R", TypeSerie::Ligne, 1},
        {SERIE_DEBIT, "F", TypeSerie::HistogrammeEmpile, 2},
        {SERIE_PLUIE, "G", TypeSerie::HistogrammeEmpile, 2}};
    for (const auto &[numero, lettre, type, groupe] : attendues) {
        const SerieGraphique serie = graphique.serie(numero);
        QCOMPARE(serie.adresseValeurs(),
                 QStringLiteral("Mesures.%1%2:%1%3").arg(QLatin1String(lettre)).arg(9).arg(10));
        QCOMPARE(serie.type(), type);
        QCOMPARE(serie.groupeAxes(), groupe);
    }
    QVERIFY(classeur->feuille(QStringLiteral("Mesures")).aZoneTexte(QStringLiteral("Text Box 1")));
}

void TestGraphiqueEvolution::uneCourbe()
{
    Cas cas;
    cas.maximum = 70;
    const QString fichier = tracer(QStringLiteral("une_courbe"), cas);
    QCOMPARE(m_lignes, 50);
    const QJsonObject graphique = relire(fichier);
    QCOMPARE(GraphiquesLus::valeurs(graphique),
             colonnes({"H", "I", "K", "J", "L", "M", "N", "B", "D", "E", "O", "P", "Q", "R"}));
    for (const QJsonValue &lue : graphique[QLatin1String("series")].toArray()) {
        const QJsonObject serie = lue.toObject();
        QCOMPARE(texte(serie, "abscisses"), colonne("A"));
        QCOMPARE(entier(serie, "groupe"), 1);
        const QChar lettre = texte(serie, "valeurs").at(8);
        QCOMPARE(texte(serie, "adresse_nom"),
                 QStringLiteral("Mesures!%1%2").arg(lettre).arg(LIGNE_INTITULES));
        const bool bande = lettre >= QLatin1Char('H') && lettre <= QLatin1Char('N');
        QCOMPARE(entier(serie, "type"), bande ? 76 : 65);
        if (bande)
            QCOMPARE(entier(partie(serie, "trait"), "style"), -4142);
        else
            QCOMPARE(entier(partie(serie, "marqueur"), "style"), lettre == QLatin1Char('B') ? 8 : -4142);
    }
    // The bands' fills, in palette numbers: pale blue, green, two yellows, two oranges, red.
    const std::pair<const char *, int> fonds[] = {{"H", 37}, {"I", 35}, {"K", 19}, {"J", 36},
                                                  {"L", 40}, {"M", 45}, {"N", 22}};
    for (const auto &[lettre, fond] : fonds)
        QCOMPARE(entier(GraphiquesLus::serie(graphique, colonne(lettre)), "index_fond"), fond);

    const QJsonObject dates = GraphiquesLus::axe(graphique, 1);
    QCOMPARE(texte(dates, "format"), QStringLiteral("dd/mm/yy"));
    QCOMPARE(entier(dates, "orientation"), 90);
    QVERIFY(dates[QLatin1String("temporel")].toBool());
    const QJsonObject valeurs = GraphiquesLus::axe(graphique, 2);
    QCOMPARE(texte(valeurs, "titre"), QStringLiteral(" ( mg(NO3)/L ) "));
    QCOMPARE(valeurs[QLatin1String("minimum")].toDouble(-1), 0.0);
    QCOMPARE(valeurs[QLatin1String("maximum")].toDouble(-1), 70.0);
    QVERIFY(valeurs[QLatin1String("pas")].isNull());
    QVERIFY(valeurs[QLatin1String("pas_mineur")].isNull());
    QVERIFY(GraphiquesLus::axe(graphique, 2, 2).isEmpty());
    // Samples stand on rows of their own: the curve goes on over the others.
    QCOMPARE(texte(graphique, "trous"), QStringLiteral("relies"));

    const GraphiquesLus lus(fichier);
    const QString boite = lus.texte(QStringLiteral("Mesures"), QStringLiteral("Text Box 1"));
    QCOMPARE(boite.split(QLatin1Char('\n')).size(), 6);
    QVERIFY(boite.startsWith(QStringLiteral("BASSIN VERSANT :  L'Arz\nEvolution des teneurs en Nitrates")));
}

// Samples 4, 14, 24... of ten have code 2, samples 7, 17... code 3: points 5, 15... and 8, 18... of the series.
void TestGraphiqueEvolution::pointsMarques()
{
    const QJsonObject graphique = relire(tracer(QStringLiteral("points"), Cas()));
    const QJsonObject points = partie(GraphiquesLus::serie(graphique, colonne("B")), "points");
    QCOMPARE(points.keys().size(), 10);
    for (int numero = 5; numero <= 45; numero += 10) {
        const QJsonObject cercle = partie(points[QString::number(numero)].toObject(), "marqueur");
        QCOMPARE(entier(cercle, "style"), 8);
        QCOMPARE(entier(cercle, "index_bord"), 3);
        QVERIFY(cercle[QLatin1String("sans_fond")].toBool());
        QCOMPARE(cercle[QLatin1String("taille")].toDouble(), 9.0);
        const QJsonObject croix = partie(points[QString::number(numero + 3)].toObject(), "marqueur");
        QCOMPARE(entier(croix, "style"), -4168);
        QCOMPARE(entier(croix, "index_bord"), 3);
        QCOMPARE(croix[QLatin1String("taille")].toDouble(), 9.0);
        // The line that leads to the point is the curve's own: navy, not red.
        const QJsonObject trait = partie(points[QString::number(numero)].toObject(), "trait");
        QCOMPARE(texte(trait, "couleur"), QStringLiteral("#000080"));
    }
}

void TestGraphiqueEvolution::cinquantePoints_data()
{
    QTest::addColumn<int>("mesures");
    QTest::addColumn<bool>("debit");
    QTest::addColumn<int>("marqueur");
    QTest::newRow("cinquante") << 50 << false << 8;
    QTest::newRow("cinquante et un") << 51 << false << -4142;
    // The rows of the flow are no points of the curve.
    QTest::newRow("cinquante parmi les débits") << 50 << true << 8;
}

void TestGraphiqueEvolution::cinquantePoints()
{
    QFETCH(int, mesures);
    QFETCH(bool, debit);
    QFETCH(int, marqueur);
    Cas cas;
    cas.jours = mesures * cas.pas;
    cas.debit = debit;
    const QJsonObject graphique = relire(tracer(QStringLiteral("points_%1_%2").arg(mesures).arg(debit), cas));
    const QJsonObject courbe = GraphiquesLus::serie(graphique, colonne("B"));
    QCOMPARE(entier(partie(courbe, "marqueur"), "style"), marqueur);
    // A marked point shows all the same.
    const QJsonObject points = partie(courbe, "points");
    const int cinquieme = debit ? 4 * cas.pas + 1 : 5;
    QCOMPARE(entier(partie(points[QString::number(cinquieme)].toObject(), "marqueur"), "style"), 8);
}

void TestGraphiqueEvolution::deuxCourbes()
{
    Cas cas;
    cas.deux = true;
    cas.reperes = false;
    const QJsonObject graphique = relire(tracer(QStringLiteral("deux_courbes"), cas));
    QCOMPARE(GraphiquesLus::valeurs(graphique), colonnes({"B", "C"}));
    const QJsonObject seconde = GraphiquesLus::serie(graphique, colonne("C"));
    QCOMPARE(entier(seconde, "groupe"), 2);
    QCOMPARE(entier(seconde, "type"), 65);
    QCOMPARE(texte(seconde, "abscisses"), colonne("A"));
    QCOMPARE(entier(partie(seconde, "marqueur"), "style"), 1);
    QCOMPARE(texte(GraphiquesLus::axe(graphique, 2, 2), "titre"), QStringLiteral(" ( mg(PO4)/L ) "));
    QVERIFY(GraphiquesLus::axe(graphique, 1, 2)[QLatin1String("temporel")].toBool());
    // Sample 4 of the second curve: its row is the second of its pair.
    const QJsonObject points = partie(seconde, "points");
    QCOMPARE(entier(partie(points[QStringLiteral("10")].toObject(), "marqueur"), "style"), 8);
}

void TestGraphiqueEvolution::deuxCourbesEtDebit()
{
    Cas cas;
    cas.deux = cas.debit = true;
    cas.reperes = false;
    const QJsonObject graphique = relire(tracer(QStringLiteral("deux_courbes_debit"), cas));
    QCOMPARE(GraphiquesLus::valeurs(graphique), colonnes({"B", "C", "F"}));
    QCOMPARE(entier(GraphiquesLus::serie(graphique, colonne("C")), "groupe"), 1);
    QCOMPARE(entier(GraphiquesLus::serie(graphique, colonne("F")), "groupe"), 2);
}

void TestGraphiqueEvolution::debit()
{
    Cas cas;
    cas.debit = true;
    const QJsonObject graphique = relire(tracer(QStringLiteral("debit"), cas));
    QCOMPARE(m_lignes, 350);
    const QJsonObject debit = GraphiquesLus::serie(graphique, colonne("F"));
    QCOMPARE(entier(debit, "type"), 52);
    QCOMPARE(entier(debit, "groupe"), 2);
    QCOMPARE(texte(debit, "abscisses"), colonne("A"));
    const QJsonObject axe = GraphiquesLus::axe(graphique, 2, 2);
    QCOMPARE(texte(axe, "titre"), QStringLiteral(" ( Débit l/s ) "));
    QCOMPARE(axe[QLatin1String("minimum")].toDouble(-1), 0.0);
    // 1900 l/s times 2.5 is 4750, whose round number is 5000.
    QCOMPARE(axe[QLatin1String("maximum")].toDouble(-1), 5000.0);
    QVERIFY(GraphiquesLus::serie(graphique, colonne("G")).isEmpty());
}

void TestGraphiqueEvolution::pluie()
{
    Cas cas;
    cas.pluie = true;
    const QJsonObject graphique = relire(tracer(QStringLiteral("pluie"), cas));
    const QJsonObject pluie = GraphiquesLus::serie(graphique, colonne("G"));
    QCOMPARE(entier(pluie, "type"), 52);
    QCOMPARE(entier(pluie, "groupe"), 2);
    QCOMPARE(texte(GraphiquesLus::axe(graphique, 2, 2), "titre"), QStringLiteral(" ( Précipitations mm ) "));
    QVERIFY(GraphiquesLus::serie(graphique, colonne("F")).isEmpty());
}

// A band of no height is there, and the legend does not name it.
void TestGraphiqueEvolution::bandesVides()
{
    Cas cas;
    const QJsonObject graphique =
        relire(tracer(QStringLiteral("bandes_vides"), cas, [](DescriptionGraphiqueEvolution &d) {
            d.bandesVides[3] = d.bandesVides[5] = true; // columns K and M
        }));
    for (const char *lettre : {"H", "I", "J", "K", "L", "M", "N"}) {
        const QJsonObject bande = GraphiquesLus::serie(graphique, colonne(lettre));
        QCOMPARE(entier(bande, "type"), 76);
        QCOMPARE(bande[QLatin1String("dans_legende")].toBool(), *lettre != 'K' && *lettre != 'M');
    }
}

// Series and cells that a run does not use are gone, those that it uses are there.
void TestGraphiqueEvolution::ceQuiNeSertPas()
{
    Cas cas;
    const QString fichier = tracer(QStringLiteral("sans_bandes"), cas, [](DescriptionGraphiqueEvolution &d) {
        d.bandes = d.norme = d.seuil = false;
    });
    const QJsonObject graphique = relire(fichier);
    QCOMPARE(GraphiquesLus::valeurs(graphique), colonnes({"B", "D", "E", "P", "Q"}));
    const ClasseurLu lu(fichier);
    QVERIFY(lu.lisible());
    for (const char *lettre : {"H", "N", "O", "R"})
        for (const char *ligne : {"8", "9", "58"})
            QVERIFY2(
                lu.valeur(QStringLiteral("Mesures"), QLatin1String(lettre) + QLatin1String(ligne)).isNull(),
                lettre);
    for (const char *lettre : {"B", "D", "P", "Q", "S"})
        QVERIFY2(!lu.valeur(QStringLiteral("Mesures"), QLatin1String(lettre) + QLatin1String("9")).isNull(),
                 lettre);
}

// A title of many long lines is set smaller.
void TestGraphiqueEvolution::texteLong()
{
    const QString fichier = tracer(QStringLiteral("texte_long"), Cas(), [](DescriptionGraphiqueEvolution &d) {
        d.titre[1] = QStringLiteral("Evolution des teneurs en ") + QString(200, QLatin1Char('x'));
        d.figures << QStringLiteral("Source de données : ") +
                         QStringLiteral("Syndicat intercommunal, ").repeated(12);
        d.figures << QStringLiteral("Fréquence de dépassement de l'objectif moyen : 60 %");
    });
    const GraphiquesLus lus(fichier);
    QVERIFY(lus.texte(QStringLiteral("Mesures"), QStringLiteral("Text Box 1"))
                .contains(QString(200, QLatin1Char('x'))));
}

void TestGraphiqueEvolution::periodes_data()
{
    QTest::addColumn<int>("jours");
    QTest::addColumn<int>("pas");
    QTest::newRow("un_mois") << 31 << 2;
    QTest::newRow("trente_ans") << 10'950 << 30;
}

// For the eye: the dates under one month and under thirty years.
void TestGraphiqueEvolution::periodes()
{
    QFETCH(int, jours);
    QFETCH(int, pas);
    Cas cas;
    cas.jours = jours;
    cas.pas = pas;
    const QJsonObject graphique = relire(tracer(QLatin1String(QTest::currentDataTag()), cas));
    QCOMPARE(GraphiquesLus::valeurs(graphique).size(), 14);
    QCOMPARE(texte(GraphiquesLus::axe(graphique, 1), "format"), QStringLiteral("dd/mm/yy"));
}

// A second spreadsheet makes the same series of the file, on the same ranges, without a word.
void TestGraphiqueEvolution::gnumeric()
{
    Cas cas;
    cas.debit = true;
    const QString fichier = tracer(QStringLiteral("gnumeric"), cas);
    const GnumericLu lu(fichier);
    QVERIFY2(lu.plaintes().isEmpty(), qPrintable(lu.plaintes()));
    QStringList attendues;
    for (const char *lettre : {"H", "I", "K", "J", "L", "M", "N", "B", "D", "E", "O", "P", "Q", "R", "F"})
        attendues << QStringLiteral("Mesures!$%1$%2:$%1$%3")
                         .arg(QLatin1String(lettre))
                         .arg(PREMIERE_LIGNE)
                         .arg(PREMIERE_LIGNE + m_lignes - 1);
    QStringList lues;
    for (const GnumericLu::Serie &serie : lu.series()) {
        lues << serie.valeurs;
        QCOMPARE(serie.abscisses, QStringLiteral("Mesures!$A$9:$A$%1").arg(PREMIERE_LIGNE + m_lignes - 1));
    }
    lues.sort();
    attendues.sort();
    QCOMPARE(lues, attendues);
    QCOMPARE(lu.genres(), (QStringList{QStringLiteral("GogAreaPlot"), QStringLiteral("GogBarColPlot"),
                                       QStringLiteral("GogLinePlot")}));
}

QTEST_MAIN(TestGraphiqueEvolution)
#include "test_graphique_evolution.moc"
