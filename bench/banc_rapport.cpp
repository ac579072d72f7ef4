// What a report costs, beside what the spreadsheet application takes anyway; and in a large base beside a small one.
//
//   (b) the whole command with a warm application, against opening the template, saving it under a name and closing it
//   (c) the same report of the same station in a base of 1 000 000 results, against one of 10 000
//
// Each figure is the median of interleaved runs, so that a busy machine slows both sides alike.
#include "analysis/LectureRapportPC.h"
#include "analysis/M_Concentration_OVRA.h"
#include "database/DataEnvironment1.h"
#include "DialogueDEssai.h"
#include "platform/Chemins.h"
#include "platform/Erreur.h"
#include "workbook/CoursRapport.h"

#include <cstdio>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace
{
constexpr int TOURS = 21;

double mediane(QList<double> durees)
{
    std::sort(durees.begin(), durees.end());
    return durees[durees.size() / 2];
}

double chronometrer(const std::function<void()> &travail)
{
    QElapsedTimer chrono;
    chrono.start();
    travail();
    return static_cast<double>(chrono.nsecsElapsed()) / 1e6;
}

// Ten years of monthly nitrates with their flows: the station that is the same in every base.
DemandeRapport demande()
{
    DemandeRapport d;
    d.codeStation = QStringLiteral("04999010");
    d.parametre = QStringLiteral("Nitrates");
    d.debut = QDate(2008, 1, 1);
    d.fin = QDate(2017, 12, 31);
    d.stationDebit = QStringLiteral("J7999910");
    d.seuil = 40;
    return d;
}

void creerBase(const QString &fichier, int resultats)
{
    QProcess creation;
    creation.setProcessChannelMode(QProcess::ForwardedChannels);
    creation.start(QStringLiteral(DOSSIER_CONSTRUCTION "/bin/creer_bases"),
                   {QStringLiteral("--donnees"), QStringLiteral(DOSSIER_SOURCES "/donnees"),
                    QStringLiteral("resultats"), QString::number(resultats), fichier});
    if (!creation.waitForFinished(-1) || creation.exitStatus() != QProcess::NormalExit ||
        creation.exitCode() != 0)
        throw Erreur(0, QStringLiteral("creer_bases: ") + creation.errorString());
}

class Banc
{
public:
    Banc()
    {
        Chemins::definirRacine(m_racine.path());
        QDir(m_racine.path()).mkpath(QStringLiteral("Projet/Modèles"));
        QFile::copy(QStringLiteral(DOSSIER_CONSTRUCTION "/installation/Projet/Modèles/rapport.xls"),
                    m_modele);
        creerBase(m_racine.filePath(QStringLiteral("petite.mdb")), 10'000);
        creerBase(m_racine.filePath(QStringLiteral("grande.mdb")), 1'000'000);
        m_petite.ouvrir(m_racine.filePath(QStringLiteral("petite.mdb")));
        m_grande.ouvrir(m_racine.filePath(QStringLiteral("grande.mdb")));
    }

    void mesurer()
    {
        const auto command = [this](DataEnvironment1 &donnees) {
            return chronometrer([&] { editer(donnees); });
        };
        QList<double> seuls;
        QList<double> petites;
        QList<double> grandes;
        for (int tour = -3; tour < TOURS; ++tour) { // the first ones warm everything up
            const double seul = chronometrer([this] { modeleSeul(); });
            const double petite = command(m_petite);
            const double grande = command(m_grande);
            if (tour < 0)
                continue;
            seuls << seul;
            petites << petite;
            grandes << grande;
        }
        std::printf(
            "rapport (b)  modèle seul %6.1f ms   rapport entier %6.1f ms   rapport %.2f (visé : 1,5 au plus)\n",
            mediane(seuls), mediane(petites), mediane(petites) / mediane(seuls));
        std::printf(
            "rapport (c)  10 000 résultats %6.1f ms   1 000 000 résultats %6.1f ms   rapport %.2f (visé : 2 au plus)\n",
            mediane(petites), mediane(grandes), mediane(grandes) / mediane(petites));
    }

private:
    // Opening, saving and closing the template.
    void modeleSeul()
    {
        const auto classeur = m_tableur.ouvrir(m_modele);
        classeur->enregistrerSous(m_sortie);
        classeur->fermer();
    }

    void editer(DataEnvironment1 &donnees)
    {
        m_dialogue.fichiers.enqueue(m_sortie);
        CoursRapport cours(m_dialogue, m_tableur, m_dossiers, m_etat);
        if (!cours.executer(M_Concentration_OVRA::commandeRapport(demande(), donnees, m_dialogue)))
            throw Erreur(0, m_dialogue.messages.isEmpty() ? QString() : m_dialogue.messages.last().texte);
        m_dialogue.messages.clear();
    }

    QTemporaryDir m_racine;
    QString m_modele = m_racine.filePath(QStringLiteral("Projet/Modèles/rapport.xls"));
    QString m_sortie = m_racine.filePath(QStringLiteral("rapport_produit.xls"));
    DataEnvironment1 m_petite;
    DataEnvironment1 m_grande;
    Tableur m_tableur;
    DialogueDEssai m_dialogue;
    DossiersRecents m_dossiers;
    EtatRapport m_etat;
};
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    try {
        Banc().mesurer();
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "banc_rapport: %s\n", erreur.what());
        return 1;
    }
    return 0;
}
