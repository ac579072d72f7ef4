// What an import of physico-chemical measures asks of the store and writes there.
#pragma once

#include "database/InstructionDirecte.h"
#include "exchange/LignePhysico.h"

class DataEnvironment1;

// Statements prepared once for a run.
class EcriturePhysico
{
public:
    explicit EcriturePhysico(const DataEnvironment1 &donnees);

    // NumAnaPC of the analysis of this date, hour, parameter, station, manager and fraction; 0 when there is none.
    qint64 chercher(const MesurePhysico &mesure);
    // Writes the sampling where it is new, its membership of the network, and the result: over analysis `numAnaPC`, or
    // as a new one for 0. To be called in a TransactionLigne.
    void ecrire(const MesurePhysico &mesure, qint64 numAnaPC);

private:
    qint64 prelevement(const MesurePhysico &mesure);

    InstructionDirecte m_chercherAnalyse;
    InstructionDirecte m_chercherPrelevement;
    InstructionDirecte m_ajouterPrelevement;
    InstructionDirecte m_rattacher;
    InstructionDirecte m_ajouterAnalyse;
    InstructionDirecte m_modifierAnalyse;
};
