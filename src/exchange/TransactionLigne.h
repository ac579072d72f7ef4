// The rows that one imported line writes become one whole: a program killed between them leaves none.
#pragma once

class DataEnvironment1;

// Undone when destroyed, unless validated.
class TransactionLigne
{
public:
    explicit TransactionLigne(const DataEnvironment1 &donnees);
    ~TransactionLigne();
    TransactionLigne(const TransactionLigne &) = delete;
    TransactionLigne &operator=(const TransactionLigne &) = delete;

    void valider();

private:
    const DataEnvironment1 &m_donnees;
    bool m_ouverte = true;
};
