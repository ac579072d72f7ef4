// A sampling read from the store, saved, deleted: what a save writes, and what it leaves alone.
#include "BaseDEssai.h"
#include "capture/EnregistrementPrelevement.h"
#include "capture/LecturePrelevement.h"
#include "capture/ListesPrelevement.h"
#include "platform/Erreur.h"

#include <QTest>

namespace
{
constexpr auto PC = FamillePrelevement::PhysicoChimie;
constexpr auto PS = FamillePrelevement::Pesticides;

QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

const QString STATION = QStringLiteral("04211940");
const QDate JOUR(2009, 3, 1);

LignePrelevement ligne(const char *parametre, const char *resultat, const char *preleveur,
                       const char *reseau = "")
{
    LignePrelevement l;
    l.parametre = s(parametre);
    l.resultat = s(resultat);
    l.remarque = s("1");
    l.fraction = s("23");
    l.preleveur = s(preleveur);
    l.laboratoire = s("Laboratoire d'Armor");
    l.gestionnaire = s("Agence de l'eau");
    l.reseau = s(reseau);
    return l;
}

constexpr char OUEST[] = "Préleveur de l'Ouest"; // 19
constexpr char AGENCE[] = "Agence de l'eau";     // 17
} // namespace

class TestEnregistrementPrelevement : public QObject
{
    Q_OBJECT

    // Every row of a statement as texts joined by "|", NULL told from the empty text.
    static QStringList rangees(const BaseDEssai &base, const QString &sql)
    {
        QStringList liste;
        Requete r = base.donnees.executer(sql);
        while (r.suivant()) {
            QStringList colonnes;
            for (int i = 0; i < r.colonnes().size(); ++i)
                colonnes << (r.valeur(i).isNull() ? s("NULL") : r.texte(i));
            liste << colonnes.join(u'|');
        }
        return liste;
    }
    static QStringList resultats(const BaseDEssai &base)
    {
        return rangees(base,
                       s("SELECT NumPrel, CodeParam, ResultatAnaPC FROM MESURE_PHYSICO ORDER BY NumAnaPC"));
    }
    static QStringList prelevements(const BaseDEssai &base)
    {
        return rangees(base, s("SELECT NumPrel, HeurePrel, CodeSandrePrelev, Protocole FROM PRELEVEMENT "
                               "ORDER BY NumPrel"));
    }
    static QStringList reseaux(const BaseDEssai &base)
    {
        return rangees(base, s("SELECT NumPrel, CodeReseau FROM PRELEVEMENTRSX ORDER BY rowid"));
    }

private Q_SLOTS:
    // One sampling for each sampler, with the columns that no screen asks for.
    void nouveau()
    {
        BaseDEssai base;
        const ClePrelevement cle{STATION, JOUR, s("09:30:00")};
        QVERIFY(!LecturePrelevement::existe(base.donnees, PC, cle));
        LignePrelevement premiere = ligne("Nitrates", "12,34567", OUEST, "Réseau d'Armor | Réseau national");
        premiere.protocole = s("Suivi pluie");
        premiere.ld = s("0,05");
        premiere.lieu = s("Laboratoire");
        premiere.seuil = s("trace");
        premiere.commentaireAnalyse = s("l'eau \"verte\"; 100 % 💧");
        premiere.commentaireResultat = s("--");
        EnregistrementPrelevement::ecrire(base.donnees, PC, cle,
                                          {premiere, ligne("Potentiel en Hydrogène (pH)", "7", OUEST),
                                           ligne("Carbone Organique", "3.5", AGENCE)});
        QCOMPARE(
            rangees(base, s("SELECT CodeSandreStationM, CdPoint, DatePrel, HeurePrel, CdSupport, "
                            "CodeSandrePrelev, CodeSandreProd, Protocole FROM PRELEVEMENT ORDER BY NumPrel")),
            QStringList({s("04211940|031|2009-03-01|09:30:00|3|19|0|2"),
                         s("04211940|031|2009-03-01|09:30:00|3|17|0|0")}));
        // Four decimals, ties to even: 12.34567 is 12.3457. Empty cells are null.
        QCOMPARE(
            rangees(base, s("SELECT NumPrel, CodeParam, ResultatAnaPC, CodeRemarqueAnaPC, LD, LQ, LS, "
                            "SeuilAnaPC, LieuAnaPC, CommAnaPC, CommResAnaPC, CodeSandreLabo, CodeMethode, "
                            "CodeSandreGest, Cd_Fraction FROM MESURE_PHYSICO ORDER BY NumAnaPC")),
            QStringList(
                {s("1|1340|12.3457|1|0.05|NULL|NULL|trace|2|l'eau \"verte\"; 100 % 💧|--|18|NULL|17|23"),
                 s("1|1302|7|1|NULL|NULL|NULL|NULL|NULL|NULL|NULL|18|NULL|17|23"),
                 s("2|1841|3.5|1|NULL|NULL|NULL|NULL|NULL|NULL|NULL|18|NULL|17|23")}));
        // In the order in which they were given, which is not that of their codes.
        QCOMPARE(reseaux(base), QStringList({s("1|0400000002"), s("1|0400000001")}));

        // Reread.
        QVERIFY(LecturePrelevement::existe(base.donnees, PC, cle));
        QVERIFY(!LecturePrelevement::existe(base.donnees, PS, cle));
        const QList<LignePrelevement> lues = LecturePrelevement::lire(base.donnees, PC, cle);
        QCOMPARE(lues.size(), 3);
        QCOMPARE(lues[0].parametre, s("Nitrates"));
        QCOMPARE(lues[0].resultat, s("12,3457"));
        QCOMPARE(lues[0].unite, s("mg(NO3)/L"));
        QCOMPARE(lues[0].preleveur, s(OUEST));
        QCOMPARE(lues[0].laboratoire, s("Laboratoire d'Armor"));
        QCOMPARE(lues[0].gestionnaire, s(AGENCE));
        QCOMPARE(lues[0].reseau, s("Réseau d'Armor | Réseau national"));
        QCOMPARE(lues[0].protocole, s("Suivi pluie"));
        QCOMPARE(lues[0].lieu, s("Laboratoire"));
        QCOMPARE(lues[0].ld, s("0,05"));
        QCOMPARE(lues[1].reseau, s("Réseau d'Armor | Réseau national")); // of the same sampling
        QCOMPARE(lues[2].reseau, QString());
        QCOMPARE(lues[2].preleveur, s(AGENCE));
        QCOMPARE(lues[2].protocole, s("Non spécifié"));
        QCOMPARE(lues[2].lieu, s("Localisation inconnue"));
    }

    // Saving what was read, unchanged, changes nothing that can be seen in the store, its odd values included.
    void intact()
    {
        BaseDEssai base;
        base.sql(s(
            "INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv) VALUES ('20', 'Préleveur de l''Ouest')"));
        base.sql(s("INSERT INTO RESEAU_MESURE VALUES ('0400000009', 'Réseau national', '')"));
        const qint64 p = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0), s("20"), s("7"));
        const qint64 n = base.ajouterMesure(p, s("1340"), 0.000012345);
        base.sql(s("UPDATE MESURE_PHYSICO SET CodeMethode = '472', LieuAnaPC = 'Pont', LQ = 0.123456789, "
                   "CommAnaPC = '' WHERE NumAnaPC = ?"),
                 {n});
        // The second network of that label, and one without a label at all.
        base.sql(s("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000009'), (?, '0499999999')"), {p, p});
        const QString tout =
            s("SELECT NumPrel, CodeParam, ResultatAnaPC, CodeRemarqueAnaPC, LD, LQ, LS, SeuilAnaPC, "
              "LieuAnaPC, CommAnaPC, CommResAnaPC, CodeSandreLabo, CodeMethode, CodeSandreGest, "
              "Cd_Fraction FROM MESURE_PHYSICO ORDER BY NumAnaPC");
        const QStringList avant = rangees(base, tout) + prelevements(base);
        const ClePrelevement cle{STATION, JOUR, s("10:00:00")};
        const QList<LignePrelevement> lues = LecturePrelevement::lire(base.donnees, PC, cle);
        QCOMPARE(lues.size(), 1);
        QCOMPARE(lues[0].resultat, s("0,000012345"));
        EnregistrementPrelevement::ecrire(base.donnees, PC, cle, lues);
        QCOMPARE(rangees(base, tout) + prelevements(base), avant);
        QStringList appartenances = reseaux(base);
        appartenances.sort();
        QCOMPARE(appartenances, QStringList({s("1|0400000009"), s("1|0499999999")}));

        // A result typed anew goes by the rule of four decimals, and keeps its method; a new parameter has none.
        QList<LignePrelevement> changees = LecturePrelevement::lire(base.donnees, PC, cle);
        changees[0].resultat = s("0,000062");
        EnregistrementPrelevement::ecrire(base.donnees, PC, cle, changees);
        QCOMPARE(base.valeur(s("SELECT ResultatAnaPC || '/' || CodeMethode FROM MESURE_PHYSICO")).toString(),
                 s("0.0001/472"));
        changees = LecturePrelevement::lire(base.donnees, PC, cle);
        changees[0].parametre = s("Carbone Organique");
        EnregistrementPrelevement::ecrire(base.donnees, PC, cle, changees);
        QCOMPARE(rangees(base, s("SELECT CodeParam, CodeMethode FROM MESURE_PHYSICO")),
                 QStringList{s("1841|NULL")});
    }

    // A save of one family leaves the other alone, with the networks of the samplings that are the other's only.
    void familles()
    {
        BaseDEssai base;
        const qint64 commun = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0));
        base.ajouterMesure(commun, s("1340"), 1);
        base.ajouterMesure(commun, s("1506"), 2);
        const qint64 seul = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0), s("17"));
        base.ajouterMesure(seul, s("1506"), 3);
        base.sql(s("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001'), (?, '0400000002')"), {commun, seul});
        const ClePrelevement cle{STATION, JOUR, s("10:00:00")};
        QCOMPARE(LecturePrelevement::lire(base.donnees, PC, cle).size(), 1);
        QCOMPARE(LecturePrelevement::lire(base.donnees, PS, cle).size(), 2);

        EnregistrementPrelevement::ecrire(base.donnees, PC, cle, {ligne("Nitrates", "5", OUEST)});
        QCOMPARE(resultats(base), QStringList({s("1|1506|2"), s("2|1506|3"), s("1|1340|5")}));
        QCOMPARE(reseaux(base), QStringList{s("2|0400000002")});

        // A row of the pesticides whose sampler has a sampling of physico-chemistry joins it.
        EnregistrementPrelevement::ecrire(base.donnees, PS, cle,
                                          {ligne("Glyphosate", "6", OUEST, "Réseau national")});
        QCOMPARE(resultats(base), QStringList({s("1|1340|5"), s("1|1506|6")}));
        QCOMPARE(reseaux(base), QStringList{s("1|0400000001")});
        QCOMPARE(prelevements(base).size(), 2);
        // A parameter of the other family is not taken for one of this.
        QVERIFY(!ListesPrelevement::references(base.donnees, PC).parametre(s("Glyphosate")));
        QVERIFY(ListesPrelevement::references(base.donnees, PS).parametre(s("glyphosate")));
    }

    // Without a time: every sampling of the day is replaced, a row goes to the first one of its sampler whatever its time,
    // and a row that was read goes back where it came from.
    void sansHeure()
    {
        BaseDEssai base;
        const qint64 matin = base.ajouterPrelevement(STATION, JOUR, QTime(8, 0));
        const qint64 soir = base.ajouterPrelevement(STATION, JOUR, QTime(18, 0));
        base.ajouterMesure(matin, s("1340"), 1);
        base.ajouterMesure(soir, s("1340"), 2);
        const ClePrelevement cle{STATION, JOUR};
        QList<LignePrelevement> lues = LecturePrelevement::lire(base.donnees, PC, cle);
        QCOMPARE(lues.size(), 2);
        lues << ligne("Carbone Organique", "3", OUEST) << ligne("Carbone Organique", "4", AGENCE);
        EnregistrementPrelevement::ecrire(base.donnees, PC, cle, lues);
        QCOMPARE(resultats(base), QStringList({s("1|1340|1"), s("2|1340|2"), s("1|1841|3"), s("3|1841|4")}));
        QCOMPARE(prelevements(base),
                 QStringList({s("1|08:00:00|19|0"), s("2|18:00:00|19|0"), s("3|NULL|17|0")}));
        // With a time, that sampling alone.
        const ClePrelevement leSoir{STATION, JOUR, s("18:00:00")};
        EnregistrementPrelevement::ecrire(base.donnees, PC, leSoir, {ligne("Nitrates", "9", OUEST)});
        QCOMPARE(resultats(base), QStringList({s("1|1340|1"), s("1|1841|3"), s("3|1841|4"), s("2|1340|9")}));
    }

    // Rows of two samplers in turn: each goes to the one sampling of its sampler.
    void preleveursAlternes()
    {
        BaseDEssai base;
        const ClePrelevement cle{STATION, JOUR, s("09:30:00")};
        EnregistrementPrelevement::ecrire(base.donnees, PC, cle,
                                          {ligne("Nitrates", "1", OUEST), ligne("Nitrates", "2", AGENCE),
                                           ligne("Carbone Organique", "3", OUEST)});
        QCOMPARE(resultats(base), QStringList({s("1|1340|1"), s("2|1340|2"), s("1|1841|3")}));
        // Another sampler: his sampling is made, the former stays in its place.
        QList<LignePrelevement> lues = LecturePrelevement::lire(base.donnees, PC, cle);
        lues[0].preleveur = s("Laboratoire d'Armor");
        EnregistrementPrelevement::ecrire(base.donnees, PC, cle, lues);
        QCOMPARE(resultats(base), QStringList({s("3|1340|1"), s("2|1340|2"), s("1|1841|3")}));
    }

    // A save that fails on its way leaves the store as it was, and says so.
    void echec()
    {
        BaseDEssai base;
        const qint64 p = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0));
        base.ajouterMesure(p, s("1340"), 1);
        base.sql(s("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001')"), {p});
        base.sql(s("CREATE TRIGGER panne BEFORE INSERT ON MESURE_PHYSICO WHEN NEW.CodeParam = '1841' "
                   "BEGIN SELECT RAISE(ABORT, 'disque plein'); END"));
        const QStringList avant = resultats(base) + prelevements(base) + reseaux(base);
        const ClePrelevement cle{STATION, JOUR, s("10:00:00")};
        QString dit;
        try {
            EnregistrementPrelevement::ecrire(
                base.donnees, PC, cle,
                {ligne("Nitrates", "5", AGENCE, "Réseau d'Armor"), ligne("Carbone Organique", "6", AGENCE)});
        } catch (const Erreur &erreur) {
            dit = erreur.description();
        }
        QVERIFY2(
            dit.endsWith(s("\nRien n'a été enregistré : la base contient ce qu'elle contenait, et vos lignes "
                           "sont toujours dans le tableau.")),
            qPrintable(dit));
        QCOMPARE(resultats(base) + prelevements(base) + reseaux(base), avant);
        // A name that has gone since it was typed is named, with its row.
        dit.clear();
        try {
            EnregistrementPrelevement::ecrire(
                base.donnees, PC, cle, {ligne("Nitrates", "5", OUEST), ligne("Nitrates", "6", "Disparu")});
        } catch (const Erreur &erreur) {
            dit = erreur.description();
        }
        QVERIFY2(dit.startsWith(s("L'organisme préleveur « Disparu » de la ligne 2 n'existe plus")),
                 qPrintable(dit));
        QCOMPARE(resultats(base) + prelevements(base) + reseaux(base), avant);
    }

    void suppression()
    {
        BaseDEssai base;
        const qint64 p1 = base.ajouterPrelevement(STATION, JOUR, QTime(10, 0));
        base.ajouterMesure(p1, s("1340"), 1);
        base.ajouterMesure(p1, s("1506"), 2);
        const qint64 p2 = base.ajouterPrelevement(STATION, JOUR, QTime(11, 0));
        base.ajouterMesure(p2, s("1340"), 3);
        base.sql(s("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001'), (?, '0400000001')"), {p1, p2});
        base.ajouterPrelevement(s("04211950"), JOUR); // empty, elsewhere: it goes with the first deletion
        EnregistrementPrelevement::supprimer(base.donnees, PC, {STATION, JOUR, s("10:00:00")});
        QCOMPARE(resultats(base), QStringList({s("1|1506|2"), s("2|1340|3")}));
        QCOMPARE(prelevements(base).size(), 2);
        QCOMPARE(reseaux(base).size(), 2);
        // The whole day: the sampling that has a pesticide stays.
        EnregistrementPrelevement::supprimer(base.donnees, PC, {STATION, JOUR});
        QCOMPARE(resultats(base), QStringList{s("1|1506|2")});
        QCOMPARE(prelevements(base).size(), 1);
        QCOMPARE(reseaux(base), QStringList{s("1|0400000001")});
        EnregistrementPrelevement::supprimer(base.donnees, PS, {STATION, JOUR});
        QCOMPARE(base.compter(s("PRELEVEMENT")), 0);
        QCOMPARE(base.compter(s("PRELEVEMENTRSX")), 0);
    }

    void listes()
    {
        BaseDEssai base;
        base.sql(s("INSERT INTO LOCALISATION VALUES ('04211940', '032', 0, 0, 0, 0, '3')")); // a second point
        QCOMPARE(ListesPrelevement::stations(base.donnees).size(), 2);
        const qint64 p1 = base.ajouterPrelevement(STATION, QDate(2008, 1, 1), QTime(10, 0));
        const qint64 p2 = base.ajouterPrelevement(STATION, JOUR, QTime(11, 0));
        const qint64 p3 = base.ajouterPrelevement(STATION, JOUR, QTime(8, 0));
        const qint64 p4 = base.ajouterPrelevement(STATION, JOUR);
        const qint64 p5 = base.ajouterPrelevement(STATION, QDate(2010, 1, 1), QTime(9, 0));
        for (const qint64 p : {p1, p2, p3, p4})
            base.ajouterMesure(p, s("1340"), 1);
        base.ajouterMesure(p5, s("1506"), 1);
        QCOMPARE(ListesPrelevement::dates(base.donnees, PC, STATION),
                 QList<QDate>({JOUR, QDate(2008, 1, 1)}));
        QCOMPARE(ListesPrelevement::dates(base.donnees, PS, STATION), QList<QDate>{QDate(2010, 1, 1)});
        QCOMPARE(ListesPrelevement::heures(base.donnees, PC, STATION, JOUR),
                 QStringList({s("08:00:00"), s("11:00:00")}));
        QCOMPARE(ListesPrelevement::parametres(base.donnees, PS), QStringList{s("Glyphosate")});
        QCOMPARE(ListesPrelevement::parametres(base.donnees, PC).size(), 3);
        const auto ph = ListesPrelevement::parametre(base.donnees, PC, s("potentiel en hydrogène (PH)"));
        QVERIFY(ph);
        QCOMPARE(ph->code, s("1302"));
        QCOMPARE(ph->unite, s("unité pH"));
        QVERIFY(!ph->environnemental);
        base.sql(s("UPDATE PARAMETRE SET NatureParam = 'Environnemental' WHERE CodeParam = '1302'"));
        QVERIFY(ListesPrelevement::parametre(base.donnees, PC, s("Potentiel en Hydrogène (pH)"))
                    ->environnemental);
        base.sql(s("UPDATE PARAMETRE SET NatureParam = 'ENV' WHERE CodeParam = '1302'"));
        QVERIFY(ListesPrelevement::parametre(base.donnees, PC, s("Potentiel en Hydrogène (pH)"))
                    ->environnemental);
    }
};

QTEST_GUILESS_MAIN(TestEnregistrementPrelevement)
#include "test_enregistrement_prelevement.moc"
