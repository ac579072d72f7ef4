// What the sheets of units, networks, methods, parameters and SEQ grids write, row by row. The expected rows are what was
// typed, column by column; the study is that of BaseDEssai.
#include "capture/EnregDEssai.h"
#include "capture/FicheGrilleSEQ.h"
#include "capture/FicheParametre.h"
#include "capture/FichesSimples.h"
#include "capture/LectureFiche.h"
#include "capture/ReglesFiche.h"
#include "capture/SuppressionFiche.h"

#include <QTest>

class TestFichesAnalyse : public QObject
{
    Q_OBJECT

    static QList<Reponse> oui() { return {Reponse::Oui, Reponse::Non}; }
    // What refuses to delete a row; empty where nothing does.
    static QString usages(const EnregDEssai &essai, const DescriptionFiche &description, const char *cle)
    {
        const auto &donnees = essai.base.donnees;
        const auto fiche =
            LectureFiche::lire(donnees, description, LectureFiche::codeDe(donnees, description, s(cle)));
        return fiche ? SuppressionFiche::usages(donnees, description, *fiche) : s("?");
    }

private Q_SLOTS:
    void unite()
    {
        EnregDEssai essai;
        const ValeursFiche nouvelle{{s("CodeUnite"), s("900")},
                                    {s("SymboleUnite"), s("mg(X)/L")},
                                    {s("LibelleUnite"), s("milligramme d'X")},
                                    {s("StatutUnite"), s("Validé")}};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(Fiches::unite(), nouvelle), oui()), Suite::Fini);
        QCOMPARE(essai.dialogue.questions[0].texte,
                 s("Etes-vous sûr de vouloir enregistrer ces informations?"));
        QCOMPARE(essai.dialogue.questions[1].texte,
                 s("L'enregistrement de l'unité a été effectué. Désirez-vous en effectuer un autre?"));
        QCOMPARE(essai.titres(), QStringList({s("Confirmation"), s("Fin de l'enregistrement")}));
        QCOMPARE(essai.ligne("SELECT * FROM UNITEREFERENCE WHERE CodeUnite = '900'"),
                 s("900|mg(X)/L|milligramme d'X|Validé"));

        const ValeursFiche changee{{s("CodeUnite"), s("900")}, {s("SymboleUnite"), s("mg(Y)/L")}};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(Fiches::unite(), changee), oui()), Suite::Fini);
        QCOMPARE(essai.dialogue.questions[0].texte, s("Etes-vous sûr de vouloir modifier ces informations?"));
        // Empty texts, not nulls.
        QCOMPARE(essai.ligne("SELECT * FROM UNITEREFERENCE WHERE CodeUnite = '900'"), s("900|mg(Y)/L||"));
        QCOMPARE(usages(essai, Fiches::unite(), "900"), QString());
        QCOMPARE(usages(essai, Fiches::unite(), "173"), s("1 paramètre et 1 unité d'import d'un paramètre"));
    }

    void reseau()
    {
        EnregDEssai essai;
        const ValeursFiche valeurs{{s("CodeReseau"), s("0400000009")},
                                   {s("LibelleReseau"), s("Réseau de l'Ile")},
                                   {s("FinaliteReseau"), s("Suivre l'azote")}};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(Fiches::reseau(), valeurs), oui()), Suite::Fini);
        QCOMPARE(essai.dialogue.questions[1].texte,
                 s("L'enregistrement du réseau a été effectué. Désirez-vous en effectuer un autre?"));
        QCOMPARE(essai.ligne("SELECT * FROM RESEAU_MESURE WHERE CodeReseau = '0400000009'"),
                 s("0400000009|Réseau de l'Ile|Suivre l'azote"));
        const qint64 prel = essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1));
        essai.base.sql(s("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000009')"), {prel});
        essai.base.sql(s("UPDATE STATION_QUALITE SET CodeReseau = '0400000009'"));
        QCOMPARE(usages(essai, Fiches::reseau(), "0400000009"), s("1 prélèvement et 2 stations de qualité"));
    }

    void methode()
    {
        EnregDEssai essai;
        const ValeursFiche valeurs{{s("CodeMéthode"), s("D1")},
                                   {s("NomMéthode"), s("Pesée")},
                                   {s("CommMéthode"), s("Au milligramme")}};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(Fiches::methode(), valeurs), oui()), Suite::Fini);
        QCOMPARE(essai.dialogue.questions[1].texte,
                 s("L'enregistrement de la méthode a été effectué. Désirez-vous en effectuer un autre?"));
        QCOMPARE(essai.ligne("SELECT * FROM METHODE"), s("D1|Pesée|Au milligramme"));
        const qint64 prel = essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1));
        essai.base.ajouterMesure(prel, s("1340"), 12);
        essai.base.ajouterMesure(prel, s("1302"), 7);
        essai.base.sql(s("UPDATE MESURE_PHYSICO SET CodeMethode = 'D1'"));
        QCOMPARE(usages(essai, Fiches::methode(), "D1"), s("2 résultats d'analyse"));
    }

    // The second pair of bounds, which the sheet does not show, stays.
    void grilleSEQ()
    {
        EnregDEssai essai;
        essai.base.sql(s("INSERT INTO GRILLE_SEQ VALUES (7, '1340', 1, 2, 3, 4, 3.5, 4.5)"));
        const ValeursFiche valeurs{{s("Valeur1SEQ"), s("2")},
                                   {s("Valeur2SEQ"), s("10")},
                                   {s("Valeur3SEQ"), s("25,12345")}, // four decimals are kept
                                   {s("Valeur4SEQ"), s("50.5")},
                                   {s("CodeParam"), s("1340")}};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(Fiches::grilleSEQ(), valeurs), oui()), Suite::Fini);
        QCOMPARE(essai.dialogue.questions[1].texte,
                 s("L'enregistrement de la grille SEQ a été effectué. Désirez-vous en effectuer un autre?"));
        QCOMPARE(essai.ligne("SELECT * FROM GRILLE_SEQ"), s("7|1340|2|10|25.1234|50.5|3.5|4.5"));
        QCOMPARE(essai.base.compter(s("GRILLE_SEQ")), 1);
    }

    void bornesSEQ_data()
    {
        QTest::addColumn<QList<double>>("bornes"); // -1: none typed
        QTest::addColumn<QString>("faute");
        QTest::addColumn<int>("position");
        const QString absente = s("Les valeurs de la grille doivent être renseignées. ");
        const QString desordre = s(
            "Les valeurs de la grille doivent être dans l'ordre croissant en allant du BLEU vers le ROUGE. ");
        QTest::newRow("croissantes") << QList<double>{0, 0.1, 25, 50} << QString() << -1;
        QTest::newRow("aucune") << QList<double>{-1, -1, -1, -1} << absente << 0;
        QTest::newRow("il en manque une, les autres en désordre")
            << QList<double>{5, 4, -1, 1} << absente << 2;
        QTest::newRow("égales") << QList<double>{2, 10, 10, 50} << desordre << 2;
        QTest::newRow("décroissantes") << QList<double>{50, 25, 10, 2} << desordre << 1;
        QTest::newRow("la dernière") << QList<double>{2, 10, 25, 24} << desordre << 3;
    }
    void bornesSEQ()
    {
        QFETCH(QList<double>, bornes);
        FicheGrilleSEQ::Bornes lues;
        for (std::size_t i = 0; i < lues.size(); ++i)
            if (const double borne = bornes[static_cast<qsizetype>(i)]; borne >= 0)
                lues[i] = borne;
        QTEST(FicheGrilleSEQ::faute(lues), "faute");
        QTEST(FicheGrilleSEQ::borneEnFaute(lues), "position");
    }

    void parametre()
    {
        EnregDEssai essai;
        const ValeursFiche valeurs{
            {s("CodeParam"), s("9001")},         {s("NomParam"), s("Azote d'essai")},
            {s("StatutParam"), s("Provisoire")}, {s("CommParam"), s("Une ligne\nune autre")},
            {s("DéfParam"), s("Ce que c'est")},  {s("CodeGroupeParam"), s("PC")},
            {s("NatureParam"), s("Chimique")},   {s("CodeUnite"), s("162")}};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(Fiches::parametre(), valeurs), oui()), Suite::Fini);
        QCOMPARE(essai.dialogue.questions[1].texte,
                 s("L'enregistrement du paramètre a été effectué. Désirez-vous en effectuer un autre?"));
        QCOMPARE(essai.ligne("SELECT * FROM PARAMETRE WHERE CodeParam = '9001'"),
                 s("9001|Azote d'essai|Provisoire|Une ligne\nune autre|Ce que c'est|Chimique|PC|162"));
        QCOMPARE(FicheParametre::codeDuNom(essai.base.donnees, s("azote D'ESSAI")), s("9001"));
        QCOMPARE(FicheParametre::codeDuNom(essai.base.donnees, s("Argent")), QString());
    }

    void groupe()
    {
        QCOMPARE(FicheParametre::groupe(s("PS"), s("Chimique")), s("PS"));
        QCOMPARE(FicheParametre::groupe(s("PC"), s("Pesticides")), s("PS"));
        QCOMPARE(FicheParametre::groupe(s("PC"), s("Chimique")), s("PC"));
        QCOMPARE(FicheParametre::groupe(QString(), QString()), s("PC"));
    }

    // Nitrates: 173 is this system's unit, 162 may be imported. The unit of reference is written anew, as this system's.
    void unitesDImport()
    {
        EnregDEssai essai;
        const auto &donnees = essai.base.donnees;
        const char *paires = "SELECT CodeUnite || ':' || ISOVL FROM IMPORT_PAR_URF WHERE CodeParam = '1340' "
                             "ORDER BY CodeUnite";
        QCOMPARE(FicheParametre::autresUnites(donnees, s("1340"), s("173")), QStringList{s("162")});

        FicheParametre::ecrireUnites(donnees, s("1340"), s("162"), {s("173"), s("133")});
        // 173 was there and is left as it is.
        QCOMPARE(essai.colonne(paires), QStringList({s("133:0"), s("162:-1"), s("173:-1")}));
        FicheParametre::ecrireUnites(donnees, s("1340"), s("162"), {});
        QCOMPARE(essai.colonne(paires), QStringList{s("162:-1")});
        // Saved twice, it is there once; without a unit of reference, its pair goes like another.
        FicheParametre::ecrireUnites(donnees, s("1340"), s("162"), {s("162")});
        QCOMPARE(essai.colonne(paires), QStringList{s("162:-1")});
        FicheParametre::ecrireUnites(donnees, s("1340"), {}, {s("133")});
        QCOMPARE(essai.colonne(paires), QStringList{s("133:0")});
        QCOMPARE(essai.colonne("SELECT CodeUnite FROM IMPORT_PAR_URF WHERE CodeParam = '1302'"),
                 QStringList{s("264")});
    }

    void normes()
    {
        EnregDEssai essai;
        const auto &donnees = essai.base.donnees;
        const char *lignes = "SELECT CodeParam || ':' || coalesce(CD_FRACTION, 'NULL') || ':' || ValeurNorme "
                             "FROM NORME_AEP ORDER BY CodeNorme";
        FicheParametre::ecrireNormes(donnees, s("1340"), {{s("23"), 50.0}, {s("3"), 40.0}});
        QCOMPARE(essai.colonne(lignes), QStringList({s("1340:23:50.0"), s("1340:3:40.0")}));
        // A row that is there is changed; one that is taken out goes; what is not named stays.
        FicheParametre::ecrireNormes(donnees, s("1340"), {{s("23"), 25.5}});
        QCOMPARE(essai.colonne(lignes), QStringList({s("1340:23:25.5"), s("1340:3:40.0")}));
        FicheParametre::ecrireNormes(donnees, s("1340"), {{s("3"), std::nullopt}});
        QCOMPARE(essai.colonne(lignes), QStringList{s("1340:23:25.5")});
        QCOMPARE(FicheParametre::normes(donnees, s("1340")).keys(), QStringList{s("23")});
        // Without a fraction nothing is written, but for organic carbon, which has none.
        FicheParametre::ecrireNormes(donnees, s("1302"), {{QString(), 7.0}});
        QCOMPARE(essai.base.compter(s("NORME_AEP")), 1);
        FicheParametre::ecrireNormes(donnees, s("1841"), {{QString(), 2.0}});
        QCOMPARE(essai.colonne(lignes).last(), s("1841:NULL:2.0"));
        // The row of an old base that has a fraction is the one: it keeps it.
        essai.base.sql(s("UPDATE NORME_AEP SET CD_FRACTION = '23' WHERE CodeParam = '1841'"));
        FicheParametre::ecrireNormes(donnees, s("1841"), {{QString(), 3.0}});
        QCOMPARE(essai.colonne(lignes).last(), s("1841:23:3.0"));
        QCOMPARE(FicheParametre::normes(donnees, s("1841")), (FicheParametre::Normes{{QString(), 3.0}}));
    }

    void supprimerUnParametre()
    {
        EnregDEssai essai;
        const auto &donnees = essai.base.donnees;
        FicheParametre::ecrireNormes(donnees, s("1302"), {{s("23"), 9.0}});
        QCOMPARE(usages(essai, Fiches::parametre(), "1302"), QString());
        const auto fiche = LectureFiche::lire(donnees, Fiches::parametre(),
                                              LectureFiche::codeDe(donnees, Fiches::parametre(), s("1302")));
        essai.dialogue.reponses.enqueue(Reponse::Oui);
        QVERIFY(SuppressionFiche::supprimer(donnees, essai.dialogue, Fiches::parametre(), *fiche));
        for (const char *table : {"PARAMETRE", "IMPORT_PAR_URF", "NORME_AEP"})
            QCOMPARE(essai.base.valeur(s("SELECT count(*) FROM %1 WHERE CodeParam = '1302'").arg(s(table))),
                     QVariant(0));

        const qint64 prel = essai.base.ajouterPrelevement(s("04211940"), QDate(2009, 3, 1));
        essai.base.ajouterMesure(prel, s("1340"), 12);
        essai.base.sql(s("INSERT INTO OBJECTIF VALUES (1, '1340', '23', 40, 50), (1, '1340', '3', 40, 50)"));
        essai.base.sql(s("INSERT INTO GRILLE_SEQ (CodeParam) VALUES ('1340')"));
        QCOMPARE(usages(essai, Fiches::parametre(), "1340"),
                 s("1 résultat d'analyse, 2 objectifs de bassin versant et 1 grille SEQ"));
    }

    // Whatever is typed is stored as it is, or refused in words.
    void textesHostiles_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<bool>("pris");
        QTest::newRow("apostrophes et guillemets") << s("L'\"eau\" de l''Ile") << true;
        QTest::newRow("pour cent et soulignés") << s("100 % _%' ESCAPE") << true;
        QTest::newRow("fin d'instruction") << s("'); DROP TABLE PARAMETRE;--") << true;
        QTest::newRow("marques de valeurs") << s("? ?1 :nom @x $y %1 %2") << true;
        QTest::newRow("émoticône") << s("Poisson 🐟 ça nage") << true;
        QTest::newRow("hébreu") << s("מים") << true;
        QTest::newRow("formule") << s("=1+1") << true;
        QTest::newRow("10 000 caractères") << QString(10000, u'x') << false;
        QTest::newRow("zéro") << (s("a") + QChar(0) + s("b")) << false;
        QTest::newRow("échappement") << s("a\x1b[31mb") << false;
        QTest::newRow("moitié de caractère") << (s("a") + QChar(0xD83D)) << false;
    }
    void textesHostiles()
    {
        QFETCH(QString, texte);
        QFETCH(bool, pris);
        const QList<std::pair<DescriptionFiche, QString>> champs{
            {Fiches::unite(), s("LibelleUnite")},  {Fiches::reseau(), s("FinaliteReseau")},
            {Fiches::methode(), s("NomMéthode")},  {Fiches::parametre(), s("NomParam")},
            {Fiches::parametre(), s("CommParam")}, {Fiches::reseau(), s("LibelleReseau")},
            {Fiches::unite(), s("SymboleUnite")},  {Fiches::methode(), s("CommMéthode")},
        };
        EnregDEssai essai;
        for (const auto &[description, colonne] : champs) {
            ValeursFiche valeurs;
            for (const ChampFiche &champ : description.champs)
                if (!champ.siVide.isEmpty())
                    valeurs[champ.colonne] = s("77");
            valeurs[colonne] = texte;
            const auto refus = ReglesFiche::refusFiche(description, valeurs);
            QCOMPARE(!refus, pris);
            if (refus) {
                QVERIFY(!refus->message.isEmpty());
                continue;
            }
            QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(description, valeurs), oui()), Suite::Fini);
            QVERIFY(essai.dialogue.messages.isEmpty());
            QCOMPARE(essai.base.valeur(s("SELECT %1 FROM %2 WHERE %3 = '77'")
                                           .arg(colonne, description.table, description.critere)),
                     QVariant(texte));
        }
        QCOMPARE(essai.base.compter(s("PARAMETRE")), pris ? 5 : 4);
    }
};

QTEST_GUILESS_MAIN(TestFichesAnalyse)
#include "test_fiches_analyse.moc"
