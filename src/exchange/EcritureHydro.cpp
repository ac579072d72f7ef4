#include "exchange/EcritureHydro.h"

#include "database/DataEnvironment1.h"

namespace
{
QVariant heure(const MesureHydro &mesure)
{
    return mesure.heure.isEmpty() ? QVariant() : QVariant(mesure.heure);
}
} // namespace

EcritureHydro::EcritureHydro(const DataEnvironment1 &donnees)
    : m_chercher(donnees.Connect_Bdd(),
                 QStringLiteral("SELECT NumMesureHM, DebitJourMesureHM, DebitMoisMesureHM FROM MESURE_HYDRO "
                                "WHERE DateMesureHM = ? AND HeureMesureHM IS ? AND CodeStationHM = ? "
                                "ORDER BY NumMesureHM")),
      m_ajouter(donnees.Connect_Bdd(),
                QStringLiteral("INSERT INTO MESURE_HYDRO (DateMesureHM, HeureMesureHM, DebitJourMesureHM, "
                               "DebitMoisMesureHM, CodeStationHM) VALUES (?, ?, ?, ?, ?)")),
      m_modifierJour(donnees.Connect_Bdd(),
                     QStringLiteral("UPDATE MESURE_HYDRO SET DebitJourMesureHM = ? WHERE NumMesureHM = ?")),
      m_modifierMois(donnees.Connect_Bdd(),
                     QStringLiteral("UPDATE MESURE_HYDRO SET DebitMoisMesureHM = ? WHERE NumMesureHM = ?"))
{
}

qint64 EcritureHydro::chercher(const MesureHydro &mesure)
{
    m_chercher.executer({mesure.date, heure(mesure), mesure.station});
    qint64 numero = 0;
    while (numero == 0 && m_chercher.suivant()) {
        if (!m_chercher.valeur(mesure.mensuel ? 2 : 1).isNull())
            numero = m_chercher.valeur(0).toLongLong();
    }
    m_chercher.finir();
    return numero;
}

void EcritureHydro::ecrire(const MesureHydro &mesure, qint64 numMesureHM)
{
    // Date, hour and station of a reading that was found are already those of the row.
    if (numMesureHM != 0) {
        (mesure.mensuel ? m_modifierMois : m_modifierJour).executer({mesure.debit_l_s, numMesureHM});
        return;
    }
    const QVariant debit = mesure.debit_l_s;
    m_ajouter.executer({mesure.date, heure(mesure), mesure.mensuel ? QVariant() : debit,
                        mesure.mensuel ? debit : QVariant(), mesure.station});
}
