// What an import of flows asks of the store and writes there.
#pragma once

#include "database/InstructionDirecte.h"
#include "exchange/LigneHydro.h"

class DataEnvironment1;

// Statements prepared once for a run.
class EcritureHydro
{
public:
    explicit EcritureHydro(const DataEnvironment1 &donnees);

    // NumMesureHM of the reading of the same kind at this station, date and hour (or without hour); 0 when there is
    // none. A daily and a monthly reading of one moment are two rows.
    qint64 chercher(const MesureHydro &mesure);
    // Over reading `numMesureHM`, or as a new one for 0.
    void ecrire(const MesureHydro &mesure, qint64 numMesureHM);

private:
    InstructionDirecte m_chercherJour;
    InstructionDirecte m_chercherMois;
    InstructionDirecte m_ajouter;
    InstructionDirecte m_modifierJour;
    InstructionDirecte m_modifierMois;
};
