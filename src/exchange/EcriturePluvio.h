// What an import of rainfall asks of the store and writes there.
#pragma once

#include "database/InstructionDirecte.h"
#include "exchange/LignePluvio.h"

class DataEnvironment1;

// Statements prepared once for a run.
class EcriturePluvio
{
public:
    explicit EcriturePluvio(const DataEnvironment1 &donnees);

    // NumMesurePM of the reading of this date, station and manager; 0 when there is none.
    qint64 chercher(const MesurePluvio &mesure);
    // Over reading `numMesurePM`, or as a new one for 0.
    void ecrire(const MesurePluvio &mesure, qint64 numMesurePM);

private:
    InstructionDirecte m_chercher;
    InstructionDirecte m_ajouter;
    InstructionDirecte m_modifier;
};
