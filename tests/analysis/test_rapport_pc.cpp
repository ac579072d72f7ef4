// The report from end to end: a study, the whole command with the real spreadsheet application, and the file read back
// by tests/outils/verifier_rapport.py, which works every cell out again from the study with rules of its own.
#include "BaseDEssai.h"
#include "EssaiRapport.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{
const QString STATION = QStringLiteral("04211940");
const QString NITRATES = QStringLiteral("Nitrates");
const QString CARBONE = QStringLiteral("Carbone Organique");

DemandeRapport demande(const QString &parametre, QDate debut, QDate fin, ModeAnnee mode = ModeAnnee::Civile)
{
    DemandeRapport d;
    d.codeStation = STATION;
    d.parametre = parametre;
    d.debut = debut;
    d.fin = fin;
    d.mode = mode;
    return d;
}
} // namespace

class TestRapportPC : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<EssaiRapport> m_essai;
    std::unique_ptr<BaseDEssai> m_base;

    bool editer(const DemandeRapport &d) { return m_essai->editer(d, m_base->donnees); }
    QString verifier(const DemandeRapport &d) const { return m_essai->verifier(d, m_base->chemin); }

    // Twelve years of nitrates of two producers, with every kind of remark code, comments, networks, protocols and flows;
    // organic carbon in two fractions; another station and a pesticide that must stay out.
    void remplir()
    {
        m_base->sql("INSERT INTO OBJECTIF VALUES (1, '1340', '3', 25, 50), (1, '1841', '23', 0, 7.5), "
                    "(1, '1841', '3', 4.25, NULL)");
        m_base->sql(
            "INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ, Valeur3BisSEQ, "
            "Valeur4BisSEQ) VALUES ('1340', 2, 10, 25, 50, 15, 35), ('1841', 5, 7, 10, 12, 8, 11)");
        QRandomGenerator hasard(1340);
        const QStringList codes{"1", "1", "1", "1", "2", "10", "0", "", "3"};
        const QStringList commentaires{"", "", "eau trouble", "crue"};
        for (QDate jour(2004, 1, 14); jour < QDate(2016, 1, 1); jour = jour.addDays(hasard.bounded(18, 45))) {
            const qint64 prel = m_base->ajouterPrelevement(STATION, jour, QTime(9, 30), "19",
                                                           QString::number(hasard.bounded(3)));
            m_base->sql("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000001')", {prel});
            if (hasard.bounded(3) == 0)
                m_base->sql("INSERT INTO PRELEVEMENTRSX VALUES (?, '0400000002')", {prel});
            const qint64 mesure = m_base->ajouterMesure(prel, "1340", hasard.bounded(700000) / 10000.0,
                                                        codes[hasard.bounded(codes.size())],
                                                        hasard.bounded(3) == 0 ? "18" : "17", "3");
            m_base->sql("UPDATE MESURE_PHYSICO SET CommResAnaPC = nullif(?, '') WHERE NumAnaPC = ?",
                        {commentaires[hasard.bounded(commentaires.size())], mesure});
            m_base->ajouterMesure(prel, "1841", hasard.bounded(1500) / 100.0, "1", "17", "23");
            m_base->ajouterMesure(prel, "1841", hasard.bounded(900) / 100.0, "1", "17", "3");
            m_base->ajouterMesure(prel, "1506", 0.1, "1", "17", "23");
            // Whole years of flows, then years where a day is missing or has two.
            if (jour.year() < 2010 || hasard.bounded(12) > 0)
                m_base->ajouterDebitJour("J7010610", jour, hasard.bounded(1, 90000) / 10.0);
            if (jour.year() >= 2013 && hasard.bounded(10) == 0)
                m_base->ajouterDebitJour("J7010610", jour, 500);
            const qint64 ailleurs = m_base->ajouterPrelevement("04211950", jour);
            m_base->ajouterMesure(ailleurs, "1340", 1234);
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_essai = std::make_unique<EssaiRapport>();
        QVERIFY2(QFile::exists(m_essai->modele()), "the build makes the template");
        m_base = std::make_unique<BaseDEssai>();
        remplir();
    }

    void cleanupTestCase()
    {
        m_essai.reset();
        m_base.reset();
    }

    void comparaison_data()
    {
        QTest::addColumn<DemandeRapport>("d");
        const auto hydro = ModeAnnee::Hydrologique;
        const QDate debut(2004, 1, 1);
        const QDate fin(2015, 12, 31);

        DemandeRapport d = demande(NITRATES, QDate(2008, 1, 1), QDate(2010, 12, 31));
        d.afficherCodeUsuel = true;
        QTest::newRow("three civil years, everyday code") << d;
        QTest::newRow("one year") << demande(NITRATES, QDate(2008, 1, 1), QDate(2008, 12, 31));
        QTest::newRow("five years, one full block")
            << demande(NITRATES, QDate(2005, 3, 1), QDate(2009, 11, 5));
        QTest::newRow("six years, a second block")
            << demande(NITRATES, QDate(2005, 1, 1), QDate(2010, 12, 31));
        QTest::newRow("twelve years, three blocks") << demande(NITRATES, debut, fin);
        QTest::newRow("hydrological, widened back, long last year")
            << demande(NITRATES, QDate(2008, 1, 1), QDate(2009, 12, 31), hydro);
        QTest::newRow("hydrological, eleven years")
            << demande(NITRATES, QDate(2004, 10, 1), QDate(2015, 9, 30), hydro);
        QTest::newRow("years without any measure")
            << demande(NITRATES, QDate(2001, 1, 1), QDate(2005, 12, 31));

        d = demande(NITRATES, debut, fin);
        d.gestionnaires = QStringList{"17"};
        QTest::newRow("one producer") << d;
        d.gestionnaires = QStringList{"17", "18"};
        QTest::newRow("both producers") << d;
        d = demande(NITRATES, debut, fin);
        d.commentaires = QStringList{""};
        QTest::newRow("without a comment") << d;
        d.commentaires = QStringList{"", "crue"};
        d.gestionnaires = QStringList{"18"};
        QTest::newRow("comments and producer") << d;
        d = demande(NITRATES, debut, fin);
        d.reseaux = QStringList{"0400000002"};
        QTest::newRow("one network") << d;
        d.reseaux = QStringList{"0400000001", "0400000002"};
        QTest::newRow("both networks, each measure once") << d;
        d = demande(NITRATES, debut, fin);
        d.protocole = QStringLiteral("Suivi pluie");
        QTest::newRow("protocol") << d;
        d.protocole = QStringLiteral("Non spécifié");
        QTest::newRow("protocol not told") << d;
        d = demande(NITRATES, debut, fin, hydro);
        d.stationDebit = QStringLiteral("J7010610");
        d.seuil = 18.5;
        QTest::newRow("flows and threshold") << d;
        d.seuil = 0;
        QTest::newRow("threshold of zero") << d;

        d = demande(CARBONE, debut, fin);
        d.fraction = QStringLiteral("23 - Eau brute");
        QTest::newRow("organic carbon, the fraction of the grid") << d;
        d.fraction = QStringLiteral("3 - Phase aqueuse de l'eau (filtrée, centrifugée...)");
        QTest::newRow("organic carbon, a fraction without grid") << d;
    }

    void comparaison()
    {
        QFETCH(DemandeRapport, d);
        QVERIFY(editer(d));
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QCOMPARE(m_essai->dialogue.messages[0].texte, QStringLiteral("L'édition du rapport est terminée. "));
        QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Fin de création"));
        QCOMPARE(m_essai->dialogue.documents, QStringList{m_essai->sortie()});
        const QString differences = verifier(d);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }

    // The judge itself: a figure of the report changed behind its back is told.
    void leVerificateurVoitUneErreur()
    {
        const DemandeRapport d = demande(NITRATES, QDate(2008, 1, 1), QDate(2010, 12, 31));
        QVERIFY(editer(d));
        {
            const auto classeur = m_essai->tableur.ouvrir(m_essai->sortie());
            classeur->feuille(QStringLiteral("Données")).plage(QStringLiteral("C31")).ecrire(QVariant(0.015));
            classeur->enregistrer();
        }
        QVERIFY(verifier(d).contains(QStringLiteral("C31: ")));
    }

    void carboneSansFraction()
    {
        const DemandeRapport d = demande(CARBONE, QDate(2008, 1, 1), QDate(2009, 12, 31));
        QVERIFY(editer(d));
        QCOMPARE(m_essai->dialogue.messages.size(), 2);
        QCOMPARE(m_essai->dialogue.messages[0],
                 (BoiteDEssai{"Vous n'avez pas sélectionné de fraction pour le paramètre Carbone Organique.",
                              "Attention !", Icone::Exclamation}));
        const QString differences = verifier(d);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }

    // Nothing measured at all: both messages, and no file.
    void aucuneMesure()
    {
        QVERIFY(!editer(demande(NITRATES, QDate(1990, 1, 1), QDate(1991, 12, 31))));
        QCOMPARE(m_essai->dialogue.messages.size(), 2);
        QCOMPARE(m_essai->dialogue.messages[0].texte,
                 QStringLiteral("Il n'y a aucune mesure physico-chimiques pour l'édition du rapport"));
        QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Attention"));
        QCOMPARE(m_essai->dialogue.messages[1].texte,
                 QStringLiteral("Il n'y a aucune donnée dans le rapport. "));
        QCOMPARE(m_essai->dialogue.messages[1].titre, QStringLiteral("Attention"));
        QVERIFY(!QFile::exists(m_essai->sortie()));
        QVERIFY(m_essai->dialogue.documents.isEmpty());
    }

    // Measures, but none accepted: the second message alone.
    void mesuresToutesEcartees()
    {
        DemandeRapport d = demande(NITRATES, QDate(2008, 1, 1), QDate(2009, 12, 31));
        d.gestionnaires = QStringList{"19"};
        QVERIFY(!editer(d));
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QCOMPARE(m_essai->dialogue.messages[0].texte,
                 QStringLiteral("Il n'y a aucune donnée dans le rapport. "));
        QVERIFY(!QFile::exists(m_essai->sortie()));
    }

    // Without accepted records the interannual rows are dashes all the same, for whoever keeps the workbook.
    void tiretsSansMesure()
    {
        const auto classeur = m_essai->tableur.ouvrir(m_essai->modele());
        QCOMPARE(
            M_Concentration_OVRA::EditerRapport(demande(NITRATES, QDate(1990, 1, 1), QDate(1990, 12, 31)),
                                                m_base->donnees, m_essai->dialogue, *classeur),
            0);
        for (const char *adresse : {"B16:B25", "D16:D25", "B30:B42"}) {
            const Valeurs valeurs =
                classeur->feuille(QStringLiteral("Données")).plage(QString::fromLatin1(adresse)).valeurs();
            for (const auto &ligne : valeurs)
                QCOMPARE(ligne[0], QVariant("-"));
        }
    }

    // Texts of the base that look like formulas or numbers are shown as they are.
    void textesPrisTelsQuels()
    {
        m_base->sql(
            "UPDATE STATION_QUALITE SET NomStationM = '=1+1', RiviereStationM = '0123', CodeUsuelStationM = '007' "
            "WHERE CodeSandreStationM = ?",
            {STATION});
        DemandeRapport d = demande(NITRATES, QDate(2008, 1, 1), QDate(2008, 12, 31));
        d.afficherCodeUsuel = true;
        QVERIFY(editer(d));
        const QString differences = verifier(d);
        m_base->sql("UPDATE STATION_QUALITE SET NomStationM = 'Pont de l''Ile', RiviereStationM = 'Null', "
                    "CodeUsuelStationM = NULL WHERE CodeSandreStationM = ?",
                    {STATION});
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }

    // A station that another program left with the word "Null" for its river and without an everyday code.
    void texteNul()
    {
        DemandeRapport d = demande(NITRATES, QDate(2008, 1, 1), QDate(2008, 12, 31));
        d.afficherCodeUsuel = true;
        QVERIFY(editer(d));
        const auto classeur = m_essai->tableur.ouvrir(m_essai->sortie(), true);
        const Valeurs valeurs =
            classeur->feuille(QStringLiteral("Données")).plage(QStringLiteral("C5:C6")).valeurs();
        QCOMPARE(valeurs[0][0], QVariant(STATION));
        QVERIFY(valeurs[1][0].toString().isEmpty());
    }

    void progression()
    {
        m_essai->dialogue.progression(FenetreProgression::Principale).textes.clear();
        QVERIFY(editer(demande(NITRATES, QDate(2008, 1, 1), QDate(2009, 12, 31))));
        const ProgressionDEssai &barre = m_essai->dialogue.progression(FenetreProgression::Principale);
        QVERIFY(!barre.visible);
        QCOMPARE(barre.dernierMaximum, 7);
        QCOMPARE(barre.derniereValeur, 7);
        const QStringList attendus{"Edition du rapport sous Excel", "Recherche des mesures physico-chimiques",
                                   "Recherche des mesures interannuelles"};
        QCOMPARE(barre.textes.mid(barre.textes.size() - attendus.size()),
                 attendus); // the course has texts of its own before
    }

    // A failure inside the filling: the box with its words, the bar cleared, no file left.
    void echec()
    {
        m_base->sql("ALTER TABLE OBJECTIF RENAME TO OBJECTIF_PERDU");
        QVERIFY(!editer(demande(NITRATES, QDate(2008, 1, 1), QDate(2009, 12, 31))));
        m_base->sql("ALTER TABLE OBJECTIF_PERDU RENAME TO OBJECTIF");
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QVERIFY(m_essai->dialogue.messages[0].texte.startsWith(
            QStringLiteral("Une erreur s'est produite en cours de traitement : \n")));
        QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Erreur"));
        QVERIFY(!m_essai->dialogue.progression(FenetreProgression::Principale).visible);
        QVERIFY(!QFile::exists(m_essai->sortie()));
    }
};

QTEST_GUILESS_MAIN(TestRapportPC)
#include "test_rapport_pc.moc"
