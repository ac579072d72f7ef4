#include "Insertion.h"

namespace
{
// Both lists come from the program itself, never from a file.
QString texteSql(const QString &table, const QStringList &colonnes)
{
    QStringList marques;
    marques.fill("?", colonnes.size());
    return QStringLiteral("INSERT INTO \"%1\" (\"%2\") VALUES (%3)")
        .arg(table, colonnes.join(QStringLiteral("\", \"")), marques.join(u','));
}
} // namespace

Insertion::Insertion(const QSqlDatabase &base, const QString &table, const QStringList &colonnes)
    : m_requete(base, texteSql(table, colonnes))
{
}
