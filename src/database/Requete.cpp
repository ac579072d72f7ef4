#include "database/Requete.h"

#include "platform/Erreur.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlRecord>

namespace
{
[[noreturn]] void echouer(const QSqlError &erreur)
{
    throw Erreur(erreur.nativeErrorCode().toInt(), erreur.databaseText().trimmed());
}
} // namespace

Requete::Requete(const QSqlDatabase &base, const QString &sql) : m_requete(base)
{
    m_requete.setForwardOnly(true);
    if (!m_requete.prepare(sql))
        echouer(m_requete.lastError());
}

Requete::Requete(const QSqlDatabase &base, const QString &sql, const QVariantList &parametres)
    : Requete(base, sql)
{
    executer(parametres);
}

void Requete::executer(const QVariantList &parametres)
{
    for (qsizetype i = 0; i < parametres.size(); ++i)
        m_requete.bindValue(static_cast<int>(i), parametres[i]);
    if (!m_requete.exec())
        echouer(m_requete.lastError());
}

bool Requete::suivant()
{
    if (m_requete.next())
        return true;
    if (m_requete.lastError().isValid())
        echouer(m_requete.lastError());
    return false;
}

QVariant Requete::valeur(const QString &colonne) const
{
    const int position = m_requete.record().indexOf(colonne);
    if (position < 0)
        throw Erreur(0, QStringLiteral("Colonne inconnue : ") + colonne);
    return m_requete.value(position);
}

QVariant Requete::valeur(int colonne) const
{
    return m_requete.value(colonne);
}

int Requete::lignesTouchees() const
{
    return m_requete.numRowsAffected();
}

QVariant Requete::dernierIdentifiant() const
{
    return m_requete.lastInsertId();
}

void Requete::finir()
{
    m_requete.finish();
}
