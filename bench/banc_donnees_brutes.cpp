// The raw data screen on a million results: how long the user waits for a filter and an order, how long the window is
// held up at a time meanwhile, and what scrolling costs beside a small base.
//
// A "tranche" is the longest time during which the window cannot answer. Each figure is the median of several runs.
#include "analysis/ecrans/GrilleDonneesBrutes.h"
#include "analysis/LectureDonneesBrutes.h"
#include "analysis/ModeleDonneesBrutes.h"
#include "analysis/OrdreDonneesBrutes.h"
#include "database/DataEnvironment1.h"
#include "OutilsBanc.h"

#include <algorithm>
#include <cstdio>
#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

using OutilsBanc::chronometrer;
using OutilsBanc::creerBase;
using OutilsBanc::mediane;

namespace
{
constexpr int TOURS = 5;
constexpr int TRANCHE_MS = 25; // as the screen's

struct Attente {
    double totale = 0;  // ms
    double tranche = 0; // ms, the longest
    bool operator<(const Attente &autre) const { return totale < autre.totale; }
};

void compter(Attente &attente, double duree)
{
    attente.totale += duree;
    attente.tranche = std::max(attente.tranche, duree);
}

template <typename Lecture> void parTranches(Lecture &lecture, Attente &attente)
{
    bool encore = true;
    while (encore)
        compter(attente, chronometrer([&] { encore = lecture.avancer(TRANCHE_MS); }));
}

class Banc
{
public:
    Banc()
    {
        creerBase(m_dossier.filePath(QStringLiteral("petite.mdb")), 10'000);
        creerBase(m_dossier.filePath(QStringLiteral("grande.mdb")), 1'000'000);
        m_petite.ouvrir(m_dossier.filePath(QStringLiteral("petite.mdb")));
        m_grande.ouvrir(m_dossier.filePath(QStringLiteral("grande.mdb")));
    }

    void mesurer()
    {
        mesurerFiltres();
        mesurerTris();
        mesurerDefilement();
        mesurerCopie();
    }

private:
    static Attente lire(const DataEnvironment1 &donnees, const DemandeDonneesBrutes &demande,
                        std::shared_ptr<JeuDonneesBrutes> &jeu)
    {
        Attente attente;
        std::unique_ptr<LectureDonneesBrutes> lecture;
        compter(attente,
                chronometrer([&] { lecture = std::make_unique<LectureDonneesBrutes>(donnees, demande); }));
        parTranches(*lecture, attente);
        jeu = lecture->jeu();
        ModeleDonneesBrutes modele(donnees);
        compter(attente, chronometrer([&] { modele.montrer(jeu); }));
        return attente;
    }

    void mesurerFiltres()
    {
        const auto mesurer = [this](const char *nom, const DemandeDonneesBrutes &demande) {
            QList<Attente> attentes;
            std::shared_ptr<JeuDonneesBrutes> jeu;
            for (int tour = -1; tour < TOURS; ++tour) {
                const Attente attente = lire(m_grande, demande, jeu);
                if (tour >= 0)
                    attentes << attente;
            }
            const Attente m = mediane(attentes);
            std::printf("filtre   %-28s %8lld résultats  %7.1f ms   tranche %5.1f ms   (visé : 1 000 ms)\n",
                        nom, static_cast<long long>(jeu->nombre()), m.totale, m.tranche);
        };
        DemandeDonneesBrutes demande;
        mesurer("aucun", demande);
        demande.station = QStringLiteral("04880007");
        mesurer("station", demande);
        demande = {};
        demande.parametre = QStringLiteral("1340");
        mesurer("paramètre", demande);
        demande = {};
        demande.debut = QDate(2010, 1, 1);
        demande.fin = QDate(2010, 12, 31);
        mesurer("période d'un an", demande);
        demande = {};
        demande.famille = Famille::Pesticides;
        mesurer("pesticides", demande);
        demande.famille = Famille::PhysicoChimie;
        mesurer("physico-chimie", demande);
    }

    void mesurerTris()
    {
        std::shared_ptr<JeuDonneesBrutes> neuf;
        lire(m_grande, {}, neuf);
        for (const ColonneBrute colonne : ColonnesBrutes::toutes()) {
            QList<Attente> premieres;
            QList<Attente> suivantes;
            for (int tour = 0; tour < TOURS; ++tour) {
                const auto jeu = std::make_shared<JeuDonneesBrutes>(*neuf);
                ModeleDonneesBrutes modele(m_grande);
                modele.montrer(jeu);
                for (const bool decroissant : {false, true}) {
                    Attente attente;
                    if (!jeu->colonneLue(colonne)) {
                        std::unique_ptr<LectureColonneBrute> lecture;
                        compter(attente, chronometrer([&] {
                                    lecture = std::make_unique<LectureColonneBrute>(m_grande, jeu, colonne);
                                }));
                        parTranches(*lecture, attente);
                    }
                    compter(attente, chronometrer([&] {
                                modele.montrer(
                                    jeu, OrdreDonneesBrutes::ordonner(OrdreDonneesBrutes::cles(*jeu, colonne),
                                                                      decroissant));
                            }));
                    (decroissant ? suivantes : premieres) << attente;
                }
            }
            const Attente p = mediane(premieres);
            const Attente s = mediane(suivantes);
            std::printf("tri      %-28s première fois %7.1f ms   tranche %5.1f ms   ensuite %6.1f ms\n",
                        qPrintable(ColonnesBrutes::titre(colonne)), p.totale, p.tranche, s.totale);
        }
    }

    // A page at a time over the whole base, drawn each time: some thousand stops spread from the top to the end.
    static double defiler(const DataEnvironment1 &donnees, double &pire)
    {
        std::shared_ptr<JeuDonneesBrutes> jeu;
        lire(donnees, {}, jeu);
        ModeleDonneesBrutes modele(donnees);
        GrilleDonneesBrutes grille;
        grille.setModel(&modele);
        grille.donnerLargeurs();
        grille.resize(1280, 560);
        modele.montrer(jeu);
        grille.show();
        constexpr int ARRETS = 1000;
        QList<double> durees;
        for (int i = 0; i <= ARRETS; ++i) {
            const int ligne = static_cast<int>(static_cast<qint64>(modele.rowCount() - 1) * i / ARRETS);
            durees << chronometrer([&] {
                grille.scrollTo(modele.index(ligne, 0));
                grille.viewport()->repaint();
                QCoreApplication::processEvents();
            });
        }
        pire = *std::max_element(durees.begin(), durees.end());
        return mediane(durees);
    }

    // Selecting a million rows, and the longest copy that is allowed.
    void mesurerCopie()
    {
        std::shared_ptr<JeuDonneesBrutes> jeu;
        lire(m_grande, {}, jeu);
        ModeleDonneesBrutes modele(m_grande);
        GrilleDonneesBrutes grille;
        grille.setModel(&modele);
        grille.resize(1280, 560);
        modele.montrer(jeu);
        grille.show();
        QCoreApplication::processEvents();
        QList<PlageBrute> plages;
        const double selection = chronometrer([&] {
            grille.selectAll();
            QCoreApplication::processEvents();
            plages = grille.selection();
        });
        LignesDonneesBrutes lignes(m_grande, jeu);
        plages[0].derniereLigne = static_cast<int>(CopieDonneesBrutes::LIGNES_AU_PLUS) - 1;
        const double copie = chronometrer([&] { CopieDonneesBrutes::texte(lignes, plages); });
        std::printf("copie    tout sélectionner %.1f ms   copier 100 000 lignes %.0f ms\n", selection, copie);
    }

    void mesurerDefilement()
    {
        double pirePetite = 0;
        double pireGrande = 0;
        const double petite = defiler(m_petite, pirePetite);
        const double grande = defiler(m_grande, pireGrande);
        std::printf("défiler  10 000 : %5.2f ms par arrêt (pire %5.2f)   1 000 000 : %5.2f ms (pire %5.2f)   "
                    "rapport %.2f\n",
                    petite, pirePetite, grande, pireGrande, grande / petite);
    }

    QTemporaryDir m_dossier;
    DataEnvironment1 m_petite;
    DataEnvironment1 m_grande;
};
} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    try {
        Banc().mesurer();
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "banc_donnees_brutes: %s\n", erreur.what());
        return 1;
    }
    return 0;
}
