#include "ModeleGraphique.h"

#include "workbook/AxeGraphique.h"
#include "workbook/BoiteTexte.h"
#include "workbook/Feuille.h"
#include "workbook/SerieGraphique.h"

using namespace ModeleGraphique;

namespace
{
// Hundredths of a millimetre. The block of title box and chart has the proportions of an A4 sheet lying on its side,
// between its margins.
constexpr int LARGEUR_BLOC = 26'600;
constexpr int ECART = 150;
constexpr int HAUTEUR_BLOC = 17'850;
constexpr int COLONNES_BLOC = 14;
constexpr int MARGE_PAGE = 1'000;
constexpr int LARGEUR_DONNEES = 2'300;
constexpr int HAUTEUR_LIGNE = 450;
// The chart's corner stands well inside its cell, so that rounding never moves it into the next one.
constexpr int RETRAIT = 100;

constexpr double TAILLE_TEXTE = 9;
constexpr double TAILLE_AXES = 9;
constexpr int TAILLE_MARQUEUR = 5;
// Columns of days stand so far apart that a line behind them can be followed.
constexpr int ESPACE_COLONNES = 150;
const QString POLICE = QStringLiteral("Arial");

constexpr int FOND_INTITULES = 34; // pale blue

class Dessin
{
public:
    Dessin(Feuille feuille, const Description &description)
        : m_feuille(std::move(feuille)), m_description(description)
    {
    }

    Graphique dessiner()
    {
        m_feuille.renommer(m_description.feuille);
        donnees();
        texte();
        Graphique graphique = m_feuille.ajouterGraphique(m_description.graphique, cadreGraphique());
        series(graphique);
        axes(graphique);
        aspect(graphique);
        page();
        // Whoever opens the finished file sees the chart, the data are at its left.
        m_feuille.montrerDepuis(premiereColonneBloc());
        return graphique;
    }

private:
    int premiereLigne() const { return m_description.ligneIntitules + 1; }
    int premiereColonneBloc() const { return m_description.derniereColonne + 2; }
    int largeur(int colonne) const { return m_description.largeurs.value(colonne - 1, LARGEUR_DONNEES); }
    int gaucheBloc() const
    {
        int gauche = 0;
        for (int colonne = 1; colonne < premiereColonneBloc(); ++colonne)
            gauche += largeur(colonne);
        return gauche;
    }
    CadreDessin cadreTexte() const
    {
        return {gaucheBloc() + RETRAIT, RETRAIT, LARGEUR_BLOC - 2 * RETRAIT, m_description.hauteurTexte};
    }
    CadreDessin cadreGraphique() const
    {
        const int dessus = m_description.hauteurTexte + ECART;
        return {gaucheBloc() + RETRAIT, RETRAIT + dessus, LARGEUR_BLOC - 2 * RETRAIT, HAUTEUR_BLOC - dessus};
    }

    void donnees()
    {
        const int derniere = m_description.derniereColonne;
        for (int colonne = 1; colonne <= derniere + 1; ++colonne)
            m_feuille.largeurColonne(colonne, largeur(colonne));
        for (int colonne = 0; colonne < COLONNES_BLOC; ++colonne)
            m_feuille.largeurColonne(premiereColonneBloc() + colonne, LARGEUR_BLOC / COLONNES_BLOC);
        // Heights are fixed, so that the chart stands over the same rows everywhere.
        m_feuille.hauteurLignes(1, 60, HAUTEUR_LIGNE);
        if (m_description.hauteurIntitules > 0)
            m_feuille.hauteurLigne(m_description.ligneIntitules, m_description.hauteurIntitules);
        for (const Entete &entete : m_description.entetes) {
            Plage cellule = m_feuille.cellule(entete.ligne, entete.colonne);
            cellule.ecrire(entete.texte);
            cellule.gras(true);
            cellule.couleurPolice(Teinte::index(COULEUR_TEXTE).rvb());
        }
        Plage intitules =
            m_feuille.plage(m_description.ligneIntitules, 1, m_description.ligneIntitules, derniere);
        intitules.gras(true);
        intitules.fond(FOND_INTITULES);
        intitules.bord(Bord::Bas, TraitBord::Continu);
        m_feuille.cellule(m_description.ligneIntitules, m_description.colonneDates)
            .ecrire(QStringLiteral("Date"));
        for (const Serie &serie : m_description.series)
            m_feuille.cellule(m_description.ligneIntitules, serie.colonne).ecrire(serie.nom);
        // Whole columns would swell the file: the format of an axis is that of its first cells.
        m_feuille
            .plage(premiereLigne(), m_description.colonneDates, premiereLigne() + 1,
                   m_description.colonneDates)
            .formatNombre(m_description.formatDates);
    }

    void texte()
    {
        BoiteTexte zone = m_feuille.ajouterZoneTexte(m_description.texte, cadreTexte());
        zone.ecrire(QStringLiteral("Titre"));
        zone.police({POLICE, TAILLE_TEXTE});
        zone.couleurPolice(Teinte::index(COULEUR_TEXTE));
        zone.alignement(Alignement::Centre);
        zone.alignement(Alignement::Milieu);
        zone.fond(Teinte::index(2));
        zone.bord({StyleTrait::Continu, Teinte::index(COULEUR_FILET), EpaisseurTrait::Filet});
    }

    void series(Graphique &graphique)
    {
        const int premiere = premiereLigne();
        for (const Serie &modele : m_description.series) {
            SerieGraphique serie = graphique.nouvelleSerie(modele.type, modele.groupeAxes);
            serie.valeurs(m_feuille.plage(premiere, modele.colonne, premiere + 1, modele.colonne));
            serie.nommer(m_feuille.cellule(m_description.ligneIntitules, modele.colonne));
            serie.abscisses(m_feuille.plage(premiere, m_description.colonneDates, premiere + 1,
                                            m_description.colonneDates));
            const bool lignes = modele.type == TypeSerie::Ligne || modele.type == TypeSerie::NuagePoints;
            if (lignes) {
                AspectTrait trait = modele.trait;
                trait.couleur = modele.couleur;
                serie.trait(trait);
                AspectMarqueur marqueur;
                marqueur.style = modele.marqueur;
                marqueur.taille = TAILLE_MARQUEUR;
                serie.marqueur(marqueur);
            } else {
                serie.remplissage(modele.couleur);
                serie.trait({StyleTrait::Aucun});
                if (modele.type != TypeSerie::AireEmpilee)
                    serie.espacement(ESPACE_COLONNES);
            }
        }
    }

    void axes(Graphique &graphique)
    {
        AxeGraphique dates = graphique.axe(TypeAxe::Categorie);
        dates.temporel(m_description.echelleDeTemps);
        dates.formatNombre(m_description.formatDates);
        dates.orientation(90);
        dates.titre({});
        mettre(dates);
        // One of each day, as some readers draw them, would be a black band.
        dates.graduations(Graduation::Aucune, Graduation::Aucune);
        AxeGraphique gauche = graphique.axe(TypeAxe::Valeur);
        EchelleAxe echelle;
        echelle.minimum = 0;
        gauche.echelle(echelle);
        gauche.quadrillage(true, Teinte::index(COULEUR_FILET));
        gauche.titre(m_description.titreAxe);
        mettre(gauche);
        if (!graphique.aAxeSecondaire())
            return;
        AxeGraphique droite = graphique.axe(TypeAxe::Valeur, 2);
        droite.echelle(echelle);
        droite.titre(m_description.titreAxeSecondaire);
        mettre(droite);
    }

    static void mettre(AxeGraphique &axe)
    {
        axe.taillePolice(TAILLE_AXES);
        axe.couleur(Teinte::index(COULEUR_AXE));
        axe.graduations(Graduation::Exterieure, Graduation::Aucune);
    }

    static void aspect(Graphique &graphique)
    {
        graphique.titre({});
        graphique.legende(true, PlaceLegende::Bas);
        graphique.taillePoliceLegende(TAILLE_AXES);
        graphique.fondLegende(Teinte::aucune(), {StyleTrait::Aucun});
        const AspectTrait filet{StyleTrait::Continu, Teinte::index(COULEUR_FILET), EpaisseurTrait::Filet};
        graphique.fond(Teinte::index(2), filet);
        graphique.fondZoneTracage(Teinte::aucune(), filet);
        // Samples stand on rows of their own among those of other series.
        graphique.relierLesTrous(true);
    }

    void page()
    {
        MiseEnPage page;
        page.paysage = true;
        page.margeGauche = page.margeDroite = page.margeHaut = page.margeBas = MARGE_PAGE;
        page.pagesEnLargeur = 1;
        page.pagesEnHauteur = 1;
        page.piedGauche = m_description.pied;
        page.piedDroite = QStringLiteral("Page &P / &N");
        m_feuille.mettreEnPage(page);
        const int hauteur = 2 * RETRAIT + HAUTEUR_BLOC;
        m_feuille.zoneImpression(m_feuille.plage(1, premiereColonneBloc(), hauteur / HAUTEUR_LIGNE + 1,
                                                 premiereColonneBloc() + COLONNES_BLOC - 1));
    }

    Feuille m_feuille;
    const Description &m_description;
};
} // namespace

Serie ModeleGraphique::courbe(int colonne, const QString &nom, int couleur, Marqueur marqueur)
{
    Serie serie;
    serie.colonne = colonne;
    serie.nom = nom;
    serie.couleur = Teinte::index(couleur);
    serie.trait.epaisseur = EpaisseurTrait::Moyen;
    serie.marqueur = marqueur;
    return serie;
}

Serie ModeleGraphique::niveau(int colonne, const QString &nom, int couleur, StyleTrait style,
                              EpaisseurTrait epaisseur)
{
    Serie serie = courbe(colonne, nom, couleur, Marqueur::Aucun);
    serie.trait.style = style;
    serie.trait.epaisseur = epaisseur;
    return serie;
}

Serie ModeleGraphique::colonnes(int colonne, const QString &nom, int couleur, int groupeAxes, TypeSerie type)
{
    Serie serie;
    serie.colonne = colonne;
    serie.nom = nom;
    serie.type = type;
    serie.groupeAxes = groupeAxes;
    serie.couleur = Teinte::index(couleur);
    return serie;
}

Serie ModeleGraphique::bande(int colonne, const QString &nom, int couleur)
{
    return colonnes(colonne, nom, couleur, 1, TypeSerie::AireEmpilee);
}

Graphique ModeleGraphique::dessiner(Feuille feuille, const Description &description)
{
    return Dessin(std::move(feuille), description).dessiner();
}
