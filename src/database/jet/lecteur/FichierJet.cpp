#include "database/jet/lecteur/FichierJet.h"

#include <mdbtools.h>

#include <algorithm>
#include <cstring>
#include <sys/stat.h>

using namespace ProtocoleJet;

namespace
{
constexpr int LIGNE_EFFACEE = 0x4000; // erased, or moved to another place where it is met again
constexpr int MASQUE_POSITION = 0x1fff;
constexpr std::size_t ENTETE_LONG = 12; // of a long value, in its row
constexpr std::uint32_t LONG_DANS_LIGNE = 0x80000000U;
constexpr std::uint32_t LONG_DANS_PAGE = 0x40000000U;
constexpr std::uint32_t LONG_TAILLE = 0x3fffffffU;

struct TableLue {
    MdbTableDef *definition = nullptr;
    bool deLUtilisateur = true;
};

std::uint64_t mot64(const unsigned char *p)
{
    std::uint64_t v = 0;
    for (int i = 7; i >= 0; --i)
        v = (v << 8) | p[i];
    return v;
}

double reel64(const unsigned char *p)
{
    const std::uint64_t bits = mot64(p);
    double v = 0;
    std::memcpy(&v, &bits, sizeof v);
    return v;
}

// Bytes that a value of this type has when it is not null; 0: any number.
std::size_t tailleFixe(int type)
{
    switch (type) {
    case MDB_BYTE:
        return 1;
    case MDB_INT:
        return 2;
    case MDB_LONGINT:
    case MDB_COMPLEX:
    case MDB_FLOAT:
        return 4;
    case MDB_DOUBLE:
    case MDB_DATETIME:
    case MDB_MONEY:
        return 8;
    case MDB_REPID:
        return 16;
    case MDB_NUMERIC:
        return 17;
    default:
        return 0;
    }
}
} // namespace

struct FichierJet::Interne {
    MdbHandle *mdb = nullptr;
    std::vector<TableLue> tables;
    std::string accessVersion;
    bool aUneVersion = false;
    std::vector<char> tampon;
    std::string longue;

    bool jet3() const { return mdb->f->jet_version == MDB_VER_JET3; }
    std::size_t taillePage() const { return static_cast<std::size_t>(mdb->fmt->pg_size); }

    void verifierTaille() const;
    void lireCatalogue();
    void lirePropriete(const MdbCatalogEntry *entree);
    void ajouterTable(MdbCatalogEntry *entree, bool deLUtilisateur);
    void ecrireDefinition(const TableLue &table, Sortie &sortie) const;
    bool ecrireTable(const TableLue &table, Sortie &sortie);
    void ecrireValeur(MdbColumn *colonne, const MdbField &champ, Sortie &sortie);
    void ecrireTexte(const char *source, std::size_t taille, Sortie &sortie);
    const std::string &valeurLongue(const MdbColumn *colonne, const MdbField &champ);
    std::string morceau(const MdbColumn *colonne, std::uint32_t adresse) const;
};

FichierJet::FichierJet(const char *chemin) : m_interne(std::make_unique<Interne>())
{
    // Jet 3 texts have no code page of their own; the library asks the environment.
    setenv("MDB_JET3_CHARSET", "CP1252", 1);
    setenv("MDBICONV", "UTF-8", 1);
    m_interne->mdb = mdb_open(chemin, MDB_NOFLAGS);
    if (!m_interne->mdb)
        throw EchecLecture(Motif::PasLisible, {});
    m_interne->verifierTaille();
    m_interne->lireCatalogue();
}

FichierJet::~FichierJet() =
    default; // the process ends: nothing is worth the risk of freeing damaged structures

void FichierJet::Interne::verifierTaille() const
{
    struct stat etat = {};
    if (fstat(fileno(mdb->f->stream), &etat) != 0 || etat.st_size % static_cast<off_t>(taillePage()) != 0)
        throw EchecLecture(Motif::Tronque, {});
}

void FichierJet::Interne::lireCatalogue()
{
    const GPtrArray *catalogue = mdb_read_catalog(mdb, MDB_ANY);
    if (!catalogue)
        throw EchecLecture(Motif::PasLisible, {});
    for (guint i = 0; i < catalogue->len; ++i) {
        auto *entree = static_cast<MdbCatalogEntry *>(g_ptr_array_index(catalogue, i));
        if (mdb_is_user_table(entree))
            ajouterTable(entree, true);
        else if (mdb_is_system_table(entree) && std::strcmp(entree->object_name, "MSysRelationships") == 0)
            ajouterTable(entree, false);
        else if (std::strcmp(entree->object_name, "MSysDb") == 0)
            lirePropriete(entree);
    }
}

// AccessVersion is a property of the database itself, which has no name of its own in the list.
void FichierJet::Interne::lirePropriete(const MdbCatalogEntry *entree)
{
    if (!entree->props)
        return;
    for (guint i = 0; i < entree->props->len; ++i) {
        const auto *proprietes = static_cast<MdbProperties *>(g_ptr_array_index(entree->props, i));
        if (proprietes->name || !proprietes->hash)
            continue;
        const auto *valeur =
            static_cast<const char *>(g_hash_table_lookup(proprietes->hash, "AccessVersion"));
        if (valeur) {
            aUneVersion = true;
            accessVersion = valeur;
        }
    }
}

void FichierJet::Interne::ajouterTable(MdbCatalogEntry *entree, bool deLUtilisateur)
{
    MdbTableDef *definition = mdb_read_table(entree);
    if (!definition || !mdb_read_columns(definition) || definition->num_cols > MDB_MAX_COLS)
        throw EchecLecture(Motif::TableIllisible, entree->object_name);
    tables.push_back({definition, deLUtilisateur});
}

void FichierJet::ecrireStructure(Sortie &sortie)
{
    sortie.commencer(Genre::Entete);
    sortie.octet(m_interne->jet3() ? 3 : 4);
    sortie.octet(m_interne->aUneVersion ? 1 : 0);
    sortie.texte(m_interne->accessVersion);
    sortie.finir();
    for (const TableLue &table : m_interne->tables)
        if (!table.deLUtilisateur) {
            m_interne->ecrireDefinition(table, sortie);
            m_interne->ecrireTable(table, sortie);
        }
    for (const TableLue &table : m_interne->tables)
        if (table.deLUtilisateur)
            m_interne->ecrireDefinition(table, sortie);
    sortie.commencer(Genre::FinStructure);
    sortie.finir();
    sortie.vider();
}

void FichierJet::Interne::ecrireDefinition(const TableLue &table, Sortie &sortie) const
{
    const MdbTableDef *d = table.definition;
    sortie.commencer(Genre::Table);
    sortie.texte(d->name);
    sortie.octet(table.deLUtilisateur ? 1 : 0);
    sortie.entier(d->num_rows);
    sortie.mot(static_cast<std::uint16_t>(d->num_cols));
    for (guint i = 0; i < d->num_cols; ++i) {
        const auto *c = static_cast<MdbColumn *>(g_ptr_array_index(d->columns, i));
        sortie.texte(c->name);
        sortie.octet(static_cast<std::uint8_t>(c->col_type));
        // Jet 4 counts the bytes of a text, two a character.
        const bool caracteresDoubles = c->col_type == MDB_TEXT && !jet3();
        sortie.mot(static_cast<std::uint16_t>(c->col_size / (caracteresDoubles ? 2 : 1)));
        sortie.octet(c->is_long_auto);
    }
    sortie.finir();
}

void FichierJet::ecrireLignes(Sortie &sortie)
{
    for (const TableLue &table : m_interne->tables)
        if (table.deLUtilisateur && !m_interne->ecrireTable(table, sortie))
            return;
    sortie.commencer(Genre::Fin);
    sortie.finir();
    sortie.vider();
}

bool FichierJet::Interne::ecrireTable(const TableLue &table, Sortie &sortie)
{
    MdbTableDef *d = table.definition;
    std::vector<MdbField> champs(std::max<std::size_t>(d->num_cols, 1));
    std::uint32_t lues = 0;
    mdb_rewind_table(d);
    while (d->num_cols > 0 && mdb_read_next_dpg(d)) {
        const auto lignes = static_cast<unsigned>(mdb_get_int16(mdb->pg_buf, mdb->fmt->row_count_offset));
        // Each row has two bytes of its own after the count.
        if (mdb->fmt->row_count_offset + 2 + 2 * std::size_t{lignes} > taillePage())
            throw EchecLecture(Motif::LigneIllisible, d->name);
        for (unsigned ligne = 0; ligne < lignes; ++ligne) {
            int debut = 0;
            std::size_t taille = 0;
            if (mdb_find_row(mdb, static_cast<int>(ligne), &debut, &taille) != 0)
                throw EchecLecture(Motif::LigneIllisible, d->name);
            if ((debut & LIGNE_EFFACEE) != 0 || taille == 0)
                continue;
            debut &= MASQUE_POSITION;
            if (mdb_crack_row(d, debut, taille, champs.data()) < 0)
                throw EchecLecture(Motif::LigneIllisible, d->name);
            sortie.commencer(Genre::Ligne);
            for (guint i = 0; i < d->num_cols; ++i) {
                auto *colonne = static_cast<MdbColumn *>(g_ptr_array_index(d->columns, i));
                const MdbField &champ = champs[i];
                const bool present = !champ.is_null && colonne->col_type != MDB_BOOL;
                if (present && (champ.siz < 0 || champ.start < debut ||
                                static_cast<std::size_t>(champ.start) + static_cast<std::size_t>(champ.siz) >
                                    static_cast<std::size_t>(debut) + taille))
                    throw EchecLecture(Motif::LigneIllisible, d->name);
                ecrireValeur(colonne, champ, sortie);
            }
            ++lues;
            if (!sortie.finir())
                return false;
        }
    }
    // A base that was not closed properly announces no row at all; any other difference is a loss.
    if (lues != d->num_rows && d->num_rows != 0)
        throw EchecLecture(Motif::CompteFaux, d->name);
    sortie.commencer(Genre::FinTable);
    sortie.entier(lues);
    return sortie.finir();
}

void FichierJet::Interne::ecrireValeur(MdbColumn *colonne, const MdbField &champ, Sortie &sortie)
{
    const int type = colonne->col_type;
    if (type == MDB_BOOL) { // its null bit is its value
        sortie.valeur(champ.is_null ? Valeur::Faux : Valeur::Vrai);
        return;
    }
    if (champ.is_null) {
        sortie.valeur(Valeur::Nulle);
        return;
    }
    const unsigned char *octets = mdb->pg_buf + champ.start;
    const auto taille = static_cast<std::size_t>(champ.siz);
    if (taille < tailleFixe(type))
        throw EchecLecture(Motif::LigneIllisible, colonne->table->name);
    switch (type) {
    case MDB_BYTE:
        sortie.valeur(Valeur::Entier);
        sortie.entierLong(octets[0]);
        break;
    case MDB_INT:
        sortie.valeur(Valeur::Entier);
        sortie.entierLong(static_cast<std::int16_t>(mdb_get_int16(mdb->pg_buf, champ.start)));
        break;
    case MDB_LONGINT:
    case MDB_COMPLEX:
        sortie.valeur(Valeur::Entier);
        sortie.entierLong(static_cast<std::int32_t>(mdb_get_int32(mdb->pg_buf, champ.start)));
        break;
    case MDB_MONEY: // ten-thousandths
        sortie.valeur(Valeur::Reel);
        sortie.reel(static_cast<double>(static_cast<std::int64_t>(mot64(octets))) / 10000.0);
        break;
    case MDB_FLOAT:
        sortie.valeur(Valeur::Simple);
        sortie.simple(mdb_get_single(mdb->pg_buf, champ.start));
        break;
    case MDB_DOUBLE:
        sortie.valeur(Valeur::Reel);
        sortie.reel(reel64(octets));
        break;
    case MDB_DATETIME:
        sortie.valeur(Valeur::DateHeure);
        sortie.reel(reel64(octets));
        break;
    case MDB_TEXT:
        ecrireTexte(reinterpret_cast<const char *>(octets), taille, sortie);
        break;
    case MDB_MEMO: {
        const std::string &texte = valeurLongue(colonne, champ);
        ecrireTexte(texte.data(), texte.size(), sortie);
        break;
    }
    case MDB_OLE:
        sortie.valeur(Valeur::Octets);
        sortie.texte(valeurLongue(colonne, champ));
        break;
    case MDB_REPID:
    case MDB_NUMERIC: {
        char *texte = type == MDB_REPID
                          ? mdb_uuid_to_string(mdb->pg_buf, champ.start)
                          : mdb_numeric_to_string(mdb, champ.start, colonne->col_scale, colonne->col_prec);
        sortie.valeur(Valeur::Texte);
        sortie.texte(texte ? texte : "");
        g_free(texte);
        break;
    }
    default:
        sortie.valeur(Valeur::Octets);
        sortie.texte({reinterpret_cast<const char *>(octets), taille});
    }
}

void FichierJet::Interne::ecrireTexte(const char *source, std::size_t taille, Sortie &sortie)
{
    sortie.valeur(Valeur::Texte);
    // The library takes the characters of Jet 4 two bytes at a time, whatever is left.
    const bool comprime = taille >= 2 && static_cast<unsigned char>(source[0]) == 0xff &&
                          static_cast<unsigned char>(source[1]) == 0xfe;
    if (!jet3() && !comprime)
        taille &= ~std::size_t{1};
    if (taille == 0 || (comprime && taille == 2)) {
        sortie.texte({});
        return;
    }
    // A byte or a pair of bytes becomes at most three in UTF-8; a compressed text has a byte for a character.
    tampon.resize(3 * taille + 16);
    const int longueur = mdb_unicode2ascii(mdb, source, taille, tampon.data(), tampon.size());
    sortie.texte({tampon.data(), static_cast<std::size_t>(std::max(longueur, 0))});
}

// A memo or a picture: in the row itself, in one place of another page, or in a chain of pieces.
const std::string &FichierJet::Interne::valeurLongue(const MdbColumn *colonne, const MdbField &champ)
{
    const auto taille = static_cast<std::size_t>(champ.siz);
    longue.clear();
    if (taille == 0)
        return longue;
    if (taille < ENTETE_LONG)
        throw EchecLecture(Motif::LigneIllisible, colonne->table->name);
    const auto annonce = static_cast<std::uint32_t>(mdb_get_int32(mdb->pg_buf, champ.start));
    const auto adresse = static_cast<std::uint32_t>(mdb_get_int32(mdb->pg_buf, champ.start + 4));
    const std::size_t attendue = annonce & LONG_TAILLE;
    if (annonce & LONG_DANS_LIGNE) {
        longue.assign(reinterpret_cast<const char *>(mdb->pg_buf) + champ.start + ENTETE_LONG,
                      taille - ENTETE_LONG);
        return longue;
    }
    if (attendue > LONGUEUR_MAXIMALE)
        throw EchecLecture(Motif::LigneIllisible, colonne->table->name);
    if (annonce & LONG_DANS_PAGE) {
        longue = morceau(colonne, adresse);
    } else {
        std::uint32_t suivant = adresse;
        while (suivant != 0 && longue.size() < attendue) {
            const std::string piece = morceau(colonne, suivant);
            // Its first four bytes are the address of the next; a piece without more would turn round for ever.
            if (piece.size() <= 4)
                throw EchecLecture(Motif::LigneIllisible, colonne->table->name);
            longue.append(piece, 4);
            suivant = static_cast<std::uint32_t>(mdb_get_int32(const_cast<char *>(piece.data()), 0));
        }
    }
    if (longue.size() < attendue)
        throw EchecLecture(Motif::LigneIllisible, colonne->table->name);
    longue.resize(attendue);
    return longue;
}

std::string FichierJet::Interne::morceau(const MdbColumn *colonne, std::uint32_t adresse) const
{
    void *page = nullptr;
    int debut = 0;
    std::size_t taille = 0;
    if (mdb_find_pg_row(mdb, static_cast<int>(adresse), &page, &debut, &taille) != 0 || debut < 0 ||
        static_cast<std::size_t>(debut) + taille > taillePage())
        throw EchecLecture(Motif::LigneIllisible, colonne->table->name);
    return {static_cast<const char *>(page) + debut, taille};
}
