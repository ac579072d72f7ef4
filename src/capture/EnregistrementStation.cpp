#include "capture/EnregistrementStation.h"

#include "capture/FichesStations.h"
#include "database/DataEnvironment1.h"

namespace
{
// The point's coordinates always follow the station's.
void ecrireLocalisation(const DataEnvironment1 &donnees, const QString &station, const QString &site)
{
    QString point = M_Enreg_Tables::pointDeStation(donnees, station);
    if (point.isEmpty())
        point = site.trimmed().isEmpty() ? M_Enreg_Tables::POINT_PAR_DEFAUT.toString() : site.trimmed();
    if (!donnees.valeur(QStringLiteral("SELECT 1 FROM LOCALISATION WHERE CodeSandreStationM = ?"), {station})
             .isValid())
        donnees.executer(
            QStringLiteral(
                "INSERT INTO LOCALISATION (CodeSandreStationM, CdPoint, CoorXPoint_L2E, CoorYPoint_L2E, "
                "CoorXPoint_L93, CoorYPoint_L93, CdSupport) VALUES (?, ?, 0, 0, 0, 0, '3')"),
            {station, point});
    donnees.executer(
        QStringLiteral(
            "UPDATE LOCALISATION SET CdPoint = ?, (CoorXPoint_L2E, CoorYPoint_L2E, CoorXPoint_L93, "
            "CoorYPoint_L93) = (SELECT CoorXStationM, CoorYStationM, CoorXStationM_L93, "
            "CoorYStationM_L93 FROM STATION_QUALITE WHERE CodeSandreStationM = ?) "
            "WHERE CodeSandreStationM = ?"),
        {point, station, station});
}
} // namespace

QString M_Enreg_Tables::pointDeStation(const DataEnvironment1 &donnees, const QString &station)
{
    return donnees
        .valeur(
            QStringLiteral("SELECT CdPoint FROM LOCALISATION WHERE CodeSandreStationM = ? ORDER BY rowid"),
            {station})
        .toString();
}

Enregistrement M_Enreg_Tables::stationQualite(const SaisieStation &saisie)
{
    const DescriptionFiche fiche = Fiches::stationQualite();
    Enregistrement e = ligne(fiche, saisie.valeurs);
    // An empty hydrographic code is null, as the coordinates beside it; the basin is written only when there is one.
    for (Enregistrement::Colonne &colonne : e.colonnes) {
        if (colonne.nom == QLatin1String("CodeHydrog") && colonne.valeur.toString().isEmpty())
            colonne.valeur = QVariant();
    }
    e.colonnes.removeIf([](const Enregistrement::Colonne &colonne) {
        return colonne.nom == QLatin1String("NumBV") && colonne.valeur.isNull();
    });
    const QString station = e.cle;
    e.dependants = [fiche, saisie, station](const DataEnvironment1 &donnees, qint64 rang) {
        recrireLiens(donnees, fiche, rang, saisie.liens);
        ecrireLocalisation(donnees, station, saisie.site);
    };
    return e;
}
