#include "analysis/M_Concentration_OVRA.h"

#include "analysis/DispositionRapportPC.h"
#include "analysis/EcritureRapportPC.h"
#include "analysis/LectureRapportPC.h"
#include "database/DataEnvironment1.h"
#include "workbook/CoursRapport.h"

namespace
{
// The main window's progress bar for one report: shown in seven stages, cleared whatever happens.
class Etapes
{
public:
    static constexpr int PREMIERE_DES_ANNEES = 4;
    static constexpr int APRES_LES_ANNEES = 6;
    static constexpr int DERNIERE = 7;

    explicit Etapes(Dialogue &dialogue) : m_barre(dialogue.progression(FenetreProgression::Principale))
    {
        m_barre.montrer({}, QStringLiteral("Edition du rapport sous Excel"));
        m_barre.maximum(DERNIERE);
    }
    ~Etapes() { m_barre.cacher(); }
    Etapes(const Etapes &) = delete;
    Etapes &operator=(const Etapes &) = delete;

    void libelle(const QString &texte) { m_barre.libelle(texte); }
    void valeur(int etape) { m_barre.valeur(etape); }

private:
    Progression &m_barre;
};

DonneesStatistiques lireDonnees(const DemandeRapport &demande, const DataEnvironment1 &donnees,
                                const EnTeteRapport &enTete, const QList<Annee> &annees, Etapes &etapes)
{
    DonneesStatistiques lues;
    lues.filtres = {demande.gestionnaires, demande.commentaires};
    lues.limites = enTete.limites;
    lues.grille = enTete.grille;
    LecteurMesuresPC lecteur(donnees, demande, enTete);
    etapes.libelle(QStringLiteral("Recherche des mesures physico-chimiques"));
    for (qsizetype k = 0; k < annees.size(); ++k) {
        const int parcours = Etapes::APRES_LES_ANNEES - Etapes::PREMIERE_DES_ANNEES;
        const int etape = Etapes::PREMIERE_DES_ANNEES + static_cast<int>(k * parcours / annees.size());
        etapes.valeur(etape);
        lues.annees << lecteur.lire(annees[k], [&] { etapes.valeur(etape); });
    }
    etapes.valeur(Etapes::APRES_LES_ANNEES);
    lues.resultatsDeLaBase = compterResultatsDeLaBase(donnees);
    return lues;
}
} // namespace

int M_Concentration_OVRA::EditerRapport(const DemandeRapport &demande, const DataEnvironment1 &donnees,
                                        Dialogue &dialogue, Classeur &classeur)
{
    Etapes etapes(dialogue);
    etapes.valeur(1);
    RapportPC rapport;
    rapport.enTete = lireEnTete(donnees, demande);
    etapes.valeur(2);
    if (rapport.enTete.codeParametre == CARBONE_ORGANIQUE && rapport.enTete.codeFraction.isEmpty())
        dialogue.message(
            QStringLiteral("Vous n'avez pas sélectionné de fraction pour le paramètre Carbone Organique."),
            QStringLiteral("Attention !"), Icone::Exclamation);

    rapport.annees = decouperEnAnnees(demande.debut, demande.fin, demande.mode);
    etapes.valeur(3);
    const DonneesStatistiques lues = lireDonnees(demande, donnees, rapport.enTete, rapport.annees, etapes);

    etapes.libelle(QStringLiteral("Recherche des mesures interannuelles"));
    rapport.resultat = calculerStatistiques(lues);
    if (rapport.resultat.mesuresLues == 0)
        dialogue.message(QStringLiteral("Il n'y a aucune mesure physico-chimiques pour l'édition du rapport"),
                         QStringLiteral("Attention"), Icone::Exclamation);
    rapport.sources = lireNomsGestionnaires(donnees, rapport.resultat.sources);
    etapes.valeur(Etapes::DERNIERE);

    classeur.figerHauteurs();
    Feuille feuille = classeur.feuille(DispositionRapportPC::FEUILLE.toString());
    ecrireRapportPC(feuille, demande, rapport);
    return rapport.resultat.mesuresRetenues;
}

CommandeRapport M_Concentration_OVRA::commandeRapport(const DemandeRapport &demande,
                                                      const DataEnvironment1 &donnees, Dialogue &dialogue)
{
    CommandeRapport commande;
    commande.modele = QStringLiteral("rapport.xls");
    commande.fin = FinRapport::Rapport;
    commande.avertissementVide = QStringLiteral("Il n'y a aucune donnée dans le rapport. ");
    commande.remplir = [demande, &donnees, &dialogue](Classeur &classeur) {
        return EditerRapport(demande, donnees, dialogue, classeur);
    };
    return commande;
}
