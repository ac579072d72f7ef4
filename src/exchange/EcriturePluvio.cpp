#include "exchange/EcriturePluvio.h"

#include "database/DataEnvironment1.h"

EcriturePluvio::EcriturePluvio(const DataEnvironment1 &donnees)
    : m_chercher(donnees.Connect_Bdd(), "SELECT NumMesurePM FROM MESURE_PLUVIO WHERE DateMesurePM = ? "
                                        "AND CodeStationPM = ? AND CodeSandreGest = ? "
                                        "ORDER BY NumMesurePM LIMIT 1"),
      m_ajouter(donnees.Connect_Bdd(), "INSERT INTO MESURE_PLUVIO (JourMesurePM, CommMesurePM, DateMesurePM, "
                                       "CodeStationPM, CodeSandreGest) VALUES (?, ?, ?, ?, ?)"),
      m_modifier(donnees.Connect_Bdd(),
                 "UPDATE MESURE_PLUVIO SET JourMesurePM = ?, CommMesurePM = ? WHERE NumMesurePM = ?")
{
}

qint64 EcriturePluvio::chercher(const MesurePluvio &m)
{
    return m_chercher.premierEntier({m.date.toString(Qt::ISODate), m.station, m.gestionnaire});
}

void EcriturePluvio::ecrire(const MesurePluvio &m, qint64 numMesurePM)
{
    const auto commentaire = InstructionDirecte::ouNul(m.commentaire);
    // Date, station and manager of a reading that was found are already those of the row.
    if (numMesurePM != 0)
        m_modifier.executer({m.pluie_mm, commentaire, numMesurePM});
    else
        m_ajouter.executer(
            {m.pluie_mm, commentaire, m.date.toString(Qt::ISODate), m.station, m.gestionnaire});
}
