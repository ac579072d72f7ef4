#include "analysis/NomsParCode.h"

#include "database/DataEnvironment1.h"

QHash<QString, QString> NomsParCode::lire(const DataEnvironment1 &donnees, const QString &sql)
{
    QHash<QString, QString> noms;
    Requete r = donnees.executer(sql);
    while (r.suivant())
        noms.insert(r.texte(0).toCaseFolded(), r.texte(1).trimmed());
    return noms;
}

QHash<QString, QString> NomsParCode::intervenants(const DataEnvironment1 &donnees)
{
    return lire(donnees, QStringLiteral("SELECT CodeSandreInterv, NomInterv FROM INTERVENANT"));
}

QHash<QString, QString> NomsParCode::fractions(const DataEnvironment1 &donnees)
{
    return lire(donnees, QStringLiteral("SELECT CD_FRACTION, LB_NOM_FRACTION FROM FRACTION"));
}
