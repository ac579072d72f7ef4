#include "exchange/EcritureHydro.h"

#include "database/DataEnvironment1.h"

using Valeur = InstructionDirecte::Valeur;

EcritureHydro::EcritureHydro(const DataEnvironment1 &donnees)
    : m_chercherJour(donnees.Connect_Bdd(),
                     "SELECT NumMesureHM FROM MESURE_HYDRO WHERE DateMesureHM = ? AND HeureMesureHM IS ? "
                     "AND CodeStationHM = ? AND DebitJourMesureHM IS NOT NULL ORDER BY NumMesureHM LIMIT 1"),
      m_chercherMois(donnees.Connect_Bdd(),
                     "SELECT NumMesureHM FROM MESURE_HYDRO WHERE DateMesureHM = ? AND HeureMesureHM IS ? "
                     "AND CodeStationHM = ? AND DebitMoisMesureHM IS NOT NULL ORDER BY NumMesureHM LIMIT 1"),
      m_ajouter(donnees.Connect_Bdd(),
                "INSERT INTO MESURE_HYDRO (DateMesureHM, HeureMesureHM, DebitJourMesureHM, "
                "DebitMoisMesureHM, CodeStationHM) VALUES (?, ?, ?, ?, ?)"),
      m_modifierJour(donnees.Connect_Bdd(),
                     "UPDATE MESURE_HYDRO SET DebitJourMesureHM = ? WHERE NumMesureHM = ?"),
      m_modifierMois(donnees.Connect_Bdd(),
                     "UPDATE MESURE_HYDRO SET DebitMoisMesureHM = ? WHERE NumMesureHM = ?")
{
}

qint64 EcritureHydro::chercher(const MesureHydro &m)
{
    return (m.mensuel ? m_chercherMois : m_chercherJour)
        .premierEntier({m.date.toString(Qt::ISODate), InstructionDirecte::ouNul(m.heure), m.station});
}

void EcritureHydro::ecrire(const MesureHydro &m, qint64 numMesureHM)
{
    // Date, hour and station of a reading that was found are already those of the row.
    if (numMesureHM != 0) {
        (m.mensuel ? m_modifierMois : m_modifierJour).executer({m.debit_l_s, numMesureHM});
        return;
    }
    const Valeur debit = m.debit_l_s;
    m_ajouter.executer({m.date.toString(Qt::ISODate), InstructionDirecte::ouNul(m.heure),
                        m.mensuel ? Valeur() : debit, m.mensuel ? debit : Valeur(), m.station});
}
