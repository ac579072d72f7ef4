#include "capture/SeriePluvio.h"

#include "capture/ColonnesSerie.h"
#include "database/DataEnvironment1.h"
#include "database/Transaction.h"
#include "platform/VersNombre.h"

#include <QHash>

namespace
{
struct Pluie {
    qint64 numero = 0; // NumMesurePM of a row that was read, negative for one that was typed
    QString date;
    double hauteur_mm = 0;
    QVariant commentaire;
};

// A null is read as a null text, which would be stored as an empty one.
QVariant ouNul(const QVariant &valeur)
{
    return valeur.isNull() ? QVariant() : valeur;
}

QList<Pluie> lire(const DataEnvironment1 &donnees)
{
    QList<Pluie> lues;
    Requete requete = donnees.executer(
        QStringLiteral("SELECT rowid, DateMesure, Resultat, Comment FROM Temp_mesure_pluvio ORDER BY ") +
        SeriePluvio::ordre());
    while (requete.suivant())
        lues << Pluie{requete.valeur(0).toLongLong(), requete.texte(1), VersNombre(requete.valeur(2)),
                      ouNul(requete.valeur(3))};
    return lues;
}

// Who measured what is about to be replaced.
class Gestionnaires
{
public:
    Gestionnaires(const DataEnvironment1 &donnees, const QString &station, const QList<Pluie> &pluies)
    {
        QSet<qint64> lues;
        for (const Pluie &pluie : pluies)
            lues << pluie.numero;
        Requete requete = donnees.executer(
            QStringLiteral("SELECT NumMesurePM, DateMesurePM, CodeSandreGest FROM MESURE_PLUVIO "
                           "WHERE CodeStationPM = ? ORDER BY NumMesurePM"),
            {station});
        while (requete.suivant()) {
            const qint64 numero = requete.valeur(0).toLongLong();
            const QVariant code = ouNul(requete.valeur(2));
            if (lues.contains(numero))
                m_parNumero.insert(numero, code);
            else
                m_parJour[requete.texte(1)] << code;
        }
    }

    QVariant prendre(const Pluie &pluie)
    {
        const auto connue = m_parNumero.constFind(pluie.numero);
        if (connue != m_parNumero.constEnd())
            return *connue;
        const auto duJour = m_parJour.find(pluie.date);
        return duJour == m_parJour.end() || duJour->isEmpty() ? QVariant() : duJour->takeFirst();
    }

private:
    QHash<qint64, QVariant> m_parNumero;
    QHash<QString, QVariantList> m_parJour;
};
} // namespace

QList<ColonneTravail> SeriePluvio::colonnes()
{
    return {ColonnesSerie::date(QStringLiteral("DateMesure"), QStringLiteral("Date")),
            ColonnesSerie::nombre(QStringLiteral("Resultat"), QStringLiteral("Hauteur (mm)"),
                                  QStringLiteral("La hauteur doit être de type numérique."))};
}

QString SeriePluvio::ordre()
{
    return QStringLiteral("DateMesure, abs(rowid)");
}

ListeChoix SeriePluvio::stations(const DataEnvironment1 &donnees)
{
    ListeChoix lignes;
    Requete requete = donnees.commande(QStringLiteral("Station_Pluvio"));
    while (requete.suivant()) {
        const QString code = requete.texte(QStringLiteral("CodeStationPM"));
        lignes << Choix{code, code, requete.texte(QStringLiteral("IntituleStationPM"))};
    }
    return lignes;
}

bool SeriePluvio::existe(const DataEnvironment1 &donnees, const QString &station)
{
    return donnees
        .executer(QStringLiteral("SELECT 1 FROM MESURE_PLUVIO WHERE CodeStationPM = ? LIMIT 1"), {station})
        .suivant();
}

void SeriePluvio::remplir(const DataEnvironment1 &donnees, const QString &station)
{
    donnees.executer(QStringLiteral("DELETE FROM Temp_mesure_pluvio"));
    donnees.executer(
        QStringLiteral("INSERT INTO Temp_mesure_pluvio (rowid, DateMesure, Resultat, Comment) "
                       "SELECT NumMesurePM, DateMesurePM, JourMesurePM, CommMesurePM FROM MESURE_PLUVIO "
                       "WHERE CodeStationPM = ?"),
        {station});
}

bool SeriePluvio::complete(const DataEnvironment1 &donnees)
{
    if (!donnees.executer(QStringLiteral("SELECT 1 FROM Temp_mesure_pluvio LIMIT 1")).suivant())
        return false;
    return !donnees
                .executer(QStringLiteral("SELECT 1 FROM Temp_mesure_pluvio "
                                         "WHERE DateMesure IS NULL OR Resultat IS NULL LIMIT 1"))
                .suivant();
}

void SeriePluvio::enregistrer(const DataEnvironment1 &donnees, const QString &station)
{
    // Everything is read, and every number judged, before anything is deleted.
    const QList<Pluie> pluies = lire(donnees);
    Gestionnaires gestionnaires(donnees, station, pluies);
    Transaction ensemble(donnees.Connect_Bdd());
    supprimer(donnees, station);
    Requete &ajout = donnees.preparee(
        QStringLiteral("INSERT INTO MESURE_PLUVIO (CodeStationPM, DateMesurePM, JourMesurePM, "
                       "CommMesurePM, CodeSandreGest) VALUES (?, ?, ?, ?, ?)"));
    for (const Pluie &pluie : pluies)
        ajout.executer(
            {station, pluie.date, pluie.hauteur_mm, pluie.commentaire, gestionnaires.prendre(pluie)});
    ajout.finir();
    ensemble.valider();
}

void SeriePluvio::supprimer(const DataEnvironment1 &donnees, const QString &station)
{
    donnees.executer(QStringLiteral("DELETE FROM MESURE_PLUVIO WHERE CodeStationPM = ?"), {station});
}
