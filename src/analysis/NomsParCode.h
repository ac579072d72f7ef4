// The names of a reference table, to label codes by.
#pragma once

#include <QHash>
#include <QString>

class DataEnvironment1;

namespace NomsParCode
{
// Names by folded code (toCaseFolded), from the two first columns of a statement.
QHash<QString, QString> lire(const DataEnvironment1 &donnees, const QString &sql);
QHash<QString, QString> intervenants(const DataEnvironment1 &donnees);
QHash<QString, QString> fractions(const DataEnvironment1 &donnees);
} // namespace NomsParCode
