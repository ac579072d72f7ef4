// The named commands: what each name reads.
#pragma once

#include <QString>
#include <QStringList>

// The single definition of the columns, aliases, joins and orders that lists, sheets and lookups show. Names of people,
// places and things come in French order: the collation FRANCAIS of the connection.
namespace Commandes
{
// The names, in alphabetical order.
QStringList noms();
// The statement behind a name (any case); empty for a name that is none.
QString source(const QString &nom);
// A statement that counts the rows of a command (one row, one column). For those that join every result of the base it
// is another way to the same number, quick in a base of a million results.
QString comptage(const QString &nom);
} // namespace Commandes
