// One prepared INSERT, run row after row.
#pragma once

#include "database/Requete.h"

#include <QStringList>

//     Insertion commune(base, "COMMUNE", {"NumCommune", "NomCommune"});
//     commune.ligne({"35901", "Bourg-Landrezelle"});
class Insertion
{
public:
    Insertion(const QSqlDatabase &base, const QString &table, const QStringList &colonnes);
    void ligne(const QVariantList &valeurs) { m_requete.executer(valeurs); }

private:
    Requete m_requete;
};
