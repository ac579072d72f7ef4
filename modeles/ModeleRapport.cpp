#include "analysis/DispositionRapportPC.h"
#include "Modele.h"
#include "workbook/Classeur.h"
#include "workbook/MiseEnPage.h"

using namespace DispositionRapportPC;

namespace
{
// Colours of the spreadsheet's default palette, so that any reader of the .xls format shows them alike.
constexpr int BLEU_NUIT = 0x003366;
constexpr int BLANC = 0xFFFFFF;
constexpr int GRIS_TEXTE = 0x666699;
constexpr int GRIS_TRAIT = 15;     // ColorIndex
constexpr int FOND_INTITULES = 33; // as the headers of the yearly blocks

// Hundredths of a millimetre. Together the columns fill the width of an A4 sheet between its margins.
constexpr int LARGEUR_LIBELLES = 8000;
constexpr int LARGEUR_ANNEE = 2100;
constexpr int MARGE = 1200;

constexpr double CORPS = 9;
const QString DEUX_DECIMALES = QStringLiteral("0.00");

class Dessin
{
public:
    explicit Dessin(Feuille feuille) : m_feuille(std::move(feuille)) {}

    void dessiner()
    {
        colonnes();
        titre();
        identite();
        periode();
        sources();
        interannuel();
        legende();
        annees();
        m_feuille.mettreEnPage(page());
    }

private:
    Plage plage(int ligne1, int colonne1, int ligne2, int colonne2)
    {
        return m_feuille.plage(ligne1, colonne1, ligne2, colonne2);
    }
    // A row from column A to the last one.
    Plage bande(int ligne) { return plage(ligne, COLONNE_LIBELLES, ligne, DERNIERE_COLONNE); }
    void ecrire(int ligne, int colonne, const QString &texte)
    {
        m_feuille.cellule(ligne, colonne).ecrire(texte);
    }
    void hauteur(int ligne, int centiemesMm) { m_feuille.hauteurLigne(ligne, centiemesMm); }

    void colonnes()
    {
        m_feuille.largeurColonne(COLONNE_LIBELLES, LARGEUR_LIBELLES);
        for (int colonne = COLONNE_PREMIERE_ANNEE; colonne <= DERNIERE_COLONNE; ++colonne)
            m_feuille.largeurColonne(colonne, LARGEUR_ANNEE);
        Plage tout =
            plage(1, COLONNE_LIBELLES, LIGNE_PREMIER_BLOC + LIGNES_BLOC + LIGNES_RESERVEES, DERNIERE_COLONNE);
        tout.taillePolice(CORPS);
        tout.alignementVertical(Alignement::Milieu);
        hauteur(1, 200);
        for (const int blanche : {3, 9, 11, 13})
            hauteur(blanche, 250);
    }

    void titre()
    {
        Plage bandeau = bande(LIGNE_TITRE);
        bandeau.fusionner();
        bandeau.renvoiALaLigne(true);
        bandeau.gras(true);
        bandeau.taillePolice(13);
        bandeau.couleurPolice(BLANC);
        bandeau.fondRvb(BLEU_NUIT);
        bandeau.alignementHorizontal(Alignement::Centre);
        hauteur(LIGNE_TITRE, 1500);
    }

    void identite()
    {
        const std::pair<int, const char *> libelles[] = {{LIGNE_BASSIN, "Bassin versant :"},
                                                         {LIGNE_CODE, "Code de la station :"},
                                                         {LIGNE_RIVIERE, "Rivière :"},
                                                         {LIGNE_STATION, "Station :"},
                                                         {LIGNE_PARAMETRE, "Paramètre :"}};
        for (const auto &[ligne, libelle] : libelles) {
            ecrire(ligne, COLONNE_LIBELLES, QString::fromUtf8(libelle));
            Plage cellules = plage(ligne, COLONNE_LIBELLES, ligne, COLONNE_IDENTITE - 1);
            cellules.fusionner();
            cellules.alignementHorizontal(Alignement::Droite);
            cellules.couleurPolice(GRIS_TEXTE);
            plage(ligne, COLONNE_IDENTITE, ligne, DERNIERE_COLONNE).fusionner();
            bande(ligne).bord(Bord::Bas, TraitBord::Continu, EpaisseurBord::Fin, GRIS_TRAIT);
            hauteur(ligne, HAUTEUR_IDENTITE);
        }
        Plage valeurs = plage(LIGNE_BASSIN, COLONNE_IDENTITE, LIGNE_PARAMETRE, DERNIERE_COLONNE);
        valeurs.gras(true);
        valeurs.renvoiALaLigne(true);
        valeurs.alignementHorizontal(Alignement::Gauche);
        // A station's code keeps its leading zeros.
        m_feuille.cellule(LIGNE_CODE, COLONNE_IDENTITE).formatNombre(QStringLiteral("@"));
    }

    void periode()
    {
        ecrire(LIGNE_PERIODE, COLONNE_LIBELLES, QStringLiteral("Période étudiée, du"));
        Plage libelle = m_feuille.cellule(LIGNE_PERIODE, COLONNE_LIBELLES);
        libelle.alignementHorizontal(Alignement::Droite);
        libelle.couleurPolice(GRIS_TEXTE);
        Plage dates = plage(LIGNE_PERIODE, COLONNE_DEBUT, LIGNE_PERIODE, COLONNE_FIN);
        dates.alignementHorizontal(Alignement::Centre);
        dates.taillePolice(10);
        dates.formatNombre(QStringLiteral("dd/mm/yyyy"));
        for (const int colonne : {COLONNE_DEBUT, COLONNE_FIN})
            m_feuille.cellule(LIGNE_PERIODE, colonne).gras(true);
        hauteur(LIGNE_PERIODE, HAUTEUR_IDENTITE);
    }

    void sources()
    {
        Plage note = bande(LIGNE_SOURCES);
        note.fusionner();
        note.renvoiALaLigne(true);
        note.italique(true);
        note.couleurPolice(GRIS_TEXTE);
        hauteur(LIGNE_SOURCES, HAUTEUR_LIGNE);
    }

    void rubrique(int ligne, const QString &texte)
    {
        ecrire(ligne, COLONNE_LIBELLES, texte);
        Plage bandeau = bande(ligne);
        bandeau.gras(true);
        bandeau.taillePolice(12);
        bandeau.couleurPolice(BLEU_NUIT);
        bandeau.alignementVertical(Alignement::Bas);
        bandeau.bord(Bord::Bas, TraitBord::Continu, EpaisseurBord::Moyen);
        hauteur(ligne, 800);
    }

    void interannuel()
    {
        rubrique(LIGNE_TITRE_PERIODE, QStringLiteral("Statistiques interannuelles"));
        for (int ligne = LIGNE_INTITULES_PERIODE; ligne <= LIGNE_PERIODE_FIN; ++ligne) {
            plage(ligne, COLONNE_SUR_LA_BASE, ligne, COLONNE_SUR_LES_RETENUES - 1).fusionner();
            plage(ligne, COLONNE_SUR_LES_RETENUES, ligne, DERNIERE_COLONNE).fusionner();
            hauteur(ligne, HAUTEUR_LIGNE);
        }
        Plage intitules =
            plage(LIGNE_INTITULES_PERIODE, COLONNE_LIBELLES, LIGNE_INTITULES_PERIODE, DERNIERE_COLONNE);
        intitules.gras(true);
        intitules.fond(FOND_INTITULES);
        intitules.renvoiALaLigne(true);
        hauteur(LIGNE_INTITULES_PERIODE, HAUTEUR_LIGNE + 100);
        m_feuille.hauteurLignes(LIGNE_PERIODE_DEPASSEMENTS, DEPASSEMENTS_PERIODE, HAUTEUR_DEUX_LIGNES);
        plage(LIGNE_PERIODE_EFFECTIF, COLONNE_LIBELLES, LIGNE_PERIODE_FIN, COLONNE_LIBELLES)
            .renvoiALaLigne(true);
        plage(LIGNE_INTITULES_PERIODE, COLONNE_SUR_LA_BASE, LIGNE_PERIODE_FIN, DERNIERE_COLONNE)
            .alignementHorizontal(Alignement::Centre);
        // The column to read for the station itself.
        plage(LIGNE_PERIODE_EFFECTIF, COLONNE_SUR_LES_RETENUES, LIGNE_PERIODE_FIN, DERNIERE_COLONNE)
            .gras(true);
        // Rounded to two decimals they are shown with two, the extremes as they are.
        for (const auto &[premiere, derniere] : {std::pair(17, 17), std::pair(22, 25)})
            plage(premiere, COLONNE_SUR_LA_BASE, derniere, DERNIERE_COLONNE).formatNombre(DEUX_DECIMALES);
        encadrer(plage(LIGNE_INTITULES_PERIODE, COLONNE_LIBELLES, LIGNE_PERIODE_FIN, DERNIERE_COLONNE));

        ecrire(
            LIGNE_NOTE_PERIODE, COLONNE_LIBELLES,
            QStringLiteral(
                "« Sur les mesures retenues » décrit la station. « Sur l'effectif de la base » rapporte les mêmes "
                "mesures au nombre de tous les résultats de la base, comme dans les rapports précédents."));
        Plage note = bande(LIGNE_NOTE_PERIODE);
        note.fusionner();
        note.renvoiALaLigne(true);
        note.italique(true);
        note.taillePolice(8);
        note.couleurPolice(GRIS_TEXTE);
        hauteur(LIGNE_NOTE_PERIODE, 800);
    }

    // The colours of the last row of each block, with their names.
    void legende()
    {
        ecrire(LIGNE_LEGENDE, COLONNE_LIBELLES,
               QStringLiteral("Classes SEQ, de la meilleure qualité à la moins bonne :"));
        const std::pair<int, const char *> classes[] = {
            {34, "bleu"}, {35, "vert"}, {6, "jaune"}, {40, "orange"}, {3, "rouge"}};
        int colonne = COLONNE_PREMIERE_ANNEE;
        for (const auto &[couleur, nom] : classes) {
            ecrire(LIGNE_LEGENDE, colonne, QString::fromLatin1(nom));
            m_feuille.cellule(LIGNE_LEGENDE, colonne++).fond(couleur);
        }
        Plage bandeau = bande(LIGNE_LEGENDE);
        bandeau.taillePolice(8);
        m_feuille.cellule(LIGNE_LEGENDE, COLONNE_LIBELLES).alignementHorizontal(Alignement::Droite);
        plage(LIGNE_LEGENDE, COLONNE_PREMIERE_ANNEE, LIGNE_LEGENDE, DERNIERE_COLONNE)
            .alignementHorizontal(Alignement::Centre);
    }

    // The first block, for five years; the rows below are those that inserted ones take after.
    void annees()
    {
        rubrique(LIGNE_TITRE_ANNEES, QStringLiteral("Statistiques annuelles"));
        const int fin = LIGNE_PREMIER_BLOC + FIGURES_ANNEE;
        m_feuille.hauteurLignes(LIGNE_PREMIER_BLOC, LIGNES_BLOC + LIGNES_RESERVEES, HAUTEUR_LIGNE);
        m_feuille.hauteurLignes(LIGNE_PREMIER_BLOC + RANG_DEPASSEMENT_MOYEN, DEPASSEMENTS_ANNEE,
                                HAUTEUR_DEUX_LIGNES);
        plage(LIGNE_PREMIER_BLOC, COLONNE_LIBELLES, fin, COLONNE_LIBELLES).renvoiALaLigne(true);
        plage(LIGNE_PREMIER_BLOC, COLONNE_PREMIERE_ANNEE, fin, DERNIERE_COLONNE)
            .alignementHorizontal(Alignement::Centre);
        Plage intitules = bande(LIGNE_PREMIER_BLOC);
        intitules.gras(true);
        intitules.fond(FOND_INTITULES);
        for (const auto &[premier, dernier] :
             {std::pair(RANG_MOYENNE, RANG_MINIMUM), std::pair(RANG_MEDIANE, RANG_MOYENNE_PONDEREE)})
            plage(LIGNE_PREMIER_BLOC + premier, COLONNE_PREMIERE_ANNEE, LIGNE_PREMIER_BLOC + dernier,
                  DERNIERE_COLONNE)
                .formatNombre(DEUX_DECIMALES);
        encadrer(plage(LIGNE_PREMIER_BLOC, COLONNE_LIBELLES, fin, DERNIERE_COLONNE));
    }

    // A strong outline, thin lines inside.
    static void encadrer(Plage tableau)
    {
        for (const Bord bord : {Bord::Gauche, Bord::Haut, Bord::Bas, Bord::Droite})
            tableau.bord(bord, TraitBord::Continu, EpaisseurBord::Moyen);
        for (const Bord bord : {Bord::InterieurVertical, Bord::InterieurHorizontal})
            tableau.bord(bord, TraitBord::Continu, EpaisseurBord::Fin);
    }

    static MiseEnPage page()
    {
        MiseEnPage page;
        page.margeGauche = MARGE;
        page.margeDroite = MARGE;
        page.margeHaut = MARGE;
        page.margeBas = MARGE;
        page.piedGauche = QStringLiteral("Ovralis - Rapport statistique physico-chimique");
        page.piedDroite = QStringLiteral("Page &P / &N");
        return page;
    }

    Feuille m_feuille;
};
} // namespace

void Modele::rapport(Classeur &classeur)
{
    // The widths of columns are counted in digits of this font: one that is on Windows, and has its twin elsewhere.
    classeur.policeParDefaut(QStringLiteral("Arial"), 10);
    Feuille feuille = classeur.feuille(1);
    feuille.renommer(FEUILLE.toString());
    Dessin(feuille).dessiner();
}
