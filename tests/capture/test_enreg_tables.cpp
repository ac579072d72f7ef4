// The shape that all saves share: find, ask, write, dependent rows, ask again; and what stops it.
#include "capture/EnregDEssai.h"
#include "capture/FichesLieux.h"
#include "capture/LectureFiche.h"
#include "capture/SuppressionFiche.h"

#include <QTest>

class TestEnregTables : public QObject
{
    Q_OBJECT

    static Enregistrement commune(const char *numero, const char *nom, const char *situation = "",
                                  const char *departement = "22")
    {
        return M_Enreg_Tables::ligne(Fiches::commune(), {{s("NumCommune"), s(numero)},
                                                         {s("NomCommune"), s(nom)},
                                                         {s("SituationCommune"), s(situation)},
                                                         {s("NumDepartement"), s(departement)}});
    }

private Q_SLOTS:
    void nouvelle()
    {
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(commune("22001", "Allineuc"), {Reponse::Oui, Reponse::Non}), Suite::Fini);
        QCOMPARE(essai.ligne("SELECT NumCommune, NomCommune, SituationCommune, NumDepartement FROM COMMUNE "
                             "WHERE NumCommune = '22001'"),
                 s("22001|Allineuc||22"));
        QCOMPARE(essai.titres(), QStringList({s("Confirmation"), s("Fin de l'enregistrement")}));
        QCOMPARE(essai.dialogue.questions[0].texte,
                 s("Etes-vous sûr de vouloir enregistrer ces informations?"));
        QCOMPARE(essai.dialogue.questions[1].texte,
                 s("L'enregistrement de la commune a été effectué. Désirez-vous en effectuer un autre?"));
        QVERIFY(essai.dialogue.messages.isEmpty());
    }

    void existante()
    {
        EnregDEssai essai;
        const int avant = essai.base.compter(s("COMMUNE"));
        QCOMPARE(
            essai.enregistrer(commune("35228", "Quédillac", "Bourg", "35"), {Reponse::Oui, Reponse::Oui}),
            Suite::Autre);
        QCOMPARE(essai.base.compter(s("COMMUNE")), avant);
        QCOMPARE(essai.ligne("SELECT SituationCommune FROM COMMUNE WHERE NumCommune = '35228'"), s("Bourg"));
        QCOMPARE(essai.dialogue.questions[0].texte, s("Etes-vous sûr de vouloir modifier ces informations?"));
    }

    void refus()
    {
        EnregDEssai essai;
        QCOMPARE(essai.enregistrer(commune("22001", "Allineuc"), {Reponse::Non}), Suite::Annule);
        QCOMPARE(essai.base.compter(s("COMMUNE")), 2);
        QCOMPARE(essai.dialogue.messages.size(), 1);
        QCOMPARE(essai.dialogue.messages[0].texte, s("L'enregistrement est annulé"));
        QCOMPARE(essai.dialogue.messages[0].titre, s("Annulation"));
        QCOMPARE(essai.dialogue.questions.size(), 1);
    }

    // The key is found whatever the case of its letters, accented ones too, and quotes in it are text.
    void cleSansCasse()
    {
        EnregDEssai essai;
        essai.base.sql(s("INSERT INTO COMMUNE (NumCommune, NomCommune) VALUES ('é''a', 'Ailleurs')"));
        QCOMPARE(essai.enregistrer(commune("É'A", "Ici"), {Reponse::Oui, Reponse::Non}), Suite::Fini);
        QCOMPARE(essai.base.compter(s("COMMUNE")), 3);
        QCOMPARE(essai.ligne("SELECT NumCommune, NomCommune FROM COMMUNE WHERE NomCommune = 'Ici'"),
                 s("É'A|Ici"));
    }

    void echec()
    {
        EnregDEssai essai;
        essai.base.sql(
            s("CREATE TRIGGER panne BEFORE INSERT ON COMMUNE BEGIN SELECT RAISE(ABORT, 'panne'); END"));
        QCOMPARE(essai.enregistrer(commune("22001", "Allineuc"), {Reponse::Oui}), Suite::Echec);
        QCOMPARE(essai.dialogue.messages.size(), 1);
        QCOMPARE(essai.dialogue.messages[0].titre, s("Erreur"));
        QVERIFY(essai.dialogue.messages[0].texte.startsWith(
            s("Une erreur s'est produite en cours de traitement : \n")));
        QVERIFY(essai.dialogue.messages[0].texte.endsWith(s(" - panne")));
    }

    // A failure in the dependent rows leaves the row itself: each statement commits by itself.
    void echecDesDependants()
    {
        EnregDEssai essai;
        Enregistrement e = commune("22001", "Allineuc");
        e.dependants = [](const DataEnvironment1 &donnees, qint64) {
            donnees.executer(s("INSERT INTO TABLE_ABSENTE VALUES (1)"));
        };
        QCOMPARE(essai.enregistrer(e, {Reponse::Oui}), Suite::Echec);
        QCOMPARE(essai.base.compter(s("COMMUNE")), 3);
    }

    void avertissement()
    {
        EnregDEssai essai;
        Enregistrement e = commune("22001", "Allineuc");
        e.avertissement = s("Attention, ceci.");
        QCOMPARE(essai.enregistrer(e, {Reponse::Non}), Suite::Annule);
        QCOMPARE(essai.titres(), QStringList{s("Attention")});
        QCOMPARE(essai.enregistrer(e, {Reponse::Oui, Reponse::Oui, Reponse::Non}), Suite::Fini);
        QCOMPARE(essai.titres(),
                 QStringList({s("Attention"), s("Confirmation"), s("Fin de l'enregistrement")}));
    }

    void texteHostile_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::newRow("quotes") << s("L'\"Île\" d''Arz");
        QTest::newRow("percent") << s("100 %1 %2 %n _");
        QTest::newRow("sql") << s("x'); DROP TABLE COMMUNE;--");
        QTest::newRow("emoji") << s("Étang 🐟🌊");
        QTest::newRow("markup") << s("<b>&amp;</b>");
    }
    void texteHostile()
    {
        QFETCH(QString, texte);
        EnregDEssai essai;
        const QByteArray nom = texte.toUtf8();
        QCOMPARE(essai.enregistrer(commune("22001", nom.constData()), {Reponse::Oui, Reponse::Non}),
                 Suite::Fini);
        QCOMPARE(essai.ligne("SELECT NomCommune FROM COMMUNE WHERE NumCommune = '22001'"), texte);
        QVERIFY(essai.dialogue.messages.isEmpty());
    }

    void cles()
    {
        const EnregDEssai essai;
        const ListeChoix cles = LectureFiche::cles(essai.base.donnees, Fiches::commune());
        QCOMPARE(cles.size(), 2);
        QCOMPARE(cles[0].texte, s("22278"));
        QCOMPARE(cles[0].complement, s("Saint-Brieuc"));
        const auto lue = LectureFiche::lire(essai.base.donnees, Fiches::commune(), cles[0].code);
        QVERIFY(lue.has_value());
        QCOMPARE(lue->cle, s("22278"));
        QCOMPARE(lue->valeurs.value(s("NumDepartement")), s("22"));
        QVERIFY(!LectureFiche::lire(essai.base.donnees, Fiches::commune(), s("999")));
        QCOMPARE(LectureFiche::codeDe(essai.base.donnees, Fiches::commune(), s(" 22278 ")), cles[0].code);
    }

    void suppressionRefusee()
    {
        EnregDEssai essai;
        essai.base.sql(
            s("INSERT INTO StationMesureXCommune VALUES ('04211940', '35228'), ('04211950', '35228')"));
        const DescriptionFiche fiche = Fiches::commune();
        const auto lue = LectureFiche::lire(essai.base.donnees, fiche,
                                            LectureFiche::codeDe(essai.base.donnees, fiche, s("35228")));
        QVERIFY(!SuppressionFiche::supprimer(essai.base.donnees, essai.dialogue, fiche, *lue));
        QCOMPARE(essai.dialogue.messages.size(), 1);
        QCOMPARE(essai.dialogue.messages[0].texte,
                 s("La commune « 35228 » ne peut pas être supprimée : elle est utilisée par 1 bassin versant "
                   "et 2 stations de qualité."));
        QVERIFY(essai.dialogue.questions.isEmpty());
        QCOMPARE(essai.base.compter(s("COMMUNE")), 2);
    }

    void suppression()
    {
        EnregDEssai essai;
        const DescriptionFiche fiche = Fiches::commune();
        const auto lue = LectureFiche::lire(essai.base.donnees, fiche,
                                            LectureFiche::codeDe(essai.base.donnees, fiche, s("22278")));
        essai.dialogue.reponses.enqueue(Reponse::Non);
        QVERIFY(!SuppressionFiche::supprimer(essai.base.donnees, essai.dialogue, fiche, *lue));
        QCOMPARE(essai.base.compter(s("COMMUNE")), 2);
        essai.dialogue.reponses.enqueue(Reponse::Oui);
        QVERIFY(SuppressionFiche::supprimer(essai.base.donnees, essai.dialogue, fiche, *lue));
        QCOMPARE(essai.colonne("SELECT NumCommune FROM COMMUNE"), QStringList{s("35228")});
        QCOMPARE(essai.dialogue.questions.last().texte,
                 s("Etes-vous sûr de vouloir supprimer cet enregistrement?"));
    }
};

QTEST_GUILESS_MAIN(TestEnregTables)
#include "test_enreg_tables.moc"
