#include "analysis/EvolutionPC.h"

#include "analysis/DispositionEvolution.h"
#include "analysis/DispositionSynthese.h"
#include "analysis/EcritureEvolution.h"
#include "analysis/EcritureSynthese.h"
#include "analysis/LectureEvolution.h"
#include "analysis/M_Concentration_OVRA.h"
#include "analysis/TexteEvolution.h"
#include "database/DataEnvironment1.h"
#include "workbook/CoursRapport.h"

#include <QScopeGuard>

using M_Concentration_OVRA::RappelFraction;

namespace
{
QString aucuneMesure()
{
    return QStringLiteral("Il n'y a aucune mesure physico-chimique à importer dans le graphique");
}

void avertir(Dialogue &dialogue, const QString &texte, const QString &titre)
{
    dialogue.message(texte, titre, Icone::Exclamation);
}

bool carboneSansFraction(const EnTeteEvolution &enTete)
{
    return std::any_of(enTete.courbes.cbegin(), enTete.courbes.cend(), [](const EnTeteRapport &courbe) {
        return courbe.codeParametre == M_Concentration_OVRA::CARBONE_ORGANIQUE &&
               courbe.codeFraction.isEmpty();
    });
}

double maximumDe(const QList<MesureTracee> &mesures)
{
    double maximum = 0;
    for (const MesureTracee &mesure : mesures)
        maximum = std::max(maximum, mesure.valeur);
    return maximum;
}

// Everything that the chart shows; rows are merged only where there is a measure.
Evolution composer(const DemandeEvolution &demande, const DataEnvironment1 &donnees,
                   const EnTeteEvolution &enTete, Progression &avancement)
{
    const FiltresMesures filtres{demande.selection.gestionnaires, demande.selection.commentaires};
    const auto enregistrement = [&avancement] { avancement.valeur(0); };
    Evolution evolution;
    evolution.enTete = enTete;
    SeriesEvolution series;
    QStringList producteurs;

    avancement.libelle(QStringLiteral("Recherche des mesures physico-chimiques"));
    for (int courbe = 0; courbe < enTete.courbes.size(); ++courbe) {
        const QList<EnregistrementPC> lus =
            lireCourbe(donnees, demande, enTete.courbes[courbe], courbe, enregistrement);
        const auto rang = static_cast<size_t>(courbe);
        series.courbes[rang] = mesuresTracees(lus, filtres);
        evolution.effectifs[rang] = static_cast<int>(series.courbes[rang].size());
        for (const QString &producteur : producteursTraces(lus, filtres))
            if (!producteurs.contains(producteur))
                producteurs << producteur;
    }
    if (evolution.mesures() == 0)
        return evolution;
    evolution.sources = lireNomsGestionnaires(donnees, producteurs);

    if (!demande.selection.stationDebit.isEmpty()) {
        avancement.libelle(QStringLiteral("Recherche des mesures hydrométriques"));
        series.debits = lireDebits(donnees, demande, enregistrement);
    }
    if (!demande.stationPluie.isEmpty()) {
        avancement.libelle(QStringLiteral("Recherche des mesures pluviométriques"));
        series.pluies = lirePluies(donnees, demande, enregistrement);
    }
    evolution.avecDebit = !series.debits.isEmpty();
    evolution.avecPluie = !series.pluies.isEmpty();

    for (const ValeurDuJour &jour : series.debits + series.pluies)
        evolution.maximumSecondaire = std::max(evolution.maximumSecondaire, jour.valeur);

    avancement.libelle(QStringLiteral("Gestion des codes remarques"));
    evolution.lignes = fusionnerParDate(series);
    evolution.maximum = maximumDe(series.courbes[0]);
    // Flow or rain leave the second axis to itself: both curves then stand on the first one.
    if (evolution.avecDebit || evolution.avecPluie)
        evolution.maximum = std::max(evolution.maximum, maximumDe(series.courbes[1]));
    if (evolution.seule()) {
        evolution.figures =
            calculerEvolution(series.courbes[0], demande.objectifMoyen, demande.objectifMaximal);
        if (enTete.grille)
            evolution.bandes = hauteursDesBandes(*enTete.grille);
    }
    return evolution;
}

// All that wants no workbook.
struct Preparation {
    Evolution evolution;
    QVector<BlocPlace> mesures;
};

Preparation preparer(const DemandeEvolution &demande, const DataEnvironment1 &donnees, Dialogue &dialogue)
{
    Progression &avancement = dialogue.progression(FenetreProgression::Principale);
    avancement.montrer({}, QStringLiteral("Création du graphique sous Excel"));
    avancement.maximum(0);
    auto echec = qScopeGuard([&avancement] { avancement.cacher(); });

    Preparation prete;
    prete.evolution = composer(demande, donnees, lireEnTeteEvolution(donnees, demande), avancement);
    prete.mesures = preparerMesures(prete.evolution);
    echec.dismiss();
    return prete;
}

// Fills the sheet, wires the chart and clears the progress that was shown; false where there is no measure.
bool tracer(const DemandeEvolution &demande, const Preparation &prete, Dialogue &dialogue, Classeur &classeur,
            RappelFraction rappel)
{
    const Evolution &evolution = prete.evolution;
    Progression &avancement = dialogue.progression(FenetreProgression::Principale);
    const auto fin = qScopeGuard([&avancement] { avancement.cacher(); });

    if (rappel == RappelFraction::Oui && carboneSansFraction(evolution.enTete))
        avertir(
            dialogue,
            QStringLiteral("Vous n'avez pas sélectionné de fraction pour le paramètre Carbone Organique."),
            QStringLiteral("Attention !"));
    if (evolution.mesures() == 0)
        return false;

    classeur.figerHauteurs();
    Feuille feuille = classeur.feuille(DispositionEvolution::FEUILLE.toString());
    ecrireEvolution(feuille, demande, evolution, prete.mesures);
    if (demande.echelleMaximale && evolution.maximum > *demande.echelleMaximale)
        avertir(dialogue, TexteEvolution::echelleTropPetite(evolution.maximum),
                QStringLiteral("Attention !"));
    avancement.libelle(QStringLiteral("Création du graphique"));
    cablerGraphiqueEvolution(feuille, decrireGraphique(demande, evolution));
    return true;
}

// The report's request: that of the chart's only curve.
DemandeRapport demandeRapport(const DemandeEvolution &demande)
{
    DemandeRapport rapport = demande.selection;
    rapport.parametre = demande.courbes[0].parametre;
    rapport.fraction = demande.courbes[0].fraction;
    return rapport;
}
} // namespace

int M_Concentration_OVRA::TracerEvolution(const DemandeEvolution &demande, const DataEnvironment1 &donnees,
                                          Dialogue &dialogue, Classeur &classeur, RappelFraction rappel)
{
    const Preparation prete = preparer(demande, donnees, dialogue);
    tracer(demande, prete, dialogue, classeur, rappel);
    return prete.evolution.mesures();
}

CommandeRapport M_Concentration_OVRA::commandeGraphique(const DemandeEvolution &demande,
                                                        const DataEnvironment1 &donnees, Dialogue &dialogue)
{
    CommandeRapport commande;
    commande.modele = QStringLiteral("Modele_concentr.xls");
    commande.fin = FinRapport::Graphique;
    commande.avertissementVide = aucuneMesure();
    const auto prete = std::make_shared<Preparation>();
    commande.preparer = [demande, prete, &donnees, &dialogue] {
        *prete = preparer(demande, donnees, dialogue);
    };
    commande.remplir = [demande, prete, &dialogue](Classeur &classeur) {
        tracer(demande, *prete, dialogue, classeur, RappelFraction::Oui);
        return prete->evolution.mesures();
    };
    return commande;
}

CommandeRapport M_Concentration_OVRA::commandeGraphiqueEtRapport(const DemandeEvolution &demande,
                                                                 const DataEnvironment1 &donnees,
                                                                 Dialogue &dialogue)
{
    CommandeRapport commande;
    commande.modele = QStringLiteral("Concentr_Rapport.xls");
    commande.fin = FinRapport::Rapport;
    // Which of the two was empty is told as soon as it is known.
    commande.remplir = [demande, &donnees, &dialogue](Classeur &classeur) {
        if (EditerRapport(demandeRapport(demande), donnees, dialogue, classeur) == 0) {
            avertir(dialogue, commandeRapport(demandeRapport(demande), donnees, dialogue).avertissementVide,
                    QStringLiteral("Attention"));
            return 0;
        }
        const Preparation prete = preparer(demande, donnees, dialogue);
        // The report reaches further back than the chart where its first year is widened.
        if (!tracer(demande, prete, dialogue, classeur, RappelFraction::DejaFait)) {
            avertir(dialogue, aucuneMesure(), QStringLiteral("Attention"));
            return 0;
        }
        Feuille synthese = classeur.feuille(DispositionSynthese::FEUILLE.toString());
        ecrireSynthese(synthese, demande, prete.evolution);
        return prete.evolution.mesures();
    };
    return commande;
}
