#include "analysis/EcritureFlux.h"

#include "analysis/ContenuFlux.h"
#include "analysis/DispositionFlux.h"
#include "analysis/GraphiqueFlux.h"
#include "workbook/Classeur.h"

using namespace DispositionFlux;

namespace
{
const QString FORMAT_JOUR = QStringLiteral("dd/mm/yy");
const QString FORMAT_GENERAL = QStringLiteral("General");

// A rectangle with its top left corner here; nothing where there is no row.
std::optional<Plage> ecrire(Feuille &feuille, int ligne, int colonne, const Valeurs &valeurs)
{
    if (valeurs.isEmpty())
        return std::nullopt;
    Plage plage = feuille.plage(ligne, colonne, ligne + static_cast<int>(valeurs.size()) - 1,
                                colonne + static_cast<int>(valeurs.first().size()) - 1);
    plage.ecrire(valeurs);
    return plage;
}

// Rows of which the first column holds dates and the others numbers.
void ecrireSuivi(Feuille &feuille, int ligne, int colonne, const Valeurs &valeurs)
{
    if (valeurs.isEmpty())
        return;
    const int derniere = ligne + static_cast<int>(valeurs.size()) - 1;
    const int fin = colonne + static_cast<int>(valeurs.first().size()) - 1;
    feuille.plage(ligne, colonne, derniere, colonne).formatNombre(FORMAT_JOUR);
    feuille.plage(ligne, colonne + 1, derniere, fin).formatNombre(FORMAT_GENERAL);
    ecrire(feuille, ligne, colonne, valeurs);
}

void ecrireMesures(Feuille &feuille, const ResultatFlux &resultat)
{
    ecrire(feuille, LIGNE_BASSIN, COLONNE_IDENTITE, ContenuFlux::identite(resultat.enTete));
    for (const FluxCalcule &flux : resultat.flux) {
        const GenreFlux genre = flux.demande.genre;
        ecrireSuivi(feuille, LIGNE_JOURS, colonneMesures(genre), ContenuFlux::mesures(flux));
        ecrireSuivi(feuille, LIGNE_JOURS, colonneJours(genre), ContenuFlux::jours(flux));
    }
}

// A number of the flux's column; where days lack a flow it says on how many it was reckoned.
QString formatFlux(const LigneFlux &ligne)
{
    const QString chiffres = QStringLiteral("0.00");
    if (!ligne.flux || !ligne.periode.debitIncomplet())
        return chiffres;
    return chiffres + QStringLiteral("\" (%1)\"").arg(ContenuFlux::etiquette(ligne.periode));
}

// The formats of the flux's column, a run of rows of one format at a time.
void formaterFlux(Feuille &feuille, const QList<LigneFlux> &lignes)
{
    for (int debut = 0; debut < lignes.size();) {
        const QString format = formatFlux(lignes[debut]);
        int fin = debut + 1;
        while (fin < lignes.size() && formatFlux(lignes[fin]) == format)
            ++fin;
        feuille.plage(LIGNE_FLUX + debut, COLONNE_FLUX, LIGNE_FLUX + fin - 1, COLONNE_FLUX)
            .formatNombre(format);
        debut = fin;
    }
}

void ecrireFeuilleFlux(Feuille &feuille, const FluxCalcule &flux)
{
    const Valeurs lignes = ContenuFlux::lignes(flux);
    if (flux.demande.genre != GenreFlux::Annuel && !lignes.isEmpty())
        feuille
            .plage(LIGNE_FLUX, COLONNE_DATE, LIGNE_FLUX + static_cast<int>(lignes.size()) - 1, COLONNE_DATE)
            .formatNombre(FORMAT_MOIS.toString());
    ecrire(feuille, LIGNE_ENTETE, COLONNE_DATE, {ContenuFlux::titresFlux(flux)});
    ecrire(feuille, LIGNE_FLUX, COLONNE_DATE, lignes);
    formaterFlux(feuille, flux.lignes);
}
} // namespace

void ecrireFlux(Classeur &classeur, const ResultatFlux &resultat, const std::function<void()> &parFeuille)
{
    Feuille mesures = classeur.feuille(FEUILLE_MESURES.toString());
    ecrireMesures(mesures, resultat);
    parFeuille();
    bool premiere = true;
    for (const GenreFlux genre : GENRES) {
        Feuille feuille = classeur.feuille(DispositionFlux::feuille(genre).toString());
        const auto flux = std::find_if(resultat.flux.begin(), resultat.flux.end(),
                                       [genre](const FluxCalcule &f) { return f.demande.genre == genre; });
        if (flux == resultat.flux.end()) {
            feuille.cacher(true);
            mesures.cacherColonnes(colonneMesures(genre), COLONNES_MESURES, true);
            mesures.cacherColonnes(colonneJours(genre), COLONNES_JOURS, true);
            continue;
        }
        ecrireFeuilleFlux(feuille, *flux);
        M_creer_graph::grapheFlux(feuille, *flux, resultat.enTete, resultat.parametre, resultat.mode);
        if (std::exchange(premiere, false))
            feuille.montrerDepuis(colonneGraphique(genre));
        parFeuille();
    }
}
