#include "database/Schema.h"

#include "database/Requete.h"
#include "database/Transaction.h"

#include <QSqlDatabase>

using namespace Schema;

qsizetype Table::position(const QString &colonne) const
{
    for (qsizetype i = 0; i < colonnes.size(); ++i)
        if (colonnes[i].nom.compare(colonne, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

const Table *Schema::table(const QString &nom)
{
    for (const Table &t : tables())
        if (t.nom.compare(nom, Qt::CaseInsensitive) == 0)
            return &t;
    return nullptr;
}

QString Schema::entreCrochets(const QString &nom)
{
    return u'[' + nom + u']';
}

QString Schema::typeSql(const Colonne &colonne)
{
    switch (colonne.genre) {
    case Genre::Texte:
        return QStringLiteral("VARCHAR(%1) COLLATE NOCASE").arg(colonne.longueur);
    case Genre::Memo:
        return QStringLiteral("TEXT COLLATE NOCASE");
    case Genre::Entier:
    case Genre::NumeroAuto:
        return QStringLiteral("INTEGER");
    case Genre::Octet:
        return QStringLiteral("TINYINT");
    case Genre::Reel:
        return QStringLiteral("DOUBLE");
    case Genre::Simple:
        return QStringLiteral("REAL");
    case Genre::Date:
        return QStringLiteral("DATE");
    case Genre::DateHeure:
        return QStringLiteral("DATETIME");
    case Genre::Heure:
        return QStringLiteral("TIME");
    case Genre::OuiNon:
        return QStringLiteral("BOOLEAN");
    }
    Q_UNREACHABLE();
}

QString Schema::instructionTable(const Table &table)
{
    QStringList lignes;
    for (const Colonne &c : table.colonnes) {
        QString ligne = entreCrochets(c.nom) + u' ' + typeSql(c);
        if (c.genre == Genre::NumeroAuto)
            ligne += QStringLiteral(" PRIMARY KEY");
        else {
            if (c.nonNul)
                ligne += QStringLiteral(" NOT NULL");
            if (c.cle && table.nomCle.isEmpty())
                ligne += QStringLiteral(" PRIMARY KEY");
            if (c.unique)
                ligne += QStringLiteral(" UNIQUE");
        }
        lignes << ligne;
        if (c.cle && !table.nomCle.isEmpty())
            lignes
                << QStringLiteral("CONSTRAINT %1 PRIMARY KEY (%2)").arg(table.nomCle, entreCrochets(c.nom));
    }
    // A table constraint comes after every column.
    std::stable_partition(lignes.begin(), lignes.end(),
                          [](const QString &l) { return !l.startsWith(QLatin1String("CONSTRAINT ")); });
    for (const CleEtrangere &e : clesEtrangeres())
        if (e.table == table.nom)
            lignes << QStringLiteral("CONSTRAINT %1 FOREIGN KEY (%2) REFERENCES %3 (%4) ON UPDATE CASCADE%5")
                          .arg(e.nom, e.colonne, e.tableCible, e.colonneCible,
                               e.suppressionEnCascade ? QStringLiteral(" ON DELETE CASCADE") : QString());
    return QStringLiteral("CREATE TABLE %1 (\n  %2\n)")
        .arg(entreCrochets(table.nom), lignes.join(QLatin1String(",\n  ")));
}

QString Schema::instructionIndex(const Index &index)
{
    QStringList colonnes;
    for (const QString &c : index.colonnes)
        colonnes << entreCrochets(c);
    return QStringLiteral("CREATE INDEX %1 ON %2 (%3)%4")
        .arg(index.nom, entreCrochets(index.table), colonnes.join(QLatin1String(", ")),
             index.condition.isEmpty() ? QString() : QStringLiteral(" WHERE ") + index.condition);
}

QString Schema::instructionVueParametrePhyto()
{
    return QStringLiteral("CREATE VIEW PARAMETRE_PHYTO AS "
                          "SELECT CodeParam, NomParam, StatutParam, CommParam, [DéfParam], NatureParam, "
                          "CodeGroupeParam, PARAMETRE.CodeUnite AS CodeUnite, LibelleUnite, SymboleUnite "
                          "FROM PARAMETRE INNER JOIN UNITEREFERENCE "
                          "ON PARAMETRE.CodeUnite = UNITEREFERENCE.CodeUnite "
                          "WHERE CodeGroupeParam = 'PS' ORDER BY NomParam");
}

void Schema::creerTable(const QSqlDatabase &base, const QString &nom)
{
    const Table *t = table(nom);
    Q_ASSERT(t);
    Requete::lancer(base, instructionTable(*t));
    for (const Index &i : index())
        if (i.table == t->nom)
            Requete::lancer(base, instructionIndex(i));
}

void Schema::ecrireEffectifs(const QSqlDatabase &base)
{
    // Makes the engine's table of statistics where it is missing.
    Requete::lancer(base, QStringLiteral("ANALYZE TECHNIQUE"));
    for (const Index &i : index()) {
        if (i.effectifs.isEmpty())
            continue;
        Requete::lancer(base, QStringLiteral("DELETE FROM sqlite_stat1 WHERE idx = ?"), {i.nom});
        Requete::lancer(base, QStringLiteral("INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES (?, ?, ?)"),
                        {i.table, i.nom, i.effectifs});
    }
    // Makes this connection read them at once.
    Requete::lancer(base, QStringLiteral("ANALYZE sqlite_schema"));
}

void Schema::creer(const QSqlDatabase &base)
{
    Transaction transaction(base);
    for (const Table &t : tables())
        if (t.nom != QLatin1String("COULEURS_GRAPH"))
            creerTable(base, t.nom);
    Requete::lancer(base, instructionVueParametrePhyto());
    Requete::lancer(base, QStringLiteral("INSERT INTO APPLICATIONPROPERTIES VALUES ('DbVersion', ?)"),
                    {VERSION_DONNEES.toString()});
    Requete::lancer(base, QStringLiteral("INSERT INTO TECHNIQUE VALUES (?)"), {VERSION_STRUCTURE.toString()});
    ecrireEffectifs(base);
    transaction.valider();
}
