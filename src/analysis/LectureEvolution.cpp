#include "analysis/LectureEvolution.h"

#include "analysis/M_Concentration_OVRA.h"
#include "analysis/ReperesParametre.h"
#include "database/DataEnvironment1.h"
#include "platform/VersNombre.h"

namespace
{
constexpr QStringView UNITE_NON_DEFINIE_SECONDE = u"non défini";

DemandeRapport selectionDeLaCourbe(const DemandeEvolution &demande, qsizetype courbe)
{
    DemandeRapport selection = demande.selection;
    selection.parametre = demande.courbes[courbe].parametre;
    selection.fraction = demande.courbes[courbe].fraction;
    selection.stationDebit.clear(); // the flows of a chart are those of all days, read apart
    return selection;
}

// The grid of organic carbon is that of one fraction, which is to be told.
bool grilleValable(const EnTeteRapport &enTete)
{
    return enTete.codeParametre != M_Concentration_OVRA::CARBONE_ORGANIQUE ||
           enTete.codeFraction == M_Concentration_OVRA::FRACTION_DE_LA_GRILLE;
}

std::optional<BornesSEQ> lireBornes(const DataEnvironment1 &donnees, const QString &codeParametre)
{
    Requete grille = donnees.executer(
        QStringLiteral("SELECT Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur3BisSEQ, Valeur4SEQ, "
                       "Valeur4BisSEQ FROM GRILLE_SEQ WHERE CodeParam = ?"),
        {codeParametre});
    if (!grille.suivant())
        return std::nullopt;
    const auto borne = [&grille](int colonne) { return VersNombre(grille.valeur(colonne)); };
    return BornesSEQ{borne(0), borne(1), borne(2), borne(3), borne(4), borne(5)};
}

StationLiee lireStationLiee(const DataEnvironment1 &donnees, const QString &sql, const QString &code)
{
    StationLiee station{code, code};
    if (code.isEmpty())
        return station;
    Requete requete = donnees.executer(sql, {code});
    if (requete.suivant() && !requete.texte(0).isEmpty())
        station.nom = requete.texte(0);
    return station;
}

QList<ValeurDuJour> lireJours(const DataEnvironment1 &donnees, const QString &sql, const QString &station,
                              const DemandeRapport &selection, const std::function<void()> &parEnregistrement)
{
    QList<ValeurDuJour> jours;
    if (station.isEmpty())
        return jours;
    Requete requete = donnees.executer(sql, {station, selection.debut, selection.fin});
    const QString date = QStringLiteral("Jour");
    while (requete.suivant()) {
        jours.append({requete.date(date), VersNombre(requete.valeur(1))});
        parEnregistrement();
    }
    return jours;
}
} // namespace

EnTeteEvolution lireEnTeteEvolution(const DataEnvironment1 &donnees, const DemandeEvolution &demande)
{
    EnTeteEvolution enTete;
    for (qsizetype courbe = 0; courbe < demande.courbes.size(); ++courbe)
        enTete.courbes << lireEnTete(donnees, selectionDeLaCourbe(demande, courbe));
    if (enTete.courbes.size() > 1 && enTete.courbes[1].unite == UNITE_NON_DEFINIE)
        enTete.courbes[1].unite = UNITE_NON_DEFINIE_SECONDE.toString();

    if (enTete.courbes.size() == 1) {
        const EnTeteRapport &seule = enTete.courbes[0];
        if (demande.fondSEQ && grilleValable(seule))
            enTete.grille = lireBornes(donnees, seule.codeParametre);
        if (demande.norme)
            enTete.norme =
                lireReperes(donnees, demande.selection.codeStation, seule.codeParametre, seule.codeFraction)
                    .norme;
    }
    enTete.debit = lireStationLiee(
        donnees, QStringLiteral("SELECT IntituleStationHM FROM STATION_HYDRO WHERE CodeStationHM = ?"),
        demande.selection.stationDebit);
    enTete.pluie = lireStationLiee(
        donnees, QStringLiteral("SELECT IntituleStationPM FROM STATION_PLUVIO WHERE CodeStationPM = ?"),
        demande.stationPluie);
    return enTete;
}

QList<EnregistrementPC> lireCourbe(const DataEnvironment1 &donnees, const DemandeEvolution &demande,
                                   const EnTeteRapport &enTete, qsizetype courbe,
                                   const std::function<void()> &parEnregistrement)
{
    const DemandeRapport selection = selectionDeLaCourbe(demande, courbe);
    LecteurMesuresPC lecteur(donnees, selection, enTete);
    return lecteur.lire({selection.debut, selection.fin, {}}, parEnregistrement).enregistrements;
}

QList<ValeurDuJour> lireDebits(const DataEnvironment1 &donnees, const DemandeEvolution &demande,
                               const std::function<void()> &parEnregistrement)
{
    return lireJours(donnees,
                     QStringLiteral("SELECT DateMesureHM AS Jour, DebitJourMesureHM FROM MESURE_HYDRO "
                                    "WHERE CodeStationHM = ? AND DateMesureHM >= ? AND DateMesureHM <= ? "
                                    "AND DebitJourMesureHM IS NOT NULL ORDER BY DateMesureHM"),
                     demande.selection.stationDebit, demande.selection, parEnregistrement);
}

QList<ValeurDuJour> lirePluies(const DataEnvironment1 &donnees, const DemandeEvolution &demande,
                               const std::function<void()> &parEnregistrement)
{
    return lireJours(donnees,
                     QStringLiteral("SELECT DateMesurePM AS Jour, JourMesurePM FROM MESURE_PLUVIO "
                                    "WHERE CodeStationPM = ? AND DateMesurePM >= ? AND DateMesurePM <= ? "
                                    "AND JourMesurePM IS NOT NULL ORDER BY DateMesurePM"),
                     demande.stationPluie, demande.selection, parEnregistrement);
}
