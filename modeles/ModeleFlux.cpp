#include "analysis/ContenuFlux.h"
#include "analysis/DispositionFlux.h"
#include "Modele.h"
#include "ModeleGraphique.h"
#include "workbook/AxeGraphique.h"
#include "workbook/Classeur.h"
#include "workbook/MiseEnPage.h"

using namespace DispositionFlux;

namespace
{
constexpr int BLANC = 0xFFFFFF;
constexpr int FOND_INTITULES = 34; // ColorIndex, as on the other charts' sheets

// Hundredths of a millimetre.
constexpr int MARGE = 1000;
constexpr int LARGEUR_DATE = 1900;
constexpr int LARGEUR_CHIFFRES = 3000;
constexpr int LARGEUR_OBSERVATION = 6200;
constexpr int LARGEUR_LIBELLES = 4300;
constexpr int LARGEUR_MESURES = 2600;
constexpr int LARGEUR_ECART = 600;
constexpr int HAUTEUR_TITRES = 1350;
constexpr int HAUTEUR_NOTE = 1000;

int couleurTexte()
{
    return Teinte::index(ModeleGraphique::COULEUR_TEXTE).rvb();
}

void intituler(Plage titres)
{
    titres.gras(true);
    titres.fond(FOND_INTITULES);
    titres.renvoiALaLigne(true);
    titres.alignementHorizontal(Alignement::Centre);
    titres.alignementVertical(Alignement::Milieu);
}

MiseEnPage page(const QString &pied)
{
    MiseEnPage page;
    page.paysage = true;
    page.margeGauche = MARGE;
    page.margeDroite = MARGE;
    page.margeHaut = MARGE;
    page.margeBas = MARGE;
    page.piedGauche = QStringLiteral("Ovralis - ") + pied;
    page.piedDroite = QStringLiteral("Page &P / &N");
    return page;
}

void dessinerMesures(Feuille &feuille)
{
    const std::pair<int, const char *> libelles[] = {{LIGNE_BASSIN, "Bassin versant :"},
                                                     {LIGNE_STATION, "Station de mesure :"},
                                                     {LIGNE_STATION_DEBIT, "Station hydrométrique :"},
                                                     {LIGNE_SURFACE, "Surface (km²) :"}};
    for (const auto &[ligne, libelle] : libelles) {
        Plage titre = feuille.cellule(ligne, COLONNE_LIBELLES);
        titre.ecrire(QString::fromUtf8(libelle));
        titre.couleurPolice(couleurTexte());
        Plage valeur = feuille.cellule(ligne, COLONNE_IDENTITE);
        valeur.gras(true);
        valeur.alignementHorizontal(Alignement::Gauche);
    }
    feuille.largeurColonne(COLONNE_LIBELLES, LARGEUR_LIBELLES);
    feuille.largeurColonne(COLONNE_IDENTITE, LARGEUR_MESURES);
    for (const GenreFlux genre : GENRES) {
        feuille.largeurColonne(colonneMesures(genre) + COLONNES_MESURES - 1, LARGEUR_ECART);
        const std::pair<int, QVector<QVariant>> blocs[] = {
            {colonneMesures(genre), ContenuFlux::titresMesures()},
            {colonneJours(genre), ContenuFlux::titresJours()}};
        for (const auto &[colonne, titres] : blocs) {
            const int derniere = colonne + static_cast<int>(titres.size()) - 1;
            Plage nom = feuille.plage(LIGNE_BLOCS, colonne, LIGNE_BLOCS, derniere);
            nom.fusionner();
            nom.ecrire(ContenuFlux::nomBloc(genre) + (colonne < colonneJours(GenreFlux::Mensuel)
                                                          ? QStringLiteral(" : prélèvements")
                                                          : QStringLiteral(" : jours")));
            nom.gras(true);
            nom.couleurPolice(BLANC);
            nom.fondRvb(couleurTexte());
            nom.renvoiALaLigne(true);
            nom.alignementHorizontal(Alignement::Centre);
            nom.alignementVertical(Alignement::Milieu);
            Plage intitules = feuille.plage(LIGNE_TITRES, colonne, LIGNE_TITRES, derniere);
            intitules.ecrire(Valeurs{titres});
            intituler(intitules);
            for (int c = colonne; c <= derniere; ++c)
                feuille.largeurColonne(c, LARGEUR_MESURES);
        }
    }
    feuille.hauteurLigne(LIGNE_BLOCS, HAUTEUR_TITRES);
    feuille.hauteurLigne(LIGNE_TITRES, HAUTEUR_TITRES);
    MiseEnPage mise = page(QStringLiteral("Flux, mesures journalières"));
    mise.premiereLigneRepetee = LIGNE_BLOCS;
    mise.derniereLigneRepetee = LIGNE_TITRES;
    feuille.mettreEnPage(mise);
}

void dessinerFlux(Feuille &feuille, GenreFlux genre)
{
    using namespace ModeleGraphique;
    const bool annuel = genre == GenreFlux::Annuel;
    const bool parVolume = genre == GenreFlux::ParVolume;
    const QString nom = ContenuFlux::nomBloc(genre);
    Description description;
    description.feuille = DispositionFlux::feuille(genre).toString();
    description.graphique = GRAPHIQUE.toString();
    description.texte = ZONE_NOTE.toString();
    description.ligneIntitules = LIGNE_ENTETE;
    description.colonneDates = COLONNE_DATE;
    description.derniereColonne = derniereColonne(genre);
    description.formatDates = annuel ? QStringLiteral("General") : FORMAT_MOIS.toString();
    description.largeurs = {LARGEUR_DATE, LARGEUR_CHIFFRES, LARGEUR_CHIFFRES, LARGEUR_OBSERVATION,
                            LARGEUR_CHIFFRES};
    description.hauteurIntitules = HAUTEUR_TITRES;
    description.hauteurTexte = HAUTEUR_NOTE;
    description.echelleDeTemps = !annuel;
    description.series = {courbe(COLONNE_FLUX, nom, COULEUR_COURBE_1)};
    if (parVolume) {
        Serie volumes =
            courbe(COLONNE_VOLUME, ContenuFlux::titreAxeVolume(), COULEUR_COURBE_2, Marqueur::Losange);
        volumes.groupeAxes = 2;
        description.series << volumes;
    }
    description.titreAxe = nom;
    description.titreAxeSecondaire = ContenuFlux::titreAxeVolume();
    description.pied = QStringLiteral("Ovralis - ") + nom;
    Graphique graphique = dessiner(feuille, description);
    graphique.titre(nom);
    graphique.relierLesTrous(false);
    if (parVolume)
        graphique.axe(TypeAxe::Valeur, 2).formatNombre(QStringLiteral("#,##0"));
    if (annuel)
        graphique.axe(TypeAxe::Categorie).orientation(0);
    // The first point may have a number format of its own.
    graphique.axe(TypeAxe::Valeur).formatNombre(QStringLiteral("General"));
    intituler(feuille.plage(LIGNE_ENTETE, COLONNE_DATE, LIGNE_ENTETE, description.derniereColonne));
}
} // namespace

void Modele::flux(Classeur &classeur)
{
    classeur.policeParDefaut(QStringLiteral("Arial"), 10);
    Feuille mesures = classeur.feuille(1);
    mesures.renommer(FEUILLE_MESURES.toString());
    dessinerMesures(mesures);
    for (const GenreFlux genre : GENRES) {
        Feuille feuille = classeur.ajouterFeuille(DispositionFlux::feuille(genre).toString());
        dessinerFlux(feuille, genre);
    }
    // The sheet that is always there: a sheet in front is not hidden.
    mesures.montrerDepuis(COLONNE_LIBELLES);
}
