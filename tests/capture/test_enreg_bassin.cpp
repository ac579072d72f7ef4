// The saves of a basin and of a sub-basin.
#include "capture/EnregDEssai.h"
#include "capture/EnregistrementBassin.h"
#include "capture/FichesLieux.h"
#include "capture/LectureFiche.h"
#include "capture/SuppressionFiche.h"

#include <QTest>

class TestEnregBassin : public QObject
{
    Q_OBJECT

    static void objectif(const EnregDEssai &essai, const char *parametre, const char *fraction,
                         const QVariant &moyen, const QVariant &maximal)
    {
        essai.base.sql(
            s("INSERT INTO Temp_objectif (Parametre, CD_FRACTION, MoyObjf, MaxObjf) VALUES (?, ?, ?, ?)"),
            {s(parametre), s(fraction), moyen, maximal});
    }

private Q_SLOTS:
    void nouveau()
    {
        EnregDEssai essai;
        objectif(essai, "Nitrates", "Eau brute", 25, 50);
        objectif(essai, "Carbone Organique", "3", 5.5, QVariant());
        essai.base.sql(s("INSERT INTO SOUS_BASSIN_VERSANT (CodeSSBV, NomSSBV) VALUES (7, 'Bas')"));
        SaisieBassin saisie;
        saisie.valeurs = {{s("NomBV"), s("L'Arz")},
                          {s("ProblématiqueBV"), s("Nitrates\net \"pesticides\"")},
                          {s("SuperfBV"), s("148,5")}};
        saisie.liens = {{s("BVXCommune"), {s("22278")}}};
        saisie.sousBassins = {s("7")};
        const Enregistrement e = M_Enreg_Tables::bassin(saisie);
        QCOMPARE(e.colonnes.size(), 3);
        QCOMPARE(e.colonnes[0].nom + e.colonnes[1].nom + e.colonnes[2].nom,
                 s("NomBVProblématiqueBVSuperfBV"));
        QCOMPARE(essai.enregistrer(e, {Reponse::Oui, Reponse::Non}), Suite::Fini);
        QCOMPARE(essai.ligne("SELECT NumBV, NomBV, ObjBV, [ProblématiqueBV], SuperfBV FROM BASSIN_VERSANT "
                             "WHERE NomBV = 'L''Arz'"),
                 s("2|L'Arz|NULL|Nitrates\net \"pesticides\"|148.5"));
        QCOMPARE(essai.colonne("SELECT CodeParam || ' ' || CD_FRACTION || ' ' || MoyObjf || ' ' || "
                               "COALESCE(MaxObjf, 'NULL') FROM OBJECTIF WHERE NumBV = 2 ORDER BY rowid"),
                 QStringList({s("1340 23 25.0 50.0"), s("1841 3 5.5 NULL")}));
        QCOMPARE(essai.ligne("SELECT NumBV FROM SOUS_BASSIN_VERSANT WHERE CodeSSBV = 7"), s("2"));
        QCOMPARE(essai.ligne("SELECT * FROM BVXCommune WHERE NumBV = 2"), s("2|22278"));
        QCOMPARE(essai.base.compter(s("Temp_objectif")), 0);
        // Not the reference: the row of the study stays.
        QCOMPARE(essai.ligne("SELECT * FROM LIEU_BASSIN_VERSANT"), s("BV d'essai"));
        QCOMPARE(essai.dialogue.questions.last().texte,
                 s("L'enregistrement du bassin versant a été effectué. Désirez-vous en effectuer un autre?"));
    }

    void modifie()
    {
        EnregDEssai essai;
        essai.base.sql(s("INSERT INTO OBJECTIF (NumBV, CodeParam, CD_FRACTION, MoyObjf) VALUES "
                         "(1, '1302', '23', 7), (9, '1340', '23', 1)"));
        essai.base.sql(s("INSERT INTO SOUS_BASSIN_VERSANT (CodeSSBV, NomSSBV, NumBV) VALUES (7, 'Bas', 1)"));
        objectif(essai, "Nitrates", "Eau brute", 25, 50);
        SaisieBassin saisie;
        saisie.valeurs = {{s("NomBV"), s("bv D'ESSAI")}};
        saisie.sousBassins = {s("1")};
        saisie.retires = {s("7")};
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::bassin(saisie), {Reponse::Oui, Reponse::Oui}),
                 Suite::Autre);
        QCOMPARE(essai.dialogue.questions[0].texte, s("Etes-vous sûr de vouloir modifier ces informations?"));
        QCOMPARE(essai.base.compter(s("BASSIN_VERSANT")), 1);
        // Replaced for this basin alone.
        QCOMPARE(essai.colonne("SELECT NumBV || ' ' || CodeParam FROM OBJECTIF ORDER BY NumBV"),
                 QStringList({s("1 1340"), s("9 1340")}));
        QCOMPARE(essai.base.valeur(s("SELECT count(*) FROM BVXCommune WHERE NumBV = 1")), QVariant(0));
        QCOMPARE(essai.colonne("SELECT NumBV FROM SOUS_BASSIN_VERSANT ORDER BY CodeSSBV"),
                 QStringList({s("1"), s("NULL")}));
        QCOMPARE(essai.base.compter(s("Temp_objectif")), 0);
    }

    void reference()
    {
        EnregDEssai essai;
        SaisieBassin saisie;
        saisie.valeurs = {{s("NomBV"), s("L'Arz")}};
        saisie.reference = true;
        QStringList noms;
        const Enregistrement e = M_Enreg_Tables::bassin(saisie, [&](const QString &nom) { noms << nom; });
        // Asked first; a No there stops everything.
        QCOMPARE(essai.enregistrer(e, {Reponse::Non}), Suite::Annule);
        QCOMPARE(essai.dialogue.questions[0].texte,
                 s("Attention, ce bassin versant sera le bassin de référence."));
        QCOMPARE(essai.dialogue.questions[0].titre, s("Attention"));
        QCOMPARE(essai.base.compter(s("BASSIN_VERSANT")), 1);
        QVERIFY(noms.isEmpty());
        QCOMPARE(essai.enregistrer(e, {Reponse::Oui, Reponse::Oui, Reponse::Non}), Suite::Fini);
        QCOMPARE(essai.titres(),
                 QStringList({s("Attention"), s("Confirmation"), s("Fin de l'enregistrement")}));
        QCOMPARE(essai.colonne("SELECT Bassin_versant FROM LIEU_BASSIN_VERSANT"), QStringList{s("L'Arz")});
        QCOMPARE(noms, QStringList{s("L'Arz")});
    }

    void objectifsPrepares()
    {
        EnregDEssai essai;
        essai.base.sql(s("INSERT INTO OBJECTIF (NumBV, CodeParam, CD_FRACTION, MoyObjf, MaxObjf) VALUES "
                         "(1, '1340', '23', 25, 50), (1, '9999', '77', 1, NULL), (2, '1302', '23', 7, 8)"));
        M_Enreg_Tables::preparerObjectifs(essai.base.donnees, 1);
        // An unknown parameter or fraction comes as its code, and is saved again as such.
        QCOMPARE(essai.colonne("SELECT Parametre || '/' || CD_FRACTION || '/' || COALESCE(Unite, '') FROM "
                               "Temp_objectif ORDER BY Parametre"),
                 QStringList({s("9999/77/"), s("Nitrates/Eau brute/mg(NO3)/L")}));
        M_Enreg_Tables::preparerObjectifs(essai.base.donnees, {});
        QCOMPARE(essai.base.compter(s("Temp_objectif")), 0);
    }

    void objectifsRefuses()
    {
        EnregDEssai essai;
        const auto refus = [&] { return M_Enreg_Tables::refusObjectifs(essai.base.donnees); };
        QCOMPARE(refus(), QString());
        objectif(essai, "Nitrates", "Eau brute", 25, 50);
        objectif(essai, "Nitrates", "Inconnu", 25, 50);
        QCOMPARE(refus(), QString());
        objectif(essai, "nitrates", "23", 1, 2);
        QCOMPARE(refus(),
                 s("Le paramètre « nitrates » a plusieurs objectifs pour la même fraction : gardez-en un "
                   "seul."));
        essai.base.sql(s("DELETE FROM Temp_objectif"));
        objectif(essai, "Xyz %1", "Eau brute", 25, 50);
        QCOMPARE(refus(), s("Le paramètre « Xyz %1 » n'existe pas dans la base de données."));
        essai.base.sql(s("DELETE FROM Temp_objectif"));
        objectif(essai, "", "Eau brute", 25, 50);
        QCOMPARE(refus(), s("Chaque objectif doit avoir un paramètre."));
    }

    void sousBassin()
    {
        EnregDEssai essai;
        const DescriptionFiche fiche = Fiches::sousBassin();
        QCOMPARE(essai.enregistrer(M_Enreg_Tables::ligne(fiche, {{s("NomSSBV"), s("Aval")},
                                                                 {s("SuperfSSBV"), s("12,5")},
                                                                 {s("NumBV"), s("1")}}),
                                   {Reponse::Oui, Reponse::Non}),
                 Suite::Fini);
        QCOMPARE(essai.ligne("SELECT CodeSSBV, NomSSBV, NumBV, SuperfSSBV FROM SOUS_BASSIN_VERSANT "
                             "WHERE NomSSBV = 'Aval'"),
                 s("2|Aval|1|12.5"));
        QCOMPARE(
            essai.dialogue.questions.last().texte,
            s("L'enregistrement du sous bassin versant a été effectué. Désirez-vous en effectuer un autre?"));
        const auto lue = LectureFiche::lire(essai.base.donnees, fiche,
                                            LectureFiche::codeDe(essai.base.donnees, fiche, s("Haut du BV")));
        QCOMPARE(SuppressionFiche::usages(essai.base.donnees, fiche, *lue), s("1 station de qualité"));
    }

    void suppressionDuBassin()
    {
        EnregDEssai essai;
        const DescriptionFiche fiche = Fiches::bassin();
        const auto lire = [&](const char *nom) {
            return *LectureFiche::lire(essai.base.donnees, fiche,
                                       LectureFiche::codeDe(essai.base.donnees, fiche, s(nom)));
        };
        QCOMPARE(
            SuppressionFiche::usages(essai.base.donnees, fiche, lire("BV d'essai")),
            s("1 étude, dont il est le bassin de référence, 1 sous-bassin, 2 stations de qualité, 1 station "
              "hydrométrique et 1 station pluviométrique"));
        essai.base.sql(s("INSERT INTO BASSIN_VERSANT (NumBV, NomBV) VALUES (2, 'Autre')"));
        essai.base.sql(s("INSERT INTO OBJECTIF (NumBV, CodeParam) VALUES (2, '1340'), (1, '1340')"));
        essai.base.sql(s("INSERT INTO BVXCommune VALUES (2, '22278')"));
        essai.dialogue.reponses.enqueue(Reponse::Oui);
        QVERIFY(SuppressionFiche::supprimer(essai.base.donnees, essai.dialogue, fiche, lire("Autre")));
        QCOMPARE(essai.colonne("SELECT NumBV FROM OBJECTIF"), QStringList{s("1")});
        QCOMPARE(essai.colonne("SELECT NumBV FROM BVXCommune"), QStringList{s("1")});
        QCOMPARE(essai.base.compter(s("BASSIN_VERSANT")), 1);
    }
};

QTEST_GUILESS_MAIN(TestEnregBassin)
#include "test_enreg_bassin.moc"
