// French order and full case folding for a connection.
#pragma once

#include <QString>

struct sqlite3;

// The collation FRANCAIS: French alphabetical order, where case makes no difference ("É" = "é") and an accent makes the
// last one ("cote" < "coté" < "côte"). It belongs to a connection and is named in statements, never in the schema:
// any SQLite tool opens the file.
namespace Collation
{
void installer(sqlite3 *base);
// Below, equal to or above 0.
int comparer(QStringView a, QStringView b);
// The form under which two names that Jet would hold for the same are equal: case folded, composed.
QString pliee(const QString &nom);
} // namespace Collation
