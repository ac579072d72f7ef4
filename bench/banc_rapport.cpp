// What a report costs, beside what the spreadsheet application takes anyway; and in a large base beside a small one.
//
//   (b) the whole command with a warm application, against opening the template, saving it under a name and closing it
//   (c) the same report of the same station in a base of 1 000 000 results, against one of 10 000
//
// Each figure is the median of interleaved runs, so that a busy machine slows both sides alike.
#include "analysis/LectureRapportPC.h"
#include "analysis/M_Concentration_OVRA.h"
#include "CommandeAuBanc.h"
#include "database/DataEnvironment1.h"
#include "OutilsBanc.h"

#include <cstdio>
#include <QCoreApplication>

using OutilsBanc::chronometrer;
using OutilsBanc::creerBase;
using OutilsBanc::mediane;

namespace
{
constexpr int TOURS = 21;

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

class Banc
{
public:
    Banc()
    {
        creerBase(m_commande.fichier(QStringLiteral("petite.mdb")), 10'000);
        creerBase(m_commande.fichier(QStringLiteral("grande.mdb")), 1'000'000);
        m_petite.ouvrir(m_commande.fichier(QStringLiteral("petite.mdb")));
        m_grande.ouvrir(m_commande.fichier(QStringLiteral("grande.mdb")));
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
            const double seul = chronometrer([this] { m_commande.modeleSeul(); });
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
    void editer(DataEnvironment1 &donnees)
    {
        m_commande.executer(M_Concentration_OVRA::commandeRapport(demande(), donnees, m_commande.dialogue()));
    }

    CommandeAuBanc m_commande{QStringLiteral("rapport.xls")};
    DataEnvironment1 m_petite;
    DataEnvironment1 m_grande;
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
