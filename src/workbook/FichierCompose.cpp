#include "workbook/FichierCompose.h"

#include <algorithm>
#include <QtEndian>

namespace
{
constexpr quint32 DERNIER_SECTEUR =
    0xFFFFFFFA; // numbers above have a meaning of their own (end of chain, free…)
constexpr quint32 TAILLE_MINI = 64;
constexpr quint64 SEUIL_MINI = 4096; // smaller streams are kept in small sectors
constexpr int TAILLE_ENTREE = 128;
constexpr int LIEU_TAILLE = 120; // of the stream's length in an entry
constexpr quint32 FIN_DE_CHAINE = 0xFFFFFFFE;
constexpr quint32 SECTEUR_LIBRE = 0xFFFFFFFF;

template <class T> T nombre(const QByteArray &octets, qsizetype position)
{
    return qFromLittleEndian<T>(octets.constData() + position);
}

QByteArray octetsDe(quint32 valeur)
{
    QByteArray octets(4, '\0');
    qToLittleEndian(valeur, octets.data());
    return octets;
}

void ajouterNombres(QVector<quint32> &table, const QByteArray &octets)
{
    for (qsizetype i = 0; i + 4 <= octets.size(); i += 4)
        table.append(nombre<quint32>(octets, i));
}
} // namespace

bool FichierCompose::lire(QFile &fichier)
{
    m_fichier = &fichier;
    fichier.seek(0);
    m_enTete = fichier.read(512);
    if (m_enTete.size() < 512)
        return false;
    const auto puissance = nombre<quint16>(m_enTete, 30);
    if (puissance != 9 && puissance != 12)
        return false;
    m_tailleSecteur = 1U << puissance;
    return lireTable() && lireRepertoire(nombre<quint32>(m_enTete, 48));
}

bool FichierCompose::lireTable()
{
    // Where the sectors of the table are: 109 in the header, the rest in a chain of sectors of their own.
    QVector<quint32> lieux;
    ajouterNombres(lieux, m_enTete.mid(76, qsizetype{109} * 4));
    quint32 suivant = nombre<quint32>(m_enTete, 68);
    for (quint32 reste = nombre<quint32>(m_enTete, 72); reste > 0 && suivant < DERNIER_SECTEUR; --reste) {
        const QByteArray octets = secteur(suivant);
        if (octets.isEmpty())
            return false;
        ajouterNombres(lieux, octets.left(octets.size() - 4));
        suivant = nombre<quint32>(octets, octets.size() - 4);
    }
    const auto attendus = nombre<quint32>(m_enTete, 44);
    if (static_cast<quint32>(lieux.size()) < attendus)
        return false;
    for (quint32 i = 0; i < attendus; ++i) {
        const QByteArray octets = secteur(lieux.at(i));
        if (octets.isEmpty())
            return false;
        ajouterNombres(m_table, octets);
        m_lieuxTable.append(lieux.at(i));
    }
    return !m_table.isEmpty();
}

bool FichierCompose::lireRepertoire(quint32 premierSecteur)
{
    const QVector<quint32> secteurs = chaine(m_table, premierSecteur, 0, m_tailleSecteur);
    for (const quint32 numero : secteurs) {
        const QByteArray octets = secteur(numero);
        for (qsizetype i = 0; i + TAILLE_ENTREE <= octets.size(); i += TAILLE_ENTREE) {
            const QByteArray brut = octets.mid(i, TAILLE_ENTREE);
            const int longueur = qBound(0, nombre<quint16>(brut, 64) / 2 - 1, 31);
            Entree entree;
            for (qsizetype c = 0; c < longueur; ++c)
                entree.nom += QChar(nombre<quint16>(brut, c * 2));
            entree.type = static_cast<uchar>(brut.at(66));
            entree.premier = nombre<quint32>(brut, 116);
            entree.taille = nombre<quint64>(brut, LIEU_TAILLE);
            entree.lieu = lieuSecteur(numero) + i;
            if (m_tailleSecteur == 512)
                entree.taille &= 0xFFFFFFFF;
            if (entree.type != 0)
                m_entrees.append(entree);
        }
        if (octets.isEmpty())
            return false;
    }
    if (m_entrees.isEmpty() || m_entrees.first().type != 5)
        return false;
    if (nombre<quint32>(m_enTete, 64) > 0) {
        for (const quint32 numero : chaine(m_table, nombre<quint32>(m_enTete, 60), 0, m_tailleSecteur))
            ajouterNombres(m_miniTable, secteur(numero));
    }
    return true;
}

QStringList FichierCompose::noms() const
{
    QStringList noms;
    for (const Entree &entree : m_entrees)
        noms.append(entree.nom);
    return noms;
}

QVector<quint32> FichierCompose::chaine(const QVector<quint32> &table, quint32 premier, quint64 taille,
                                        quint32 tailleSecteur) const
{
    QVector<quint32> secteurs;
    // A chain longer than its table runs in a circle.
    for (quint32 numero = premier; numero < DERNIER_SECTEUR; numero = table.at(numero)) {
        if (numero >= static_cast<quint32>(table.size()) || secteurs.size() > table.size())
            return {};
        secteurs.append(numero);
    }
    return static_cast<quint64>(secteurs.size()) * tailleSecteur < taille ? QVector<quint32>() : secteurs;
}

bool FichierCompose::flux(const QString &nom, qsizetype maximum, QByteArray &debut) const
{
    debut.clear();
    for (const Entree &entree : m_entrees) {
        if (entree.type != 2 || entree.nom != nom)
            continue;
        const bool petit = entree.taille < SEUIL_MINI;
        // Small streams stand inside one stream of the root, in sectors of their own.
        const Entree &porteur = petit ? m_entrees.first() : entree;
        const QVector<quint32> secteurs = chaine(m_table, porteur.premier, porteur.taille, m_tailleSecteur);
        quint64 reste = porteur.taille;
        for (const quint32 numero : secteurs) {
            const auto octets = static_cast<quint32>(qMin<quint64>(reste, m_tailleSecteur));
            if (!present(numero, octets))
                return false;
            reste -= octets;
        }
        if (reste > 0)
            return false;
        const QVector<quint32> minis =
            petit ? chaine(m_miniTable, entree.premier, entree.taille, TAILLE_MINI) : QVector<quint32>();
        if (petit && minis.isEmpty())
            return false;
        const qsizetype voulus = qMin<qsizetype>(maximum, static_cast<qsizetype>(entree.taille));
        for (qsizetype i = 0; debut.size() < voulus; ++i) {
            if (!petit) {
                debut += secteur(secteurs.at(i));
                continue;
            }
            const quint64 position = static_cast<quint64>(minis.at(i)) * TAILLE_MINI;
            const auto rang = static_cast<qsizetype>(position / m_tailleSecteur);
            if (rang >= secteurs.size())
                return false;
            debut += secteur(secteurs.at(rang))
                         .mid(static_cast<qsizetype>(position % m_tailleSecteur), TAILLE_MINI);
        }
        debut.truncate(voulus);
        return true;
    }
    return false;
}

bool FichierCompose::remplacer(const QString &nom, const QByteArray &contenu)
{
    const auto sien = [&nom](const Entree &e) { return e.type == 2 && e.nom == nom; };
    const auto entree = std::find_if(m_entrees.begin(), m_entrees.end(), sien);
    const auto longueur = static_cast<quint64>(contenu.size());
    if (entree == m_entrees.end() || entree->taille < SEUIL_MINI || longueur < entree->taille)
        return false;
    QVector<quint32> secteurs = chaine(m_table, entree->premier, entree->taille, m_tailleSecteur);
    const qsizetype anciens = secteurs.size();
    if (anciens == 0 || !allonger(secteurs, contenu.size()))
        return false;
    qsizetype place = 0;
    for (const quint32 numero : std::as_const(secteurs)) {
        QByteArray octets = contenu.mid(place, m_tailleSecteur);
        place += octets.size();
        if (secteurs.size() > anciens)
            octets.append(m_tailleSecteur - octets.size(), '\0'); // nothing is short before the file's end
        if (!ecrire(lieuSecteur(numero), octets))
            return false;
    }
    for (qsizetype i = anciens - 1; secteurs.size() > anciens && i < secteurs.size(); ++i)
        if (!ecrireTable(secteurs.at(i)))
            return false;
    entree->taille = longueur;
    return ecrire(entree->lieu + LIEU_TAILLE, octetsDe(static_cast<quint32>(longueur))) && m_fichier->flush();
}

bool FichierCompose::allonger(QVector<quint32> &secteurs, qsizetype octets)
{
    const qsizetype voulus = (octets + m_tailleSecteur - 1) / m_tailleSecteur;
    QVector<quint32> table = m_table;
    // The file's end: its first sector comes after one that holds the header.
    auto nouveau = static_cast<quint32>((m_fichier->size() + m_tailleSecteur - 1) / m_tailleSecteur - 1);
    for (; secteurs.size() < voulus; ++nouveau) {
        if (nouveau >= static_cast<quint32>(table.size()) || table.at(nouveau) != SECTEUR_LIBRE)
            return false;
        table[secteurs.last()] = nouveau;
        table[nouveau] = FIN_DE_CHAINE;
        secteurs.append(nouveau);
    }
    m_table = table;
    return true;
}

bool FichierCompose::ecrireTable(quint32 numero) const
{
    const quint32 parSecteur = m_tailleSecteur / 4;
    return ecrire(lieuSecteur(m_lieuxTable.at(numero / parSecteur)) + qint64{numero % parSecteur} * 4,
                  octetsDe(m_table.at(numero)));
}

bool FichierCompose::ecrire(qint64 lieu, const QByteArray &octets) const
{
    return m_fichier->seek(lieu) && m_fichier->write(octets) == octets.size();
}

qint64 FichierCompose::lieuSecteur(quint32 numero) const
{
    return (qint64{numero} + 1) * m_tailleSecteur;
}

bool FichierCompose::present(quint32 numero, quint32 octets) const
{
    return (static_cast<quint64>(numero) + 1) * m_tailleSecteur + octets <=
           static_cast<quint64>(m_fichier->size());
}

QByteArray FichierCompose::secteur(quint32 numero) const
{
    if (!present(numero, 1) || !m_fichier->seek(lieuSecteur(numero)))
        return {};
    QByteArray octets = m_fichier->read(m_tailleSecteur);
    octets.append(m_tailleSecteur - octets.size(), '\0'); // some writers leave the last sector short
    return octets;
}
