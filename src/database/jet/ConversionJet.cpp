#include "database/jet/ConversionJet.h"

#include "database/DataEnvironment1.h"
#include "database/DefinitionTable.h"
#include "database/jet/EcritureTable.h"
#include "database/M_Structure_2002.h"
#include "database/Transaction.h"
#include "platform/Erreur.h"

#include <QFile>

namespace
{
using Colonne = DefinitionTable::Colonne;

constexpr int ERREUR_COMPTE = 3049; // a base that cannot be read, as Jet numbers it

constexpr const char *TABLES_DE_L_OUVERTURE[] = {"COULEURS_GRAPH", "TECHNIQUE", "APPLICATIONPROPERTIES"};
constexpr const char *TABLES_D_UNE_ETUDE[] = {"PRELEVEMENT", "MESURE_PHYSICO", "STATION_QUALITE"};

// "VARCHAR(8) COLLATE NOCASE" in its two parts.
Colonne colonne(const QString &nom, const Schema::Colonne &modele)
{
    const QString type = Schema::typeSql(modele);
    const qsizetype p = type.indexOf(QLatin1String(" COLLATE "));
    return {nom, p < 0 ? type : type.left(p), p < 0 ? QString() : type.mid(p + 9), false, {}};
}

Colonne colonneInconnue(const ColonneJet &c)
{
    switch (genreMagasin(c.type)) {
    case GenreMagasin::Texte:
        if (c.type == TypeJet::Texte && c.longueur > 0)
            return colonne(c.nom, {c.nom, Schema::Genre::Texte, c.longueur});
        return colonne(c.nom, {c.nom, Schema::Genre::Memo});
    case GenreMagasin::Entier:
        return colonne(c.nom, {c.nom, Schema::Genre::Entier});
    case GenreMagasin::Reel:
        return colonne(c.nom, {c.nom, Schema::Genre::Reel});
    case GenreMagasin::OuiNon:
        return colonne(c.nom, {c.nom, Schema::Genre::OuiNon});
    case GenreMagasin::Nombre:
        return {c.nom, QStringLiteral("NUMERIC"), {}, false, {}};
    case GenreMagasin::Octets:
        return {c.nom, QStringLiteral("BLOB"), {}, false, {}};
    default:
        return colonne(c.nom, {c.nom, Schema::Genre::DateHeure});
    }
}

// A column of the file that the schema knows: its kind, with the length that the file gives a text.
Colonne colonneConnue(const ColonneJet &c, const Schema::Colonne &modele)
{
    Schema::Colonne selonLeFichier = modele;
    if (modele.genre == Schema::Genre::Texte && c.type == TypeJet::Texte && c.longueur > 0)
        selonLeFichier.longueur = c.longueur;
    return colonne(modele.nom, selonLeFichier);
}

void ajouterCles(const Schema::Table &modele, DefinitionTable &d)
{
    d.nomCle = modele.nomCle;
    for (const Schema::Colonne &c : modele.colonnes) {
        const qsizetype position = d.position(c.nom);
        if (position < 0)
            continue;
        if (c.cle)
            d.cle << c.nom;
        if (c.unique)
            d.uniques << QStringList{c.nom};
        d.colonnes[position].nonNulle = c.nonNul;
    }
}

// Whether a foreign key may refer to this column of the schema.
bool estCible(const QString &table, const QString &colonne)
{
    const Schema::Table *modele = Schema::table(table);
    const qsizetype position = modele ? modele->position(colonne) : -1;
    return position >= 0 && (modele->colonnes[position].cle || modele->colonnes[position].unique);
}

void ajouterRelations(const LecteurJet &lecteur, DefinitionTable &d)
{
    for (const RelationJet &r : lecteur.relations()) {
        if (!r.imposee || r.colonnes.size() != 1 || r.table.compare(d.nom, Qt::CaseInsensitive) != 0 ||
            d.position(r.colonnes[0]) < 0 || !lecteur.table(r.tableCible) ||
            !estCible(r.tableCible, r.colonnesCible[0]))
            continue;
        const Schema::Table *cible = Schema::table(r.tableCible);
        d.clesEtrangeres << DefinitionTable::CleEtrangere{
            r.nom,          {d.colonnes[d.position(r.colonnes[0])].nom},
            cible->nom,     {cible->colonnes[cible->position(r.colonnesCible[0])].nom},
            r.majEnCascade, r.suppressionEnCascade};
    }
}

// The table of the store for one of the file: the file's columns in its order, then those that it lacks.
DefinitionTable definition(const LecteurJet &lecteur, const TableJet &table)
{
    const Schema::Table *modele = Schema::table(table.nom);
    DefinitionTable d;
    d.nom = modele ? modele->nom : table.nom;
    for (const ColonneJet &c : table.colonnes) {
        const qsizetype p = modele ? modele->position(c.nom) : -1;
        d.colonnes << (p < 0 ? colonneInconnue(c) : colonneConnue(c, modele->colonnes[p]));
    }
    if (modele) {
        for (const Schema::Colonne &c : modele->colonnes)
            if (d.position(c.nom) < 0)
                d.colonnes << colonne(c.nom, c);
        ajouterCles(*modele, d);
    }
    ajouterRelations(lecteur, d);
    return d;
}

QList<GenreMagasin> genres(const TableJet &table)
{
    const Schema::Table *modele = Schema::table(table.nom);
    QList<GenreMagasin> liste;
    for (const ColonneJet &c : table.colonnes) {
        const qsizetype p = modele ? modele->position(c.nom) : -1;
        liste << (p < 0 ? genreMagasin(c.type) : genreMagasin(modele->colonnes[p].genre));
    }
    return liste;
}

// A key that its rows did not bear is gone: what refers to it goes too.
void retirerClesSansCible(const QSqlDatabase &base)
{
    for (const QString &table : Structure::tables(base)) {
        DefinitionTable d = DefinitionTable::lire(base, table);
        if (d.clesEtrangeres.removeIf([&](const DefinitionTable::CleEtrangere &e) {
                return !Structure::estUnique(base, e.tableCible, e.colonnesCible.value(0));
            }) > 0)
            d.reconstruire(base);
    }
}

void verifierComptes(const QSqlDatabase &base, const QHash<QString, qint64> &lues)
{
    for (auto i = lues.begin(); i != lues.end(); ++i) {
        Requete r(base, QStringLiteral("SELECT count(*) FROM ") + Structure::citer(i.key()), {});
        if (!r.suivant() || r.valeur(0).toLongLong() != i.value())
            throw Erreur(
                ERREUR_COMPTE,
                QStringLiteral("La conversion de la table « %1 » n'a pas le bon nombre d'enregistrements. "
                               "Le fichier n'a pas été modifié.")
                    .arg(i.key()));
    }
}
} // namespace

bool ConversionJet::estUneEtude(const LecteurJet &lecteur)
{
    return std::all_of(std::begin(TABLES_D_UNE_ETUDE), std::end(TABLES_D_UNE_ETUDE),
                       [&](const char *nom) { return lecteur.table(QLatin1String(nom)) != nullptr; });
}

void ConversionJet::convertir(LecteurJet &lecteur, const QString &magasin)
{
    if (!QFile::exists(magasin))
        QFile(magasin).open(QIODevice::WriteOnly | QIODevice::NewOnly);
    DataEnvironment1 donnees;
    donnees.ouvrir(magasin, false);
    // The store counts only once it is whole and forced onto the disk.
    for (const char *reglage : {"journal_mode = MEMORY", "synchronous = OFF", "foreign_keys = OFF"})
        donnees.executer(QStringLiteral("PRAGMA ") + QLatin1String(reglage));
    const QSqlDatabase &base = donnees.Connect_Bdd();

    donnees.executer(QStringLiteral("BEGIN"));
    for (const TableJet &table : lecteur.tables())
        donnees.executer(definition(lecteur, table).instruction());
    QHash<QString, qint64> lues;
    bool assouplie = false;
    {
        std::unique_ptr<EcritureTable> ecriture;
        const TableJet *courante = nullptr;
        lecteur.lire([&](const TableJet &table, const std::vector<ValeurJet> &ligne) {
            if (&table != courante) {
                assouplie |= ecriture && ecriture->assouplie();
                ecriture.reset();
                ecriture = std::make_unique<EcritureTable>(base, definition(lecteur, table), genres(table));
                courante = &table;
            }
            ecriture->ajouter(ligne);
            ++lues[table.nom];
        });
        assouplie |= ecriture && ecriture->assouplie();
    }
    if (assouplie)
        retirerClesSansCible(base);
    donnees.executer(QStringLiteral("COMMIT"));
    for (const TableJet &table : lecteur.tables())
        lues.insert(table.nom, lues.value(table.nom));
    verifierComptes(base, lues);
}

void ConversionJet::completer(const DataEnvironment1 &donnees)
{
    const QSqlDatabase &base = donnees.Connect_Bdd();
    const ReglagesStructure reglages(base);
    Transaction transaction(base);
    for (const Schema::Table &t : Schema::tables()) {
        const bool autre = std::any_of(std::begin(TABLES_DE_L_OUVERTURE), std::end(TABLES_DE_L_OUVERTURE),
                                       [&](const char *nom) { return t.nom == QLatin1String(nom); });
        if (!autre && !Structure::tableExiste(base, t.nom))
            Schema::creerTable(base, t.nom);
    }
    for (const Schema::CleEtrangere &e : Schema::clesEtrangeres()) {
        const QList<DefinitionTable::CleEtrangere> siennes =
            DefinitionTable::lire(base, e.table).clesEtrangeres;
        const bool faite =
            std::any_of(siennes.begin(), siennes.end(), [&](const DefinitionTable::CleEtrangere &s) {
                return s.nom == e.nom && s.majEnCascade && s.suppressionEnCascade == e.suppressionEnCascade;
            });
        if (!faite)
            M_Structure_2002::RefaireClesEtrangeres(donnees, e.table);
    }
    if (!Structure::vueExiste(base, QStringLiteral("PARAMETRE_PHYTO")) &&
        !Structure::tableExiste(base, QStringLiteral("PARAMETRE_PHYTO")))
        donnees.executer(Schema::instructionVueParametrePhyto());
    for (const Schema::Index &i : Schema::index())
        if (Structure::tableExiste(base, i.table) &&
            !Requete(base, QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'index' AND name = ?"),
                     {i.nom})
                 .suivant())
            donnees.executer(Schema::instructionIndex(i));
    transaction.valider();
    donnees.oublierMemoire();
}
