#include "database/jet/FluxJet.h"

#include "platform/Erreur.h"

#include <bit>
#include <charconv>
#include <cstring>
#include <QtEndian>

using namespace ProtocoleJet;

namespace
{
constexpr int ERREUR_JET = 3049; // the number under which Jet itself reports a base it cannot read

// A stream of a sound file is about as long as the file; long texts in UTF-8 may be three times longer.
constexpr qint64 FACTEUR = 16;
constexpr qint64 MARGE = 16 << 20;

// Bits of MSysRelationships.grbit.
constexpr qint64 NON_IMPOSEE = 2;
constexpr qint64 MAJ_EN_CASCADE = 256;
constexpr qint64 SUPPRESSION_EN_CASCADE = 4096;

[[noreturn]] void fluxRompu()
{
    throw Erreur(ERREUR_JET,
                 QStringLiteral("La base de données Access est endommagée : sa lecture s'est arrêtée en "
                                "cours de route. Le fichier n'a pas été modifié. Ouvrez-le dans Access "
                                "et utilisez « Compacter et réparer une base de données »."));
}

double plusCourt(float v)
{
    // 0.1f is 0.1 for its author, not 0.10000000149011612.
    char texte[32];
    const auto [fin, erreur] = std::to_chars(texte, texte + sizeof texte, v);
    double resultat = static_cast<double>(v);
    if (erreur == std::errc())
        std::from_chars(texte, fin, resultat);
    return resultat;
}
} // namespace

// Takes values from the body of a record; beyond its end is a broken stream.
struct FluxJet::Curseur {
    const char *p;
    const char *fin;

    const char *prendre(qsizetype n)
    {
        if (n > fin - p)
            fluxRompu();
        const char *debut = p;
        p += n;
        return debut;
    }
    quint8 octet() { return static_cast<quint8>(*prendre(1)); }
    template <typename T> T nombre() { return qFromLittleEndian<T>(prendre(sizeof(T))); }
    QByteArrayView octets()
    {
        const auto taille = nombre<quint32>();
        if (taille > static_cast<quint64>(fin - p))
            fluxRompu();
        return {prendre(taille), static_cast<qsizetype>(taille)};
    }
    QString texte() { return QString::fromUtf8(octets()); }
};

FluxJet::FluxJet(Source source, qint64 tailleFichier)
    : m_source(std::move(source)), m_reste(MARGE + FACTEUR * tailleFichier)
{
}

FluxJet::Curseur FluxJet::corps() const
{
    const char *debut = m_tampon.constData() + m_debutCorps;
    return {debut, debut + m_tailleCorps};
}

// Moves to the next record; a record Echec is an Erreur.
Genre FluxJet::suivant()
{
    qsizetype voulue = TAILLE_ENTETE;
    bool enteteLu = false;
    for (;;) {
        const qsizetype la = m_tampon.size() - m_fin;
        if (la >= voulue) {
            if (enteteLu)
                break;
            const auto taille = qFromLittleEndian<quint32>(m_tampon.constData() + m_fin + 1);
            if (taille > TAILLE_MAXIMALE)
                fluxRompu();
            m_tailleCorps = taille;
            voulue += m_tailleCorps;
            enteteLu = true;
            continue;
        }
        m_tampon.remove(0, m_fin);
        m_fin = 0;
        const QByteArray plus = m_source();
        if (plus.isEmpty())
            fluxRompu();
        m_reste -= plus.size();
        if (m_reste < 0)
            fluxRompu();
        m_tampon += plus;
    }
    const auto genre = static_cast<Genre>(m_tampon[m_fin]);
    m_debutCorps = m_fin + TAILLE_ENTETE;
    m_fin += voulue;
    if (genre == Genre::Echec)
        echec();
    return genre;
}

void FluxJet::echec() const
{
    Curseur c = corps();
    const auto motif = static_cast<Motif>(c.octet());
    const QString table = c.texte().left(64);
    const QString conseil =
        QStringLiteral(" Le fichier n'a pas été modifié. Ouvrez-le dans Access et utilisez "
                       "« Compacter et réparer une base de données ».");
    switch (motif) {
    case Motif::TableIllisible:
        throw Erreur(
            ERREUR_JET,
            QStringLiteral("La base de données Access est endommagée : la structure de la table « %1 » "
                           "est illisible.")
                    .arg(table) +
                conseil);
    case Motif::LigneIllisible:
        throw Erreur(ERREUR_JET,
                     QStringLiteral("La base de données Access est endommagée : la table « %1 » a des "
                                    "enregistrements illisibles.")
                             .arg(table) +
                         conseil);
    case Motif::CompteFaux:
        throw Erreur(
            ERREUR_JET,
            QStringLiteral("La base de données Access est endommagée : la table « %1 » n'a pas le nombre "
                           "d'enregistrements qu'elle annonce.")
                    .arg(table) +
                conseil);
    case Motif::PasLisible:
        throw Erreur(ERREUR_JET,
                     QStringLiteral("La base de données Access est endommagée : la liste de ses tables "
                                    "est illisible.") +
                         conseil);
    case Motif::Tronque:
        throw Erreur(ERREUR_JET,
                     QStringLiteral("Le fichier de la base de données Access est incomplet : sa copie ou "
                                    "son téléchargement s'est sans doute interrompu. Le fichier n'a pas "
                                    "été modifié. Reprenez-le depuis son emplacement d'origine ou depuis "
                                    "une sauvegarde."));
    case Motif::Interne:
        break;
    }
    fluxRompu();
}

void FluxJet::lireStructure()
{
    if (suivant() != Genre::Entete)
        fluxRompu();
    Curseur c = corps();
    generation = c.octet();
    const bool aUneVersion = c.octet() != 0;
    const QString version = c.texte();
    if (aUneVersion)
        accessVersion = version;
    for (;;) {
        const Genre genre = suivant();
        if (genre == Genre::FinStructure)
            return;
        if (genre != Genre::Table)
            fluxRompu();
        lireTable();
    }
}

void FluxJet::lireTable()
{
    Curseur c = corps();
    TableJet table;
    table.nom = c.texte();
    const bool deLUtilisateur = c.octet() != 0;
    table.lignes = c.nombre<quint32>();
    const int colonnes = c.nombre<quint16>();
    for (int i = 0; i < colonnes; ++i) {
        ColonneJet colonne;
        colonne.nom = c.texte();
        colonne.type = static_cast<TypeJet>(c.octet());
        colonne.longueur = c.nombre<quint16>();
        colonne.numeroAuto = c.octet() != 0;
        table.colonnes << colonne;
    }
    if (deLUtilisateur)
        tables << table;
    else
        lireTableEntiere(table, [&] { lireRelation(table); });
}

// MSysRelationships has a row for each pair of columns.
void FluxJet::lireRelation(const TableJet &systeme)
{
    const auto valeur = [&](const char *nom) -> ValeurJet {
        for (qsizetype i = 0; i < systeme.colonnes.size(); ++i)
            if (systeme.colonnes[i].nom.compare(QLatin1String(nom), Qt::CaseInsensitive) == 0)
                return m_ligne[static_cast<std::size_t>(i)];
        return {};
    };
    const auto texte = [&](const char *nom) { return QString::fromUtf8(valeur(nom).octets); };
    const QString nom = texte("szRelationship");
    const QString table = texte("szObject");
    RelationJet *relation = nullptr;
    for (RelationJet &r : relations)
        if (r.nom == nom && r.table == table)
            relation = &r;
    if (!relation) {
        const qint64 bits = valeur("grbit").entier;
        RelationJet nouvelle;
        nouvelle.nom = nom;
        nouvelle.table = table;
        nouvelle.tableCible = texte("szReferencedObject");
        nouvelle.imposee = (bits & NON_IMPOSEE) == 0;
        nouvelle.majEnCascade = (bits & MAJ_EN_CASCADE) != 0;
        nouvelle.suppressionEnCascade = (bits & SUPPRESSION_EN_CASCADE) != 0;
        relations << nouvelle;
        relation = &relations.last();
    }
    relation->colonnes << texte("szColumn");
    relation->colonnesCible << texte("szReferencedColumn");
}

void FluxJet::lireLigne(const TableJet &table)
{
    Curseur c = corps();
    m_ligne.resize(static_cast<std::size_t>(table.colonnes.size()));
    for (ValeurJet &v : m_ligne) {
        v = {};
        v.genre = static_cast<Valeur>(c.octet());
        switch (v.genre) {
        case Valeur::Nulle:
        case Valeur::Vrai:
        case Valeur::Faux:
            break;
        case Valeur::Entier:
            v.entier = c.nombre<qint64>();
            break;
        case Valeur::Reel:
        case Valeur::DateHeure:
            v.reel = std::bit_cast<double>(c.nombre<quint64>());
            break;
        case Valeur::Simple:
            v.reel = plusCourt(std::bit_cast<float>(c.nombre<quint32>()));
            break;
        case Valeur::Texte:
            v.octets = c.octets();
            if (!v.octets.isValidUtf8())
                fluxRompu();
            break;
        case Valeur::Octets:
            v.octets = c.octets();
            break;
        default:
            fluxRompu();
        }
    }
    if (c.p != c.fin)
        fluxRompu();
}

void FluxJet::lireTableEntiere(const TableJet &table, const std::function<void()> &ligne)
{
    qint64 lues = 0;
    for (;;) {
        const Genre genre = suivant();
        if (genre == Genre::FinTable) {
            if (corps().nombre<quint32>() != lues)
                fluxRompu();
            return;
        }
        if (genre != Genre::Ligne)
            fluxRompu();
        if (++lues > table.lignes && table.lignes != 0)
            fluxRompu();
        lireLigne(table);
        ligne();
    }
}

void FluxJet::lireLignes(const LecteurJet::Recevoir &recevoir)
{
    for (const TableJet &table : tables)
        lireTableEntiere(table, [&] { recevoir(table, m_ligne); });
    if (suivant() != Genre::Fin)
        fluxRompu();
}
