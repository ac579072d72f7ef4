#include "database/jet/EcritureTable.h"

#include "platform/Erreur.h"

#include <QSqlDriver>
#include <sqlite3.h>

EcritureTable::EcritureTable(const QSqlDatabase &base, DefinitionTable definition, QList<GenreMagasin> genres)
    : m_base(base), m_poignee(*static_cast<sqlite3 *const *>(base.driver()->handle().constData())),
      m_definition(std::move(definition)), m_genres(std::move(genres)),
      m_tampons(static_cast<std::size_t>(m_genres.size()))
{
    preparer();
}

EcritureTable::~EcritureTable()
{
    sqlite3_finalize(m_instruction);
}

void EcritureTable::preparer()
{
    QStringList noms;
    QStringList valeurs;
    for (qsizetype i = 0; i < m_genres.size(); ++i) {
        noms << Structure::citer(m_definition.colonnes[i].nom);
        valeurs << QStringLiteral("?");
    }
    const QByteArray sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                               .arg(Structure::citer(m_definition.nom), noms.join(u','), valeurs.join(u','))
                               .toUtf8();
    if (const int code = sqlite3_prepare_v2(m_poignee, sql.constData(), -1, &m_instruction, nullptr);
        code != SQLITE_OK)
        echouer(code);
}

void EcritureTable::lier(const std::vector<ValeurJet> &ligne)
{
    for (std::size_t i = 0; i < ligne.size(); ++i) {
        const auto rang = static_cast<int>(i) + 1;
        const ValeurMagasin v = versMagasin(ligne[i], m_genres[static_cast<qsizetype>(i)], m_tampons[i]);
        if (const auto *entier = std::get_if<qint64>(&v))
            sqlite3_bind_int64(m_instruction, rang, *entier);
        else if (const auto *reel = std::get_if<double>(&v))
            sqlite3_bind_double(m_instruction, rang, *reel);
        else if (const auto *texte = std::get_if<QByteArrayView>(&v))
            sqlite3_bind_text64(m_instruction, rang, texte->data() ? texte->data() : "",
                                static_cast<sqlite3_uint64>(texte->size()), SQLITE_STATIC, SQLITE_UTF8);
        else if (const auto *octets = std::get_if<OctetsMagasin>(&v))
            sqlite3_bind_blob64(m_instruction, rang, octets->v.data() ? octets->v.data() : "",
                                static_cast<sqlite3_uint64>(octets->v.size()), SQLITE_STATIC);
        else
            sqlite3_bind_null(m_instruction, rang);
    }
}

void EcritureTable::ajouter(const std::vector<ValeurJet> &ligne)
{
    lier(ligne);
    int code = sqlite3_step(m_instruction);
    sqlite3_reset(m_instruction);
    if ((code & 0xff) == SQLITE_CONSTRAINT && !m_assouplie) {
        assouplir();
        lier(ligne);
        code = sqlite3_step(m_instruction);
        sqlite3_reset(m_instruction);
    }
    if (code != SQLITE_DONE)
        echouer(code);
}

void EcritureTable::assouplir()
{
    sqlite3_finalize(std::exchange(m_instruction, nullptr));
    const bool numero = m_definition.cle.size() == 1 &&
                        m_definition.colonnes[m_definition.position(m_definition.cle[0])].type == u"INTEGER";
    if (!numero) {
        m_definition.cle.clear();
        m_definition.nomCle.clear();
    }
    m_definition.uniques.clear();
    for (DefinitionTable::Colonne &c : m_definition.colonnes)
        c.nonNulle = false;
    m_definition.reconstruire(m_base);
    m_assouplie = true;
    preparer();
}

void EcritureTable::echouer(int code) const
{
    if ((code & 0xff) == SQLITE_CONSTRAINT)
        throw Erreur(code & 0xff,
                     QStringLiteral("La table « %1 » a deux enregistrements de même numéro. Le fichier n'a "
                                    "pas été modifié. Ouvrez-le dans Access et utilisez « Compacter et "
                                    "réparer une base de données ».")
                         .arg(m_definition.nom));
    throw Erreur(code & 0xff, QString::fromUtf8(sqlite3_errmsg(m_poignee)));
}
