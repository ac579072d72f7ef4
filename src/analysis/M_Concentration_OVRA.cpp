#include "analysis/M_Concentration_OVRA.h"

#include "platform/Erreur.h"
#include "workbook/CoursRapport.h"

int M_Concentration_OVRA::EditerRapport(const DemandeRapport &, const DataEnvironment1 &, Dialogue &,
                                        Classeur &)
{
    throw Erreur(0, QStringLiteral("Le rapport n'est pas encore écrit."));
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
