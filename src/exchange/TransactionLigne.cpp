#include "exchange/TransactionLigne.h"

#include "database/DataEnvironment1.h"
#include "platform/Erreur.h"

TransactionLigne::TransactionLigne(const DataEnvironment1 &donnees) : m_donnees(donnees)
{
    // The write lock is taken at once: a lock that is asked for half-way cannot be waited for.
    m_donnees.preparee(QStringLiteral("BEGIN IMMEDIATE")).executer({});
}

TransactionLigne::~TransactionLigne()
{
    if (!m_ouverte)
        return;
    try {
        m_donnees.executer(QStringLiteral("ROLLBACK"));
    } catch (const Erreur &) {
        // The failure that brought us here has ended the transaction, and is the one to tell.
    }
}

void TransactionLigne::valider()
{
    m_donnees.preparee(QStringLiteral("COMMIT")).executer({});
    m_ouverte = false;
}
