#include "BaseDEssai.h"
#include "maintenance/M_Intervenants.h"

#include <QTest>

using namespace M_Intervenants;

class TestIntervenants : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void importSansEcraser()
    {
        BaseDEssai base;
        base.sql("INSERT INTO CORRESP_INTERVENANT VALUES ('17', '111')");
        QStringList journal;
        const int n = importer(base.donnees, {{"17", "222"}, {"18", "333"}}, false,
                               [&](const QString &ligne) { journal << ligne; });
        QCOMPARE(n, 1);
        QCOMPARE(
            journal,
            (QStringList{"Correspondance existante pour le code Sandre Intervenant 17 -> 222 : pas importée",
                         "Correspondance code Sandre Intervenant 18 -> 333 : créée"}));
        QCOMPARE(base.valeur("SELECT CodeSiretNouveau FROM CORRESP_INTERVENANT WHERE CodeSandreAncien = '17'")
                     .toString(),
                 QString("111"));
        QCOMPARE(nombreCorrespondances(base.donnees), 2);
    }

    void importEnEcrasant()
    {
        BaseDEssai base;
        base.sql("INSERT INTO CORRESP_INTERVENANT VALUES ('17', '111')");
        QStringList journal;
        const int n =
            importer(base.donnees, {{"17", "222"}}, true, [&](const QString &ligne) { journal << ligne; });
        QCOMPARE(n, 1);
        QCOMPARE(
            journal,
            QStringList{"Correspondance existante pour le code Sandre Intervenant 17 -> 222 : remplacée"});
        QCOMPARE(base.valeur("SELECT CodeSiretNouveau FROM CORRESP_INTERVENANT").toString(), QString("222"));
    }

    // What the columns cannot hold is told in the log and left out, the rest goes on.
    void importCodesImpossibles()
    {
        BaseDEssai base;
        QStringList journal;
        const int n = importer(base.donnees, {{"17", ""}, {"123456789012345678", "1"}, {"18", "9"}}, true,
                               [&](const QString &ligne) { journal << ligne; });
        QCOMPARE(n, 1);
        QCOMPARE(journal.size(), 3);
        QCOMPARE(base.compter("CORRESP_INTERVENANT"), 1);
    }

    void listesDansLesTroisOrdres()
    {
        BaseDEssai base;
        base.sql("INSERT INTO INTERVENANT (CodeSandreInterv, NomInterv) VALUES ('05', 'Écluse')");
        base.sql("INSERT INTO CORRESP_INTERVENANT VALUES ('19', 'B'), ('17', 'C')");
        const auto noms = [&](Tri tri) {
            QStringList codes;
            for (const LigneIntervenant &ligne : lister(base.donnees, tri))
                codes << ligne.code + u':' + ligne.nouveau;
            return codes;
        };
        // É sorts as E: Agence (17), Écluse (05), Laboratoire (18), Préleveur (19).
        QCOMPARE(noms(Tri::Libelle), (QStringList{"17:C", "05:", "18:", "19:B"}));
        QCOMPARE(noms(Tri::AncienCode), (QStringList{"05:", "17:C", "18:", "19:B"}));
        QCOMPARE(noms(Tri::NouveauCode), (QStringList{"19:B", "17:C", "05:", "18:"}));
    }

    void miseAJourPartout()
    {
        BaseDEssai base;
        const qint64 p = base.ajouterPrelevement("04211940", QDate(2010, 1, 1), {}, "17");
        const qint64 m = base.ajouterMesure(p, "1340", 10, "1", "17");
        base.sql("UPDATE MESURE_PHYSICO SET CodeSandreLabo = '17'");
        base.sql("INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM, CodeSandreGest) "
                 "VALUES ('35228001', '2010-01-01', 1, '17')");
        base.sql("INSERT INTO StationHydroXGest VALUES ('J7010610', '17')");
        base.sql("INSERT INTO StationMesureXGest VALUES ('04211940', '17')");
        base.sql("INSERT INTO StationPluvioXGest VALUES ('35228001', '17')");
        base.sql("INSERT INTO CORRESP_INTERVENANT VALUES ('17', '20000000000017')");

        QList<int> progres;
        QCOMPARE(mettreAJour(base.donnees, [&](int i) { progres << i; }), 0);
        QCOMPARE(progres, QList<int>{1});
        const QString nouveau("20000000000017");
        QCOMPARE(base.valeur("SELECT CodeSandreGest FROM MESURE_PHYSICO WHERE NumAnaPC = ?", {m}).toString(),
                 nouveau);
        QCOMPARE(base.valeur("SELECT CodeSandreLabo FROM MESURE_PHYSICO").toString(), nouveau);
        QCOMPARE(base.valeur("SELECT CodeSandrePrelev FROM PRELEVEMENT").toString(), nouveau);
        QCOMPARE(base.valeur("SELECT CodeSandreGest FROM MESURE_PLUVIO").toString(), nouveau);
        QCOMPARE(base.valeur("SELECT CodeSandreGest FROM StationHydroXGest").toString(), nouveau);
        QCOMPARE(base.valeur("SELECT CodeSandreGest FROM StationMesureXGest").toString(), nouveau);
        QCOMPARE(base.valeur("SELECT CodeSandreGest FROM StationPluvioXGest").toString(), nouveau);
        QCOMPARE(
            base.valeur("SELECT NomInterv FROM INTERVENANT WHERE CodeSandreInterv = ?", {nouveau}).toString(),
            QString("Agence de l'eau"));
        QCOMPARE(base.compter("INTERVENANT"), 3);
        QVERIFY(!base.valeur("PRAGMA foreign_key_check").isValid());
        // The correspondences stay; the same update then finds nothing to change.
        QCOMPARE(base.compter("CORRESP_INTERVENANT"), 1);
        QCOMPARE(mettreAJour(base.donnees, [](int) {}), 0);
        QCOMPARE(base.compter("INTERVENANT"), 3);
    }

    // Two old bodies become one that exists: its row is not doubled, the old row stays, the measures join.
    void nouveauCodeDejaIntervenant()
    {
        BaseDEssai base;
        const qint64 p = base.ajouterPrelevement("04211940", QDate(2010, 1, 1));
        base.ajouterMesure(p, "1340", 10, "1", "17");
        base.sql("INSERT INTO CORRESP_INTERVENANT VALUES ('17', '18')");
        QCOMPARE(mettreAJour(base.donnees, [](int) {}), 1);
        QCOMPARE(base.valeur("SELECT CodeSandreGest FROM MESURE_PHYSICO").toString(), QString("18"));
        QCOMPARE(base.compter("INTERVENANT"), 3);
        QVERIFY(!base.valeur("PRAGMA foreign_key_check").isValid());
    }
};

QTEST_GUILESS_MAIN(TestIntervenants)
#include "test_intervenants.moc"
