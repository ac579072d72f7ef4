#include "analysis/GraphiqueFlux.h"

#include "analysis/ContenuFlux.h"
#include "analysis/DispositionFlux.h"
#include "workbook/AxeGraphique.h"
#include "workbook/BoiteTexte.h"
#include "workbook/Feuille.h"
#include "workbook/SerieGraphique.h"

using namespace DispositionFlux;

namespace
{
void relier(SerieGraphique serie, const Feuille &feuille, int colonne, int lignes)
{
    const int derniere = LIGNE_FLUX + lignes - 1;
    serie.valeurs(feuille.plage(LIGNE_FLUX, colonne, derniere, colonne));
    serie.abscisses(feuille.plage(LIGNE_FLUX, COLONNE_DATE, derniere, COLONNE_DATE));
    serie.nommer(feuille.cellule(LIGNE_ENTETE, colonne));
    if (lignes > POINTS_MARQUES)
        serie.marqueur({Marqueur::Aucun});
}
// A point below its neighbours: the line passes above it.
bool enCreux(const QList<LigneFlux> &lignes, int rang)
{
    double somme = 0;
    int voisins = 0;
    for (const int voisin : {rang - 1, rang + 1}) {
        if (voisin < 0 || voisin >= lignes.size() || !lignes[voisin].flux)
            continue;
        somme += *lignes[voisin].flux;
        ++voisins;
    }
    return voisins > 0 && *lignes[rang].flux < somme / voisins;
}

// Labels stand on the side of their point that the line leaves free.
void etiqueter(SerieGraphique &serie, const FluxCalcule &flux)
{
    QVector<QPair<int, QString>> dessus;
    QVector<QPair<int, QString>> dessous;
    const QVector<QPair<int, QString>> toutes = ContenuFlux::etiquettes(flux);
    for (const auto &etiquette : toutes)
        (enCreux(flux.lignes, etiquette.first - 1) ? dessous : dessus) << etiquette;
    AspectEtiquette aspect;
    aspect.taillePolice = TAILLE_ETIQUETTES;
    aspect.place = PlaceEtiquette::DessusDuPoint;
    serie.etiquettes(dessus, aspect);
    aspect.place = PlaceEtiquette::DessousDuPoint;
    serie.etiquettes(dessous, aspect);
}
} // namespace

void M_creer_graph::grapheFlux(const Feuille &feuille, const FluxCalcule &flux, const EnTeteFlux &enTete,
                               const QString &parametre, ModeAnnee mode)
{
    const auto lignes = static_cast<int>(flux.lignes.size());
    if (lignes == 0)
        return;
    Graphique graphique = feuille.graphique(GRAPHIQUE.toString());
    graphique.titre(ContenuFlux::titre(flux.demande, enTete, parametre));
    SerieGraphique serie = graphique.serie(SERIE_FLUX);
    relier(serie, feuille, COLONNE_FLUX, lignes);
    if (flux.demande.genre == GenreFlux::ParVolume)
        relier(graphique.serie(SERIE_VOLUME), feuille, COLONNE_VOLUME, lignes);
    if (flux.demande.genre != GenreFlux::Annuel)
        graphique.axe(TypeAxe::Categorie).formatNombre(FORMAT_MOIS.toString());
    etiqueter(serie, flux);
    graphique.axe(TypeAxe::Valeur).titre(ContenuFlux::titreAxe(flux));
    feuille.zoneTexte(ZONE_NOTE.toString()).ecrire(ContenuFlux::note(flux, mode));
}
