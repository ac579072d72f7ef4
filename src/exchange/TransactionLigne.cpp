#include "exchange/TransactionLigne.h"

#include "database/DataEnvironment1.h"
#include "platform/Erreur.h"

// The write lock is taken at once: a lock that is asked for half-way cannot be waited for.
Transactions::Transactions(const DataEnvironment1 &donnees)
    : m_commencer(donnees.Connect_Bdd(), "BEGIN IMMEDIATE"), m_valider(donnees.Connect_Bdd(), "COMMIT"),
      m_annuler(donnees.Connect_Bdd(), "ROLLBACK")
{
}

TransactionLigne::TransactionLigne(Transactions &transactions) : m_transactions(transactions)
{
    m_transactions.m_commencer.executer();
}

TransactionLigne::~TransactionLigne()
{
    if (!m_ouverte)
        return;
    try {
        m_transactions.m_annuler.executer();
    } catch (const Erreur &) {
        // The failure that brought us here has ended the transaction, and is the one to tell.
    }
}

void TransactionLigne::valider()
{
    m_transactions.m_valider.executer();
    m_ouverte = false;
}
