// The sheet "Rapport" of "Concentr_Rapport.xls".
#include "analysis/DispositionSynthese.h"
#include "Modele.h"
#include "workbook/Feuille.h"

#include <QPair>
#include <QVector>

using namespace DispositionSynthese;

namespace
{
constexpr int BLEU_NUIT = 0x003366;
constexpr int GRIS_TEXTE = 0x333333;
constexpr int GRIS_TRAIT = 15;
constexpr int LARGEUR_LIBELLES = 7'500;
constexpr int LARGEUR_VALEURS = 11'500;
constexpr int HAUTEUR_LIGNE = 600;
constexpr int HAUTEUR_DEUX_LIGNES = 1'000;
constexpr int MARGE = 1'000;

const QVector<QPair<int, QString>> &rubriques()
{
    static const QVector<QPair<int, QString>> toutes{{LIGNE_IDENTITE, QStringLiteral("Station et paramètre")},
                                                     {LIGNE_SELECTION, QStringLiteral("Mesures choisies")},
                                                     {LIGNE_FIGURES, QStringLiteral("Mesures du graphique")},
                                                     {LIGNE_CONTENU, QStringLiteral("Dans ce classeur")}};
    return toutes;
}

const QVector<QPair<int, QString>> &libelles()
{
    static const QVector<QPair<int, QString>> tous{
        {BASSIN, QStringLiteral("Bassin versant")},
        {STATION, QStringLiteral("Code de la station")},
        {RIVIERE, QStringLiteral("Rivière")},
        {LIEU, QStringLiteral("Station")},
        {PARAMETRE, QStringLiteral("Paramètre")},
        {PERIODE, QStringLiteral("Période étudiée")},
        {SOURCES, QStringLiteral("Source de données")},
        {GESTIONNAIRES, QStringLiteral("Gestionnaires")},
        {RESEAUX, QStringLiteral("Réseaux de mesure")},
        {COMMENTAIRES, QStringLiteral("Commentaires")},
        {PROTOCOLE, QStringLiteral("Protocole de suivi")},
        {EFFECTIF, QStringLiteral("Nombre de prélèvements")},
        {MAXIMUM, QStringLiteral("Maximum")},
        {MINIMUM, QStringLiteral("Minimum")},
        {MOYENNE, QStringLiteral("Valeur moyenne")},
        {ECART_TYPE, QStringLiteral("Ecart type")},
        {MEDIANE, QStringLiteral("Médiane")},
        {QUANTILE90, QStringLiteral("Quantile 90")},
        {DEPASSEMENT_MOYEN, QStringLiteral("Dépassement de l'objectif moyen")},
        {DEPASSEMENT_MAXIMAL, QStringLiteral("Dépassement de l'objectif maximal")},
        {NORME, QStringLiteral("Norme eau potable")},
        {LIGNE_CONTENU + 1, QStringLiteral("Feuille « Données »")},
        {LIGNE_CONTENU + 2, QStringLiteral("Feuille « Mesures »")}};
    return tous;
}
} // namespace

void Modele::synthese(Feuille feuille)
{
    feuille.largeurColonne(COLONNE_LIBELLES, LARGEUR_LIBELLES);
    feuille.largeurColonne(COLONNE_VALEURS, LARGEUR_VALEURS);
    feuille.hauteurLignes(1, DERNIERE_LIGNE, HAUTEUR_LIGNE);
    for (const int ligne : {LIEU, SOURCES, GESTIONNAIRES, RESEAUX, COMMENTAIRES})
        feuille.hauteurLigne(ligne, HAUTEUR_DEUX_LIGNES);

    feuille.cellule(LIGNE_TITRE, COLONNE_LIBELLES)
        .ecrire(QStringLiteral("RAPPORT ET GRAPHIQUE - Données physico-chimiques"));
    Plage titre = feuille.plage(LIGNE_TITRE, COLONNE_LIBELLES, LIGNE_TITRE, COLONNE_VALEURS);
    titre.fusionner();
    titre.gras(true);
    titre.taillePolice(14);
    titre.couleurPolice(BLEU_NUIT);
    titre.alignementHorizontal(Alignement::Centre);
    feuille.hauteurLigne(LIGNE_TITRE, HAUTEUR_DEUX_LIGNES);

    Plage valeurs = feuille.plage(BASSIN, COLONNE_VALEURS, DERNIERE_LIGNE, COLONNE_VALEURS);
    valeurs.formatNombre(QStringLiteral("@"));
    valeurs.renvoiALaLigne(true);
    valeurs.alignementHorizontal(Alignement::Gauche);
    for (const auto &[ligne, libelle] : libelles()) {
        Plage cellule = feuille.cellule(ligne, COLONNE_LIBELLES);
        cellule.ecrire(libelle);
        cellule.couleurPolice(GRIS_TEXTE);
        feuille.plage(ligne, COLONNE_LIBELLES, ligne, COLONNE_VALEURS)
            .bord(Bord::Bas, TraitBord::Continu, EpaisseurBord::Fin, GRIS_TRAIT);
    }
    for (const auto &[ligne, rubrique] : rubriques()) {
        feuille.cellule(ligne, COLONNE_LIBELLES).ecrire(rubrique);
        Plage bandeau = feuille.plage(ligne, COLONNE_LIBELLES, ligne, COLONNE_VALEURS);
        bandeau.gras(true);
        bandeau.taillePolice(12);
        bandeau.couleurPolice(BLEU_NUIT);
        bandeau.bord(Bord::Bas, TraitBord::Continu, EpaisseurBord::Moyen);
    }
    feuille.cellule(LIGNE_CONTENU + 1, COLONNE_VALEURS)
        .ecrire(QStringLiteral("rapport statistique, interannuel et année par année"));
    feuille.cellule(LIGNE_CONTENU + 2, COLONNE_VALEURS)
        .ecrire(QStringLiteral("graphique d'évolution, et les données dont il est tracé"));

    MiseEnPage page;
    page.margeGauche = page.margeDroite = page.margeHaut = page.margeBas = MARGE;
    page.pagesEnLargeur = 1;
    page.pagesEnHauteur = 1;
    page.piedGauche = QStringLiteral("Ovralis - Rapport et graphique");
    page.piedDroite = QStringLiteral("Page &P / &N");
    feuille.mettreEnPage(page);
}
