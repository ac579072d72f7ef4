// An evolution chart that cannot be made: the words of the course, no half file, and the next one is made.
#include "EssaiEvolution.h"
#include "EtudeEvolution.h"

#include <QProcess>
#include <QScopeGuard>
#include <QTest>

namespace
{
using E = EtudeEvolution;

const BoiteDEssai ERREUR{"Erreur de l'application", "Attention", Icone::Critique};
const BoiteDEssai FIN{"La création du graphique est terminée. ", "Fin du graphique", Icone::Information};

// Does something at the warning that comes between the sheet and the chart.
class DialogueAuMilieu : public DialogueDEssai
{
public:
    std::function<void()> auMilieu;
    void message(const QString &texte, const QString &titre, Icone icone) override
    {
        DialogueDEssai::message(texte, titre, icone);
        if (titre == QLatin1String("Attention !"))
            auMilieu();
    }
};

bool monter(const QString &dossier, const QString &options)
{
    return QDir().mkpath(dossier) &&
           QProcess::execute(QStringLiteral("mount"),
                             {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"), options,
                              QStringLiteral("tmpfs"), dossier}) == 0;
}

void demonter(const QString &dossier)
{
    QProcess::execute(QStringLiteral("umount"), {dossier});
}
} // namespace

class TestEvolutionPannes : public QObject
{
    Q_OBJECT

    std::unique_ptr<EssaiEvolution> m_essai;
    std::unique_ptr<EtudeEvolution> m_base;

    // A chart whose scale is too low, so that a message comes in the middle.
    static DemandeEvolution demande()
    {
        DemandeEvolution d = E::toutCoche();
        d.selection.stationDebit = QStringLiteral("J7010610");
        d.echelleMaximale = 1;
        return d;
    }

    bool tracerVers(const QString &chemin, DialogueDEssai &dialogue)
    {
        dialogue.fichiers.enqueue(chemin);
        CoursRapport cours(dialogue, m_essai->tableur, m_essai->dossiers, m_essai->etat);
        return cours.executer(M_Concentration_OVRA::commandeGraphique(demande(), m_base->donnees, dialogue));
    }
    QString raison(DialogueDEssai &dialogue) const
    {
        return dialogue.progression(FenetreProgression::Principale).texte;
    }
    // The program goes on: the next chart is made, and nothing else is at work.
    void verifierLeSuivant()
    {
        QVERIFY(!m_essai->etat.enCours());
        DemandeEvolution d = demande();
        d.echelleMaximale.reset();
        QVERIFY(m_essai->tracer(d, m_base->donnees));
        QCOMPARE(m_essai->dialogue.messages, QList<BoiteDEssai>{FIN});
        const QString differences = m_essai->verifierMesures(d, m_base->chemin);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
        QVERIFY(QFile::remove(m_essai->sortie()));
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

    void tableurTueEntreLaFeuilleEtLeGraphique()
    {
        DialogueAuMilieu dialogue;
        dialogue.auMilieu = [this] { m_essai->tableur.tuer(); };
        QVERIFY(!tracerVers(m_essai->sortie(), dialogue));
        QCOMPARE(dialogue.messages.size(), 2);
        QCOMPARE(dialogue.messages[1], ERREUR);
        QCOMPARE(raison(dialogue), QStringLiteral("LibreOffice Calc s'est arrêté brusquement."));
        QVERIFY(!QFile::exists(m_essai->sortie()));
        QVERIFY(dialogue.documents.isEmpty());
        verifierLeSuivant();
    }

    // A file that cannot be replaced is not ours to delete.
    void fichierOuvertAilleurs()
    {
        QFile ancien(m_essai->sortie());
        QVERIFY(ancien.open(QIODevice::WriteOnly) && ancien.write("un ancien graphique") > 0);
        ancien.close();
        QFile verrou(QFileInfo(m_essai->sortie()).dir().filePath(QStringLiteral(".~lock.essai.xls#")));
        QVERIFY(verrou.open(QIODevice::WriteOnly));
        verrou.close();
        DialogueDEssai dialogue;
        QVERIFY(!tracerVers(m_essai->sortie(), dialogue));
        QVERIFY(verrou.remove());
        QCOMPARE(dialogue.messages, QList<BoiteDEssai>{ERREUR});
        QVERIFY2(raison(dialogue).contains(QStringLiteral("ce fichier est ouvert dans un autre programme")),
                 qPrintable(raison(dialogue)));
        QVERIFY(ancien.open(QIODevice::ReadOnly));
        QCOMPARE(ancien.readAll(), QByteArray("un ancien graphique"));
        ancien.close();
        QVERIFY(ancien.remove());
        verifierLeSuivant();
    }

    void dossierAbsent()
    {
        DialogueDEssai dialogue;
        const QString dossier = m_essai->racine.filePath(QStringLiteral("Nulle part"));
        QVERIFY(!tracerVers(dossier + QStringLiteral("/evolution.xls"), dialogue));
        QCOMPARE(dialogue.messages, QList<BoiteDEssai>{ERREUR});
        QVERIFY2(raison(dialogue).contains(QStringLiteral("n'existe pas.")), qPrintable(raison(dialogue)));
        QVERIFY(!QFile::exists(dossier));
        verifierLeSuivant();
    }

    void dossierEnLectureSeule()
    {
        const QString dossier = m_essai->racine.filePath(QStringLiteral("fige"));
        if (!monter(dossier, QStringLiteral("ro,size=1m")))
            QSKIP("Un disque en lecture seule ne peut être monté que par l'administrateur.");
        const auto fin = qScopeGuard([&] { demonter(dossier); });
        DialogueDEssai dialogue;
        QVERIFY(!tracerVers(dossier + QStringLiteral("/evolution.xls"), dialogue));
        QCOMPARE(dialogue.messages, QList<BoiteDEssai>{ERREUR});
        QVERIFY2(raison(dialogue).contains(QStringLiteral("ce disque est en lecture seule.")),
                 qPrintable(raison(dialogue)));
        QVERIFY(QDir(dossier).isEmpty());
        verifierLeSuivant();
    }

    // Room for the template's copy, none for what it becomes.
    void disquePlein()
    {
        const QString disque = m_essai->racine.filePath(QStringLiteral("petit"));
        const qint64 modele =
            QFileInfo(m_essai->racine.filePath(QStringLiteral("Projet/Modèles/Modele_concentr.xls"))).size();
        if (!monter(disque, QStringLiteral("size=%1").arg(modele + 32'768)))
            QSKIP("Un petit disque ne peut être monté que par l'administrateur.");
        const auto fin = qScopeGuard([&] { demonter(disque); });
        DialogueAuMilieu dialogue;
        bool copie = false;
        dialogue.auMilieu = [&] { copie = QFile::exists(disque + QStringLiteral("/evolution.xls")); };
        QVERIFY(!tracerVers(disque + QStringLiteral("/evolution.xls"), dialogue));
        QVERIFY(copie); // it went as far as the last save
        QCOMPARE(dialogue.messages.size(), 2);
        QCOMPARE(dialogue.messages[1], ERREUR);
        QVERIFY2(raison(dialogue).contains(QStringLiteral("le disque est plein.")),
                 qPrintable(raison(dialogue)));
        QVERIFY(QDir(disque).entryList(QDir::Files | QDir::Hidden).isEmpty());
        verifierLeSuivant();
    }

    // The base fails in the middle of the reading.
    void baseEnPanne()
    {
        m_base->sql("ALTER TABLE MESURE_HYDRO RENAME TO MESURE_HYDRO_PERDUE");
        DialogueDEssai dialogue;
        QVERIFY(!tracerVers(m_essai->sortie(), dialogue));
        m_base->sql("ALTER TABLE MESURE_HYDRO_PERDUE RENAME TO MESURE_HYDRO");
        QCOMPARE(dialogue.messages.size(), 1);
        QVERIFY(dialogue.messages[0].texte.startsWith(
            QStringLiteral("Une erreur s'est produite en cours de traitement : \n")));
        QCOMPARE(dialogue.messages[0].titre, QStringLiteral("Erreur"));
        QVERIFY(!QFile::exists(m_essai->sortie()));
        QVERIFY(!dialogue.progression(FenetreProgression::Principale).visible);
        verifierLeSuivant();
    }
};

QTEST_GUILESS_MAIN(TestEvolutionPannes)
#include "test_evolution_pannes.moc"
