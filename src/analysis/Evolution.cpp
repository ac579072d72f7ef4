#include "analysis/Evolution.h"

#include "analysis/TexteEvolution.h"

DescriptionGraphiqueEvolution decrireGraphique(const DemandeEvolution &demande, const Evolution &evolution)
{
    DescriptionGraphiqueEvolution description;
    description.lignes = static_cast<int>(evolution.lignes.size());
    description.effectifs = evolution.effectifs;
    description.deuxCourbes = !evolution.seule();
    description.debit = evolution.avecDebit;
    description.pluie = evolution.avecPluie;
    description.seuil = Evolution::avecSeuil(demande);
    const QList<EnTeteRapport> &courbes = evolution.enTete.courbes;
    if (evolution.seule()) {
        description.objectifMoyen = demande.objectifMoyen.has_value();
        description.objectifMaximal = demande.objectifMaximal.has_value();
        description.bandes = evolution.bandes.has_value();
        if (evolution.bandes)
            std::transform(evolution.bandes->begin(), evolution.bandes->end(),
                           description.bandesVides.begin(), [](double hauteur) { return hauteur == 0; });
        description.quantile = demande.quantile && evolution.figures->quantile90.has_value();
        description.mediane = true;
        description.norme = evolution.enTete.norme.has_value();
        description.figures =
            TexteEvolution::figures(*evolution.figures, courbes[0].unite, demande, evolution.sources);
    }
    description.titre = TexteEvolution::titre(evolution.enTete, demande).split(u'\n');

    description.titreAxe = TexteEvolution::axe(courbes[0].unite);
    if (evolution.avecDebit)
        description.titreAxeSecondaire = TexteEvolution::axeDebit();
    else if (evolution.avecPluie)
        description.titreAxeSecondaire = TexteEvolution::axePluie();
    else if (!evolution.seule())
        description.titreAxeSecondaire = TexteEvolution::axe(courbes[1].unite);
    description.maximumSecondaire = evolution.maximumSecondaire;
    // An axis from 0 has no top below it.
    if (demande.echelleMaximale && *demande.echelleMaximale > 0)
        description.echelleMaximale = demande.echelleMaximale;
    for (const PointMarque &point : pointsMarques(evolution.lignes))
        description.points.append({point.courbe, point.ligne, point.code});
    return description;
}
