// What it costs to open a sampling and to save it, on the screen, in a base of a million results beside one of ten
// thousand: the station, the date and the time are given, then "Rechercher" and "Modifier" are pressed, all questions
// answered at once. Aim: under 0.2 s each. A deletion, which looks at every sampling of the base, is told beside them.
//
// Each figure is the median of interleaved runs on samplings of their own.
#include "CadreDEssai.h"
#include "capture/ecrans/F_Mesure_Physico.h"
#include "DialogueDEssai.h"
#include "frame/Session.h"
#include "OutilsBanc.h"
#include "platform/Erreur.h"
#include "widgets/ZoneCombo.h"
#include "widgets/ZoneComboLibre.h"

#include <cstdio>
#include <QAbstractItemModel>
#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>

using OutilsBanc::mediane;

namespace
{
constexpr int TOURS = 21;

struct Durees {
    QList<double> ouverture;
    QList<double> enregistrement;
    QList<double> suppression;
};

class Etude
{
public:
    Etude(const QString &fichier, int resultats)
    {
        OutilsBanc::creerBase(fichier, resultats);
        m_session.donnees.ouvrir(fichier);
        // Samplings that the screen can save again as they are: every one of their results is complete.
        Requete r = m_session.donnees.executer(QStringLiteral(
            "SELECT CodeSandreStationM, strftime('%d/%m/%Y', DatePrel), HeurePrel, count(*) "
            "FROM PRELEVEMENT INNER JOIN MESURE_PHYSICO ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel "
            "INNER JOIN PARAMETRE ON PARAMETRE.CodeParam = MESURE_PHYSICO.CodeParam "
            "WHERE CodeGroupeParam <> 'PS' AND HeurePrel IS NOT NULL "
            "AND PRELEVEMENT.NumPrel % 13 = 0 GROUP BY PRELEVEMENT.NumPrel "
            "HAVING min(ResultatAnaPC IS NOT NULL AND CodeSandreGest <> '' AND CodeSandreLabo <> '' "
            "AND CodeRemarqueAnaPC <> '' AND Cd_Fraction <> '') = 1 LIMIT 24"));
        while (r.suivant()) {
            m_cles << QStringList{r.texte(0), r.texte(1), r.texte(2)};
            m_resultats += r.valeur(3).toInt();
        }
        if (m_cles.size() < TOURS + 3)
            throw Erreur(0, QStringLiteral("trop peu de prélèvements complets"));
        m_ecran = std::make_unique<F_Mesure_Physico>(m_session, m_cadre);
        m_ecran->show();
    }

    double resultatsMoyens() const
    {
        return static_cast<double>(m_resultats) / static_cast<double>(m_cles.size());
    }

    void mesurer(int tour, Durees &durees)
    {
        saisirCle(m_cles[tour]);
        m_dialogue.reponses.enqueue(Reponse::Oui);
        durees.ouverture << presser("cmd_rech");
        const auto *grille = m_ecran->findChild<QTableView *>(QStringLiteral("DBGrid1"));
        if (grille->model()->rowCount() == 0)
            throw Erreur(0, QStringLiteral("prélèvement vide"));
        m_dialogue.reponses.enqueue(Reponse::Oui);
        m_dialogue.reponses.enqueue(Reponse::Oui);
        durees.enregistrement << presser("cmd_valider");
        if (!m_dialogue.messages.isEmpty())
            throw Erreur(0, m_dialogue.messages.first().texte);

        saisirCle(m_cles[tour]);
        m_dialogue.reponses.enqueue(Reponse::Oui);
        durees.suppression << presser("cmd_suppr");
    }

private:
    void saisirCle(const QStringList &cle)
    {
        auto *code = m_ecran->findChild<ZoneCombo *>(QStringLiteral("cmb_code"));
        code->setCurrentIndex(code->findText(cle[0]));
        auto *date = m_ecran->findChild<ZoneComboLibre *>(QStringLiteral("cmb_Date"));
        date->fixer(cle[1]);
        Q_EMIT date->texteChoisi();
        m_ecran->findChild<ZoneComboLibre *>(QStringLiteral("cmb_heure"))->fixer(cle[2]);
        QApplication::processEvents();
    }

    // Milliseconds until the screen is ready again, painted.
    double presser(const char *nom)
    {
        auto *bouton = m_ecran->findChild<QPushButton *>(QString::fromLatin1(nom));
        if (!bouton->isEnabled())
            throw Erreur(0, QStringLiteral("bouton désactivé : ") + QString::fromLatin1(nom));
        return OutilsBanc::chronometrer([bouton] {
            bouton->click();
            QApplication::processEvents();
        });
    }

    DialogueDEssai m_dialogue;
    Session m_session{m_dialogue};
    CadreDEssai m_cadre;
    QList<QStringList> m_cles;
    int m_resultats = 0;
    std::unique_ptr<F_Mesure_Physico> m_ecran;
};
} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    try {
        const QTemporaryDir dossier;
        Etude petite(dossier.filePath(QStringLiteral("petite.mdb")), 10'000);
        Etude grande(dossier.filePath(QStringLiteral("grande.mdb")), 1'000'000);
        Durees petites;
        Durees grandes;
        Durees chauffe;
        for (int tour = 0; tour < TOURS + 3; ++tour) { // the first ones warm everything up
            petite.mesurer(tour, tour < 3 ? chauffe : petites);
            grande.mesurer(tour, tour < 3 ? chauffe : grandes);
        }
        std::printf(
            "prélèvement (%.0f et %.0f résultats en moyenne)   10 000 résultats   1 000 000 résultats\n",
            petite.resultatsMoyens(), grande.resultatsMoyens());
        std::printf("  ouvrir                %8.1f ms   %8.1f ms (visé : 200 au plus)\n",
                    mediane(petites.ouverture), mediane(grandes.ouverture));
        std::printf("  enregistrer           %8.1f ms   %8.1f ms (visé : 200 au plus)\n",
                    mediane(petites.enregistrement), mediane(grandes.enregistrement));
        std::printf("  supprimer             %8.1f ms   %8.1f ms\n", mediane(petites.suppression),
                    mediane(grandes.suppression));
    } catch (const Erreur &erreur) {
        std::fprintf(stderr, "banc_prelevement: %s\n", erreur.what());
        return 1;
    }
    return 0;
}
