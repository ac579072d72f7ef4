#include "exchange/EcriturePluvio.h"

#include "database/DataEnvironment1.h"

EcriturePluvio::EcriturePluvio(const DataEnvironment1 &donnees)
    : m_chercher(donnees.Connect_Bdd(),
                 QStringLiteral("SELECT NumMesurePM FROM MESURE_PLUVIO WHERE DateMesurePM = ? "
                                "AND CodeStationPM = ? AND CodeSandreGest = ? ORDER BY NumMesurePM LIMIT 1")),
      m_ajouter(donnees.Connect_Bdd(),
                QStringLiteral("INSERT INTO MESURE_PLUVIO (JourMesurePM, CommMesurePM, DateMesurePM, "
                               "CodeStationPM, CodeSandreGest) VALUES (?, ?, ?, ?, ?)")),
      m_modifier(donnees.Connect_Bdd(),
                 QStringLiteral("UPDATE MESURE_PLUVIO SET JourMesurePM = ?, CommMesurePM = ? "
                                "WHERE NumMesurePM = ?"))
{
}

qint64 EcriturePluvio::chercher(const MesurePluvio &mesure)
{
    m_chercher.executer({mesure.date, mesure.station, mesure.gestionnaire});
    const qint64 numero = m_chercher.suivant() ? m_chercher.valeur(0).toLongLong() : 0;
    m_chercher.finir();
    return numero;
}

void EcriturePluvio::ecrire(const MesurePluvio &mesure, qint64 numMesurePM)
{
    const QVariant commentaire = mesure.commentaire.isEmpty() ? QVariant() : QVariant(mesure.commentaire);
    // Date, station and manager of a reading that was found are already those of the row.
    if (numMesurePM != 0)
        m_modifier.executer({mesure.pluie_mm, commentaire, numMesurePM});
    else
        m_ajouter.executer({mesure.pluie_mm, commentaire, mesure.date, mesure.station, mesure.gestionnaire});
}
