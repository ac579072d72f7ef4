#include "analysis/LectureFlux.h"

#include "analysis/StatistiquesPC.h"
#include "database/DataEnvironment1.h"
#include "database/M_Sandrification.h"
#include "platform/VersNombre.h"

namespace
{
QString nomOuCode(const QString &nom, const QString &code)
{
    return nom.isEmpty() ? code : nom;
}

Etendue lireEtendue(Requete requete)
{
    if (!requete.suivant())
        return {};
    return {requete.date(QStringLiteral("Premier")), requete.date(QStringLiteral("Dernier"))};
}
} // namespace

EnTeteFlux lireEnTeteFlux(const DataEnvironment1 &donnees, const QString &codeStation,
                          const QString &codeDebit)
{
    EnTeteFlux enTete;
    Requete station = donnees.executer(
        QStringLiteral("SELECT NomStationM, NomBV FROM STATION_QUALITE "
                       "LEFT JOIN BASSIN_VERSANT ON BASSIN_VERSANT.NumBV = STATION_QUALITE.NumBV "
                       "WHERE CodeSandreStationM = ?"),
        {codeStation});
    enTete.station = codeStation;
    if (station.suivant()) {
        enTete.station = nomOuCode(station.texte(QStringLiteral("NomStationM")), codeStation);
        enTete.bassin = station.texte(QStringLiteral("NomBV"));
    }
    Requete debit = donnees.executer(
        QStringLiteral(
            "SELECT IntituleStationHM, SurfReelStationHM FROM STATION_HYDRO WHERE CodeStationHM = ?"),
        {codeDebit});
    enTete.stationDebit = codeDebit;
    if (debit.suivant()) {
        enTete.stationDebit = nomOuCode(debit.texte(QStringLiteral("IntituleStationHM")), codeDebit);
        if (!debit.estNul(QStringLiteral("SurfReelStationHM")))
            enTete.surfaceKm2 = VersNombre(debit.valeur(QStringLiteral("SurfReelStationHM")));
    }
    return enTete;
}

QList<ConcentrationDuJour> lireConcentrationsFlux(const DataEnvironment1 &donnees, const DemandeFlux &demande,
                                                  const BornesFlux &fenetre)
{
    // CROSS JOIN keeps the order of the tables: the station's samplings of the window first, then their results.
    QString sql = QStringLiteral("SELECT DatePrel, ResultatAnaPC, CodeSandreGest FROM PRELEVEMENT "
                                 "CROSS JOIN MESURE_PHYSICO ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel "
                                 "CROSS JOIN PARAMETRE ON PARAMETRE.CodeParam = MESURE_PHYSICO.CodeParam "
                                 "WHERE DatePrel >= ? AND DatePrel < ? AND CodeSandreStationM = ? "
                                 "AND MESURE_PHYSICO.CodeParam = ? AND CodeGroupeParam <> 'PS' "
                                 "AND ResultatAnaPC IS NOT NULL AND CodeRemarqueAnaPC IN ('1', '2')");
    QVariantList parametres{fenetre.debut, fenetre.fin, demande.codeStation, demande.codeParametre};
    if (!demande.protocole.isEmpty()) {
        sql += QStringLiteral(" AND Protocole = ?");
        parametres << QString::number(M_Sandrification::CodeProtocole(demande.protocole));
    }
    if (!demande.reseaux.isEmpty()) {
        // A result counts once, in however many of the networks its sampling is.
        const QStringList marques(demande.reseaux.size(), QStringLiteral("?"));
        sql += QStringLiteral(" AND EXISTS (SELECT 1 FROM PRELEVEMENTRSX "
                              "WHERE PRELEVEMENTRSX.NumPrel = PRELEVEMENT.NumPrel AND CodeReseau IN (%1))")
                   .arg(marques.join(QStringLiteral(", ")));
        for (const QString &reseau : demande.reseaux)
            parametres << reseau;
    }
    sql += QStringLiteral(" ORDER BY DatePrel, HeurePrel, NumAnaPC");

    const FiltresMesures filtres{demande.gestionnaires, {}};
    QList<ConcentrationDuJour> mesures;
    Requete r = donnees.executer(sql, parametres);
    while (r.suivant()) {
        EnregistrementPC enregistrement;
        enregistrement.gestionnaire = r.texte(QStringLiteral("CodeSandreGest"));
        if (filtres.accepte(enregistrement))
            mesures << ConcentrationDuJour{r.date(QStringLiteral("DatePrel")),
                                           VersNombre(r.valeur(QStringLiteral("ResultatAnaPC")))};
    }
    return mesures;
}

QList<DebitDuJour> lireDebitsFlux(const DataEnvironment1 &donnees, const QString &codeDebit,
                                  const BornesFlux &bornes)
{
    QList<DebitDuJour> debits;
    Requete r =
        donnees.executer(QStringLiteral("SELECT DateMesureHM, DebitJourMesureHM FROM MESURE_HYDRO "
                                        "WHERE CodeStationHM = ? AND DateMesureHM >= ? AND DateMesureHM < ? "
                                        "AND DebitJourMesureHM IS NOT NULL ORDER BY DateMesureHM"),
                         {codeDebit, bornes.debut, bornes.fin});
    while (r.suivant())
        debits << DebitDuJour{r.date(QStringLiteral("DateMesureHM")),
                              VersNombre(r.valeur(QStringLiteral("DebitJourMesureHM")))};
    return debits;
}

Etendue etendueConcentrations(const DataEnvironment1 &donnees, const QString &codeStation,
                              const QString &codeParametre)
{
    return lireEtendue(donnees.executer(
        QStringLiteral("SELECT min(DatePrel) AS Premier, max(DatePrel) AS Dernier FROM PRELEVEMENT "
                       "CROSS JOIN MESURE_PHYSICO ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel "
                       "WHERE CodeSandreStationM = ? AND CodeParam = ? "
                       "AND ResultatAnaPC IS NOT NULL AND CodeRemarqueAnaPC IN ('1', '2')"),
        {codeStation, codeParametre}));
}

Etendue etendueDebits(const DataEnvironment1 &donnees, const QString &codeDebit)
{
    return lireEtendue(donnees.executer(
        QStringLiteral("SELECT min(DateMesureHM) AS Premier, max(DateMesureHM) AS Dernier FROM MESURE_HYDRO "
                       "WHERE CodeStationHM = ? AND DebitJourMesureHM IS NOT NULL"),
        {codeDebit}));
}
