// The templates of the graphs of flows and rainfall, on the columns of DispositionHydrologie.h.
#include "analysis/DispositionHydrologie.h"
#include "analysis/TexteHydrologie.h"
#include "Modele.h"
#include "ModeleGraphique.h"
#include "workbook/AxeGraphique.h"
#include "workbook/Classeur.h"
#include "workbook/SerieGraphique.h"

using namespace DispositionHydrologie;

namespace
{
ModeleGraphique::Description description()
{
    ModeleGraphique::Description commune;
    commune.feuille = FEUILLE.toString();
    commune.graphique = GRAPHIQUE.toString();
    commune.texte = TEXTE.toString();
    commune.ligneIntitules = LIGNE_INTITULES;
    commune.derniereColonne = DERNIERE_COLONNE;
    commune.hauteurTexte = 1'900; // four lines
    commune.formatDates = FORMAT_JOURS.toString();
    return commune;
}

void dessiner(Classeur &classeur, const ModeleGraphique::Description &description)
{
    classeur.policeParDefaut(QStringLiteral("Arial"), 9);
    Feuille feuille = classeur.feuille(1);
    Graphique graphique = ModeleGraphique::dessiner(feuille, description);
    // A day without a measure is a gap in the line.
    graphique.relierLesTrous(false);
    AxeGraphique dates = graphique.axe(TypeAxe::Categorie);
    dates.formatNombre(FORMAT_JOURS.toString());
    dates.entreCategories(true);
    // Codes of stations keep their leading zeros.
    for (const int colonne : {COLONNE_DATE, COLONNE_PLUIE})
        feuille.cellule(LIGNE_STATION, colonne).formatNombre(QStringLiteral("@"));
}
} // namespace

void Modele::debits(Classeur &classeur)
{
    using namespace ModeleGraphique;
    Description modele = description();
    modele.entetes = {{LIGNE_STATION - 1, COLONNE_DATE, QStringLiteral("Station")},
                      {LIGNE_STATION - 1, COLONNE_DEBIT, QStringLiteral("Bassin versant")},
                      {LIGNE_STATION - 1, COLONNE_PLUIE, QStringLiteral("Pluie")}};
    modele.series = {
        courbe(COLONNE_DEBIT, TexteHydrologie::nomDebit(GenreDebit::Journalier), COULEUR_COURBE_1),
        colonnes(COLONNE_PLUIE, TexteHydrologie::nomPluie(false), COULEUR_PLUIE, 2, TypeSerie::Histogramme)};
    modele.titreAxe = TexteHydrologie::titreAxeDebit();
    modele.titreAxeSecondaire = TexteHydrologie::titreAxePluie();
    modele.pied = QStringLiteral("Ovralis - Débits et pluies");
    dessiner(classeur, modele);
}

void Modele::pluies(Classeur &classeur)
{
    using namespace ModeleGraphique;
    Description modele = description();
    modele.derniereColonne = COLONNE_DEBIT;
    modele.entetes = {{LIGNE_STATION - 1, COLONNE_DATE, QStringLiteral("Station")},
                      {LIGNE_STATION - 1, COLONNE_DEBIT, QStringLiteral("Bassin versant")}};
    modele.series = {
        colonnes(COLONNE_DEBIT, TexteHydrologie::nomPluie(false), COULEUR_PLUIE, 1, TypeSerie::Histogramme)};
    modele.titreAxe = TexteHydrologie::titreAxePluie();
    modele.pied = QStringLiteral("Ovralis - Pluies");
    dessiner(classeur, modele);
}
