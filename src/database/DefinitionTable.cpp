#include "database/DefinitionTable.h"

#include "database/Requete.h"
#include "database/Schema.h"
#include "database/Transaction.h"
#include "platform/Erreur.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <sqlite3.h>

namespace
{
bool memeNom(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool memesNoms(const QStringList &a, const QStringList &b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), memeNom);
}

QString liste(const QStringList &noms)
{
    QStringList cites;
    for (const QString &nom : noms)
        cites << Structure::citer(nom);
    return cites.join(QLatin1String(", "));
}

// The engine tells a collation only through its own interface.
QString collation(const QSqlDatabase &base, const QString &table, const QString &colonne)
{
    sqlite3 *poignee = *static_cast<sqlite3 *const *>(base.driver()->handle().constData());
    const char *nom = nullptr;
    if (sqlite3_table_column_metadata(poignee, "main", table.toUtf8().constData(),
                                      colonne.toUtf8().constData(), nullptr, &nom, nullptr, nullptr,
                                      nullptr) != SQLITE_OK ||
        !nom)
        return {};
    const QString texte = QString::fromUtf8(nom);
    return memeNom(texte, QStringLiteral("BINARY")) ? QString() : texte;
}

// Names of constraints stand in the text of the table's statement only.
QString nomDeContrainte(const QString &instruction, const QString &genre, const QStringList &colonnes)
{
    static const QString nom = QStringLiteral(R"re((\[[^\]]+\]|"[^"]+"|`[^`]+`|\w+))re");
    const QRegularExpression motif(
        QStringLiteral(R"re(\bCONSTRAINT\s+%1\s+%2\s*\(([^)]*)\))re").arg(nom, genre),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    const auto nu = [](QString t) {
        t = t.trimmed();
        static const QString ouvrants = QStringLiteral("[\"`");
        return t.size() > 1 && ouvrants.contains(t[0]) ? t.mid(1, t.size() - 2) : t;
    };
    QRegularExpressionMatchIterator i = motif.globalMatch(instruction);
    while (i.hasNext()) {
        const QRegularExpressionMatch m = i.next();
        QStringList trouvees;
        for (const QString &c : m.captured(2).split(u','))
            trouvees << nu(c);
        if (memesNoms(trouvees, colonnes))
            return nu(m.captured(1));
    }
    return {};
}

bool estTexte(const QString &type)
{
    return type.contains(QLatin1String("CHAR"), Qt::CaseInsensitive) ||
           type.contains(QLatin1String("TEXT"), Qt::CaseInsensitive);
}

// The value of a column as another type means it: the number 3 is the text "3", not "3.0"; a typed "12,5" is a number.
QString conversion(const QString &colonne, const QString &ancienType, const QString &nouveauType)
{
    if (estTexte(nouveauType) == estTexte(ancienType))
        return colonne;
    if (estTexte(nouveauType))
        return QStringLiteral(
                   "CASE WHEN typeof(%1) = 'real' AND %1 = CAST(%1 AS INTEGER) THEN CAST(%1 AS INTEGER) "
                   "ELSE %1 END")
            .arg(colonne);
    return QStringLiteral(
               "CASE typeof(%1) WHEN 'text' THEN nullif(replace(trim(%1), ',', '.'), '') ELSE %1 END")
        .arg(colonne);
}

QString action(bool cascade)
{
    return cascade ? QStringLiteral(" CASCADE") : QStringLiteral(" NO ACTION");
}

void lireColonnes(const QSqlDatabase &base, DefinitionTable &d)
{
    QList<std::pair<int, QString>> cle;
    Requete r(base, QStringLiteral("SELECT name, type, [notnull], dflt_value, pk FROM pragma_table_info(?)"),
              {d.nom});
    while (r.suivant()) {
        DefinitionTable::Colonne c{r.texte(0), r.texte(1), collation(base, d.nom, r.texte(0)),
                                   r.valeur(2).toBool(), r.texte(3)};
        if (const int rang = r.valeur(4).toInt(); rang > 0)
            cle.append({rang, c.nom});
        d.colonnes << c;
    }
    std::sort(cle.begin(), cle.end());
    for (const auto &[rang, nom] : cle)
        d.cle << nom;
}

QStringList colonnesDIndex(const QSqlDatabase &base, const QString &index)
{
    QStringList noms;
    Requete r(base, QStringLiteral("SELECT name FROM pragma_index_info(?) ORDER BY seqno"), {index});
    while (r.suivant())
        noms << r.texte(0);
    return noms;
}

void lireContraintes(const QSqlDatabase &base, DefinitionTable &d, const QString &instruction)
{
    d.nomCle = nomDeContrainte(instruction, QStringLiteral(R"(PRIMARY\s+KEY)"), d.cle);
    QStringList uniques;
    {
        Requete r(
            base,
            QStringLiteral("SELECT name FROM pragma_index_list(?) WHERE origin = 'u' ORDER BY seq DESC"),
            {d.nom});
        while (r.suivant())
            uniques << r.texte(0);
    }
    for (const QString &index : uniques)
        d.uniques << colonnesDIndex(base, index);

    Requete r(base,
              QStringLiteral(
                  "SELECT id, [table], [from], [to], on_update, on_delete FROM pragma_foreign_key_list(?) "
                  "ORDER BY id DESC, seq"),
              {d.nom});
    int precedente = -1;
    while (r.suivant()) {
        if (r.valeur(0).toInt() != precedente) {
            precedente = r.valeur(0).toInt();
            d.clesEtrangeres << DefinitionTable::CleEtrangere{
                {}, {}, r.texte(1), {}, r.texte(4) == u"CASCADE", r.texte(5) == u"CASCADE"};
        }
        d.clesEtrangeres.last().colonnes << r.texte(2);
        if (!r.texte(3).isEmpty())
            d.clesEtrangeres.last().colonnesCible << r.texte(3);
    }
    for (DefinitionTable::CleEtrangere &e : d.clesEtrangeres)
        e.nom = nomDeContrainte(instruction, QStringLiteral(R"(FOREIGN\s+KEY)"), e.colonnes);
}
} // namespace

DefinitionTable DefinitionTable::lire(const QSqlDatabase &base, const QString &table)
{
    Requete r(base,
              QStringLiteral(
                  "SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"),
              {table});
    if (!r.suivant())
        throw Erreur(SQLITE_ERROR, QStringLiteral("La table « %1 » n'existe pas.").arg(table));
    DefinitionTable d;
    d.nom = r.texte(0);
    const QString instruction = r.texte(1);
    r.finir();
    lireColonnes(base, d);
    lireContraintes(base, d, instruction);
    return d;
}

qsizetype DefinitionTable::position(const QString &colonne) const
{
    for (qsizetype i = 0; i < colonnes.size(); ++i)
        if (memeNom(colonnes[i].nom, colonne))
            return i;
    return -1;
}

void DefinitionTable::retirerCleEtrangere(const CleEtrangere &retiree)
{
    clesEtrangeres.removeIf([&](const CleEtrangere &e) {
        return (!e.nom.isEmpty() && memeNom(e.nom, retiree.nom)) ||
               (memesNoms(e.colonnes, retiree.colonnes) && memeNom(e.tableCible, retiree.tableCible));
    });
}

QString DefinitionTable::instruction(const QString &sousLeNom) const
{
    QStringList lignes;
    for (const Colonne &c : colonnes) {
        QString ligne = Structure::citer(c.nom) + u' ' + c.type;
        if (!c.collation.isEmpty())
            ligne += QStringLiteral(" COLLATE ") + c.collation;
        if (c.nonNulle)
            ligne += QStringLiteral(" NOT NULL");
        if (!c.defaut.isEmpty())
            ligne += QStringLiteral(" DEFAULT (%1)").arg(c.defaut);
        lignes << ligne;
    }
    if (!cle.isEmpty())
        lignes << (nomCle.isEmpty() ? QString()
                                    : QStringLiteral("CONSTRAINT %1 ").arg(Structure::citer(nomCle))) +
                      QStringLiteral("PRIMARY KEY (%1)").arg(liste(cle));
    for (const QStringList &u : uniques)
        lignes << QStringLiteral("UNIQUE (%1)").arg(liste(u));
    for (const CleEtrangere &e : clesEtrangeres) {
        QString ligne =
            e.nom.isEmpty() ? QString() : QStringLiteral("CONSTRAINT %1 ").arg(Structure::citer(e.nom));
        ligne += QStringLiteral("FOREIGN KEY (%1) REFERENCES %2")
                     .arg(liste(e.colonnes), Structure::citer(e.tableCible));
        if (!e.colonnesCible.isEmpty())
            ligne += QStringLiteral(" (%1)").arg(liste(e.colonnesCible));
        ligne += QStringLiteral(" ON UPDATE") + action(e.majEnCascade);
        ligne += QStringLiteral(" ON DELETE") + action(e.suppressionEnCascade);
        lignes << ligne;
    }
    return QStringLiteral("CREATE TABLE %1 (\n  %2\n)")
        .arg(Structure::citer(sousLeNom), lignes.join(QLatin1String(",\n  ")));
}

void DefinitionTable::reconstruire(const QSqlDatabase &base) const
{
    const DefinitionTable ancienne = lire(base, nom);
    const QString provisoire = QStringLiteral("Transpo_OVRA_") + nom;
    QStringList communes;
    QStringList valeurs;
    for (const Colonne &c : colonnes)
        if (const qsizetype p = ancienne.position(c.nom); p >= 0) {
            communes << c.nom;
            valeurs << conversion(Structure::citer(c.nom), ancienne.colonnes[p].type, c.type);
        }
    QStringList aRefaire;
    for (const Structure::Index &i : Structure::index(base, nom)) {
        // An index of a column that is no more goes with it.
        const QStringList siennes = colonnesDIndex(base, i.nom);
        if (std::all_of(siennes.begin(), siennes.end(),
                        [&](const QString &c) { return c.isEmpty() || position(c) >= 0; }))
            aRefaire << i.instruction;
    }
    {
        Requete r(base,
                  QStringLiteral(
                      "SELECT sql FROM sqlite_master WHERE type = 'trigger' AND tbl_name = ? COLLATE NOCASE"),
                  {nom});
        while (r.suivant())
            aRefaire << r.texte(0);
    }

    // Foreign keys off: the old table is dropped while others refer to it. Old way of renaming: what refers to the
    // table, by its name, is left as it is.
    const ReglagesStructure reglages(base);
    Transaction transaction(base);
    Requete::lancer(base, QStringLiteral("DROP TABLE IF EXISTS %1").arg(Structure::citer(provisoire)));
    Requete::lancer(base, instruction(provisoire));
    if (!communes.isEmpty())
        Requete::lancer(base,
                        QStringLiteral("INSERT INTO %1 (%2) SELECT %3 FROM %4 ORDER BY rowid")
                            .arg(Structure::citer(provisoire), liste(communes),
                                 valeurs.join(QLatin1String(", ")), Structure::citer(nom)),
                        {});
    Requete::lancer(base, QStringLiteral("DROP TABLE %1").arg(Structure::citer(nom)));
    Requete::lancer(base,
                    QStringLiteral("ALTER TABLE %1 RENAME TO %2")
                        .arg(Structure::citer(provisoire), Structure::citer(nom)),
                    {});
    for (const QString &sql : aRefaire)
        Requete::lancer(base, sql);
    transaction.valider();
}

QString Structure::citer(const QString &nom)
{
    if (!nom.contains(u']'))
        return Schema::entreCrochets(nom);
    return u'"' + QString(nom).replace(u'"', QLatin1String("\"\"")) + u'"';
}

QStringList Structure::tables(const QSqlDatabase &base)
{
    QStringList noms;
    Requete r(
        base,
        QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' "
                       "ESCAPE '\\' ORDER BY name COLLATE NOCASE"),
        {});
    while (r.suivant())
        noms << r.texte(0);
    return noms;
}

bool Structure::tableExiste(const QSqlDatabase &base, const QString &table)
{
    return Requete(
               base,
               QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"),
               {table})
        .suivant();
}

bool Structure::vueExiste(const QSqlDatabase &base, const QString &vue)
{
    return Requete(
               base,
               QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'view' AND name = ? COLLATE NOCASE"),
               {vue})
        .suivant();
}

QStringList Structure::colonnes(const QSqlDatabase &base, const QString &table)
{
    QStringList noms;
    Requete r(base, QStringLiteral("SELECT name FROM pragma_table_info(?) ORDER BY cid"), {table});
    while (r.suivant())
        noms << r.texte(0);
    return noms;
}

bool Structure::colonneExiste(const QSqlDatabase &base, const QString &table, const QString &colonne)
{
    return colonnes(base, table).contains(colonne, Qt::CaseInsensitive);
}

bool Structure::estUnique(const QSqlDatabase &base, const QString &table, const QString &colonne)
{
    if (!tableExiste(base, table))
        return false;
    if (memesNoms(DefinitionTable::lire(base, table).cle, {colonne}))
        return true;
    QStringList uniques;
    Requete r(base, QStringLiteral("SELECT name FROM pragma_index_list(?) WHERE [unique] AND NOT partial"),
              {table});
    while (r.suivant())
        uniques << r.texte(0);
    return std::any_of(uniques.begin(), uniques.end(),
                       [&](const QString &i) { return memesNoms(colonnesDIndex(base, i), {colonne}); });
}

QList<Structure::Index> Structure::index(const QSqlDatabase &base, const QString &table,
                                         const QString &colonne)
{
    QList<Index> tous;
    {
        Requete r(
            base,
            QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL AND "
                           "tbl_name = ? COLLATE NOCASE"),
            {table});
        while (r.suivant())
            tous << Index{r.texte(0), r.texte(1)};
    }
    if (!colonne.isEmpty())
        tous.removeIf([&](const Index &i) {
            // A partial index names columns in its condition too.
            return !colonnesDIndex(base, i.nom).contains(colonne, Qt::CaseInsensitive) &&
                   !i.instruction.contains(colonne, Qt::CaseInsensitive);
        });
    return tous;
}
