// The templates of the evolution charts: the series of every variant, on the columns of DispositionEvolution.h, in the
// order of SerieEvolution.
#include "analysis/DispositionEvolution.h"
#include "analysis/DispositionSynthese.h"
#include "analysis/GraphiqueEvolution.h"
#include "Modele.h"
#include "ModeleGraphique.h"
#include "workbook/AxeGraphique.h"
#include "workbook/Classeur.h"

using namespace DispositionEvolution;

namespace
{
// Pale, so that a line reads well on them; the two shades of yellow and orange are the intermediate classes.
constexpr int BLEU_PALE = 37;
constexpr int VERT_PALE = 35;
constexpr int JAUNE_CLAIR = 19;
constexpr int JAUNE_PALE = 36;
constexpr int ORANGE_PALE = 40;
constexpr int ORANGE_FONCE = 45;
constexpr int ROUGE_PALE = 22;

QVector<ModeleGraphique::Serie> series()
{
    using namespace ModeleGraphique;
    QVector<Serie> toutes{
        bande(COLONNE_BANDES, QStringLiteral("SEQ-Eau bleu"), BLEU_PALE),
        bande(COLONNE_BANDES + 1, QStringLiteral("SEQ-Eau vert"), VERT_PALE),
        bande(COLONNE_BANDES + 3, QStringLiteral("SEQ-Eau jaune clair"), JAUNE_CLAIR),
        bande(COLONNE_BANDES + 2, QStringLiteral("SEQ-Eau jaune"), JAUNE_PALE),
        bande(COLONNE_BANDES + 4, QStringLiteral("SEQ-Eau orange"), ORANGE_PALE),
        bande(COLONNE_BANDES + 5, QStringLiteral("SEQ-Eau orange foncé"), ORANGE_FONCE),
        bande(COLONNE_BANDES + 6, QStringLiteral("SEQ-Eau rouge"), ROUGE_PALE),
        courbe(COLONNE_COURBE, QStringLiteral("Première courbe"), COULEUR_COURBE_1),
        courbe(COLONNE_COURBE + 1, QStringLiteral("Seconde courbe"), COULEUR_COURBE_2, Marqueur::Carre),
        niveau(COLONNE_OBJECTIF_MOYEN, QStringLiteral("Objectif moyen"), 10, StyleTrait::Tirets),
        niveau(COLONNE_OBJECTIF_MAXIMAL, QStringLiteral("Objectif maximal"), 53, StyleTrait::Tirets,
               EpaisseurTrait::Moyen),
        niveau(COLONNE_SEUIL, QStringLiteral("Seuil"), 1, StyleTrait::Points),
        niveau(COLONNE_QUANTILE, QStringLiteral("Quantile 90"), 13, StyleTrait::TiretPoint),
        niveau(COLONNE_MEDIANE, QStringLiteral("Médiane"), 56, StyleTrait::TiretPoint, EpaisseurTrait::Moyen),
        niveau(COLONNE_NORME, QStringLiteral("Norme eau potable"), 9, StyleTrait::Continu,
               EpaisseurTrait::Moyen),
        colonnes(COLONNE_DEBIT, QStringLiteral("Débit"), COULEUR_DEBIT, 2),
        colonnes(COLONNE_PLUIE, QStringLiteral("Pluie"), COULEUR_PLUIE, 2),
    };
    Q_ASSERT(toutes.size() == SERIES_EVOLUTION);
    return toutes;
}

void mesures(Feuille feuille)
{
    ModeleGraphique::Description description;
    description.feuille = FEUILLE.toString();
    description.ligneIntitules = LIGNE_INTITULES;
    description.derniereColonne = DERNIERE_COLONNE;
    constexpr int LIGNE_LIBELLES = LIGNE_ENTETE - 1;
    description.entetes = {
        {LIGNE_LIBELLES, ENTETE_STATION, QStringLiteral("Station")},
        {LIGNE_LIBELLES, ENTETE_BASSIN, QStringLiteral("Bassin versant")},
        {LIGNE_LIBELLES, ENTETE_PARAMETRE, QStringLiteral("Paramètre")},
        {LIGNE_LIBELLES, ENTETE_UNITE, QStringLiteral("Unité")},
        {LIGNE_LIBELLES, ENTETE_DEPASSEMENT_MOYEN, QStringLiteral("% > obj. moyen")},
        {LIGNE_LIBELLES, ENTETE_DEPASSEMENT_MAXIMAL, QStringLiteral("% > obj. max.")},
        {LIGNE_LIBELLES, ENTETE_DEBIT, QStringLiteral("Débit")},
        {LIGNE_LIBELLES, ENTETE_PLUIE, QStringLiteral("Pluie")},
        {LIGNE_LIBELLES, ENTETE_PROTOCOLE, QStringLiteral("Protocole")},
        {LIGNE_LIBELLES, ENTETE_GESTIONNAIRES, QStringLiteral("Producteurs")},
        {LIGNE_LIBELLES, ENTETE_RESEAUX, QStringLiteral("Réseaux")},
    };
    description.series = series();
    description.titreAxe = QStringLiteral(" ( unité ) ");
    description.titreAxeSecondaire = QStringLiteral(" ( unité ) ");
    description.pied = QStringLiteral("Ovralis - Evolution des concentrations");
    ModeleGraphique::dessiner(feuille, description)
        .axe(TypeAxe::Categorie)
        .formatNombre(QStringLiteral("dd/mm/yy"));
    // Codes of stations keep their leading zeros.
    for (const int colonne : {ENTETE_STATION, ENTETE_DEBIT, ENTETE_PLUIE})
        feuille.cellule(LIGNE_ENTETE, colonne).formatNombre(QStringLiteral("@"));
}
} // namespace

void Modele::concentrations(Classeur &classeur)
{
    classeur.policeParDefaut(QStringLiteral("Arial"), 9);
    mesures(classeur.feuille(1));
}

void Modele::concentrationsEtRapport(Classeur &classeur)
{
    Modele::rapport(classeur);
    mesures(classeur.ajouterFeuille(FEUILLE.toString()));
    synthese(classeur.ajouterFeuille(DispositionSynthese::FEUILLE.toString()));
}
