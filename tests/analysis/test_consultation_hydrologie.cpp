// Graphs of flows and rainfall of the demonstration study, made with the real spreadsheet and read back by an independent
// reader; and the ways in which one ends without a graph.
#include "analysis/M_Consultation_OVRA.h"
#include "database/DataEnvironment1.h"
#include "DialogueDEssai.h"
#include "platform/Chemins.h"
#include "workbook/CoursRapport.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(DemandeHydrologie)

namespace
{
QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

const QString DEBIT = QStringLiteral("J7999910");
const QString PLUIE = QStringLiteral("35904001");

DemandeHydrologie demande(GenreDebit genre, bool pluie, QDate debut, QDate fin)
{
    DemandeHydrologie d;
    d.debit = genre;
    d.stationDebit = DEBIT;
    d.pluie = pluie;
    d.stationPluie = PLUIE;
    d.debut = debut;
    d.fin = fin;
    return d;
}
} // namespace

class TestConsultationHydrologie : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_racine;
    QString m_base;
    std::unique_ptr<DataEnvironment1> m_donnees;
    std::unique_ptr<Tableur> m_tableur;
    DialogueDEssai m_dialogue;
    DossiersRecents m_dossiers;
    EtatRapport m_etat;

    QString sortie() const { return m_racine.filePath(s("Projet/Export/essai.xls")); }

    bool tracer(const DemandeHydrologie &d)
    {
        m_dialogue.messages.clear();
        m_dialogue.documents.clear();
        m_dialogue.progression(FenetreProgression::Principale).textes.clear();
        m_dialogue.fichiers.enqueue(sortie());
        CoursRapport cours(m_dialogue, *m_tableur, m_dossiers, m_etat);
        return cours.executer(M_Consultation_OVRA::commandeGraphique(d, *m_donnees, m_dialogue));
    }

    QString verifier(const DemandeHydrologie &d) const
    {
        QFile requete(m_racine.filePath(s("demande.json")));
        if (!requete.open(QIODevice::WriteOnly))
            return requete.errorString();
        const QJsonValue debit = d.debit == GenreDebit::Aucun        ? QJsonValue()
                                 : d.debit == GenreDebit::Journalier ? QJsonValue(s("jour"))
                                                                     : QJsonValue(s("mois"));
        requete.write(QJsonDocument(QJsonObject{{s("debit"), debit},
                                                {s("station_debit"), d.stationDebit},
                                                {s("pluie"), d.pluie},
                                                {s("station_pluie"), d.stationPluie},
                                                {s("debut"), d.debut.toString(Qt::ISODate)},
                                                {s("fin"), d.fin.toString(Qt::ISODate)}})
                          .toJson());
        requete.close();
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start(
            s("/usr/bin/python3"), // the Debian one, which has xlrd
            {s(DONNEES_TESTS "/../outils/verifier_hydrologie.py"), m_base, requete.fileName(), sortie()});
        if (!python.waitForFinished(60'000))
            return python.errorString();
        const QString dit = QString::fromUtf8(python.readAll());
        return python.exitStatus() == QProcess::NormalExit && python.exitCode() == 0 ? QString() : dit;
    }
    QStringList boites() const
    {
        QStringList textes;
        for (const BoiteDEssai &boite : m_dialogue.messages)
            textes << boite.titre + s(": ") + boite.texte;
        return textes;
    }

private Q_SLOTS:
    void initTestCase()
    {
        Chemins::definirRacine(m_racine.path());
        QDir(m_racine.path()).mkpath(s("Projet/Modèles"));
        QDir(m_racine.path()).mkpath(s("Projet/Export"));
        for (const char *modele : {"Modele_concentr_hydro.xls", "Modele_concentr_pluvio.xls"})
            QVERIFY(QFile::copy(s(DOSSIER_CONSTRUCTION "/installation/Projet/Modèles/") + s(modele),
                                m_racine.filePath(s("Projet/Modèles/") + s(modele))));
        m_base = m_racine.filePath(s("demonstration.mdb"));
        QVERIFY(QFile::copy(s(DOSSIER_CONSTRUCTION "/installation/Projet/Base/demonstration.mdb"), m_base));
        m_donnees = std::make_unique<DataEnvironment1>();
        m_donnees->ouvrir(m_base);
        // Several flows and several rains on one day, a flow of 0, a monthly flow not on the first; a station with neither.
        for (
            const char *instruction :
            {"INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, HeureMesureHM, DebitJourMesureHM) "
             "VALUES ('J7999910', '2013-03-02', '18:00:00', 1234.5)",
             "INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM) VALUES ('35904001', '2013-03-02', 7.5)",
             "UPDATE MESURE_HYDRO SET DebitJourMesureHM = 0 WHERE CodeStationHM = 'J7999910' "
             "AND DateMesureHM = '2013-03-05'",
             "UPDATE MESURE_HYDRO SET DateMesureHM = '2013-05-17' WHERE CodeStationHM = 'J7999910' "
             "AND DateMesureHM = '2013-05-01' AND DebitMoisMesureHM IS NOT NULL",
             "INSERT INTO STATION_HYDRO (CodeStationHM, IntituleStationHM) VALUES ('00000001', '=1+1')",
             "INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, DebitJourMesureHM) "
             "VALUES ('00000001', '2013-03-02', 12)"})
            m_donnees->executer(s(instruction));
        m_tableur = std::make_unique<Tableur>();
        m_tableur->demarrerEnAvance();
    }
    void cleanupTestCase()
    {
        m_tableur.reset();
        m_donnees.reset();
    }

    void comparaison_data()
    {
        QTest::addColumn<DemandeHydrologie>("d");
        const QDate debut(2008, 1, 1);
        const QDate fin(2018, 12, 31);
        const auto jour = GenreDebit::Journalier;
        const auto mois = GenreDebit::Mensuel;
        const auto aucun = GenreDebit::Aucun;
        QTest::newRow("daily flows") << demande(jour, false, QDate(2013, 1, 1), QDate(2013, 12, 31));
        QTest::newRow("daily flows with rain") << demande(jour, true, QDate(2013, 1, 1), QDate(2013, 12, 31));
        QTest::newRow("one day") << demande(jour, true, QDate(2013, 1, 1), QDate(2013, 1, 1));
        QTest::newRow("eleven years of days") << demande(jour, true, debut, fin);
        QTest::newRow("monthly flows") << demande(mois, false, debut, fin);
        QTest::newRow("monthly flows with rain")
            << demande(mois, true, QDate(2012, 6, 15), QDate(2014, 2, 10));
        QTest::newRow("rain alone") << demande(aucun, true, QDate(2013, 3, 1), QDate(2013, 3, 31));
        DemandeHydrologie d = demande(jour, false, debut, fin);
        d.stationDebit = s("00000001"); // its zeros stay, and its name is no formula
        QTest::newRow("code with zeros, name like a formula") << d;
    }
    void comparaison()
    {
        QFETCH(DemandeHydrologie, d);
        QVERIFY2(tracer(d), qPrintable(boites().join(u'\n')));
        QCOMPARE(boites(), (QStringList{s("Fin du graphique: La création du graphique est terminée. ")}));
        QCOMPARE(m_dialogue.documents, (QStringList{sortie()}));
        const QString differences = verifier(d);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }

    void statuts()
    {
        QVERIFY(tracer(demande(GenreDebit::Journalier, true, QDate(2013, 1, 1), QDate(2013, 1, 31))));
        const ProgressionDEssai &barre = m_dialogue.progression(FenetreProgression::Principale);
        const auto place = [&barre](const char *texte) { return barre.textes.indexOf(s(texte)); };
        QVERIFY(place("Recherche des mesures hydrométriques") >= 0);
        QVERIFY(place("Recherche des mesures hydrométriques") <
                place("Recherche des mesures pluviométriques"));
        QVERIFY(!barre.visible);
    }

    // A kind of measure that has none is told, and the graph made with the other.
    void uneSerieAbsente()
    {
        DemandeHydrologie d = demande(GenreDebit::Journalier, true, QDate(2013, 1, 1), QDate(2013, 1, 31));
        d.stationPluie = s("X");
        QVERIFY(tracer(d));
        QCOMPARE(boites().first(),
                 s("Attention: Il n'y a aucune mesure pluviométrique à importer dans le graphique"));
        QString differences = verifier(d);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));

        for (const GenreDebit genre : {GenreDebit::Journalier, GenreDebit::Mensuel}) {
            d = demande(genre, true, QDate(2013, 1, 1), QDate(2013, 1, 31));
            d.stationDebit = s("X");
            QVERIFY(tracer(d));
            QCOMPARE(boites().first(),
                     s("Attention: Il n'y a aucune mesure hydrométrique à importer dans le graphique"));
            differences = verifier(d);
            QVERIFY2(differences.isEmpty(), qPrintable(differences));
        }
    }

    void rien()
    {
        QVERIFY(!tracer(demande(GenreDebit::Mensuel, true, QDate(1990, 1, 1), QDate(1990, 12, 31))));
        QCOMPARE(
            boites(),
            (QStringList{s("Attention: Il n'y a aucune mesure hydrométrique à importer dans le graphique"),
                         s("Attention: Il n'y a aucune mesure pluviométrique à importer dans le graphique"),
                         s("Attention: Il n'y a aucune donnée pour la période choisie. ")}));
        QVERIFY(!QFile::exists(sortie()));
        QVERIFY(!tracer(demande(GenreDebit::Aucun, true, QDate(1990, 1, 1), QDate(1990, 12, 31))));
        QCOMPARE(
            boites(),
            (QStringList{s("Attention: Il n'y a aucune mesure pluviométrique à importer dans le graphique"),
                         s("Attention: Il n'y a aucune donnée pour la période choisie. ")}));
        QVERIFY(!QFile::exists(sortie()));
    }

    // The spreadsheet dies while the measures are being read: told, no file, and the next graph is made.
    void tableurTue()
    {
        CommandeRapport commande = M_Consultation_OVRA::commandeGraphique(
            demande(GenreDebit::Journalier, true, QDate(2008, 1, 1), QDate(2018, 12, 31)), *m_donnees,
            m_dialogue);
        const auto remplir = commande.remplir;
        commande.remplir = [this, remplir](Classeur &classeur) {
            m_tableur->tuer();
            return remplir(classeur);
        };
        m_dialogue.messages.clear();
        m_dialogue.fichiers.enqueue(sortie());
        CoursRapport cours(m_dialogue, *m_tableur, m_dossiers, m_etat);
        QVERIFY(!cours.executer(commande));
        QCOMPARE(boites(), (QStringList{s("Attention: Erreur de l'application")}));
        QVERIFY(!QFile::exists(sortie()));
        QVERIFY(!m_etat.enCours());
        QVERIFY(tracer(demande(GenreDebit::Journalier, true, QDate(2013, 1, 1), QDate(2013, 1, 31))));
    }
};

QTEST_GUILESS_MAIN(TestConsultationHydrologie)
#include "test_consultation_hydrologie.moc"
