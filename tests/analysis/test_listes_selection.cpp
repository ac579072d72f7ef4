#include "analysis/ListesSelection.h"
#include "analysis/ReperesParametre.h"
#include "BaseDEssai.h"

#include <QTest>

namespace
{
const QString STATION = QStringLiteral("04211940");
const QString AUTRE = QStringLiteral("04211950");
constexpr auto PC = Famille::PhysicoChimie;
constexpr auto PS = Famille::Pesticides;

QStringList textes(const ListeChoix &lignes)
{
    QStringList resultat;
    for (const Choix &ligne : lignes)
        resultat << ligne.texte;
    return resultat;
}

QStringList codes(const ListeChoix &lignes)
{
    QStringList resultat;
    for (const Choix &ligne : lignes)
        resultat << ligne.code;
    return resultat;
}

// Results of both families at two stations, by two managers, with networks, comments and protocols.
struct Etude : BaseDEssai {
    Etude()
    {
        // At the first station: nitrates and carbon by 17, in two fractions; on another day glyphosate alone by 18.
        const qint64 p1 =
            ajouterPrelevement(STATION, QDate(2008, 3, 1), {}, QStringLiteral("19"), QStringLiteral("2"));
        commenter(ajouterMesure(p1, QStringLiteral("1340"), 12), QStringLiteral("Crue de l'Ile"));
        ajouterMesure(p1, QStringLiteral("1841"), 5, QStringLiteral("1"), QStringLiteral("17"),
                      QStringLiteral("3"));
        reseau(p1, QStringLiteral("0400000001"));
        const qint64 p2 =
            ajouterPrelevement(STATION, QDate(2010, 5, 4), {}, QStringLiteral("19"), QStringLiteral("1"));
        commenter(ajouterMesure(p2, QStringLiteral("1506"), 0.1, QStringLiteral("1"), QStringLiteral("18"),
                                QStringLiteral("0")),
                  QStringLiteral("Pesticide seul"));
        reseau(p2, QStringLiteral("0400000002"));
        const qint64 p3 =
            ajouterPrelevement(STATION, QDate(2009, 6, 7), {}, QStringLiteral("19"), QStringLiteral("9"));
        ajouterMesure(p3, QStringLiteral("1340"), 14);
        // At the second: pH by 19, comment in capitals.
        const qint64 p4 =
            ajouterPrelevement(AUTRE, QDate(2007, 1, 2), {}, QStringLiteral("19"), QStringLiteral("0"));
        commenter(ajouterMesure(p4, QStringLiteral("1302"), 7, QStringLiteral("1"), QStringLiteral("19")),
                  QStringLiteral("Étiage"));
        commenter(ajouterMesure(p4, QStringLiteral("1340"), 3, QStringLiteral("1"), QStringLiteral("19")),
                  QStringLiteral("Zone d'ombre"));
    }
    void commenter(qint64 mesure, const QString &commentaire) const
    {
        sql(QStringLiteral("UPDATE MESURE_PHYSICO SET CommResAnaPC = ? WHERE NumAnaPC = ?"),
            {commentaire, mesure});
    }
    void reseau(qint64 prelevement, const QString &code) const
    {
        sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX (NumPrel, CodeReseau) VALUES (?, ?)"),
            {prelevement, code});
    }
};
} // namespace

class TestListesSelection : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void stations();
    void filtresDeLaBase();
    void filtresDesPesticides();
    void baseVide();
    void uneStation();
    void stationDePesticides();
    void stationInconnue();
    void stationsLiees();
    void accesParIndex();
    void reperesSansRien();
    void reperesDuBassin();
    void reperesDuCarbone();
};

void TestListesSelection::stations()
{
    const Etude base;
    const auto lues = ListesSelection::stations(base.donnees);
    QCOMPARE(lues.size(), 2);
    QCOMPARE(lues[0], (StationProposee{STATION, QStringLiteral("ESS1"), QStringLiteral("Pont de l'Ile")}));
    QCOMPARE(lues[1], (StationProposee{AUTRE, QString(), QStringLiteral("Moulin à papier")}));
}

void TestListesSelection::filtresDeLaBase()
{
    const Etude base;
    const ListesFiltres listes = ListesSelection::filtres(base.donnees, PC);
    // 18 has measured a pesticide only.
    QCOMPARE(textes(listes.gestionnaires),
             (QStringList{QStringLiteral("Agence de l'eau"), QStringLiteral("Préleveur de l'Ouest")}));
    QCOMPARE(codes(listes.gestionnaires), (QStringList{QStringLiteral("17"), QStringLiteral("19")}));
    QCOMPARE(textes(listes.reseaux), QStringList{QStringLiteral("Réseau national")});
    QCOMPARE(codes(listes.reseaux), QStringList{QStringLiteral("0400000001")});
    // The first row is the empty comment; the others in French order, É with E.
    QCOMPARE(textes(listes.commentaires),
             (QStringList{QStringLiteral("- vide -"), QStringLiteral("Crue de l'Ile"),
                          QStringLiteral("Étiage"), QStringLiteral("Zone d'ombre")}));
    QCOMPARE(listes.commentaires[0].code, QString());
    // Codes 0 and 9 have one label.
    QCOMPARE(textes(listes.protocoles),
             (QStringList{QStringLiteral("Non spécifié"), QStringLiteral("Suivi pluie")}));
}

void TestListesSelection::filtresDesPesticides()
{
    const Etude base;
    const ListesFiltres listes = ListesSelection::filtres(base.donnees, PS);
    QCOMPARE(codes(listes.gestionnaires), QStringList{QStringLiteral("18")});
    QCOMPARE(codes(listes.reseaux), QStringList{QStringLiteral("0400000002")});
    QCOMPARE(textes(listes.commentaires),
             (QStringList{QStringLiteral("- vide -"), QStringLiteral("Pesticide seul")}));
    QCOMPARE(textes(listes.protocoles), QStringList{QStringLiteral("Suivi calendaire")});
}

void TestListesSelection::baseVide()
{
    const BaseDEssai base(true);
    QVERIFY(ListesSelection::stations(base.donnees).isEmpty());
    const ListesFiltres listes = ListesSelection::filtres(base.donnees, PC);
    QVERIFY(listes.gestionnaires.isEmpty() && listes.reseaux.isEmpty() && listes.protocoles.isEmpty());
    QCOMPARE(textes(listes.commentaires), QStringList{QStringLiteral("- vide -")});
}

void TestListesSelection::uneStation()
{
    const Etude base;
    const ListesStation listes = ListesSelection::station(base.donnees, PC, STATION);
    QCOMPARE(textes(listes.parametres),
             (QStringList{QStringLiteral("Carbone Organique"), QStringLiteral("Nitrates")}));
    QCOMPARE(codes(listes.parametres), (QStringList{QStringLiteral("1841"), QStringLiteral("1340")}));
    // In the order of the names: "Eau brute" before "Phase aqueuse...".
    QCOMPARE(textes(listes.fractions),
             (QStringList{QStringLiteral("23 - Eau brute"),
                          QStringLiteral("3 - Phase aqueuse de l'eau (filtrée, centrifugée...)")}));
    QCOMPARE(codes(listes.fractions), (QStringList{QStringLiteral("23"), QStringLiteral("3")}));
    QCOMPARE(codes(listes.gestionnaires), QStringList{QStringLiteral("17")});
    QCOMPARE(codes(listes.reseaux), QStringList{QStringLiteral("0400000001")});
    // "1" is the protocol of the pesticide's sampling alone.
    QCOMPARE(textes(listes.protocoles),
             (QStringList{QStringLiteral("Suivi pluie"), QStringLiteral("Non spécifié")}));
    // The sampling of 2010 has a pesticide only.
    QCOMPARE(listes.premierJour, QDate(2008, 3, 1));
    QCOMPARE(listes.dernierJour, QDate(2009, 6, 7));
}

void TestListesSelection::stationDePesticides()
{
    const Etude base;
    const ListesStation listes = ListesSelection::station(base.donnees, PS, STATION);
    QCOMPARE(codes(listes.parametres), QStringList{QStringLiteral("1506")});
    QCOMPARE(codes(listes.fractions), QStringList{QStringLiteral("0")});
    QCOMPARE(codes(listes.gestionnaires), QStringList{QStringLiteral("18")});
    QCOMPARE(listes.premierJour, QDate(2010, 5, 4));
    QCOMPARE(listes.dernierJour, QDate(2010, 5, 4));
}

// A code that would end a literal early is a code like any other.
void TestListesSelection::stationInconnue()
{
    const Etude base;
    for (const QString &code : {QStringLiteral("00000000"), QStringLiteral("' OR 1=1 --"), QString()}) {
        const ListesStation listes = ListesSelection::station(base.donnees, PC, code);
        QVERIFY(listes.parametres.isEmpty() && listes.gestionnaires.isEmpty() && listes.protocoles.isEmpty());
        QVERIFY(listes.premierJour.isNull());
    }
}

void TestListesSelection::stationsLiees()
{
    const Etude base;
    const ListeChoix hydro = ListesSelection::stationsHydro(base.donnees);
    QCOMPARE(hydro, (ListeChoix{{QStringLiteral("J7010610"), QStringLiteral("J7010610"),
                                 QStringLiteral("Le Meu à Quédillac")}}));
    QCOMPARE(ListesSelection::stationHydroLiee(base.donnees, STATION), QStringLiteral("J7010610"));
    QCOMPARE(ListesSelection::stationHydroLiee(base.donnees, AUTRE), QString());
    QCOMPARE(codes(ListesSelection::stationsPluvio(base.donnees)), QStringList{QStringLiteral("35228001")});
}

// The managers and comments in use are read off an index, pair by pair: no statement of the form may read the table of
// results from end to end.
void TestListesSelection::accesParIndex()
{
    const Etude base;
    const auto plan = [&base](const QString &instruction) {
        QStringList lignes;
        Requete r = base.donnees.executer(QStringLiteral("EXPLAIN QUERY PLAN ") + instruction);
        while (r.suivant())
            lignes << r.texte(3);
        return lignes.join(u'\n');
    };
    for (const char *colonne : {"CodeSandreGest", "CommResAnaPC"}) {
        const QString nom = QString::fromLatin1(colonne);
        for (const QString &suite :
             {QStringLiteral("(%1, CodeParam) > ('a', 'b')").arg(nom), QStringLiteral("%1 > 'a'").arg(nom)}) {
            const QString lu =
                plan(QStringLiteral("SELECT %1, CodeParam FROM MESURE_PHYSICO WHERE %1 <> '' AND %2 "
                                    "ORDER BY %1, CodeParam LIMIT 1")
                         .arg(nom, suite));
            QVERIFY2(lu.startsWith(QStringLiteral("SEARCH MESURE_PHYSICO USING COVERING INDEX")) &&
                         !lu.contains(QStringLiteral("TEMP B-TREE")),
                     qPrintable(lu));
        }
    }
}

void TestListesSelection::reperesSansRien()
{
    const Etude base;
    const ReperesParametre r = lireReperes(base.donnees, STATION, QStringLiteral("1340"), {});
    QCOMPARE(r.unite, QStringLiteral("mg(NO3)/L"));
    QVERIFY(!r.objectifMoyen && !r.objectifMaximal && !r.norme && !r.grille);
    QCOMPARE(lireReperes(base.donnees, STATION, QStringLiteral("9999"), {}).unite, QString());
}

void TestListesSelection::reperesDuBassin()
{
    const Etude base;
    base.sql(
        QStringLiteral("INSERT INTO OBJECTIF (NumBV, CodeParam, CD_FRACTION, MoyObjf, MaxObjf) VALUES "
                       "(1, '1340', '23', 25, 0), (2, '1340', '23', 99, 99), (1, '1302', '23', NULL, 8.5)"));
    base.sql(QStringLiteral(
        "INSERT INTO NORME_AEP (CodeParam, CD_FRACTION, ValeurNorme) VALUES ('1340', '23', 50)"));
    base.sql(QStringLiteral("INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ) VALUES ('1340', 2)"));
    // The fraction plays no part for nitrates; an objective of 0 is none.
    for (const QString &fraction : {QString(), QStringLiteral("3")}) {
        const ReperesParametre r = lireReperes(base.donnees, STATION, QStringLiteral("1340"), fraction);
        QCOMPARE(r.objectifMoyen, std::optional(25.0));
        QVERIFY(!r.objectifMaximal);
        QCOMPARE(r.norme, std::optional(50.0));
        QVERIFY(r.grille);
    }
    const ReperesParametre ph = lireReperes(base.donnees, STATION, QStringLiteral("1302"), {});
    QVERIFY(!ph.objectifMoyen);
    QCOMPARE(ph.objectifMaximal, std::optional(8.5));
    // A station without a basin has no objective.
    base.sql(QStringLiteral("UPDATE STATION_QUALITE SET NumBV = NULL WHERE CodeSandreStationM = ?"),
             {STATION});
    QVERIFY(!lireReperes(base.donnees, STATION, QStringLiteral("1340"), {}).objectifMoyen);
}

void TestListesSelection::reperesDuCarbone()
{
    const Etude base;
    base.sql(QStringLiteral("INSERT INTO OBJECTIF (NumBV, CodeParam, CD_FRACTION, MoyObjf, MaxObjf) VALUES "
                            "(1, '1841', '3', 5, 7)"));
    base.sql(QStringLiteral(
        "INSERT INTO NORME_AEP (CodeParam, CD_FRACTION, ValeurNorme) VALUES ('1841', '23', 10)"));
    base.sql(QStringLiteral("INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ) VALUES ('1841', 5)"));
    const auto lus = [&base](const QString &fraction) {
        return lireReperes(base.donnees, STATION, QStringLiteral("1841"), fraction);
    };
    QCOMPARE(lus(QStringLiteral("3")).objectifMoyen, std::optional(5.0));
    QVERIFY(!lus(QStringLiteral("3")).norme);
    QVERIFY2(!lus(QStringLiteral("3")).grille, "the grid holds for raw water alone");
    QVERIFY(!lus(QStringLiteral("23")).objectifMoyen);
    QCOMPARE(lus(QStringLiteral("23")).norme, std::optional(10.0));
    QVERIFY(lus(QStringLiteral("23")).grille);
    // Before a fraction is chosen: whatever the parameter has.
    QCOMPARE(lus({}).objectifMaximal, std::optional(7.0));
    QCOMPARE(lus({}).norme, std::optional(10.0));
    QVERIFY(lus({}).grille);
}

QTEST_GUILESS_MAIN(TestListesSelection)
#include "test_listes_selection.moc"
