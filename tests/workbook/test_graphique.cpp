// Charts and text boxes through the .xls round trip: made, saved, reopened, changed, saved again; read back from the file's
// records and by Gnumeric.
#include "ClasseurLu.h"
#include "GraphiqueLu.h"
#include "workbook/AxeGraphique.h"
#include "workbook/BoiteTexte.h"
#include "workbook/FichierCompose.h"
#include "workbook/PaletteParDefaut.h"
#include "workbook/RetouchesGraphique.h"
#include "workbook/SerieGraphique.h"
#include "workbook/Tableur.h"

#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

namespace
{
const QString FEUILLE = QStringLiteral("Mesures d'eau"); // a name that needs quotes in an address
constexpr int LIGNES = 6;

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
QString adresse(const char *cellules)
{
    return FEUILLE + QLatin1Char('!') + QLatin1String(cellules);
}
// Address of the values in a column, from 1.
QString colonneDe(int colonne)
{
    const QString lettre(QChar(u'A' + colonne - 1));
    return FEUILLE + QLatin1Char('!') + lettre + QLatin1String("2:") + lettre + QLatin1Char('7');
}
} // namespace

class TestGraphique : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void couleurs();
    void types_data();
    void types();
    void serieParNom();
    void changements();
    void suppression();
    void marqueurs();
    void traits();
    void etiquettes();
    void axes();
    void titreEtLegende();
    void plusieursGraphiques();
    void boites();
    void memeSeriesDansGnumeric();
    void horsLegende();
    void fluxAllonge();
    void retouchesDUnFichierAbime();

private:
    QString chemin(const char *nom) const
    {
        return m_dossier.filePath(QLatin1String(nom) + QStringLiteral(".xls"));
    }
    // A sheet with dates in A and numbers in B to F under headings, and an empty chart; saved and reopened.
    std::unique_ptr<Classeur> preparer()
    {
        auto classeur = m_tableur.ajouter();
        Feuille feuille = classeur->feuille(1);
        feuille.renommer(FEUILLE);
        Valeurs valeurs{{QStringLiteral("Date"), QStringLiteral("Un"), QStringLiteral("Deux"),
                         QStringLiteral("Trois"), QStringLiteral("Quatre"), QStringLiteral("Cinq")}};
        for (int i = 0; i < LIGNES; ++i)
            valeurs.append({QDate(2010, 1, 1).addDays(i), 1.0 + i, 10.0 + i, 20.0 - i, 5.0, 1.0});
        feuille.plage(1, 1, LIGNES + 1, 6).ecrire(valeurs);
        feuille.ajouterGraphique(QStringLiteral("Graphique"), {20'000, 1'000, 16'000, 9'000});
        return classeur;
    }
    static SerieGraphique ajouter(const Feuille &feuille, Graphique &graphique, int colonne, TypeSerie type,
                                  int groupe = 1)
    {
        SerieGraphique serie = graphique.nouvelleSerie(type, groupe);
        serie.valeurs(feuille.plage(2, colonne, LIGNES + 1, colonne));
        serie.nommer(feuille.cellule(1, colonne));
        serie.abscisses(feuille.plage(2, 1, LIGNES + 1, 1));
        return serie;
    }
    static Graphique leGraphique(const Classeur &classeur)
    {
        return classeur.feuille(FEUILLE).graphique(QStringLiteral("Graphique"));
    }

    Tableur m_tableur;
    QTemporaryDir m_dossier;
};

void TestGraphique::initTestCase()
{
    QVERIFY(m_dossier.isValid());
}

void TestGraphique::couleurs()
{
    QCOMPARE(Teinte::index(3).rvb(), 0xFF0000);
    QVERIFY(Teinte::index(-4105).estAutomatique());
    QVERIFY(Teinte::index(-4142).estAucune());
    // Scheme colours count the palette from 8; the first eight are there twice.
    QCOMPARE(Teinte::schema(10), Teinte::index(3));
    QCOMPARE(Teinte::schema(2), Teinte::index(3));
    QCOMPARE(Teinte::schema(63), Teinte::index(56));
    QVERIFY_EXCEPTION_THROWN(Teinte::index(57), Erreur);
    QVERIFY_EXCEPTION_THROWN(Teinte::schema(64), Erreur);
}

void TestGraphique::types_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {65, 51, 52, 76, -4169})
        QTest::addRow("%d", type) << type;
}

void TestGraphique::types()
{
    QFETCH(int, type);
    const QString fichier = chemin("types");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        ajouter(feuille, graphique, 2, static_cast<TypeSerie>(type));
        ajouter(feuille, graphique, 3, static_cast<TypeSerie>(type));
        classeur->enregistrerSous(fichier);
    }
    const QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    QCOMPARE(GraphiquesLus::valeurs(lu), (QStringList{adresse("B2:B7"), adresse("C2:C7")}));
    for (const char *valeurs : {"B2:B7", "C2:C7"}) {
        const QJsonObject serie = GraphiquesLus::serie(lu, adresse(valeurs));
        QCOMPARE(entier(serie, "type"), type);
        QCOMPARE(texte(serie, "abscisses"), adresse("A2:A7"));
        QCOMPARE(texte(serie, "adresse_nom"), adresse(valeurs).left(FEUILLE.size() + 2) + QLatin1Char('1'));
    }
    const auto classeur = m_tableur.ouvrir(fichier);
    const Graphique relu = leGraphique(*classeur);
    QCOMPARE(relu.nombreSeries(), 2);
    QCOMPARE(static_cast<int>(relu.serie(1).type()), type);
    QVERIFY(relu.serie(1).adresseAbscisses().endsWith(QLatin1String("A2:A7")));
}

void TestGraphique::serieParNom()
{
    const QString fichier = chemin("noms");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        ajouter(feuille, graphique, 2, TypeSerie::Ligne);
        ajouter(feuille, graphique, 3, TypeSerie::Ligne);
        classeur->enregistrerSous(fichier);
    }
    const auto classeur = m_tableur.ouvrir(fichier);
    const Graphique graphique = leGraphique(*classeur);
    QCOMPARE(graphique.serie(QStringLiteral("Deux")).adresseValeurs(), graphique.serie(2).adresseValeurs());
    QVERIFY(!graphique.aSerie(QStringLiteral("Trois")));
    QVERIFY_EXCEPTION_THROWN(graphique.serie(QStringLiteral("Trois")), Erreur);
    QVERIFY_EXCEPTION_THROWN(graphique.serie(3), Erreur);
    QVERIFY_EXCEPTION_THROWN(graphique.serie(0), Erreur);
    QVERIFY_EXCEPTION_THROWN(classeur->feuille(FEUILLE).graphique(QStringLiteral("Autre")), Erreur);
    // The name follows its cell.
    classeur->feuille(FEUILLE).cellule(1, 3).ecrire(QStringLiteral("Nouveau nom"));
    QVERIFY(graphique.aSerie(QStringLiteral("Nouveau nom")));
}

// Series of a reopened file: other ranges, types and axes; their numbers do not move.
void TestGraphique::changements()
{
    const QString fichier = chemin("changements");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        for (int colonne = 2; colonne <= 4; ++colonne)
            ajouter(feuille, graphique, colonne, TypeSerie::Ligne);
        QVERIFY(!graphique.aAxeSecondaire());
        QVERIFY_EXCEPTION_THROWN(graphique.axe(TypeAxe::Valeur, 2), Erreur);
        classeur->enregistrerSous(fichier);
    }
    {
        const auto classeur = m_tableur.ouvrir(fichier);
        Graphique graphique = leGraphique(*classeur);
        const Feuille feuille = classeur->feuille(FEUILLE);
        graphique.serie(1).changerType(TypeSerie::AireEmpilee);
        graphique.serie(2).changerGroupeAxes(2);
        graphique.serie(2).changerType(TypeSerie::HistogrammeEmpile);
        graphique.serie(3).valeurs(feuille.plage(2, 5, 4, 5));
        graphique.serie(3).nommer(feuille.cellule(1, 5));
        QCOMPARE(graphique.serie(2).type(), TypeSerie::HistogrammeEmpile);
        QVERIFY(graphique.aAxeSecondaire());
        classeur->enregistrer();
    }
    const QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    QCOMPARE(entier(GraphiquesLus::serie(lu, adresse("B2:B7")), "type"), 76);
    const QJsonObject deux = GraphiquesLus::serie(lu, adresse("C2:C7"));
    QCOMPARE(entier(deux, "type"), 52);
    QCOMPARE(entier(deux, "groupe"), 2);
    QCOMPARE(texte(deux, "abscisses"), adresse("A2:A7"));
    const QJsonObject trois = GraphiquesLus::serie(lu, adresse("E2:E4"));
    QCOMPARE(entier(trois, "type"), 65);
    QCOMPARE(texte(trois, "adresse_nom"), adresse("E1"));
}

void TestGraphique::suppression()
{
    const QString fichier = chemin("suppression");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        ajouter(feuille, graphique, 2, TypeSerie::Ligne);
        ajouter(feuille, graphique, 3, TypeSerie::HistogrammeEmpile, 2);
        ajouter(feuille, graphique, 4, TypeSerie::Ligne);
        classeur->enregistrerSous(fichier);
    }
    {
        const auto classeur = m_tableur.ouvrir(fichier);
        Graphique graphique = leGraphique(*classeur);
        // The file gives the primary axes first: B, D, then C.
        QVERIFY(graphique.serie(3).adresseValeurs().endsWith(QLatin1String("C2:C7")));
        graphique.supprimerSeries({1, 3});
        QCOMPARE(graphique.nombreSeries(), 1);
        QVERIFY(!graphique.aAxeSecondaire());
        classeur->enregistrer();
    }
    const QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    QCOMPARE(GraphiquesLus::valeurs(lu), QStringList{adresse("D2:D7")});
    QVERIFY(GraphiquesLus::axe(lu, 2, 2).isEmpty());
}

void TestGraphique::marqueurs()
{
    const std::pair<Marqueur, int> styles[] = {{Marqueur::Aucun, -4142},
                                               {Marqueur::Cercle, 8},
                                               {Marqueur::Croix, -4168},
                                               {Marqueur::Carre, 1},
                                               {Marqueur::Losange, 2}};
    const QString fichier = chemin("marqueurs");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        int colonne = 2;
        for (const auto &[style, numero] : styles)
            ajouter(feuille, graphique, colonne++, TypeSerie::Ligne)
                .marqueur({style, 6 + colonne, Teinte::index(5), Teinte::index(6)});
        graphique.serie(3).marqueurs({1, 4, 6}, {Marqueur::Cercle, 9, Teinte::index(3), Teinte::aucune()});
        classeur->enregistrerSous(fichier);
        // The retouches hold for each save.
        classeur->enregistrer();
    }
    const QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    int colonne = 2;
    for (const auto &[style, numero] : styles) {
        const QString valeurs = colonneDe(colonne);
        const QJsonObject marqueur = partie(GraphiquesLus::serie(lu, valeurs), "marqueur");
        QCOMPARE(entier(marqueur, "style"), numero);
        ++colonne;
        if (style == Marqueur::Aucun)
            continue;
        QCOMPARE(marqueur[QLatin1String("taille")].toDouble(), 6.0 + colonne);
        QCOMPARE(texte(marqueur, "bord"), QStringLiteral("#0000FF"));
        QCOMPARE(entier(marqueur, "index_bord"), 5);
        QCOMPARE(texte(marqueur, "fond"), QStringLiteral("#FFFF00"));
    }
    const QJsonObject points = partie(GraphiquesLus::serie(lu, adresse("D2:D7")), "points");
    QCOMPARE(points.keys(), (QStringList{QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("6")}));
    for (const QJsonValue &point : points) {
        const QJsonObject marqueur = partie(point.toObject(), "marqueur");
        QCOMPARE(entier(marqueur, "style"), 8);
        QCOMPARE(entier(marqueur, "index_bord"), 3);
        QVERIFY(marqueur[QLatin1String("sans_fond")].toBool());
    }
    const auto classeur = m_tableur.ouvrir(fichier);
    QCOMPARE(leGraphique(*classeur).serie(3).aspectMarqueur(4).style, Marqueur::Cercle);
    QCOMPARE(leGraphique(*classeur).serie(3).aspectMarqueur(4).taille, 9);
}

void TestGraphique::traits()
{
    const QString fichier = chemin("traits");
    const std::pair<StyleTrait, EpaisseurTrait> styles[] = {{StyleTrait::Continu, EpaisseurTrait::Filet},
                                                            {StyleTrait::Tirets, EpaisseurTrait::Fin},
                                                            {StyleTrait::Points, EpaisseurTrait::Moyen},
                                                            {StyleTrait::TiretPoint, EpaisseurTrait::Epais},
                                                            {StyleTrait::Aucun, EpaisseurTrait::Fin}};
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        int colonne = 2;
        for (const auto &[style, epaisseur] : styles)
            ajouter(feuille, graphique, colonne++, TypeSerie::Ligne)
                .trait({style, Teinte::index(10), epaisseur});
        SerieGraphique aire = ajouter(feuille, graphique, 2, TypeSerie::AireEmpilee);
        aire.valeurs(feuille.plage(2, 2, 5, 2));
        aire.remplissage(Teinte::index(35));
        aire.trait({StyleTrait::Aucun});
        classeur->enregistrerSous(fichier);
    }
    const QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    int colonne = 2;
    for (const auto &[style, epaisseur] : styles) {
        const QString valeurs = colonneDe(colonne++);
        const QJsonObject trait = partie(GraphiquesLus::serie(lu, valeurs), "trait");
        QCOMPARE(entier(trait, "style"), static_cast<int>(style));
        if (style == StyleTrait::Aucun)
            continue;
        QCOMPARE(entier(trait, "epaisseur"), static_cast<int>(epaisseur));
        QCOMPARE(entier(trait, "index"), 10);
    }
    const QJsonObject aire = GraphiquesLus::serie(lu, adresse("B2:B5"));
    QCOMPARE(entier(aire, "index_fond"), 35);
    QCOMPARE(entier(partie(aire, "trait"), "style"), -4142);
}

void TestGraphique::etiquettes()
{
    const QString fichier = chemin("etiquettes");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        AspectEtiquette entiere;
        entiere.formatNombre = QStringLiteral("#,##0");
        ajouter(feuille, graphique, 2, TypeSerie::Ligne).etiquettes(entiere);
        ajouter(feuille, graphique, 3, TypeSerie::Ligne)
            .etiquettes({{2, QStringLiteral("28 calc.")}, {5, QStringLiteral("30 calc.")}});
        SerieGraphique sans = ajouter(feuille, graphique, 4, TypeSerie::Ligne);
        sans.etiquettes();
        sans.sansEtiquettes();
        classeur->enregistrerSous(fichier);
    }
    const QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    const QJsonObject toutes = partie(GraphiquesLus::serie(lu, adresse("B2:B7")), "etiquettes");
    QVERIFY(partie(toutes, "serie")[QLatin1String("valeur")].toBool());
    QCOMPARE(texte(partie(toutes, "serie"), "format"), QStringLiteral("#,##0"));
    const QJsonObject deux = partie(GraphiquesLus::serie(lu, adresse("C2:C7")), "etiquettes");
    // The text is the label's number format, for positive, negative and no numbers.
    QCOMPARE(texte(partie(deux, "2"), "format"), QStringLiteral("\"28 calc.\";\"28 calc.\";\"28 calc.\""));
    QCOMPARE(texte(partie(deux, "5"), "format").section(QLatin1Char(';'), 0, 0),
             QStringLiteral("\"30 calc.\""));
    QVERIFY(partie(deux, "2")[QLatin1String("valeur")].toBool());
    QVERIFY(!deux.contains(QLatin1String("serie")));
    QVERIFY(!partie(partie(GraphiquesLus::serie(lu, adresse("D2:D7")), "etiquettes"),
                    "serie")[QLatin1String("valeur")]
                 .toBool());
}

void TestGraphique::axes()
{
    const QString fichier = chemin("axes");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        ajouter(feuille, graphique, 2, TypeSerie::Ligne);
        ajouter(feuille, graphique, 3, TypeSerie::Histogramme, 2);
        AxeGraphique dates = graphique.axe(TypeAxe::Categorie);
        dates.temporel(true);
        dates.formatNombre(QStringLiteral("mmm-yy"));
        dates.orientation(45);
        AxeGraphique gauche = graphique.axe(TypeAxe::Valeur);
        gauche.echelle({1.0, 100.0, std::nullopt, std::nullopt, true, false});
        gauche.titre(QStringLiteral(" ( mg/l ) "));
        AxeGraphique droite = graphique.axe(TypeAxe::Valeur, 2);
        droite.echelle({0.0, 40.0, 10.0, std::nullopt, false, true});
        droite.titre(QStringLiteral("Pluviométrie  ( mm ) "));
        classeur->enregistrerSous(fichier);
    }
    const QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    const QJsonObject dates = GraphiquesLus::axe(lu, 1);
    QVERIFY(dates[QLatin1String("temporel")].toBool());
    QCOMPARE(texte(dates, "format").remove(QLatin1Char('\\')), QStringLiteral("mmm-yy"));
    QCOMPARE(entier(dates, "orientation"), 45);
    const QJsonObject gauche = GraphiquesLus::axe(lu, 2);
    QVERIFY(gauche[QLatin1String("logarithmique")].toBool());
    QVERIFY(!gauche[QLatin1String("inverse")].toBool());
    QCOMPARE(texte(gauche, "titre"), QStringLiteral(" ( mg/l ) "));
    const QJsonObject droite = GraphiquesLus::axe(lu, 2, 2);
    QVERIFY(droite[QLatin1String("inverse")].toBool());
    QVERIFY(!droite[QLatin1String("logarithmique")].toBool());
    QCOMPARE(droite[QLatin1String("minimum")].toDouble(-1), 0.0);
    QCOMPARE(droite[QLatin1String("maximum")].toDouble(-1), 40.0);
    QCOMPARE(droite[QLatin1String("pas")].toDouble(-1), 10.0);
    QCOMPARE(texte(droite, "titre"), QStringLiteral("Pluviométrie  ( mm ) "));

    const auto classeur = m_tableur.ouvrir(fichier);
    const Graphique relu = leGraphique(*classeur);
    QVERIFY(relu.axe(TypeAxe::Valeur, 2).echelle().inversee);
    QCOMPARE(relu.axe(TypeAxe::Valeur, 2).echelle().maximum.value_or(0), 40.0);
    QVERIFY(relu.axe(TypeAxe::Valeur).echelle().logarithmique);
    QVERIFY(relu.axe(TypeAxe::Categorie).estTemporel());
    // Back to automatic.
    relu.axe(TypeAxe::Valeur, 2).echelle({});
    classeur->enregistrer();
    QVERIFY(GraphiquesLus::axe(GraphiquesLus(fichier).graphique(FEUILLE), 2, 2)[QLatin1String("maximum")]
                .isNull());
}

void TestGraphique::titreEtLegende()
{
    const QString fichier = chemin("titre");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        ajouter(feuille, graphique, 2, TypeSerie::Ligne);
        graphique.titre(QStringLiteral("Evolution des teneurs"));
        graphique.legende(true);
        graphique.relierLesTrous(false);
        classeur->enregistrerSous(fichier);
    }
    QJsonObject lu = GraphiquesLus(fichier).graphique(FEUILLE);
    QCOMPARE(texte(lu, "titre"), QStringLiteral("Evolution des teneurs"));
    QVERIFY(lu[QLatin1String("legende")].toBool());
    QCOMPARE(texte(lu, "trous"), QStringLiteral("laisses"));
    {
        const auto classeur = m_tableur.ouvrir(fichier);
        Graphique graphique = leGraphique(*classeur);
        QCOMPARE(graphique.titre(), QStringLiteral("Evolution des teneurs"));
        QVERIFY(graphique.aLegende());
        graphique.titre({});
        graphique.legende(false);
        graphique.relierLesTrous(true);
        classeur->enregistrer();
    }
    lu = GraphiquesLus(fichier).graphique(FEUILLE);
    QVERIFY(texte(lu, "titre").isEmpty());
    QVERIFY(!lu[QLatin1String("legende")].toBool());
    QCOMPARE(texte(lu, "trous"), QStringLiteral("relies"));
}

// Each chart is found under its own name after the file has forgotten it; rows pushed in above take the name along.
void TestGraphique::plusieursGraphiques()
{
    const QString fichier = chemin("plusieurs");
    {
        const auto classeur = preparer();
        Feuille feuille = classeur->feuille(FEUILLE);
        for (int i = 1; i <= 3; ++i) {
            Graphique graphique = feuille.ajouterGraphique(QStringLiteral("Graphique %1").arg(i),
                                                           {1'000 + i * 300, 10'000 * i, 9'000, 6'000});
            ajouter(feuille, graphique, 1 + i, TypeSerie::Ligne);
        }
        QVERIFY_EXCEPTION_THROWN(
            feuille.ajouterGraphique(QStringLiteral("Graphique 2"), {0, 0, 5'000, 5'000}), Erreur);
        Feuille autre = classeur->ajouterFeuille(QStringLiteral("Autre"));
        Graphique graphique =
            autre.ajouterGraphique(QStringLiteral("Graphique 1"), {2'000, 2'000, 9'000, 6'000});
        ajouter(feuille, graphique, 6, TypeSerie::Ligne);
        classeur->enregistrerSous(fichier);
    }
    {
        const auto classeur = m_tableur.ouvrir(fichier);
        Feuille feuille = classeur->feuille(FEUILLE);
        for (int i = 1; i <= 3; ++i)
            QCOMPARE(feuille.graphique(QStringLiteral("Graphique %1").arg(i)).serie(1).nom(),
                     QStringList({QStringLiteral("Un"), QStringLiteral("Deux"), QStringLiteral("Trois")})
                         .at(i - 1));
        QCOMPARE(classeur->feuille(QStringLiteral("Autre"))
                     .graphique(QStringLiteral("Graphique 1"))
                     .serie(1)
                     .nom(),
                 QStringLiteral("Cinq"));
        // Marks go to the chart that was meant, among several of its sheet.
        feuille.graphique(QStringLiteral("Graphique 3"))
            .serie(1)
            .marqueurs({2}, {Marqueur::Cercle, 9, Teinte::index(3), Teinte::aucune()});
        feuille.insererLignes(12, 2);
        QCOMPARE(feuille.graphique(QStringLiteral("Graphique 3")).serie(1).nom(), QStringLiteral("Trois"));
        classeur->enregistrer();
    }
    // The charts in the file's order, each with its one series; the empty one of the sheet comes first.
    const QJsonArray lus = GraphiquesLus(fichier).feuille(FEUILLE)[QLatin1String("graphiques")].toArray();
    QCOMPARE(lus.size(), 4);
    for (int i = 1; i <= 3; ++i) {
        const QJsonObject serie = GraphiquesLus::serie(lus.at(i).toObject(), colonneDe(1 + i));
        QVERIFY(!serie.isEmpty());
        const QJsonObject point = partie(partie(serie, "points"), "2");
        QCOMPARE(partie(point, "marqueur")[QLatin1String("sans_fond")].toBool(), i == 3);
    }
}

void TestGraphique::boites()
{
    const QString fichier = chemin("boites");
    {
        const auto classeur = preparer();
        Feuille feuille = classeur->feuille(FEUILLE);
        for (int i = 1; i <= 12; ++i)
            feuille.ajouterZoneTexte(QStringLiteral("Text Box %1").arg(i), {1'000 * i, 12'000, 4'000, 2'000})
                .ecrire(QStringLiteral("Boîte %1").arg(i));
        classeur->enregistrerSous(fichier);
    }
    const QString longue = QStringLiteral("Données insuffisantes\n") + QString(3'000, QChar(0xE9));
    {
        const auto classeur = m_tableur.ouvrir(fichier);
        Feuille feuille = classeur->feuille(FEUILLE);
        for (int i = 1; i <= 12; ++i)
            QCOMPARE(feuille.zoneTexte(QStringLiteral("Text Box %1").arg(i)).texte(),
                     QStringLiteral("Boîte %1").arg(i));
        feuille.zoneTexte(QStringLiteral("Text Box 1")).ecrire(longue, 1);
        feuille.zoneTexte(QStringLiteral("Text Box 2")).supprimer();
        feuille.zoneTexte(QStringLiteral("Text Box 3")).montrer(false);
        feuille.zoneTexte(QStringLiteral("Text Box 4")).fond(Teinte::schema(13));
        feuille.zoneTexte(QStringLiteral("Text Box 5")).ecrire(QStringLiteral("=1+1"));
        QVERIFY(!feuille.aZoneTexte(QStringLiteral("Text Box 2")));
        QVERIFY_EXCEPTION_THROWN(feuille.zoneTexte(QStringLiteral("Text Box 13")), Erreur);
        classeur->enregistrer();
    }
    const QJsonObject lue = GraphiquesLus(fichier).feuille(FEUILLE);
    const QJsonObject textes = partie(lue, "textes");
    QCOMPARE(textes.size(), 11);
    QCOMPARE(texte(textes, "Text Box 1"), longue);
    QCOMPARE(texte(textes, "Text Box 5"), QStringLiteral("=1+1"));
    QVERIFY(!textes.contains(QLatin1String("Text Box 2")));
    const auto classeur = m_tableur.ouvrir(fichier);
    QVERIFY(!classeur->feuille(FEUILLE).zoneTexte(QStringLiteral("Text Box 3")).visible());
    QVERIFY(classeur->feuille(FEUILLE).zoneTexte(QStringLiteral("Text Box 4")).visible());
}

void TestGraphique::memeSeriesDansGnumeric()
{
    const QString fichier = chemin("gnumeric");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        ajouter(feuille, graphique, 2, TypeSerie::AireEmpilee);
        ajouter(feuille, graphique, 3, TypeSerie::Ligne);
        ajouter(feuille, graphique, 4, TypeSerie::HistogrammeEmpile, 2);
        graphique.serie(2).marqueurs({3}, {Marqueur::Croix, 9, Teinte::index(3), Teinte::aucune()});
        graphique.axe(TypeAxe::Categorie).temporel(true);
        graphique.axe(TypeAxe::Categorie).formatNombre(QStringLiteral("dd/mm/yy"));
        classeur->enregistrerSous(fichier);
    }
    const GnumericLu lu(fichier);
    QVERIFY2(lu.plaintes().isEmpty(), qPrintable(lu.plaintes()));
    QCOMPARE(lu.series().size(), 3);
    const char *const genres[] = {"GogAreaPlot", "GogLinePlot", "GogBarColPlot"};
    for (int i = 0; i < 3; ++i) {
        const GnumericLu::Serie &serie = lu.series().at(i);
        QCOMPARE(serie.genre, QLatin1String(genres[i]));
        const QString colonne(QChar(u'B' + i));
        QVERIFY2(serie.valeurs.endsWith(QStringLiteral("!$%1$2:$%1$7").arg(colonne)),
                 qPrintable(serie.valeurs));
        QVERIFY2(serie.abscisses.endsWith(QStringLiteral("!$A$2:$A$7")), qPrintable(serie.abscisses));
        QVERIFY2(serie.nom.endsWith(QStringLiteral("!$%1$1").arg(colonne)), qPrintable(serie.nom));
    }
}

// A series that the legend does not name takes a record more, behind which all moves: the sheet that follows, its chart and
// its hundred rows are still where the file says.
void TestGraphique::horsLegende()
{
    const QString fichier = chemin("legende");
    const QString suivante = QStringLiteral("Suite");
    {
        const auto classeur = preparer();
        Graphique graphique = leGraphique(*classeur);
        Feuille feuille = classeur->feuille(FEUILLE);
        for (const int colonne : {2, 3, 4})
            ajouter(feuille, graphique, colonne, TypeSerie::AireEmpilee);
        graphique.legende(true, PlaceLegende::Bas);
        graphique.serie(1).dansLegende(false);
        graphique.serie(2).dansLegende(false);
        graphique.serie(2).dansLegende(true);
        graphique.serie(3).dansLegende(false);
        Feuille apres = classeur->ajouterFeuille(suivante);
        Valeurs valeurs;
        for (int i = 0; i < 100; ++i)
            valeurs.append({QStringLiteral("ligne %1").arg(i), double(i)});
        apres.plage(1, 1, 100, 2).ecrire(valeurs);
        Graphique second = apres.ajouterGraphique(QStringLiteral("Autre"), {20'000, 1'000, 16'000, 9'000});
        SerieGraphique serie = second.nouvelleSerie(TypeSerie::Ligne);
        serie.valeurs(apres.plage(1, 2, 100, 2));
        classeur->enregistrerSous(fichier);
    }
    const GraphiquesLus lus(fichier);
    const QJsonObject lu = lus.graphique(FEUILLE);
    QCOMPARE(GraphiquesLus::valeurs(lu), (QStringList{adresse("B2:B7"), adresse("C2:C7"), adresse("D2:D7")}));
    for (const auto &[valeurs, nommee] : {std::pair("B2:B7", false), {"C2:C7", true}, {"D2:D7", false}})
        QCOMPARE(GraphiquesLus::serie(lu, adresse(valeurs))[QLatin1String("dans_legende")].toBool(), nommee);
    QCOMPARE(GraphiquesLus::valeurs(lus.graphique(suivante, QStringLiteral("Autre"))),
             QStringList{suivante + QStringLiteral("!B1:B100")});
    QCOMPARE(ClasseurLu(fichier).valeur(suivante, QStringLiteral("A100")).toString(),
             QStringLiteral("ligne 99"));

    const GnumericLu gnumeric(fichier);
    QVERIFY2(gnumeric.plaintes().isEmpty(), qPrintable(gnumeric.plaintes()));
    QCOMPARE(gnumeric.series().size(), 4);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(gnumeric.series().at(i).dansLegende, i == 1);
    const auto classeur = m_tableur.ouvrir(fichier, true);
    QCOMPARE(classeur->feuille(suivante).cellule(100, 2).valeur(), QVariant(99.0));
    QCOMPARE(classeur->feuille(suivante).graphique(QStringLiteral("Autre")).nombreSeries(), 1);
}

// A stream may grow within its last sector, and beyond it; the other streams stay.
void TestGraphique::fluxAllonge()
{
    const QString fichier = chemin("allonge");
    {
        const auto classeur = preparer();
        // So long that it does not stand among the small streams.
        classeur->feuille(FEUILLE).plage(20, 1, 219, 1).ecrire(QStringLiteral("un texte"));
        classeur->enregistrerSous(fichier);
    }
    const QString nom = QStringLiteral("Workbook");
    const QString autre = QStringLiteral("\005SummaryInformation");
    const auto lire = [&](const QString &voulu) {
        QFile lu(fichier);
        FichierCompose compose;
        QByteArray flux;
        const bool bon =
            lu.open(QIODevice::ReadOnly) && compose.lire(lu) && compose.flux(voulu, lu.size(), flux);
        return bon ? flux : QByteArray();
    };
    const auto remplacer = [&](const QByteArray &contenu) {
        QFile ecrit(fichier);
        FichierCompose compose;
        return ecrit.open(QIODevice::ReadWrite) && compose.lire(ecrit) && compose.remplacer(nom, contenu);
    };
    const QByteArray resume = lire(autre);
    QVERIFY(!resume.isEmpty());
    QByteArray flux = lire(nom);
    // Records that no reader knows, behind the workbook's own: 8 bytes of head and body, then ever more.
    for (const int octets : {8, 504, 520, 5'000}) {
        QByteArray ajout(octets, '\x11');
        qToLittleEndian<quint16>(0x0EEE, ajout.data());
        qToLittleEndian(static_cast<quint16>(octets - 4), ajout.data() + 2);
        flux += ajout;
        QVERIFY2(remplacer(flux), qPrintable(QString::number(octets)));
        QCOMPARE(lire(nom), flux);
        QCOMPARE(lire(autre), resume);
        QCOMPARE(ClasseurLu(fichier).valeur(FEUILLE, QStringLiteral("B2")).toDouble(), 1.0);
    }
    QVERIFY(!remplacer(flux.chopped(1)));
    QVERIFY(!remplacer(flux + QByteArray(100'000'000, '\0'))); // no table holds so many sectors
    QCOMPARE(lire(nom), flux);
    QCOMPARE(m_tableur.ouvrir(fichier, true)->feuille(FEUILLE).cellule(2, 2).valeur(), QVariant(1.0));
}

// Records that do not hang together are told, and nothing outside of them is read.
void TestGraphique::retouchesDUnFichierAbime()
{
    auto retouche = std::make_shared<RetouchesGraphique>();
    auto serie = std::make_shared<RetouchesSerie>();
    serie->valeurs = RectangleCellules{1, 1, 6, 1};
    serie->points.insert(0, {0xFF0000, std::nullopt, true});
    serie->horsLegende = true;
    retouche->series.append(serie);
    retouche->formatCategories = QStringLiteral("dd/mm/yy");
    RetouchesClasseur retouches;
    retouches.graphiques.append(retouche);
    retouches.feuilleActive = 0;

    constexpr int EXCEPTION = 8; // bytes of the record that may be added
    QByteArray vide;
    QVERIFY(!retoucherClasseur(vide, retouches));
    const auto classeur = preparer();
    Graphique graphique = leGraphique(*classeur);
    Feuille feuille = classeur->feuille(FEUILLE);
    ajouter(feuille, graphique, 2, TypeSerie::Ligne);
    classeur->enregistrerSous(chemin("entier"));
    QFile fichier(chemin("entier"));
    QVERIFY(fichier.open(QIODevice::ReadOnly));
    // The container's first sector is its own header; the stream that follows is cut and bent in many places.
    const QByteArray entier = fichier.readAll().mid(512);
    for (qsizetype longueur = 0; longueur < entier.size(); longueur += 97) {
        QByteArray coupe = entier.left(longueur);
        const qsizetype avant = coupe.size();
        retoucherClasseur(coupe, retouches, Ajouts::Non);
        QCOMPARE(coupe.size(), avant);
        retoucherClasseur(coupe, retouches);
        QVERIFY(coupe.size() == avant || coupe.size() == avant + EXCEPTION);
    }
    for (qsizetype place = 0; place < entier.size(); place += 13) {
        QByteArray tordu = entier;
        tordu[place] = static_cast<char>(tordu.at(place) ^ 0x5A);
        retoucherClasseur(tordu, retouches);
        QVERIFY(tordu.size() == entier.size() || tordu.size() == entier.size() + EXCEPTION);
    }
}

QTEST_MAIN(TestGraphique)
#include "test_graphique.moc"
