#include "database/Transaction.h"

#include "database/Requete.h"

#include <QSqlQuery>

Transaction::Transaction(const QSqlDatabase &base) : m_base(base)
{
    Requete::lancer(m_base, QStringLiteral("SAVEPOINT ovralis"));
}

Transaction::~Transaction()
{
    if (!m_ouverte)
        return;
    QSqlQuery requete(m_base);
    requete.exec(QStringLiteral("ROLLBACK TO ovralis"));
    requete.exec(QStringLiteral("RELEASE ovralis"));
}

void Transaction::valider()
{
    Requete::lancer(m_base, QStringLiteral("RELEASE ovralis"));
    m_ouverte = false;
}

namespace
{
bool reglage(const QSqlDatabase &base, const QString &nom)
{
    Requete r(base, QStringLiteral("PRAGMA ") + nom, {});
    return r.suivant() && r.valeur(0).toBool();
}
} // namespace

ReglagesStructure::ReglagesStructure(const QSqlDatabase &base)
    : m_base(base), m_clesEtrangeres(reglage(base, QStringLiteral("foreign_keys"))),
      m_ancienneMethode(reglage(base, QStringLiteral("legacy_alter_table")))
{
    Requete::lancer(m_base, QStringLiteral("PRAGMA foreign_keys = OFF"));
    Requete::lancer(m_base, QStringLiteral("PRAGMA legacy_alter_table = ON"));
}

ReglagesStructure::~ReglagesStructure()
{
    QSqlQuery requete(m_base);
    if (!m_ancienneMethode)
        requete.exec(QStringLiteral("PRAGMA legacy_alter_table = OFF"));
    if (m_clesEtrangeres)
        requete.exec(QStringLiteral("PRAGMA foreign_keys = ON"));
}
