#include "capture/SerieHydro.h"

#include "capture/ColonnesSerie.h"
#include "database/DataEnvironment1.h"
#include "database/Transaction.h"
#include "platform/VersNombre.h"

namespace
{
const QString DEBIT_NON_NUMERIQUE = QStringLiteral("Le débit doit être de type numérique.");

QString instruction(const char16_t *table, const QString &modele)
{
    return modele.arg(QString::fromUtf16(table));
}

bool compte(const DataEnvironment1 &donnees, const QString &sql)
{
    return donnees.executer(sql).suivant();
}

void effacerJours(const DataEnvironment1 &donnees, const QString &station)
{
    // A row that holds both flows, as some old files have, keeps its monthly one.
    donnees.executer(
        QStringLiteral("UPDATE MESURE_HYDRO SET DebitJourMesureHM = NULL WHERE CodeStationHM = ? "
                       "AND DebitJourMesureHM IS NOT NULL AND DebitMoisMesureHM IS NOT NULL"),
        {station});
    donnees.executer(QStringLiteral("DELETE FROM MESURE_HYDRO WHERE CodeStationHM = ? "
                                    "AND DebitJourMesureHM IS NOT NULL"),
                     {station});
}

void effacerMois(const DataEnvironment1 &donnees, const QString &station)
{
    donnees.executer(
        QStringLiteral("UPDATE MESURE_HYDRO SET DebitMoisMesureHM = NULL WHERE CodeStationHM = ? "
                       "AND DebitJourMesureHM IS NOT NULL AND DebitMoisMesureHM IS NOT NULL"),
        {station});
    donnees.executer(QStringLiteral("DELETE FROM MESURE_HYDRO WHERE CodeStationHM = ? "
                                    "AND DebitMoisMesureHM IS NOT NULL"),
                     {station});
}

struct Debit {
    QVariant date;
    QVariant heure;
    double debit_l_s = 0;
};

QList<Debit> lire(const DataEnvironment1 &donnees, const QString &sql)
{
    QList<Debit> lus;
    Requete requete = donnees.executer(sql);
    // A null is read as a null text, which would be stored as an empty one.
    while (requete.suivant())
        lus << Debit{requete.valeur(0), requete.valeur(1).isNull() ? QVariant() : requete.valeur(1),
                     VersNombre(requete.valeur(2))};
    return lus;
}
} // namespace

QList<ColonneTravail> SerieHydro::colonnesJour()
{
    return {ColonnesSerie::date(QStringLiteral("DateMesure"), QStringLiteral("Date")),
            ColonnesSerie::heure(QStringLiteral("HeureMesure"), QStringLiteral("Heure")),
            ColonnesSerie::nombre(QStringLiteral("DebitJour"), QStringLiteral("Débit (l/s)"),
                                  DEBIT_NON_NUMERIQUE)};
}

QList<ColonneTravail> SerieHydro::colonnesMois()
{
    return {ColonnesSerie::premierDuMois(QStringLiteral("DateMesure"), QStringLiteral("Date")),
            ColonnesSerie::nombre(QStringLiteral("DebitMois"), QStringLiteral("Débit (l/s)"),
                                  DEBIT_NON_NUMERIQUE)};
}

QString SerieHydro::ordreJour()
{
    return QStringLiteral("DateMesure, HeureMesure, abs(rowid)");
}

QString SerieHydro::ordreMois()
{
    return QStringLiteral("DateMesure, abs(rowid)");
}

ListeChoix SerieHydro::stations(const DataEnvironment1 &donnees)
{
    ListeChoix lignes;
    Requete requete = donnees.commande(QStringLiteral("Station_Hydro"));
    while (requete.suivant()) {
        const QString code = requete.texte(QStringLiteral("CodeStationHM"));
        lignes << Choix{code, code, requete.texte(QStringLiteral("IntituleStationHM"))};
    }
    return lignes;
}

bool SerieHydro::existe(const DataEnvironment1 &donnees, const QString &station)
{
    return donnees
        .executer(
            QStringLiteral("SELECT 1 FROM MESURE_HYDRO WHERE CodeStationHM = ? "
                           "AND (DebitJourMesureHM IS NOT NULL OR DebitMoisMesureHM IS NOT NULL) LIMIT 1"),
            {station})
        .suivant();
}

void SerieHydro::remplir(const DataEnvironment1 &donnees, const QString &station)
{
    donnees.executer(instruction(TABLE_JOUR, QStringLiteral("DELETE FROM %1")));
    donnees.executer(instruction(TABLE_MOIS, QStringLiteral("DELETE FROM %1")));
    donnees.executer(
        instruction(TABLE_JOUR,
                    QStringLiteral("INSERT INTO %1 (rowid, DateMesure, HeureMesure, DebitJour) "
                                   "SELECT NumMesureHM, DateMesureHM, HeureMesureHM, DebitJourMesureHM "
                                   "FROM MESURE_HYDRO WHERE CodeStationHM = ? "
                                   "AND DebitJourMesureHM IS NOT NULL")),
        {station});
    donnees.executer(
        instruction(TABLE_MOIS, QStringLiteral("INSERT INTO %1 (rowid, DateMesure, DebitMois) "
                                               "SELECT NumMesureHM, DateMesureHM, DebitMoisMesureHM "
                                               "FROM MESURE_HYDRO WHERE CodeStationHM = ? "
                                               "AND DebitMoisMesureHM IS NOT NULL")),
        {station});
}

bool SerieHydro::complete(const DataEnvironment1 &donnees)
{
    const bool jours = compte(donnees, instruction(TABLE_JOUR, QStringLiteral("SELECT 1 FROM %1 LIMIT 1")));
    const bool mois = compte(donnees, instruction(TABLE_MOIS, QStringLiteral("SELECT 1 FROM %1 LIMIT 1")));
    if (!jours && !mois)
        return false;
    const QString manque = QStringLiteral("SELECT 1 FROM %1 WHERE DateMesure IS NULL OR %2 IS NULL LIMIT 1");
    return !compte(donnees, manque.arg(QString::fromUtf16(TABLE_JOUR), QStringLiteral("DebitJour"))) &&
           !compte(donnees, manque.arg(QString::fromUtf16(TABLE_MOIS), QStringLiteral("DebitMois")));
}

void SerieHydro::enregistrer(const DataEnvironment1 &donnees, const QString &station)
{
    // Everything is read, and every number judged, before anything is deleted.
    const QList<Debit> jours = lire(
        donnees, instruction(TABLE_JOUR, QStringLiteral("SELECT DateMesure, HeureMesure, DebitJour FROM %1 "
                                                        "ORDER BY ") +
                                             ordreJour()));
    const QList<Debit> mois =
        lire(donnees, instruction(TABLE_MOIS, QStringLiteral("SELECT DateMesure, NULL, DebitMois FROM %1 "
                                                             "ORDER BY ") +
                                                  ordreMois()));
    Transaction ensemble(donnees.Connect_Bdd());
    if (!jours.isEmpty())
        effacerJours(donnees, station);
    if (!mois.isEmpty())
        effacerMois(donnees, station);
    Requete &jour = donnees.preparee(
        QStringLiteral("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, HeureMesureHM, "
                       "DebitJourMesureHM) VALUES (?, ?, ?, ?)"));
    for (const Debit &debit : jours)
        jour.executer({station, debit.date, debit.heure, debit.debit_l_s});
    jour.finir();
    Requete &unMois =
        donnees.preparee(QStringLiteral("INSERT INTO MESURE_HYDRO (CodeStationHM, DateMesureHM, "
                                        "DebitMoisMesureHM) VALUES (?, ?, ?)"));
    for (const Debit &debit : mois)
        unMois.executer({station, debit.date, debit.debit_l_s});
    unMois.finir();
    ensemble.valider();
}

void SerieHydro::supprimer(const DataEnvironment1 &donnees, const QString &station)
{
    donnees.executer(QStringLiteral("DELETE FROM MESURE_HYDRO WHERE CodeStationHM = ?"), {station});
}
