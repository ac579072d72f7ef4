// Whether a record is there already.
#pragma once

#include <QDate>
#include <QString>

class DataEnvironment1;

namespace M_Element_Existant_OVRA
{
// What the measure searches return when there is no such record.
inline constexpr qint64 ABSENT = -1;

// Reference rows, by their code; false for an empty one.
bool ParametreExiste(const DataEnvironment1 &donnees, const QString &code);
bool StationExiste(const DataEnvironment1 &donnees, const QString &code);
bool IntervenantExiste(const DataEnvironment1 &donnees, const QString &code);
bool ReseauExiste(const DataEnvironment1 &donnees, const QString &code);
// By number: "1004" finds "01004".
bool CommuneExiste(const DataEnvironment1 &donnees, const QString &numero);
bool PointExiste(const DataEnvironment1 &donnees, const QString &station, const QString &point);
// Whether a sampling belongs to a network; false without a network or with a number below 1.
bool ReseauPrelevementExiste(const DataEnvironment1 &donnees, qint64 numero, const QString &reseau);

// Number of the first record found, or ABSENT. Times are "hh:mm" or "hh:mm:ss" or empty. For samplings and analyses an
// empty time looks for "00:00:00", for a flow it looks for a record without a time: the two rules differ on purpose.
qint64 NumeroPrelevement(const DataEnvironment1 &donnees, const QDate &date, const QString &heure,
                         const QString &station, const QString &preleveur);
qint64 NumeroAnalyseParGest(const DataEnvironment1 &donnees, qint64 numPrel, const QString &parametre,
                            const QString &gest, const QString &fraction);
qint64 NumeroAnalyseParLabo(const DataEnvironment1 &donnees, qint64 numPrel, const QString &parametre,
                            const QString &labo, const QString &fraction);
qint64 NumeroAnalyseParDate(const DataEnvironment1 &donnees, const QDate &date, const QString &heure,
                            const QString &parametre, const QString &station, const QString &gest,
                            const QString &fraction);
// `grandeur`: "QME" takes monthly flows only, "QJO" daily ones only.
qint64 NumeroMesureHydro(const DataEnvironment1 &donnees, const QDate &date, const QString &heure,
                         const QString &station, const QString &grandeur);
qint64 NumeroMesurePluvio(const DataEnvironment1 &donnees, const QDate &date, const QString &station,
                          const QString &gest);
} // namespace M_Element_Existant_OVRA
