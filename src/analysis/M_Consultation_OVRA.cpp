#include "analysis/M_Consultation_OVRA.h"

#include "analysis/DispositionHydrologie.h"
#include "analysis/GraphiqueHydrologie.h"
#include "analysis/LectureHydrologie.h"
#include "analysis/TexteHydrologie.h"
#include "database/DataEnvironment1.h"
#include "database/M_Referentiels.h"
#include "workbook/CoursRapport.h"

#include <QScopeGuard>

using SerieHydrologie::Mesure;

namespace
{
void direAbsence(Dialogue &dialogue, const QString &texte)
{
    dialogue.message(texte, QStringLiteral("Attention"), Icone::Exclamation);
}

// The rain follows the flows that are there: by month beside monthly ones, else by day.
QList<SerieHydrologie::Ligne> disposer(GenreDebit genre, QList<Mesure> debits, QList<Mesure> pluies)
{
    const bool parMois = genre == GenreDebit::Mensuel;
    if (parMois) {
        debits = SerieHydrologie::auPremierDuMois(debits);
        pluies = SerieHydrologie::sommesMensuelles(pluies);
    }
    return SerieHydrologie::avecInterruptions(SerieHydrologie::fusionner(debits, pluies),
                                              parMois ? SerieHydrologie::Pas::Mois
                                                      : SerieHydrologie::Pas::Jour);
}
} // namespace

int M_Consultation_OVRA::TracerGraphique(const DemandeHydrologie &demande, const DataEnvironment1 &donnees,
                                         Dialogue &dialogue, Classeur &classeur)
{
    enum Etape { LECTURE_DEBITS, LECTURE_PLUIES, TRACE, FIN };
    Progression &barre = dialogue.progression(FenetreProgression::Principale);
    const auto cacher = qScopeGuard([&barre] { barre.cacher(); });
    const bool debit = demande.debit != GenreDebit::Aucun;
    barre.montrer({}, debit ? QStringLiteral("Recherche des mesures hydrométriques")
                            : QStringLiteral("Recherche des mesures pluviométriques"));
    barre.maximum(FIN);
    barre.valeur(LECTURE_DEBITS);

    QList<Mesure> debits;
    QList<Mesure> pluies;
    if (debit) {
        debits = LectureHydrologie::debits(donnees, demande);
        if (debits.isEmpty())
            direAbsence(dialogue,
                        QStringLiteral("Il n'y a aucune mesure hydrométrique à importer dans le graphique"));
    }
    barre.valeur(LECTURE_PLUIES);
    if (demande.pluie) {
        barre.libelle(QStringLiteral("Recherche des mesures pluviométriques"));
        pluies = LectureHydrologie::pluies(donnees, demande);
        if (pluies.isEmpty())
            direAbsence(dialogue,
                        QStringLiteral("Il n'y a aucune mesure pluviométrique à importer dans le graphique"));
    }
    const auto mesures = static_cast<int>(debits.size() + pluies.size());
    if (mesures == 0)
        return 0;

    barre.valeur(TRACE);
    ContenuHydrologie contenu;
    contenu.debit = debits.isEmpty() ? GenreDebit::Aucun : demande.debit;
    contenu.pluie = !pluies.isEmpty();
    contenu.stationDebit = demande.stationDebit;
    contenu.stationPluie = demande.stationPluie;
    contenu.bassin = M_Referentiels::BassinReference(donnees);
    contenu.titre = TexteHydrologie::titre(
        demande,
        {contenu.bassin, LectureHydrologie::nomStationDebit(donnees, demande.stationDebit),
         LectureHydrologie::nomStationPluie(donnees, demande.stationPluie)},
        !debits.isEmpty(), contenu.pluie);
    contenu.lignes = disposer(contenu.debit, debits, pluies);
    Feuille feuille = classeur.feuille(DispositionHydrologie::FEUILLE.toString());
    const auto etape = [&dialogue] { dialogue.ceder(); };
    if (debit)
        tracerDebits(feuille, contenu, etape);
    else
        tracerPluie(feuille, contenu, etape);
    barre.valeur(FIN);
    return mesures;
}

CommandeRapport M_Consultation_OVRA::commandeGraphique(const DemandeHydrologie &demande,
                                                       const DataEnvironment1 &donnees, Dialogue &dialogue)
{
    CommandeRapport commande;
    commande.modele = demande.debit == GenreDebit::Aucun ? QStringLiteral("Modele_concentr_pluvio.xls")
                                                         : QStringLiteral("Modele_concentr_hydro.xls");
    commande.fin = FinRapport::Graphique;
    commande.avertissementVide = QStringLiteral("Il n'y a aucune donnée pour la période choisie. ");
    commande.remplir = [demande, &donnees, &dialogue](Classeur &classeur) {
        return TracerGraphique(demande, donnees, dialogue, classeur);
    };
    return commande;
}
