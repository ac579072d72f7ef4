// What the three sheets of the outside bodies write, and how a changed code is carried over.
#include "capture/EnregDEssai.h"
#include "capture/FichesIntervenants.h"
#include "capture/LectureFiche.h"

#include <QTest>

class TestFichesIntervenants : public QObject
{
    Q_OBJECT

    static QList<Reponse> oui() { return {Reponse::Oui, Reponse::Non}; }
    static ValeursFiche valeurs(const char *code)
    {
        return {{s("CodeSandreInterv"), s(code)},
                {s("NomInterv"), s("Nom")},
                {s("LibelleSandreInterv"), s("Libellé")},
                {s("StatutInterv"), s("Validé")},
                {s("RueInterv"), s("1, rue de l'Eau")},
                {s("CPInterv"), s("35000")},
                {s("VilleInterv"), s("Rennes")},
                {s("DépartPaysInterv"), s("35")},
                {s("CommInterv"), s("Rien")}};
    }
    static const char *ligne17()
    {
        return "SELECT CodeSandreInterv, NomInterv, LibelleSandreInterv, StatutInterv, RueInterv, CPInterv, "
               "VilleInterv, DépartPaysInterv, CommInterv FROM INTERVENANT WHERE Code = 1";
    }

private Q_SLOTS:
    void lesTroisFiches_data()
    {
        QTest::addColumn<DescriptionFiche>("description");
        QTest::addColumn<QString>("fin");
        QTest::addColumn<QString>("departement"); // what the new row has
        QTest::newRow("laboratoire")
            << Fiches::laboratoire()
            << s("L'enregistrement du laboratoire d'analyses a été effectué. Désirez-vous en effectuer un autre?")
            << s("NULL");
        QTest::newRow("préleveur")
            << Fiches::preleveur()
            << s("L'enregistrement de l'organisme préleveur a été effectué. Désirez-vous en effectuer un autre?")
            << s("NULL");
        QTest::newRow("gestionnaire")
            << Fiches::gestionnaire()
            << s("L'enregistrement du gestionnaire a été effectué. Désirez-vous en effectuer un autre?")
            << s("35");
        QTest::newRow("intervenant")
            << Fiches::intervenant()
            << s("L'enregistrement de l'intervenant a été effectué. Désirez-vous en effectuer un autre?")
            << s("35");
    }
    void lesTroisFiches()
    {
        QFETCH(DescriptionFiche, description);
        QFETCH(QString, departement);
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(description, valeurs("12345678901234567")), oui()),
                 Suite::Fini);
        QTEST(essai.dialogue.questions[1].texte, "fin");
        QCOMPARE(essai.ligne("SELECT NomInterv, LibelleSandreInterv, StatutInterv, RueInterv, CPInterv, "
                             "VilleInterv, DépartPaysInterv, CommInterv FROM INTERVENANT "
                             "WHERE CodeSandreInterv = '12345678901234567'"),
                 s("Nom|Libellé|Validé|1, rue de l'Eau|35000|Rennes|%1|Rien").arg(departement));
        QCOMPARE(essai.base.compter(s("INTERVENANT")), 4);
    }

    // The code typed is another body's number, and nobody was chosen: that body is changed.
    void parLeCode()
    {
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(Fiches::laboratoire(), valeurs("17")), oui()),
                 Suite::Fini);
        QCOMPARE(essai.dialogue.questions[0].texte, s("Etes-vous sûr de vouloir modifier ces informations?"));
        // The department is not the laboratory's to write.
        QCOMPARE(essai.ligne(ligne17()), s("17|Nom|Libellé|Validé|1, rue de l'Eau|35000|Rennes|NULL|Rien"));
        QCOMPARE(essai.base.compter(s("INTERVENANT")), 3);
    }

    // A chosen body keeps its internal key, whatever code is typed. The results' manager follows by its foreign key, the rest
    // by the statements; samplings keep the old code.
    void report()
    {
        EnregDEssai essai;
        const auto &base = essai.base;
        const qint64 prel = base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1), {}, s("17"));
        base.ajouterMesure(prel, s("1340"), 12); // manager 17, laboratory 18
        const qint64 autre = base.ajouterMesure(prel, s("1302"), 7, s("1"), s("18"));
        base.sql(s("UPDATE MESURE_PHYSICO SET CodeSandreLabo = '17' WHERE NumAnaPC = ?"), {autre});
        base.sql(s("INSERT INTO MESURE_PLUVIO (CodeStationPM, CodeSandreGest) VALUES ('35228001', '17')"));
        base.sql(s("INSERT INTO StationHydroXGest VALUES ('J7010610', '17'), ('J7010610', '18')"));
        base.sql(s("INSERT INTO StationMesureXGest VALUES ('04211940', '17')"));
        base.sql(s("INSERT INTO StationPluvioXGest VALUES ('35228001', '17')"));

        Enregistrement e = M_Enreg_Tables::ligne(Fiches::gestionnaire(), valeurs("NOUVEAU'17"), s("1"));
        e.dependants = [](const DataEnvironment1 &donnees, qint64 rang) {
            QCOMPARE(rang, 1);
            FichesIntervenants::reporterCode(donnees, s("17"), s("NOUVEAU'17"));
        };
        QCOMPARE(essai.enregistrer(e, oui()), Suite::Fini);
        QVERIFY(essai.dialogue.messages.isEmpty());
        QCOMPARE(essai.ligne(ligne17()),
                 s("NOUVEAU'17|Nom|Libellé|Validé|1, rue de l'Eau|35000|Rennes|35|Rien"));
        QCOMPARE(essai.colonne("SELECT CodeSandreGest || '/' || CodeSandreLabo FROM MESURE_PHYSICO"),
                 QStringList({s("NOUVEAU'17/18"), s("18/NOUVEAU'17")}));
        QCOMPARE(essai.ligne("SELECT CodeSandreGest FROM MESURE_PLUVIO"), s("NOUVEAU'17"));
        QCOMPARE(essai.colonne("SELECT CodeSandreGest FROM StationHydroXGest"),
                 QStringList({s("NOUVEAU'17"), s("18")}));
        QCOMPARE(essai.ligne("SELECT CodeSandreGest FROM StationMesureXGest"), s("NOUVEAU'17"));
        QCOMPARE(essai.ligne("SELECT CodeSandreGest FROM StationPluvioXGest"), s("NOUVEAU'17"));
        QCOMPARE(essai.ligne("SELECT CodeSandrePrelev FROM PRELEVEMENT"), s("17"));
        QCOMPARE(FichesIntervenants::prelevements(base.donnees, s("17")), 1);
        QCOMPARE(FichesIntervenants::prelevements(base.donnees, s("NOUVEAU'17")), 0);
    }

    // Some old files have a sampler beside each result: it follows there, and nothing stops where there is none.
    void reportDUnVieuxFichier()
    {
        EnregDEssai essai;
        const qint64 prel = essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1));
        essai.base.ajouterMesure(prel, s("1340"), 12);
        essai.base.sql(
            s("ALTER TABLE MESURE_PHYSICO ADD COLUMN CodeSandrePrelev VARCHAR(17) COLLATE NOCASE"));
        essai.base.sql(s("UPDATE MESURE_PHYSICO SET CodeSandrePrelev = '19'"));
        FichesIntervenants::reporterCode(essai.base.donnees, s("19"), s("20"));
        QCOMPARE(essai.ligne("SELECT CodeSandrePrelev FROM MESURE_PHYSICO"), s("20"));
        // Nothing to carry over.
        FichesIntervenants::reporterCode(essai.base.donnees, QString(), s("21"));
        QCOMPARE(essai.ligne("SELECT CodeSandrePrelev FROM MESURE_PHYSICO"), s("20"));
    }

    void codeEnUsage()
    {
        EnregDEssai essai;
        const auto &donnees = essai.base.donnees;
        const auto faute = [&](const DescriptionFiche &description, const char *ancien, const char *code) {
            return FichesIntervenants::fauteCode(donnees, description, s(ancien), s(code));
        };
        QCOMPARE(faute(Fiches::laboratoire(), "18", "88"), QString());
        const qint64 prel = essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1));
        essai.base.ajouterMesure(prel, s("1340"), 12);
        essai.base.ajouterMesure(prel, s("1302"), 7);
        QCOMPARE(
            faute(Fiches::laboratoire(), "18", "88"),
            s("Le code « 18 » est utilisé par 2 résultats d'analyse dont il est le laboratoire : il ne peut pas "
              "être changé sur cette fiche.\nPour le changer partout, passez par « Compléments », "
              "« Intervenants »."));
        QVERIFY(faute(Fiches::preleveur(), "19", "20").contains(s("1 prélèvement dont il est le préleveur")));
        QCOMPARE(faute(Fiches::gestionnaire(), "18", "88"), QString());
        QCOMPARE(faute(Fiches::laboratoire(), "18", " 18 "), QString());
    }
};

QTEST_GUILESS_MAIN(TestFichesIntervenants)
#include "test_fiches_intervenants.moc"
