// What an evolution chart costs, beside what the spreadsheet application takes anyway: 500 samples and the 3650 daily flows
// of ten years, the whole command with a warm application, against opening the template, saving it under a name and closing
// it. Once with no box ticked, once with all of them: thirteen further columns, fifty thousand cells.
//
// All are timed in turn, so that a busy machine slows them alike; the ratios of the medians and of the minima are given.
#include "analysis/EvolutionPC.h"
#include "BaseDEssai.h"
#include "CommandeAuBanc.h"
#include "OutilsBanc.h"

#include <cstdio>
#include <QCoreApplication>

using OutilsBanc::chronometrer;

namespace
{
constexpr int TOURS = 31;
constexpr int MESURES = 500;
constexpr int JOURS = 3650;
const QDate DEBUT(2008, 1, 1);

DemandeEvolution demande(bool tout)
{
    DemandeEvolution d;
    d.selection.codeStation = QStringLiteral("04211940");
    d.selection.debut = DEBUT;
    d.selection.fin = DEBUT.addDays(JOURS - 1);
    d.selection.stationDebit = QStringLiteral("J7010610");
    d.courbes = {{QStringLiteral("Nitrates"), {}}};
    if (!tout)
        return d;
    d.fondSEQ = d.norme = d.quantile = d.frequenceMoyen = d.frequenceMaximal = true;
    d.objectifMoyen = 25;
    d.objectifMaximal = 50;
    d.intituleSeuil = QStringLiteral("Seuil");
    d.valeurSeuil = 40;
    return d;
}

void remplir(const BaseDEssai &base)
{
    base.sql(QStringLiteral(
        "INSERT INTO NORME_AEP (CodeParam, CD_FRACTION, ValeurNorme) VALUES ('1340', '0', 50)"));
    base.sql(
        QStringLiteral("INSERT INTO GRILLE_SEQ (CodeParam, Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ) "
                       "VALUES ('1340', 2, 10, 25, 50)"));
    base.donnees.executer(QStringLiteral("BEGIN"));
    for (int i = 0; i < JOURS; ++i)
        base.ajouterDebitJour(QStringLiteral("J7010610"), DEBUT.addDays(i), 100 + i * 37 % 900 / 10.0);
    for (int i = 0; i < MESURES; ++i)
        base.ajouterMesure(
            base.ajouterPrelevement(QStringLiteral("04211940"), DEBUT.addDays(i * JOURS / MESURES)),
            QStringLiteral("1340"), 5 + i * 71 % 550 / 10.0,
            i % 20 == 0 ? QStringLiteral("2") : QStringLiteral("1"));
    base.donnees.executer(QStringLiteral("COMMIT"));
}

class Banc
{
public:
    Banc() { remplir(m_base); }

    void mesurer()
    {
        QList<double> seuls;
        QList<double> simples;
        QList<double> complets;
        for (int tour = -3; tour < TOURS; ++tour) { // the first ones warm everything up
            const double seul = chronometrer([this] { m_commande.modeleSeul(); });
            const double simple = chronometrer([this] { tracer(demande(false)); });
            const double complet = chronometrer([this] { tracer(demande(true)); });
            if (tour < 0)
                continue;
            seuls << seul;
            simples << simple;
            complets << complet;
        }
        std::sort(seuls.begin(), seuls.end());
        dire("une courbe et ses débits", seuls, simples);
        dire("tout coché", seuls, complets);
    }

private:
    static void dire(const char *quoi, const QList<double> &seuls, QList<double> entiers)
    {
        std::sort(entiers.begin(), entiers.end());
        const double seul = seuls[TOURS / 2];
        const double entier = entiers[TOURS / 2];
        std::printf("evolution  modèle seul %6.1f ms   %s %6.1f ms   rapport %.2f, minima %.2f "
                    "(visé : 2 au plus)\n",
                    seul, quoi, entier, entier / seul, entiers.first() / seuls.first());
    }

    void tracer(const DemandeEvolution &voulue)
    {
        m_commande.executer(
            M_Concentration_OVRA::commandeGraphique(voulue, m_base.donnees, m_commande.dialogue()));
    }

    CommandeAuBanc m_commande{QStringLiteral("Modele_concentr.xls")};
    BaseDEssai m_base;
};
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    try {
        Banc().mesurer();
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "banc_evolution: %s\n", erreur.what());
        return 1;
    }
    return 0;
}
