// Fluxes of the demonstration study: the whole command with the real spreadsheet application, every cell worked out again
// by tests/outils/verifier_flux.py, and the charts read back from the saved file.
#include "analysis/DispositionFlux.h"
#include "BaseConstruite.h"
#include "ClasseurLu.h"
#include "EssaiFlux.h"
#include "GraphiqueLu.h"

#include <QTest>

using F = EssaiFlux;

class TestFluxDemonstration : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<EssaiFlux> m_essai;
    std::unique_ptr<BaseConstruite> m_etude;

    // Copies the last workbook where TEST_FLUX_SORTIES tells, for one who wants to look at it.
    void garder(const QString &nom) const
    {
        const QString dossier = qEnvironmentVariable("TEST_FLUX_SORTIES");
        if (dossier.isEmpty())
            return;
        const QString copie = dossier + u'/' + nom + QStringLiteral(".xls");
        QFile::remove(copie);
        QFile::copy(m_essai->sortie(), copie);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_essai = std::make_unique<EssaiFlux>();
        QVERIFY2(QFile::exists(m_essai->modeleFlux()), "the build makes the template");
        m_etude = std::make_unique<BaseConstruite>(QStringLiteral("demonstration.mdb"));
    }

    void cleanupTestCase()
    {
        m_etude.reset();
        m_essai.reset();
    }

    void comparaison_data()
    {
        QTest::addColumn<DemandeFlux>("d");
        const auto civile = ModeAnnee::Civile;
        const auto hydro = ModeAnnee::Hydrologique;
        const auto mensuel = GenreFlux::Mensuel;
        const auto cumule = GenreFlux::Cumule;
        const auto volume = GenreFlux::ParVolume;

        QTest::newRow("mensuel") << F::demande({F::mois(mensuel, 2012, 1, 2013, 12)});
        QTest::newRow("mensuel_specifique") << F::demande({F::mois(mensuel, 2012, 1, 2012, 12, true)}, hydro);
        QTest::newRow("mensuel_onze_ans") << F::demande({F::mois(mensuel, 2008, 1, 2018, 12)});
        QTest::newRow("mensuel_un_mois") << F::demande({F::mois(mensuel, 2012, 2, 2012, 2)});
        // The study holds nothing before 2008 nor after 2018.
        QTest::newRow("au_dela_des_donnees")
            << F::demande({F::mois(mensuel, 2007, 6, 2008, 6), F::annees(2017, 2019, civile),
                           F::mois(cumule, 2018, 6, 2019, 3)});
        QTest::newRow("annuel") << F::demande({F::annees(2008, 2018, civile)});
        QTest::newRow("annuel_hydrologique_specifique")
            << F::demande({F::annees(2008, 2017, hydro, true)}, hydro);
        QTest::newRow("cumule") << F::demande({F::mois(cumule, 2010, 9, 2014, 8)}, hydro);
        QTest::newRow("cumule_specifique") << F::demande({F::mois(cumule, 2011, 1, 2011, 12, true)});
        QTest::newRow("par_volume") << F::demande({F::mois(volume, 2011, 1, 2013, 12)});
        QTest::newRow("tous") << F::demande({F::mois(mensuel, 2009, 10, 2011, 9, true),
                                             F::annees(2009, 2011, hydro), F::mois(cumule, 2009, 1, 2012, 2),
                                             F::mois(volume, 2009, 1, 2012, 2)},
                                            hydro);

        DemandeFlux d = F::demande({F::mois(mensuel, 2010, 1, 2011, 12)});
        d.codeParametre = QStringLiteral("1335");
        d.parametre = QStringLiteral("Ammonium");
        QTest::newRow("autre_parametre") << d;
        d = F::demande({F::mois(mensuel, 2010, 1, 2011, 12)});
        d.protocole = QStringLiteral("Suivi calendaire");
        QTest::newRow("protocole") << d;
        d = F::demande({F::mois(mensuel, 2010, 1, 2011, 12)});
        d.codeStation = QStringLiteral("04999050"); // most results are below quantification
        QTest::newRow("sous_le_seuil") << d;
    }

    void comparaison()
    {
        QFETCH(DemandeFlux, d);
        QVERIFY2(m_essai->calculer(d, m_etude->donnees),
                 qPrintable(m_essai->dialogue.messages.value(0).texte));
        garder(QString::fromLatin1(QTest::currentDataTag()));
        const QString differences = m_essai->verifierFlux(d, m_etude->chemin());
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QCOMPARE(m_essai->dialogue.messages[0].texte,
                 QStringLiteral("La création du graphique est terminée. "));
        QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Fin du graphique"));
    }

    void filtres_data()
    {
        QTest::addColumn<QString>("gestionnaire");
        QTest::addColumn<QString>("reseau");
        Requete g = m_etude->donnees.executer(QStringLiteral(
            "SELECT CodeSandreGest, count(*) FROM PRELEVEMENT JOIN MESURE_PHYSICO USING (NumPrel) "
            "WHERE CodeSandreStationM = '04999010' AND CodeParam = '1340' GROUP BY 1"));
        while (g.suivant())
            QTest::newRow(qPrintable("producer " + g.texte(0))) << g.texte(0) << QString();
        Requete r = m_etude->donnees.executer(
            QStringLiteral("SELECT DISTINCT CodeReseau FROM PRELEVEMENTRSX JOIN PRELEVEMENT USING (NumPrel) "
                           "WHERE CodeSandreStationM = '04999010'"));
        while (r.suivant())
            QTest::newRow(qPrintable("network " + r.texte(0))) << QString() << r.texte(0);
    }

    void filtres()
    {
        QFETCH(QString, gestionnaire);
        QFETCH(QString, reseau);
        DemandeFlux d = F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2012, 12)});
        if (!gestionnaire.isEmpty())
            d.gestionnaires << gestionnaire;
        if (!reseau.isEmpty())
            d.reseaux << reseau;
        if (m_essai->calculer(d, m_etude->donnees)) {
            const QString differences = m_essai->verifierFlux(d, m_etude->chemin());
            QVERIFY2(differences.isEmpty(), qPrintable(differences));
        } else {
            QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Attention"));
        }
    }

    // The four charts as the saved file holds them, by a reader of its records.
    void graphiques()
    {
        const DemandeFlux d = F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2011, 12),
                                          F::annees(2009, 2012, ModeAnnee::Civile, true),
                                          F::mois(GenreFlux::Cumule, 2008, 1, 2013, 12),
                                          F::mois(GenreFlux::ParVolume, 2008, 1, 2013, 12)});
        QVERIFY(m_essai->calculer(d, m_etude->donnees));
        garder(QStringLiteral("graphiques"));
        const GraphiquesLus lus(m_essai->sortie());
        QVERIFY2(lus.lisible(), qPrintable(lus.erreurs()));
        const QString titre = QStringLiteral("BASSIN VERSANT :  La Landrezelle Evolution des flux %1"
                                             "Nitrates à la station de mesure La Landrezelle à "
                                             "Bourg-Landrezelle (exutoire)");
        struct Attendu {
            GenreFlux genre;
            QString titre;
            QString axe;
            int lignes;
            bool marqueurs; // up to fifty points
        };
        const QList<Attendu> attendus = {
            {GenreFlux::Mensuel, titre.arg(QStringLiteral("mensuels en  ")),
             QStringLiteral("Flux mensuels (T de N-No3)"), 24, true},
            {GenreFlux::Annuel, titre.arg(QStringLiteral("spécifiques annuels en ")),
             QStringLiteral("Flux annuels (kg de N-No3/ha)"), 4, true},
            {GenreFlux::Cumule, titre.arg(QStringLiteral("mensuels cumulés en ")),
             QStringLiteral("Flux mensuels cumulés (T de N-No3)"), 72, false},
            {GenreFlux::ParVolume, titre.arg(QStringLiteral("mensuels cumulés par volume en ")),
             QStringLiteral("Flux mensuels cumulés (T de N-No3)"), 72, false}};
        for (const Attendu &a : attendus) {
            const QString nom = DispositionFlux::feuille(a.genre).toString();
            const QJsonObject graphique = lus.graphique(nom);
            QCOMPARE(graphique["titre"].toString(), a.titre);
            QCOMPARE(GraphiquesLus::axe(graphique, 2)["titre"].toString(), a.axe);
            QCOMPARE(lus.texte(nom, QStringLiteral("Text Box 1")),
                     QStringLiteral("Calcul des flux sur l'année civile"));
            const bool parVolume = a.genre == GenreFlux::ParVolume;
            const QString adresse = QStringLiteral("%1!%2%3:%2%4");
            const auto colonne = [&](const char *lettre) {
                return adresse.arg(nom, QString::fromLatin1(lettre)).arg(2).arg(a.lignes + 1);
            };
            const QStringList voulues =
                parVolume ? QStringList{colonne("B"), colonne("E")} : QStringList{colonne("B")};
            QCOMPARE(GraphiquesLus::valeurs(graphique), voulues);
            for (int i = 0; i < voulues.size(); ++i) {
                const QJsonObject serie = GraphiquesLus::serie(graphique, voulues[i]);
                QCOMPARE(serie["type"].toInt(), 65);
                QCOMPARE(serie["groupe"].toInt(), i + 1);
                QCOMPARE(serie["abscisses"].toString(), colonne("A"));
                QCOMPARE(serie["marqueur"]["style"].toInt() == -4142, !a.marqueurs);
            }
            QCOMPARE(GraphiquesLus::serie(graphique, voulues[0])["adresse_nom"].toString(), nom + "!B1");
            if (parVolume)
                QCOMPARE(GraphiquesLus::axe(graphique, 2, 2)["titre"].toString(),
                         QStringLiteral("Volumes cumulés (m³)"));
        }
    }

    // The gap of the demonstration's flows in February 2010 leaves 23 days of 28: worked out from the study, the cell
    // says 23, the point bears "23 calc.".
    void moisIncomplet()
    {
        QCOMPARE(
            m_etude->donnees
                .valeur(QStringLiteral("SELECT count(*) FROM MESURE_HYDRO WHERE CodeStationHM = 'J7999910' "
                                       "AND DebitJourMesureHM IS NOT NULL "
                                       "AND DateMesureHM >= '2010-02-01' AND DateMesureHM < '2010-03-01'"))
                .toInt(),
            23);
        QVERIFY(m_essai->calculer(F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2010, 12)}),
                                  m_etude->donnees));
        const QString nom = QStringLiteral("Flux_Mensuel");
        const ClasseurLu cellules(m_essai->sortie());
        QCOMPARE(cellules.valeur(nom, QStringLiteral("C3")).toDouble(), 23.0);
        QCOMPARE(cellules.valeur(nom, QStringLiteral("D3")).toString(),
                 QStringLiteral("Débit connu 23 jours sur 28"));
        const GraphiquesLus lus(m_essai->sortie());
        const QJsonObject etiquettes =
            GraphiquesLus::serie(lus.graphique(nom), QStringLiteral("Flux_Mensuel!B2:B13"))["etiquettes"]
                .toObject();
        QCOMPARE(etiquettes.keys(), QStringList{"2"});
        // The .xls has no room for a label's text, but for its number format, here a text alone.
        QCOMPARE(etiquettes["2"]["format"].toString().section(u';', 0, 0), QStringLiteral("\"23 calc.\""));
        QVERIFY(etiquettes["2"]["valeur"].toBool());
        QCOMPARE(cellules.cellule(nom, QStringLiteral("B3"))["format"].toString(),
                 QStringLiteral("0.00\" (23 calc.)\""));
    }

    // A month without any flow has no value, and says so on its row and under the title of the chart.
    void moisSansDebit()
    {
        DataEnvironment1 donnees;
        const QString base = m_essai->racine.filePath(QStringLiteral("sans_debit.mdb"));
        QVERIFY(QFile::copy(m_etude->chemin(), base));
        donnees.ouvrir(base);
        donnees.executer(QStringLiteral("DELETE FROM MESURE_HYDRO WHERE CodeStationHM = 'J7999910' "
                                        "AND DateMesureHM >= '2012-03-01' AND DateMesureHM < '2012-05-01'"));
        const DemandeFlux d = F::demande(
            {F::mois(GenreFlux::Mensuel, 2012, 1, 2012, 12), F::mois(GenreFlux::Cumule, 2012, 1, 2012, 12)},
            ModeAnnee::Hydrologique);
        QVERIFY(m_essai->calculer(d, donnees));
        garder(QStringLiteral("sans_debit"));
        const QString differences = m_essai->verifierFlux(d, base);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
        const ClasseurLu cellules(m_essai->sortie());
        for (const char *nom : {"Flux_Mensuel", "Flux_Cumulé"}) {
            const QString feuille = QString::fromUtf8(nom);
            for (const char *ligne : {"4", "5"}) {
                const QString l = QString::fromLatin1(ligne);
                QCOMPARE(cellules.cellule(feuille, u'B' + l)["type"].toString(), QStringLiteral("vide"));
                QCOMPARE(cellules.valeur(feuille, u'C' + l).toDouble(), 0.0);
                QCOMPARE(cellules.valeur(feuille, u'D' + l).toString(), QStringLiteral("Aucun débit"));
            }
            const GraphiquesLus lus(m_essai->sortie());
            QCOMPARE(lus.texte(feuille, QStringLiteral("Text Box 1")),
                     QStringLiteral("Calcul des flux sur l'année hydrologique\n"
                                    "Aucun débit : 03/2012, 04/2012"));
            QCOMPARE(lus.graphique(feuille)["trous"].toString(), QStringLiteral("laisses"));
        }
        donnees.liberer();
    }

    // A specific flux without an area is passed over, the others go on; the area is "non définie".
    void surfaceNonDefinie()
    {
        DataEnvironment1 donnees;
        const QString base = m_essai->racine.filePath(QStringLiteral("sans_surface.mdb"));
        QVERIFY(QFile::copy(m_etude->chemin(), base));
        donnees.ouvrir(base);
        donnees.executer(QStringLiteral("UPDATE STATION_HYDRO SET SurfReelStationHM = NULL"));
        const FluxDemande annuel = F::annees(2009, 2011, ModeAnnee::Civile);
        QVERIFY(m_essai->calculer(F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2010, 12, true), annuel}),
                                  donnees));
        const QString differences = m_essai->verifierFlux(F::demande({annuel}), base);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
        QCOMPARE(
            ClasseurLu(m_essai->sortie()).valeur(QStringLiteral("Mesures"), QStringLiteral("B4")).toString(),
            QStringLiteral("non définie"));
        donnees.liberer();
    }

    void rienACalculer_data()
    {
        QTest::addColumn<DemandeFlux>("d");
        QTest::newRow("neither samples nor flows")
            << F::demande({F::mois(GenreFlux::Mensuel, 1995, 1, 1996, 12)});
        DemandeFlux d = F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2010, 12)});
        d.codeDebit = QStringLiteral("J0000000");
        QTest::newRow("no flows") << d;
        d = F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2010, 12)});
        d.gestionnaires = QStringList{"00000000000000"};
        QTest::newRow("no samples") << d;
    }

    void rienACalculer()
    {
        QFETCH(DemandeFlux, d);
        QVERIFY(!m_essai->calculer(d, m_etude->donnees));
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QCOMPARE(m_essai->dialogue.messages[0].texte,
                 QStringLiteral("Il n'y a aucune mesure physico-chimique ou hydrométrique à importer dans le "
                                "graphique"));
        QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Attention"));
        QVERIFY(!QFile::exists(m_essai->sortie()));
    }

    void statuts()
    {
        auto &barre =
            static_cast<ProgressionDEssai &>(m_essai->dialogue.progression(FenetreProgression::Principale));
        barre.textes.clear();
        QVERIFY(m_essai->calculer(F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2010, 2),
                                              F::annees(2010, 2010, ModeAnnee::Civile),
                                              F::mois(GenreFlux::Cumule, 2010, 1, 2010, 2),
                                              F::mois(GenreFlux::ParVolume, 2010, 1, 2010, 2)}),
                                  m_etude->donnees));
        QStringList calculs = barre.textes.filter(QStringLiteral("Calcul des flux "));
        QCOMPARE(calculs, (QStringList{"Calcul des flux mensuels", "Calcul des flux annuels",
                                       QStringLiteral("Calcul des flux mensuels cumulés"),
                                       QStringLiteral("Calcul des flux mensuels cumulés par volume")}));
        QVERIFY(!barre.visible);
    }

    void dialogueAnnule()
    {
        m_essai->dialogue.messages.clear();
        m_essai->dialogue.fichiers.enqueue(std::nullopt);
        CoursRapport cours(m_essai->dialogue, m_essai->tableur, m_essai->dossiers, m_essai->etat);
        QVERIFY(!cours.executer(
            M_Concentration_OVRA::commandeFlux(F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2010, 12)}),
                                               m_etude->donnees, m_essai->dialogue)));
        QVERIFY(m_essai->dialogue.messages.isEmpty());
        QVERIFY(!m_essai->etat.enCours());
    }

    // The application dies while the charts are made: the words for it, no file, and the next one works.
    void tableurTue()
    {
        const DemandeFlux d = F::demande(
            {F::mois(GenreFlux::Mensuel, 2008, 1, 2018, 12), F::mois(GenreFlux::Cumule, 2008, 1, 2018, 12)});
        CommandeRapport commande = M_Concentration_OVRA::commandeFlux(d, m_etude->donnees, m_essai->dialogue);
        const auto remplir = commande.remplir;
        commande.remplir = [&](Classeur &classeur) {
            remplir(classeur);
            m_essai->tableur.tuer();
            return remplir(classeur);
        };
        m_essai->dialogue.messages.clear();
        m_essai->dialogue.fichiers.enqueue(m_essai->sortie());
        CoursRapport cours(m_essai->dialogue, m_essai->tableur, m_essai->dossiers, m_essai->etat);
        QVERIFY(!cours.executer(commande));
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QCOMPARE(m_essai->dialogue.messages[0].texte, QStringLiteral("Erreur de l'application"));
        QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Attention"));
        QVERIFY(!QFile::exists(m_essai->sortie()));
        QVERIFY(!m_essai->etat.enCours());
        QVERIFY(m_essai->calculer(d, m_etude->donnees));
    }

    // A template that lacks a sheet: a failure of the filling, with its words.
    void modeleIncomplet()
    {
        const QString garde = m_essai->modeleFlux() + QStringLiteral(".garde");
        QVERIFY(QFile::rename(m_essai->modeleFlux(), garde));
        QVERIFY(QFile::copy(m_essai->modele(), m_essai->modeleFlux()));
        QVERIFY(!m_essai->calculer(F::demande({F::mois(GenreFlux::Mensuel, 2010, 1, 2010, 12)}),
                                   m_etude->donnees));
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QVERIFY(m_essai->dialogue.messages[0].texte.startsWith(
            QStringLiteral("Une erreur s'est produite en cours de traitement : \n")));
        QCOMPARE(m_essai->dialogue.messages[0].titre, QStringLiteral("Erreur"));
        QVERIFY(!QFile::exists(m_essai->sortie()));
        QVERIFY(QFile::remove(m_essai->modeleFlux()));
        QVERIFY(QFile::rename(garde, m_essai->modeleFlux()));
    }
};

QTEST_GUILESS_MAIN(TestFluxDemonstration)
#include "test_flux_demonstration.moc"
