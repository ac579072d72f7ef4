#include "analysis/CommandeFlux.h"

#include "analysis/ContenuFlux.h"
#include "analysis/EcritureFlux.h"
#include "analysis/LectureFlux.h"
#include "database/DataEnvironment1.h"
#include "workbook/CoursRapport.h"

#include <QScopeGuard>

int M_Concentration_OVRA::EditerFlux(const DemandeFlux &demande, const DataEnvironment1 &donnees,
                                     Dialogue &dialogue, Classeur &classeur)
{
    Progression &barre = dialogue.progression(FenetreProgression::Principale);
    const auto cacher = qScopeGuard([&barre] { barre.cacher(); });
    barre.montrer({}, QStringLiteral("Calcul des flux"));
    // Each flux is reckoned, then its sheet is filled, after that of the measures.
    barre.maximum(2 * static_cast<int>(demande.flux.size()) + 1);
    int etape = 0;
    const auto avancer = [&] { barre.valeur(++etape); };

    ResultatFlux resultat;
    resultat.enTete = lireEnTeteFlux(donnees, demande.codeStation, demande.codeDebit);
    resultat.parametre = demande.parametre;
    resultat.mode = demande.mode;
    int valeurs = 0;
    for (const FluxDemande &flux : demande.flux) {
        barre.libelle(ContenuFlux::statut(flux.genre));
        avancer();
        if (flux.specifique && !resultat.enTete.surfaceUtilisable())
            continue;
        resultat.flux << calculerFlux(
            flux, demande.mode, demande.codeParametre, resultat.enTete.surfaceKm2,
            lireConcentrationsFlux(donnees, demande, fenetreConcentrations(flux.bornes)),
            lireDebitsFlux(donnees, demande.codeDebit, flux.bornes));
        valeurs += resultat.flux.last().lignesAvecFlux();
    }
    if (valeurs > 0)
        ecrireFlux(classeur, resultat, avancer);
    return valeurs;
}

CommandeRapport M_Concentration_OVRA::commandeFlux(const DemandeFlux &demande,
                                                   const DataEnvironment1 &donnees, Dialogue &dialogue)
{
    CommandeRapport commande;
    commande.modele = QStringLiteral("Modele_flux.xls");
    commande.fin = FinRapport::Graphique;
    commande.avertissementVide = QStringLiteral(
        "Il n'y a aucune mesure physico-chimique ou hydrométrique à importer dans le graphique");
    commande.remplir = [demande, &donnees, &dialogue](Classeur &classeur) {
        return EditerFlux(demande, donnees, dialogue, classeur);
    };
    return commande;
}
