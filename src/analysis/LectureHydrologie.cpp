#include "analysis/LectureHydrologie.h"

#include "database/DataEnvironment1.h"
#include "platform/VersNombre.h"

namespace
{
using SerieHydrologie::Mesure;

QList<Mesure> lire(const DataEnvironment1 &donnees, const QString &sql, const QVariantList &parametres)
{
    QList<Mesure> mesures;
    Requete requete = donnees.executer(sql, parametres);
    while (requete.suivant())
        mesures << Mesure{requete.date(QStringLiteral("jour")), VersNombre(requete.valeur(1))};
    return mesures;
}

QString premier(const DataEnvironment1 &donnees, const QString &sql, const QString &code)
{
    Requete requete = donnees.executer(sql, {code});
    return requete.suivant() ? requete.texte(0) : QString();
}
} // namespace

QList<Mesure> LectureHydrologie::debits(const DataEnvironment1 &donnees, const DemandeHydrologie &demande)
{
    const QString colonne = demande.debit == GenreDebit::Mensuel ? QStringLiteral("DebitMoisMesureHM")
                                                                 : QStringLiteral("DebitJourMesureHM");
    return lire(donnees,
                QStringLiteral("SELECT DateMesureHM AS jour, %1 FROM MESURE_HYDRO WHERE DateMesureHM >= ? "
                               "AND DateMesureHM <= ? AND CodeStationHM = ? AND %1 IS NOT NULL "
                               "ORDER BY DateMesureHM, HeureMesureHM, NumMesureHM")
                    .arg(colonne),
                {demande.debut, demande.fin, demande.stationDebit});
}

QList<Mesure> LectureHydrologie::pluies(const DataEnvironment1 &donnees, const DemandeHydrologie &demande)
{
    return lire(donnees,
                QStringLiteral("SELECT DateMesurePM AS jour, JourMesurePM FROM MESURE_PLUVIO "
                               "WHERE DateMesurePM >= ? AND DateMesurePM <= ? AND CodeStationPM = ? "
                               "AND JourMesurePM IS NOT NULL ORDER BY DateMesurePM, NumMesurePM"),
                {demande.debut, demande.fin, demande.stationPluie});
}

QString LectureHydrologie::nomStationDebit(const DataEnvironment1 &donnees, const QString &code)
{
    return premier(
        donnees, QStringLiteral("SELECT IntituleStationHM FROM STATION_HYDRO WHERE CodeStationHM = ?"), code);
}

QString LectureHydrologie::nomStationPluie(const DataEnvironment1 &donnees, const QString &code)
{
    return premier(donnees,
                   QStringLiteral("SELECT IntituleStationPM FROM STATION_PLUVIO WHERE CodeStationPM = ?"),
                   code);
}

QPair<QDate, QDate> LectureHydrologie::etendue(const DataEnvironment1 &donnees, const QString &stationDebit,
                                               const QString &stationPluie)
{
    Requete requete = donnees.executer(
        QStringLiteral(
            "SELECT min(debut) AS debut, max(fin) AS fin FROM ("
            "SELECT min(DateMesureHM) AS debut, max(DateMesureHM) AS fin FROM MESURE_HYDRO "
            "WHERE CodeStationHM = ?1 UNION ALL "
            "SELECT min(DateMesurePM), max(DateMesurePM) FROM MESURE_PLUVIO WHERE CodeStationPM = ?2)"),
        {stationDebit, stationPluie});
    if (!requete.suivant())
        return {};
    return {requete.date(QStringLiteral("debut")), requete.date(QStringLiteral("fin"))};
}
