// The evolution charts from end to end: a study, the whole command with the real spreadsheet application, the sheet read
// back by tests/outils/verifier_evolution.py, which works every cell out again, and the chart read back from the file.
#include "ClasseurLu.h"
#include "EssaiEvolution.h"
#include "EtudeEvolution.h"
#include "GraphiqueLu.h"

#include <QTest>

namespace
{
using E = EtudeEvolution;

const BoiteDEssai FIN{"La création du graphique est terminée. ", "Fin du graphique", Icone::Information};

// A workbook as readers that share no code with the program see it: its cells, and its chart from the file's own records.
class Relu
{
public:
    explicit Relu(const QString &chemin) : m_cellules(chemin), m_dessins(chemin) {}
    bool lisible() const { return m_cellules.lisible() && m_dessins.lisible(); }

    QJsonObject graphique() const { return m_dessins.graphique(MESURES); }
    QString titre() const { return m_dessins.texte(MESURES, QStringLiteral("Text Box 1")); }
    QJsonObject axe(int type, int groupe = 1) const { return GraphiquesLus::axe(graphique(), type, groupe); }

    // "65 1 B9:B60 Nitrates (mg/L)" of each series: type, axis group, values, and the text of the cell that names it.
    QStringList series() const
    {
        QStringList lues;
        const QJsonArray toutes = graphique()[QLatin1String("series")].toArray();
        for (const QJsonValue &serie : toutes)
            lues << QStringLiteral("%1 %2 %3 %4")
                        .arg(serie[QLatin1String("type")].toInt())
                        .arg(serie[QLatin1String("groupe")].toInt())
                        .arg(sansFeuille(serie[QLatin1String("valeurs")]),
                             m_cellules.valeur(MESURES, sansFeuille(serie[QLatin1String("adresse_nom")]))
                                 .toString());
        return lues;
    }
    // Columns of the series that the legend leaves out.
    QStringList horsLegende() const
    {
        QStringList colonnes;
        const QJsonArray toutes = graphique()[QLatin1String("series")].toArray();
        for (const QJsonValue &serie : toutes)
            if (!serie[QLatin1String("dans_legende")].toBool())
                colonnes << sansFeuille(serie[QLatin1String("valeurs")]).left(1);
        return colonnes;
    }
    QStringList abscisses() const
    {
        QStringList lues;
        const QJsonArray toutes = graphique()[QLatin1String("series")].toArray();
        for (const QJsonValue &serie : toutes)
            if (const QString lue = sansFeuille(serie[QLatin1String("abscisses")]); !lues.contains(lue))
                lues << lue;
        return lues;
    }
    // Last row that has a date.
    int derniereLigne() const
    {
        int ligne = 9;
        while (m_cellules.cellule(MESURES, QStringLiteral("A%1").arg(ligne))[QLatin1String("type")] ==
               QLatin1String("date"))
            ++ligne;
        return ligne - 1;
    }

private:
    static QString sansFeuille(const QJsonValue &adresse) { return adresse.toString().section(u'!', 1); }

    inline static const QString MESURES = QStringLiteral("Mesures");
    ClasseurLu m_cellules;
    GraphiquesLus m_dessins;
};
} // namespace

class TestEvolutionPC : public QObject
{
    Q_OBJECT

    std::unique_ptr<EssaiEvolution> m_essai;
    std::unique_ptr<EtudeEvolution> m_base;

    bool tracer(const DemandeEvolution &d) { return m_essai->tracer(d, m_base->donnees); }
    QString verifier(const DemandeEvolution &d) const { return m_essai->verifierMesures(d, m_base->chemin); }
    Relu relire() const { return Relu(m_essai->sortie()); }

    // The sheet "Rapport": who and when, what was chosen, and figures that the base gives by itself.
    void verifierFeuilleRapport()
    {
        const ClasseurLu lu(m_essai->sortie());
        const auto cellule = [&lu](const char *adresse) {
            return lu.valeur(QStringLiteral("Rapport"), QString::fromLatin1(adresse)).toString();
        };
        const auto compter = [this](const QString &quoi, const QString &condition = {}) {
            return m_base->valeur(
                QStringLiteral("SELECT %1 FROM MESURE_PHYSICO JOIN PRELEVEMENT USING (NumPrel) "
                               "WHERE CodeParam = '1340' AND CodeSandreStationM = '04211940' "
                               "AND coalesce(CodeRemarqueAnaPC, '') <> '0' "
                               "AND DatePrel BETWEEN '2008-01-01' AND '2010-12-31' %2")
                    .arg(quoi, condition));
        };
        QCOMPARE(cellule("A2"), QStringLiteral("RAPPORT ET GRAPHIQUE - Données physico-chimiques"));
        QCOMPARE(cellule("B5"), QStringLiteral("BV d'essai"));
        QCOMPARE(cellule("B6"), QStringLiteral("04211940"));
        QCOMPARE(cellule("B9"), QStringLiteral("Nitrates (mg(NO3)/L)"));
        QCOMPARE(cellule("B10"), QStringLiteral("du 01/01/2008 au 31/12/2010"));
        QCOMPARE(cellule("B14"), QStringLiteral("Tous"));
        QCOMPARE(cellule("B20"), compter(QStringLiteral("count(*)")).toString());
        const QString maximum =
            QString::number(compter(QStringLiteral("max(ResultatAnaPC)")).toDouble(), 'g', 12);
        QCOMPARE(cellule("B21"), QString(maximum).replace(u'.', u',') + QStringLiteral(" mg(NO3)/L"));
        const double part =
            100.0 * compter(QStringLiteral("count(*)"), QStringLiteral("AND ResultatAnaPC > 25")).toInt() /
            compter(QStringLiteral("count(*)")).toInt();
        QVERIFY(cellule("B27").endsWith(QStringLiteral(" % (objectif : 25 mg(NO3)/L)")));
        QVERIFY(qAbs(cellule("B27").section(u' ', 0, 0).replace(u',', u'.').toDouble() - part) < 0.00501);
        QCOMPARE(cellule("B29"), QStringLiteral("50 mg(NO3)/L"));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_essai = std::make_unique<EssaiEvolution>();
        m_base = std::make_unique<EtudeEvolution>();
    }
    void cleanupTestCase()
    {
        m_essai.reset();
        m_base.reset();
    }

    void cellules_data()
    {
        QTest::addColumn<DemandeEvolution>("d");
        QTest::newRow("one curve, nothing ticked") << E::demande({E::NITRATES});
        DemandeEvolution d = E::toutCoche();
        QTest::newRow("everything ticked") << d;
        d.selection.stationDebit = QStringLiteral("J7010610");
        QTest::newRow("everything, with the flows") << d;
        d.selection.stationDebit.clear();
        d.stationPluie = QStringLiteral("35228001");
        QTest::newRow("everything, with the rain") << d;
        d = E::toutCoche();
        d.selection.afficherCodeUsuel = true;
        d.selection.gestionnaires = QStringList{"17"};
        d.nomsGestionnaires = QStringList{"Agence de l'eau"};
        d.selection.reseaux = QStringList{"0400000001"};
        d.nomsReseaux = QStringList{"Réseau national"};
        d.selection.commentaires = QStringList{""};
        QTest::newRow("filtered") << d;
        d = E::demande({E::NITRATES});
        d.selection.protocole = QStringLiteral("Suivi pluie");
        d.quantile = true;
        QTest::newRow("protocol") << d;
        d = E::toutCoche();
        d.selection.fin = QDate(2008, 7, 31);
        QTest::newRow("too few for a quantile") << d;
        d = E::demande({E::PH});
        d.fondSEQ = d.norme = true;
        QTest::newRow("neither grid nor norm") << d;
        d = E::demande({E::CARBONE_BRUT});
        d.fondSEQ = d.norme = d.quantile = true;
        QTest::newRow("carbon, raw water") << d;
        d.courbes = {E::CARBONE_AQUEUX};
        QTest::newRow("carbon, a fraction without grid nor norm") << d;
        QTest::newRow("two parameters") << E::demande({E::NITRATES, E::PH});
        d = E::demande({E::CARBONE_BRUT, E::NITRATES});
        d.selection.stationDebit = QStringLiteral("J7010610");
        d.intituleSeuil = QStringLiteral("Seuil");
        d.valeurSeuil = 12;
        QTest::newRow("two parameters, flows, threshold") << d;
        QTest::newRow("two fractions") << E::demande({E::CARBONE_BRUT, E::CARBONE_AQUEUX});
        d = E::demande({E::NITRATES});
        d.selection.stationDebit = QStringLiteral("J9999999");
        QTest::newRow("a flow station without flows") << d;
        d = E::toutCoche();
        d.valeurSeuil.reset();
        QTest::newRow("a threshold without value") << d;
    }

    void cellules()
    {
        QFETCH(DemandeEvolution, d);
        QVERIFY2(tracer(d), qPrintable(m_essai->dialogue.messages.value(0).texte));
        QCOMPARE(m_essai->dialogue.messages, QList<BoiteDEssai>{FIN});
        QCOMPARE(m_essai->dialogue.documents, QStringList{m_essai->sortie()});
        const QString differences = verifier(d);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }

    // The judge itself: a cell changed behind its back is told, and one that should be empty.
    void leVerificateurVoitUneErreur()
    {
        const DemandeEvolution d = E::demande({E::NITRATES});
        QVERIFY(tracer(d));
        {
            const auto classeur = m_essai->tableur.ouvrir(m_essai->sortie());
            Feuille feuille = classeur->feuille(QStringLiteral("Mesures"));
            feuille.plage(QStringLiteral("Q10")).ecrire(QVariant(0.015));
            feuille.plage(QStringLiteral("H9")).ecrire(QVariant(1));
            classeur->enregistrer();
        }
        const QString dit = verifier(d);
        QVERIFY(dit.contains(QStringLiteral("Q10: ")));
        QVERIFY(dit.contains(QStringLiteral("H9: ")));
    }

    // Nitrates have a grid with both intermediate bounds, carbon one without: its bands K and M are of height 0, and the
    // legend, which would show their colours for nothing, does not name them.
    void legendeSansBandesVides()
    {
        DemandeEvolution d = E::demande({E::CARBONE_BRUT});
        d.fondSEQ = true;
        QVERIFY(tracer(d));
        {
            const Relu relu = relire();
            QVERIFY(relu.lisible());
            QCOMPARE(relu.horsLegende(), (QStringList{"K", "M"}));
            QCOMPARE(relu.series().size(), 9); // seven bands, the curve, the median
        }
        QVERIFY(tracer(E::toutCoche()));
        QCOMPARE(relire().horsLegende(), QStringList());
    }

    // The chart of everything, as the saved file has it: types 76 for the bands, 65 for the lines, 52 for the flow.
    void seriesDeToutCoche()
    {
        DemandeEvolution d = E::toutCoche();
        d.selection.stationDebit = QStringLiteral("J7010610");
        QVERIFY(tracer(d));
        const Relu relu = relire();
        QVERIFY(relu.lisible());
        const int fin = relu.derniereLigne();
        const QString u = QStringLiteral("mg(NO3)/L)");
        const auto ligne = [fin](int type, int groupe, char colonne, const QString &nom) {
            return QStringLiteral("%1 %2 %3 %4")
                .arg(type)
                .arg(groupe)
                .arg(QStringLiteral("%1%2:%1%3").arg(QLatin1Char(colonne)).arg(9).arg(fin), nom);
        };
        QStringList attendues{
            ligne(76, 1, 'H', "SEQ-Eau bleu"),
            ligne(76, 1, 'I', "SEQ-Eau vert"),
            ligne(76, 1, 'J', "SEQ-Eau jaune"),
            ligne(76, 1, 'K', "SEQ-Eau jaune clair"),
            ligne(76, 1, 'L', "SEQ-Eau orange"),
            ligne(76, 1, 'M', QStringLiteral("SEQ-Eau orange foncé")),
            ligne(76, 1, 'N', "SEQ-Eau rouge"),
            ligne(65, 1, 'B', "Nitrates (" + u),
            ligne(65, 1, 'D', "Objectif moyen (25 " + u),
            ligne(65, 1, 'E', "Objectif maximal (50 " + u),
            ligne(65, 1, 'O', "Seuil du contrat (37,5 " + u),
            ligne(65, 1, 'R', "Norme eau potable (50 " + u),
            ligne(52, 2, 'F', QStringLiteral("Débit - Le Meu à Quédillac (l/s)")),
        };
        const QStringList lues = relu.series();
        QCOMPARE(lues.size(), 15); // and the quantile and the median, whose names hold a figure
        for (const QString &attendue : attendues)
            QVERIFY2(lues.contains(attendue), qPrintable(attendue + u'\n' + lues.join(u'\n')));
        for (const auto &[colonne, debut] : {std::pair('P', "Quantile 90 ("), std::pair('Q', "Médiane (")}) {
            const QString attendue = ligne(65, 1, colonne, QString::fromUtf8(debut));
            QVERIFY2(std::any_of(lues.begin(), lues.end(),
                                 [&](const QString &lue) { return lue.startsWith(attendue); }),
                     qPrintable(attendue));
        }
        QCOMPARE(relu.abscisses(), QStringList{QStringLiteral("A9:A%1").arg(fin)});
        const QJsonObject gauche = relu.axe(2);
        QCOMPARE(gauche["titre"].toString(), QStringLiteral(" ( mg(NO3)/L ) "));
        QCOMPARE(gauche["minimum"], QJsonValue(0));
        QVERIFY(gauche["maximum"].isNull() && gauche["pas"].isNull() && gauche["pas_mineur"].isNull());
        QCOMPARE(relu.axe(2, 2)["titre"].toString(), QStringLiteral(" ( Débit l/s ) "));
        const QJsonObject dates = relu.axe(1);
        QVERIFY(dates["temporel"].toBool());
        QCOMPARE(dates["orientation"], QJsonValue(90));
        QCOMPARE(dates["format"].toString().toLower(), QStringLiteral("dd/mm/yy"));
        const QString titre = relu.titre();
        QVERIFY2(titre.startsWith(QStringLiteral(
                     "BASSIN VERSANT :  BV d'essai\nEvolution des teneurs en Nitrates à la station "
                     "de mesure : 04211940\nCours d'eau : Ruisseau de l'Ile  -  Lieu-dit : Pont de "
                     "l'Ile\nPériode : janvier 2008 - décembre 2010\nNombre de prélèvements : ")),
                 qPrintable(titre));
        for (const char *texte :
             {"Maximum : ", "Minimum : ", " Valeur Moyenne : ", " Ecart Type : ",
              " Fréquence de dépassement de l'objectif moyen : ",
              " Fréquence de dépassement de l'objectif maximal : ", " %", "Source de données : "})
            QVERIFY2(titre.contains(QString::fromUtf8(texte)), texte);
    }

    // Nothing ticked leaves the curve and the median.
    void seriesDUneCourbe()
    {
        QVERIFY(tracer(E::demande({E::NITRATES})));
        const Relu relu = relire();
        const QStringList lues = relu.series();
        QCOMPARE(lues.size(), 2);
        QVERIFY(lues[0].endsWith(QStringLiteral("Nitrates (mg(NO3)/L)")));
        QVERIFY(lues[1].contains(QStringLiteral("Médiane (")));
        QVERIFY(!relu.titre().contains(QStringLiteral("Fréquence")));
        QVERIFY(relu.axe(2, 2).isEmpty());
    }

    // The second curve has the right axis to itself; beside flow or rain it joins the first one.
    void seriesDeDeuxCourbes()
    {
        DemandeEvolution d = E::demande({E::NITRATES, E::PH});
        QVERIFY(tracer(d));
        {
            const Relu relu = relire();
            const QStringList lues = relu.series();
            QCOMPARE(lues.size(), 2);
            QVERIFY2(lues[0].startsWith(QStringLiteral("65 1 B9:")), qPrintable(lues[0]));
            QVERIFY2(lues[1].startsWith(QStringLiteral("65 2 C9:")), qPrintable(lues[1]));
            QCOMPARE(relu.axe(2, 2)["titre"].toString(), QStringLiteral(" ( unité pH ) "));
            QVERIFY(relu.titre().contains(
                QStringLiteral("teneurs en Nitrates et Potentiel en Hydrogène (pH) à la station de mesure : "
                               "04211940\n   Cours d'eau : ")));
            QVERIFY(!relu.titre().contains(QStringLiteral("Nombre de prélèvements")));
        }
        d.stationPluie = QStringLiteral("35228001");
        QVERIFY(tracer(d));
        const Relu relu = relire();
        const QStringList lues = relu.series();
        QCOMPARE(lues.size(), 3);
        QVERIFY2(lues[1].startsWith(QStringLiteral("65 1 C9:")), qPrintable(lues[1]));
        QVERIFY2(lues[2].startsWith(QStringLiteral("52 2 G9:")), qPrintable(lues[2]));
        QCOMPARE(relu.axe(2, 2)["titre"].toString(), QStringLiteral(" ( Précipitations mm ) "));
    }

    // Fifty points keep their markers, fifty-one lose them; the marked ones stay, on their own rows.
    void marqueurs()
    {
        for (const int mesures : {50, 51}) {
            QVERIFY(tracer(m_base->serieDe(mesures)));
            const QJsonObject courbe = relire().graphique()["series"].toArray()[0].toObject();
            const int sansMarqueur = -4142;
            QCOMPARE(courbe["marqueur"]["style"].toInt() == sansMarqueur, mesures > 50);
            // The fourth of each ten has code 2 (EtudeEvolution::serieDe): hollow red circles of size 9.
            const QJsonObject points = courbe["points"].toObject();
            QStringList marques;
            for (int point = 4; point <= mesures; point += 10)
                marques << QString::number(point);
            marques.sort();
            QStringList lus = points.keys();
            lus.sort();
            QCOMPARE(lus, marques);
            for (const QString &point : marques) {
                const QJsonValue marqueur = points[point]["marqueur"];
                QCOMPARE(marqueur["style"], QJsonValue(8));
                QCOMPARE(marqueur["taille"], QJsonValue(9));
                QCOMPARE(marqueur["bord"], QJsonValue("#FF0000"));
                QVERIFY(marqueur["sans_fond"].toBool());
            }
        }
    }

    // Rows of the flows shift the marked points: each stands on the row of its own sample, with a cross for code 3.
    void marqueursParmiLesDebits()
    {
        DemandeEvolution d = E::demande({E::NITRATES});
        d.selection.stationDebit = QStringLiteral("J7010610");
        QVERIFY(tracer(d));
        const ClasseurLu cellules(m_essai->sortie());
        const QJsonObject points =
            relire().graphique()["series"].toArray()[0].toObject()["points"].toObject();
        int marques = 0;
        const int derniere = relire().derniereLigne();
        for (int ligne = 9; ligne <= derniere; ++ligne) {
            const double code =
                cellules.valeur(QStringLiteral("Mesures"), QStringLiteral("S%1").arg(ligne)).toDouble();
            const QJsonValue point = points[QString::number(ligne - 8)];
            if (code != 2 && code != 3) {
                QVERIFY2(point.isUndefined(), qPrintable(QString::number(ligne)));
                continue;
            }
            ++marques;
            QCOMPARE(point["marqueur"]["style"], QJsonValue(code == 2 ? 8 : -4168));
        }
        QVERIFY(marques > 3);
    }

    // A top below the highest value: told, and the chart is drawn with it.
    void echelleMaximale()
    {
        DemandeEvolution d = E::demande({E::NITRATES});
        d.echelleMaximale = 20.5;
        QVERIFY(tracer(d));
        const double maximum =
            m_base
                ->valeur(
                    "SELECT max(ResultatAnaPC) FROM MESURE_PHYSICO JOIN PRELEVEMENT USING (NumPrel) WHERE "
                    "CodeParam = '1340' AND CodeSandreStationM = '04211940' AND CodeRemarqueAnaPC <> '0' "
                    "AND DatePrel BETWEEN '2008-01-01' AND '2010-12-31'")
                .toDouble();
        const QString valeur = QString::number(maximum, 'g', 12).replace(u'.', u',');
        const BoiteDEssai avertissement{
            QStringLiteral("La valeur maximale saisie est inférieure à la valeur maximale trouvée (") +
                valeur + QStringLiteral("). Il manquera probablement des points sur le graphique !"),
            "Attention !", Icone::Exclamation};
        QCOMPARE(m_essai->dialogue.messages, QList<BoiteDEssai>({avertissement, FIN}));
        QCOMPARE(relire().axe(2)["maximum"], QJsonValue(20.5));
        d.echelleMaximale = maximum;
        QVERIFY(tracer(d));
        QCOMPARE(m_essai->dialogue.messages, QList<BoiteDEssai>{FIN});
    }

    void carboneSansFraction()
    {
        QVERIFY(tracer(E::demande({E::CARBONE})));
        const BoiteDEssai rappel{
            "Vous n'avez pas sélectionné de fraction pour le paramètre Carbone Organique.", "Attention !",
            Icone::Exclamation};
        QCOMPARE(m_essai->dialogue.messages, QList<BoiteDEssai>({rappel, FIN}));
    }

    void aucuneMesure()
    {
        const BoiteDEssai aucune{"Il n'y a aucune mesure physico-chimique à importer dans le graphique",
                                 "Attention", Icone::Exclamation};
        DemandeEvolution d = E::demande({E::NITRATES, E::PH}, QDate(1990, 1, 1), QDate(1991, 12, 31));
        d.selection.stationDebit = QStringLiteral("J7010610");
        QVERIFY(!tracer(d));
        QCOMPARE(m_essai->dialogue.messages, QList<BoiteDEssai>{aucune});
        QVERIFY(!QFile::exists(m_essai->sortie()));
        QVERIFY(m_essai->dialogue.documents.isEmpty());
        // Measures, but none that the filters keep.
        d = E::demande({E::NITRATES});
        d.selection.gestionnaires = QStringList{"19"};
        QVERIFY(!tracer(d));
        QCOMPARE(m_essai->dialogue.messages, QList<BoiteDEssai>{aucune});
        QVERIFY(!QFile::exists(m_essai->sortie()));
    }

    void progression()
    {
        const auto textes = [this] {
            return m_essai->dialogue.progression(FenetreProgression::Principale).textes;
        };
        DemandeEvolution d = E::demande({E::NITRATES});
        d.selection.stationDebit = QStringLiteral("J7010610");
        d.stationPluie = QStringLiteral("35228001");
        const qsizetype avant = textes().size();
        QVERIFY(tracer(d));
        const QStringList attendus{"Recherche des mesures physico-chimiques",
                                   "Recherche des mesures hydrométriques",
                                   "Recherche des mesures pluviométriques", "Gestion des codes remarques"};
        QStringList vus;
        for (const QString &texte : textes().mid(avant))
            if (attendus.contains(texte))
                vus << texte;
        QCOMPARE(vus, attendus);
        QVERIFY(!m_essai->dialogue.progression(FenetreProgression::Principale).visible);
    }

    // Report and chart in one workbook: both readers agree, and there is one ending.
    void graphiqueEtRapport()
    {
        DemandeEvolution d = E::toutCoche();
        d.selection.stationDebit = QStringLiteral("J7010610");
        d.selection.seuil = d.valeurSeuil;
        QVERIFY2(m_essai->tracerEtEditer(d, m_base->donnees),
                 qPrintable(m_essai->dialogue.messages.value(0).texte));
        QCOMPARE(m_essai->dialogue.messages.size(), 1);
        QCOMPARE(m_essai->dialogue.messages[0],
                 (BoiteDEssai{"L'édition du rapport est terminée. ", "Fin de création", Icone::Information}));
        QCOMPARE(m_essai->dialogue.documents.size(), 1);
        QString differences = verifier(d);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
        DemandeRapport rapport = d.selection;
        rapport.parametre = d.courbes[0].parametre;
        differences = m_essai->verifier(rapport, m_base->chemin);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
        verifierFeuilleRapport();
        QCOMPARE(relire().series().size(), 15); // no less than in a chart of its own
    }

    // The report is empty: its own words, no chart. Its fraction is reminded of once.
    void graphiqueEtRapportVides()
    {
        const auto textes = [this] {
            QStringList liste;
            for (const BoiteDEssai &boite : m_essai->dialogue.messages)
                liste << boite.texte;
            return liste;
        };
        QVERIFY(!m_essai->tracerEtEditer(E::demande({E::NITRATES}, QDate(1990, 1, 1), QDate(1991, 12, 31)),
                                         m_base->donnees));
        QCOMPARE(textes(), QStringList({"Il n'y a aucune mesure physico-chimiques pour l'édition du rapport",
                                        "Il n'y a aucune donnée dans le rapport. "}));
        QVERIFY(!QFile::exists(m_essai->sortie()));

        QVERIFY(m_essai->tracerEtEditer(E::demande({E::CARBONE}), m_base->donnees));
        QCOMPARE(textes(),
                 QStringList({"Vous n'avez pas sélectionné de fraction pour le paramètre Carbone Organique.",
                              "L'édition du rapport est terminée. "}));

        // The first hydrological year is widened back to October: measures for the report, none for the chart.
        DemandeEvolution d = m_base->serieDe(5);
        d.selection.mode = ModeAnnee::Hydrologique;
        d.selection.debut = QDate(2015, 2, 1);
        d.selection.fin = QDate(2015, 3, 31);
        QVERIFY(!m_essai->tracerEtEditer(d, m_base->donnees));
        QCOMPARE(textes(),
                 QStringList{"Il n'y a aucune mesure physico-chimique à importer dans le graphique"});
        QVERIFY(!QFile::exists(m_essai->sortie()));
    }
};

QTEST_GUILESS_MAIN(TestEvolutionPC)
#include "test_evolution_pc.moc"
