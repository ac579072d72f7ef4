#include "analysis/CopieDonneesBrutes.h"
#include "analysis/EtudeBrute.h"
#include "analysis/ListesDonneesBrutes.h"
#include "analysis/OrdreDonneesBrutes.h"
#include "platform/Erreur.h"

#include <QTest>

namespace
{
QList<qint64> triees(const EtudeBrute &etude, ColonneBrute colonne, bool decroissant = false)
{
    const auto jeu = etude.lire();
    LectureColonneBrute lecture(etude.donnees, jeu, colonne);
    if (!jeu->colonneLue(colonne))
        while (lecture.avancer(1000)) {
        }
    jeu->ordre = OrdreDonneesBrutes::ordonner(OrdreDonneesBrutes::cles(*jeu, colonne), decroissant);
    return EtudeBrute::cles(*jeu);
}

DemandeDonneesBrutes demandeDe(const QString &station, const QString &parametre = {})
{
    DemandeDonneesBrutes demande;
    demande.station = station;
    demande.parametre = parametre;
    return demande;
}
} // namespace

class TestLectureDonneesBrutes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void toutDansLOrdre();
    void filtres();
    void periode();
    void tranches();
    void lignes();
    void ligneSupprimee();
    void ordreParColonne();
    void attributsEpars();
    void texteHostile();
    void marque();
    void listes();
    void baseFermee();
    void copie();
};

// Station's code, date, hour (none first), parameter's code; what has lost its sampling first.
void TestLectureDonneesBrutes::toutDansLOrdre()
{
    const EtudeBrute e;
    QCOMPARE(EtudeBrute::cles(*e.lire()),
             (QList<qint64>{e.perdu, e.nitrates1, e.carbone, e.ph, e.nitrates3, e.glyphosate}));
    const BaseDEssai vide;
    LectureDonneesBrutes lecture(vide.donnees, {});
    QVERIFY(!lecture.avancer(1000));
    QCOMPARE(lecture.jeu()->nombre(), 0);
    QCOMPARE(lecture.pourcentage(), 100);
}

void TestLectureDonneesBrutes::filtres()
{
    const EtudeBrute e;
    const QString s40 = QStringLiteral("04211940");
    const QString s50 = QStringLiteral("04211950");
    const QString nitrates = QStringLiteral("1340");
    // A result without its sampling belongs to no station.
    QCOMPARE(EtudeBrute::cles(*e.lire(demandeDe(s50))), (QList<qint64>{e.nitrates3, e.glyphosate}));
    QCOMPARE(EtudeBrute::cles(*e.lire(demandeDe({}, nitrates))),
             (QList<qint64>{e.perdu, e.nitrates1, e.nitrates3}));
    QCOMPARE(EtudeBrute::cles(*e.lire(demandeDe(s40, nitrates))), QList<qint64>{e.nitrates1});
    QCOMPARE(e.lire(demandeDe(QStringLiteral("absente")))->nombre(), 0);

    DemandeDonneesBrutes famille;
    famille.famille = Famille::Pesticides;
    QCOMPARE(EtudeBrute::cles(*e.lire(famille)), QList<qint64>{e.glyphosate});
    famille.famille = Famille::PhysicoChimie;
    QCOMPARE(EtudeBrute::cles(*e.lire(famille)),
             (QList<qint64>{e.perdu, e.nitrates1, e.carbone, e.ph, e.nitrates3}));
    // A parameter without a group is no pesticide.
    e.sql(QStringLiteral("UPDATE PARAMETRE SET CodeGroupeParam = NULL WHERE CodeParam = '1302'"));
    QCOMPARE(e.lire(famille)->nombre(), 5);
}

// Both days are in; a result without a date is in no period.
void TestLectureDonneesBrutes::periode()
{
    const EtudeBrute e;
    DemandeDonneesBrutes demande;
    demande.debut = QDate(2008, 3, 1);
    demande.fin = QDate(2008, 3, 1);
    QCOMPARE(EtudeBrute::cles(*e.lire(demande)), (QList<qint64>{e.nitrates1, e.carbone, e.ph}));
    demande.debut = QDate(2008, 3, 2);
    demande.fin = QDate();
    QCOMPARE(EtudeBrute::cles(*e.lire(demande)), (QList<qint64>{e.nitrates3, e.glyphosate}));
    e.sql(QStringLiteral("UPDATE PRELEVEMENT SET DatePrel = NULL WHERE NumPrel = ?"), {e.p3});
    QCOMPARE(e.lire(demande)->nombre(), 0);
    demande.debut = QDate();
    demande.fin = QDate(2010, 1, 1);
    QCOMPARE(EtudeBrute::cles(*e.lire(demande)), (QList<qint64>{e.nitrates1, e.carbone, e.ph}));
}

// Whatever the length of the slices, and with the gaps between sampling numbers: the same as one plain statement gives.
void TestLectureDonneesBrutes::tranches()
{
    const BaseDEssai base;
    base.sql(QStringLiteral("BEGIN"));
    for (int i = 0; i < 9000; ++i)
        base.sql(QStringLiteral(
                     "INSERT INTO PRELEVEMENT (NumPrel, CodeSandreStationM, DatePrel) VALUES (?, ?, ?)"),
                 {i * 3 + 1, i % 2 ? QStringLiteral("04211940") : QStringLiteral("04211950"),
                  QDate(2000, 1, 1).addDays(i % 997)});
    for (int i = 0; i < 20000; ++i)
        base.sql(
            QStringLiteral("INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam, ResultatAnaPC) VALUES (?, ?, ?)"),
            {i % 28000 + 1, i % 3 ? QStringLiteral("1340") : QStringLiteral("1302"), i});
    base.sql(QStringLiteral("INSERT INTO MESURE_PHYSICO (NumPrel, CodeParam) VALUES (NULL, '1340')"));
    for (int i = 0; i < 9000; i += 2)
        base.sql(QStringLiteral("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001')"), {i * 3 + 1});
    base.sql(QStringLiteral("COMMIT"));

    QList<qint64> attendues;
    Requete r = base.donnees.executer(QStringLiteral(
        "SELECT m.NumAnaPC FROM MESURE_PHYSICO m LEFT JOIN PRELEVEMENT p USING (NumPrel) "
        "ORDER BY p.NumPrel IS NOT NULL, p.CodeSandreStationM, p.DatePrel, p.HeurePrel, m.NumPrel, "
        "m.CodeParam, m.NumAnaPC"));
    while (r.suivant())
        attendues << r.valeur(0).toLongLong();
    QCOMPARE(attendues.size(), 20001);

    LectureDonneesBrutes lecture(base.donnees, {});
    int tranches = 0;
    int avant = 0;
    while (lecture.avancer(1)) {
        ++tranches;
        QVERIFY(lecture.pourcentage() >= avant && lecture.pourcentage() <= 100);
        avant = lecture.pourcentage();
    }
    QVERIFY(tranches > 3);
    const auto jeu = lecture.jeu();
    QCOMPARE(EtudeBrute::cles(*jeu), attendues);
    int enReseau = 0;
    for (const auto &p : jeu->prelevements)
        enReseau += p.reseaux >= 0 ? 1 : 0;
    QCOMPARE(enReseau, 4500);
}

void TestLectureDonneesBrutes::lignes()
{
    const EtudeBrute e;
    const auto jeu = e.lire();
    LignesDonneesBrutes lignes(e.donnees, jeu);
    const QList<LigneBrute> lues = lignes.lire(0, 100);
    QCOMPARE(lues.size(), 6);
    QCOMPARE(lignes.lire(5, 100).size(), 1);
    QCOMPARE(lignes.lire(6, 100).size(), 0);

    const auto textes = [](const LigneBrute &ligne) {
        QStringList liste;
        for (const ColonneBrute colonne : ColonnesBrutes::toutes())
            liste << ligne.texte(colonne);
        return liste.join(u';');
    };
    QCOMPARE(
        textes(lues[0]),
        QStringLiteral(";;;;1340;Nitrates;99;mg(NO3)/L;1;Eau brute;Agence de l'eau;Laboratoire d'Armor;;"));
    QCOMPARE(textes(lues[1]),
             QStringLiteral(
                 "04211940;Pont de l'Ile;01/03/2008;;1340;Nitrates;12,25;mg(NO3)/L;1;Eau brute;Agence de "
                 "l'eau;Laboratoire d'Armor;Préleveur de l'Ouest;Réseau d'Armor | Réseau national"));
    QCOMPARE(textes(lues[3]),
             QStringLiteral("04211940;Pont de l'Ile;01/03/2008;10:30;1302;Potentiel en Hydrogène (pH);;unité "
                            "pH;0;Eau brute;Agence de l'eau;Laboratoire d'Armor;Préleveur de l'Ouest;"));
    // A body that the table does not name is shown by its code.
    QCOMPARE(textes(lues[4]),
             QStringLiteral("04211950;Moulin à papier;02/01/2009;;1340;Nitrates;0,05;mg(NO3)/L;10;Eau "
                            "brute;Laboratoire d'Armor;Laboratoire d'Armor;77;Réseau national"));
    QCOMPARE(lues[4].valeur(ColonneBrute::Resultat), QVariant(0.05));
    QCOMPARE(lues[4].valeur(ColonneBrute::Date), QVariant(QDate(2009, 1, 2)));
    QCOMPARE(lues[3].valeur(ColonneBrute::Heure), QVariant(QTime(10, 30)));
    QVERIFY(!lues[3].valeur(ColonneBrute::Resultat).isValid());
    QVERIFY(!lues[0].valeur(ColonneBrute::CodeStation).isValid());

    LigneBrute nombre;
    const auto ecrit = [&nombre](double valeur) {
        nombre.resultat = valeur;
        return nombre.texte(ColonneBrute::Resultat);
    };
    QCOMPARE(ecrit(0.1234567), QStringLiteral("0,1234567"));
    QCOMPARE(ecrit(123456), QStringLiteral("123456"));
    QCOMPARE(ecrit(-0.5), QStringLiteral("-0,5"));
    QCOMPARE(ecrit(1e-9), QStringLiteral("1e-09"));
    QCOMPARE(ecrit(0), QStringLiteral("0"));
    QCOMPARE(nombreEntierFrancais(1234567), QStringLiteral("1\u00a0234\u00a0567"));
    QCOMPARE(nombreEntierFrancais(999), QStringLiteral("999"));
    QCOMPARE(nombreEntierFrancais(-1000), QStringLiteral("-1\u00a0000"));
}

void TestLectureDonneesBrutes::ligneSupprimee()
{
    const EtudeBrute e;
    const auto jeu = e.lire();
    e.sql(QStringLiteral("DELETE FROM MESURE_PHYSICO WHERE NumAnaPC = ?"), {e.carbone});
    LignesDonneesBrutes lignes(e.donnees, jeu);
    const LigneBrute ligne = lignes.lire(2, 1).first();
    QVERIFY(!ligne.presente);
    QCOMPARE(ligne.texte(ColonneBrute::Resultat), QStringLiteral("supprimé"));
    QVERIFY(!ligne.valeur(ColonneBrute::Resultat).isValid());
    // Read for sorting, it has no value: before all others.
    LectureColonneBrute colonne(e.donnees, jeu, ColonneBrute::Resultat);
    while (colonne.avancer(1000)) {
    }
    QVERIFY(std::isnan(jeu->valeurs[2]));
    QCOMPARE(jeu->valeurs[1], 12.25);
}

// Nothing first, equal ones as they stood; the other way round nothing last, equal ones still as they stood.
void TestLectureDonneesBrutes::ordreParColonne()
{
    const EtudeBrute e;
    const QList<qint64> tels{e.perdu, e.nitrates1, e.carbone, e.ph, e.nitrates3, e.glyphosate};
    QCOMPARE(triees(e, ColonneBrute::Resultat),
             (QList<qint64>{e.ph, e.nitrates3, e.glyphosate, e.carbone, e.nitrates1, e.perdu}));
    QCOMPARE(triees(e, ColonneBrute::Resultat, true),
             (QList<qint64>{e.perdu, e.nitrates1, e.carbone, e.glyphosate, e.nitrates3, e.ph}));
    QCOMPARE(triees(e, ColonneBrute::CodeStation), tels);
    QCOMPARE(triees(e, ColonneBrute::CodeStation, true),
             (QList<qint64>{e.nitrates3, e.glyphosate, e.nitrates1, e.carbone, e.ph, e.perdu}));
    // "Moulin à papier" before "Pont de l'Ile".
    QCOMPARE(triees(e, ColonneBrute::Station),
             (QList<qint64>{e.perdu, e.nitrates3, e.glyphosate, e.nitrates1, e.carbone, e.ph}));
    QCOMPARE(triees(e, ColonneBrute::Date, true),
             (QList<qint64>{e.nitrates3, e.glyphosate, e.nitrates1, e.carbone, e.ph, e.perdu}));
    QCOMPARE(triees(e, ColonneBrute::Heure),
             (QList<qint64>{e.perdu, e.nitrates1, e.carbone, e.nitrates3, e.glyphosate, e.ph}));
    // 1302 pH, 1340, 1506, 1841.
    QCOMPARE(triees(e, ColonneBrute::CodeParametre),
             (QList<qint64>{e.ph, e.perdu, e.nitrates1, e.nitrates3, e.glyphosate, e.carbone}));
    // Carbone, Glyphosate, Nitrates, Potentiel.
    QCOMPARE(triees(e, ColonneBrute::Parametre),
             (QList<qint64>{e.carbone, e.glyphosate, e.perdu, e.nitrates1, e.nitrates3, e.ph}));
    // 0, 1, 2, 10: by their value.
    QCOMPARE(triees(e, ColonneBrute::Remarque),
             (QList<qint64>{e.ph, e.perdu, e.nitrates1, e.carbone, e.glyphosate, e.nitrates3}));
    // "Eau brute" before "Phase aqueuse…".
    QCOMPARE(triees(e, ColonneBrute::Fraction, true).first(), e.carbone);
    QCOMPARE(triees(e, ColonneBrute::Gestionnaire).last(), e.nitrates3);
    QCOMPARE(triees(e, ColonneBrute::Laboratoire), tels);
    // Nothing, then the code 77, a number, then "Préleveur de l'Ouest".
    QCOMPARE(triees(e, ColonneBrute::Preleveur),
             (QList<qint64>{e.perdu, e.nitrates3, e.glyphosate, e.nitrates1, e.carbone, e.ph}));
    // Nothing, "Réseau d'Armor | …", "Réseau national".
    QCOMPARE(triees(e, ColonneBrute::Reseaux),
             (QList<qint64>{e.perdu, e.ph, e.nitrates1, e.carbone, e.nitrates3, e.glyphosate}));
    // mg(C)/L, mg(NO3)/L, unité pH, µg/L: the sign µ is a Greek letter, after the Latin ones.
    QCOMPARE(triees(e, ColonneBrute::Unite),
             (QList<qint64>{e.carbone, e.perdu, e.nitrates1, e.nitrates3, e.ph, e.glyphosate}));
}

// Keys that lie far apart are read one by one, with the same result.
void TestLectureDonneesBrutes::attributsEpars()
{
    const EtudeBrute e;
    e.sql(QStringLiteral("UPDATE MESURE_PHYSICO SET NumAnaPC = NumAnaPC * 1000000 - 3000000"));
    const auto jeu = e.lire();
    LectureColonneBrute lecture(e.donnees, jeu, ColonneBrute::Resultat);
    while (lecture.avancer(0)) {
        if (lecture.pourcentage() == 0)
            QVERIFY(!jeu->colonneLue(ColonneBrute::Resultat));
        if (!lecture.avancer(1000))
            break;
    }
    QVERIFY(jeu->colonneLue(ColonneBrute::Resultat));
    QCOMPARE(std::vector<double>(jeu->valeurs.begin() + 1, jeu->valeurs.begin() + 3),
             (std::vector<double>{12.25, 5}));
    QCOMPARE(jeu->valeurs[0], 99);
}

// What a field or a file brings is a value, never a part of the statement.
void TestLectureDonneesBrutes::texteHostile()
{
    const EtudeBrute e;
    for (const QString &texte :
         {QStringLiteral("' OR 1=1 --"), QStringLiteral("%"), QStringLiteral("; DROP TABLE PRELEVEMENT"),
          QString(10'000, u'x'), QStringLiteral("💧\u0001")}) {
        QCOMPARE(e.lire(demandeDe(texte))->nombre(), 0);
        QCOMPARE(e.lire(demandeDe({}, texte))->nombre(), 0);
        QCOMPARE(e.lire(demandeDe(QStringLiteral("04211940"), texte))->nombre(), 0);
    }
    const QString nom = QStringLiteral("<b>l'\"eau\"</b>\t=1+1 💧");
    e.sql(QStringLiteral("UPDATE STATION_QUALITE SET NomStationM = ? WHERE CodeSandreStationM = '04211950'"),
          {nom});
    e.sql(QStringLiteral("UPDATE MESURE_PHYSICO SET CodeRemarqueAnaPC = '€' WHERE NumAnaPC = ?"),
          {e.nitrates3});
    const auto jeu = e.lire(demandeDe(QStringLiteral("04211950")));
    LignesDonneesBrutes lignes(e.donnees, jeu);
    QCOMPARE(lignes.lire(0, 1).first().station, nom);
    QCOMPARE(lignes.lire(0, 1).first().remarque, QStringLiteral("€"));
    QCOMPARE(CopieDonneesBrutes::texte(lignes, {{0, 0, 1, 1}}),
             QStringLiteral("Station\n<b>l'\"eau\"</b> =1+1 💧\n"));
}

void TestLectureDonneesBrutes::marque()
{
    const EtudeBrute e;
    const MarqueBase avant = MarqueBase::lire(e.donnees);
    e.lire();
    QVERIFY(MarqueBase::lire(e.donnees) == avant);
    e.ajouterMesure(e.p1, QStringLiteral("1506"), 1);
    const MarqueBase apres = MarqueBase::lire(e.donnees);
    QVERIFY(!(apres == avant));
    DataEnvironment1 autre;
    autre.ouvrir(e.chemin);
    autre.executer(QStringLiteral("DELETE FROM MESURE_PHYSICO WHERE NumAnaPC = ?"), {e.ph});
    QVERIFY(!(MarqueBase::lire(e.donnees) == apres));
}

void TestLectureDonneesBrutes::listes()
{
    const EtudeBrute e;
    const ListeChoix stations = ListesDonneesBrutes::stations(e.donnees);
    QCOMPARE(stations.size(), 2);
    QCOMPARE(stations[0].complement, QStringLiteral("ESS1 Pont de l'Ile"));
    QCOMPARE(stations[1].complement, QStringLiteral("Moulin à papier"));
    const auto codes = [&e](std::optional<Famille> famille) {
        QStringList liste;
        const ListeChoix choix = ListesDonneesBrutes::parametres(e.donnees, famille);
        for (const Choix &c : choix)
            liste << c.code;
        return liste.join(u' ');
    };
    QCOMPARE(codes(std::nullopt), QStringLiteral("1841 1506 1340 1302"));
    QCOMPARE(codes(Famille::Pesticides), QStringLiteral("1506"));
    e.sql(QStringLiteral("DELETE FROM MESURE_PHYSICO WHERE CodeParam = '1841'"));
    QCOMPARE(codes(Famille::PhysicoChimie), QStringLiteral("1340 1302"));
}

// A base that goes away between two slices ends the reading with the engine's words.
void TestLectureDonneesBrutes::baseFermee()
{
    EtudeBrute e;
    LectureDonneesBrutes lecture(e.donnees, {});
    e.donnees.liberer();
    QVERIFY_EXCEPTION_THROWN(lecture.avancer(1000), Erreur);
}

void TestLectureDonneesBrutes::copie()
{
    const EtudeBrute e;
    const auto jeu = e.lire();
    LignesDonneesBrutes lignes(e.donnees, jeu);
    // Rows 1 and 2, parameter and value; and the date of row 4: what is between them is empty.
    const QList<PlageBrute> plages{{1, 2, 5, 6}, {4, 4, 2, 2}};
    QCOMPARE(CopieDonneesBrutes::nombreLignes(plages), 3);
    QCOMPARE(CopieDonneesBrutes::texte(lignes, plages),
             QStringLiteral("Date\tParamètre\tRésultat\n\tNitrates\t12,25\n\tCarbone Organique\t5\n"
                            "02/01/2009\t\t\n"));
    // Rectangles that overlap count their rows once.
    QCOMPARE(CopieDonneesBrutes::nombreLignes({{0, 3, 0, 0}, {2, 5, 1, 1}, {5, 5, 0, 13}}), 6);
    QCOMPARE(CopieDonneesBrutes::nombreLignes({}), 0);
    QCOMPARE(CopieDonneesBrutes::texte(lignes, {}), QString());
    QCOMPARE(CopieDonneesBrutes::texte(lignes, {{0, 5, 0, 13}}).count(u'\n'), 7);
}

QTEST_GUILESS_MAIN(TestLectureDonneesBrutes)
#include "test_lecture_donnees_brutes.moc"
