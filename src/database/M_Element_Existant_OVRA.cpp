#include "database/M_Element_Existant_OVRA.h"

#include "database/DataEnvironment1.h"

namespace
{
bool ligneExiste(const DataEnvironment1 &donnees, const char16_t *commande, const char16_t *colonne,
                 const QString &code)
{
    return !code.isEmpty() &&
           donnees.enMemoire(QString::fromUtf16(commande))->premiere(QString::fromUtf16(colonne), code) >= 0;
}

qint64 numero(const DataEnvironment1 &donnees, const QString &sql, const QVariantList &parametres)
{
    const QVariant valeur = donnees.valeur(sql, parametres);
    return valeur.isNull() ? M_Element_Existant_OVRA::ABSENT : valeur.toLongLong();
}

// "10:00" is stored as "10:00:00".
QString avecSecondes(const QString &heure)
{
    return heure.size() == 5 ? heure + QStringLiteral(":00") : heure;
}

QString heureOuMinuit(const QString &heure)
{
    return heure.isEmpty() ? QStringLiteral("00:00:00") : avecSecondes(heure);
}

// A result, its sampling and its parameter: a result whose sampling or parameter is gone is not found.
QString analyse(const QString &condition)
{
    return QStringLiteral("SELECT NumAnaPC FROM ((MESURE_PHYSICO INNER JOIN PRELEVEMENT "
                          "ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel) INNER JOIN PARAMETRE "
                          "ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam) WHERE ") +
           condition;
}
} // namespace

bool M_Element_Existant_OVRA::ParametreExiste(const DataEnvironment1 &donnees, const QString &code)
{
    return ligneExiste(donnees, u"Parametre", u"CodeParam", code);
}

bool M_Element_Existant_OVRA::StationExiste(const DataEnvironment1 &donnees, const QString &code)
{
    return ligneExiste(donnees, u"Station", u"CodeSandreStationM", code);
}

bool M_Element_Existant_OVRA::IntervenantExiste(const DataEnvironment1 &donnees, const QString &code)
{
    return ligneExiste(donnees, u"Intervenant", u"CodeSandreInterv", code);
}

bool M_Element_Existant_OVRA::ReseauExiste(const DataEnvironment1 &donnees, const QString &code)
{
    return ligneExiste(donnees, u"Reseau", u"CodeReseau", code);
}

bool M_Element_Existant_OVRA::CommuneExiste(const DataEnvironment1 &donnees, const QString &numero)
{
    if (ligneExiste(donnees, u"Commune", u"NumCommune", numero))
        return true;
    // Numbers of the first departments lose their zero where they were typed as numbers.
    return numero.size() == 4 && ligneExiste(donnees, u"Commune", u"NumCommune", u'0' + numero);
}

bool M_Element_Existant_OVRA::PointExiste(const DataEnvironment1 &donnees, const QString &station,
                                          const QString &point)
{
    return !donnees
                .valeur(
                    QStringLiteral("SELECT 1 FROM LOCALISATION WHERE CodeSandreStationM = ? AND CdPoint = ?"),
                    {station, point})
                .isNull();
}

bool M_Element_Existant_OVRA::ReseauPrelevementExiste(const DataEnvironment1 &donnees, qint64 numero,
                                                      const QString &reseau)
{
    if (reseau.isEmpty() || numero < 1)
        return false;
    return !donnees
                .valeur(QStringLiteral("SELECT 1 FROM PRELEVEMENTRSX WHERE NumPrel = ? AND CodeReseau = ?"),
                        {numero, reseau})
                .isNull();
}

qint64 M_Element_Existant_OVRA::NumeroPrelevement(const DataEnvironment1 &donnees, const QDate &date,
                                                  const QString &heure, const QString &station,
                                                  const QString &preleveur)
{
    return numero(donnees,
                  QStringLiteral("SELECT NumPrel FROM PRELEVEMENT WHERE DatePrel = ? AND HeurePrel = ? "
                                 "AND CodeSandreStationM = ? AND CodeSandrePrelev = ?"),
                  {date, heureOuMinuit(heure), station, preleveur});
}

qint64 M_Element_Existant_OVRA::NumeroAnalyseParGest(const DataEnvironment1 &donnees, qint64 numPrel,
                                                     const QString &parametre, const QString &gest,
                                                     const QString &fraction)
{
    static const QString sql =
        analyse(QStringLiteral("PRELEVEMENT.NumPrel = ? AND MESURE_PHYSICO.CodeParam = ? "
                               "AND MESURE_PHYSICO.CodeSandreGest = ? AND Cd_Fraction = ?"));
    return numero(donnees, sql, {numPrel, parametre, gest, fraction});
}

qint64 M_Element_Existant_OVRA::NumeroAnalyseParLabo(const DataEnvironment1 &donnees, qint64 numPrel,
                                                     const QString &parametre, const QString &labo,
                                                     const QString &fraction)
{
    static const QString sql =
        analyse(QStringLiteral("PRELEVEMENT.NumPrel = ? AND MESURE_PHYSICO.CodeParam = ? "
                               "AND MESURE_PHYSICO.CodeSandreLabo = ? AND Cd_Fraction = ?"));
    return numero(donnees, sql, {numPrel, parametre, labo, fraction});
}

qint64 M_Element_Existant_OVRA::NumeroAnalyseParDate(const DataEnvironment1 &donnees, const QDate &date,
                                                     const QString &heure, const QString &parametre,
                                                     const QString &station, const QString &gest,
                                                     const QString &fraction)
{
    static const QString sql =
        analyse(QStringLiteral("DatePrel = ? AND HeurePrel = ? AND MESURE_PHYSICO.CodeParam = ? "
                               "AND CodeSandreStationM = ? AND CodeSandreGest = ? AND Cd_Fraction = ?"));
    return numero(donnees, sql, {date, heureOuMinuit(heure), parametre, station, gest, fraction});
}

qint64 M_Element_Existant_OVRA::NumeroMesureHydro(const DataEnvironment1 &donnees, const QDate &date,
                                                  const QString &heure, const QString &station,
                                                  const QString &grandeur)
{
    QString sql = QStringLiteral("SELECT NumMesureHM FROM MESURE_HYDRO WHERE DateMesureHM = ? ");
    QVariantList parametres{date};
    if (heure.isEmpty()) {
        sql += QStringLiteral("AND HeureMesureHM IS NULL ");
    } else {
        sql += QStringLiteral("AND HeureMesureHM = ? ");
        parametres << avecSecondes(heure);
    }
    sql += QStringLiteral("AND CodeStationHM = ?");
    parametres << station;
    if (grandeur == u"QME")
        sql += QStringLiteral(" AND DebitMoisMesureHM IS NOT NULL");
    else if (grandeur == u"QJO")
        sql += QStringLiteral(" AND DebitJourMesureHM IS NOT NULL");
    return numero(donnees, sql, parametres);
}

qint64 M_Element_Existant_OVRA::NumeroMesurePluvio(const DataEnvironment1 &donnees, const QDate &date,
                                                   const QString &station, const QString &gest)
{
    return numero(donnees,
                  QStringLiteral("SELECT NumMesurePM FROM MESURE_PLUVIO WHERE DateMesurePM = ? "
                                 "AND CodeStationPM = ? AND CodeSandreGest = ?"),
                  {date, station, gest});
}
