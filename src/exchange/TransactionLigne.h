// The rows that one imported line writes become one whole: a program killed between them leaves none.
#pragma once

#include "database/InstructionDirecte.h"

class DataEnvironment1;

// The statements of the transactions, prepared once for a run.
class Transactions
{
public:
    explicit Transactions(const DataEnvironment1 &donnees);

private:
    friend class TransactionLigne;
    InstructionDirecte m_commencer;
    InstructionDirecte m_valider;
    InstructionDirecte m_annuler;
};

// Undone when destroyed, unless validated.
class TransactionLigne
{
public:
    explicit TransactionLigne(Transactions &transactions);
    ~TransactionLigne();
    TransactionLigne(const TransactionLigne &) = delete;
    TransactionLigne &operator=(const TransactionLigne &) = delete;

    void valider();

private:
    Transactions &m_transactions;
    bool m_ouverte = true;
};
