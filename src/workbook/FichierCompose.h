// The OLE2 compound file that a .xls workbook is kept in: just enough to tell a sound one, and to change its main stream.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QVector>

// Layout: [MS-CFB]. The file must be open for reading and outlive the reader.
class FichierCompose
{
public:
    // False for a file whose structure points outside of it: truncated or damaged.
    bool lire(QFile &fichier);
    // Names of the streams and storages at any depth.
    QStringList noms() const;
    // Whether every sector of this stream is in the file, and its first bytes, at most `maximum`.
    bool flux(const QString &nom, qsizetype maximum, QByteArray &debut) const;
    // Writes a stream anew, in its own place, at its own length or a greater one; the file must be open for writing too.
    // False, with nothing written, for a shorter one, for one that is kept among the small ones, and where the file's
    // table of sectors has no room for what is added.
    bool remplacer(const QString &nom, const QByteArray &contenu);

private:
    struct Entree {
        QString nom;
        quint32 premier = 0;
        quint64 taille = 0;
        int type = 0;    // 1 storage, 2 stream, 5 root
        qint64 lieu = 0; // where it stands in the file
    };
    bool lireTable();
    bool lireRepertoire(quint32 premierSecteur);
    // Sector numbers of a chain that must hold `taille` bytes; empty when it is broken.
    QVector<quint32> chaine(const QVector<quint32> &table, quint32 premier, quint64 taille,
                            quint32 tailleSecteur) const;
    QByteArray secteur(quint32 numero) const;
    bool present(quint32 numero, quint32 octets) const;
    qint64 lieuSecteur(quint32 numero) const;
    // Lengthens a chain by new sectors at the end of the file, in the tables that were read; false without room there.
    bool allonger(QVector<quint32> &secteurs, qsizetype octets);
    bool ecrire(qint64 lieu, const QByteArray &octets) const;
    bool ecrireTable(quint32 numero) const;

    QFile *m_fichier = nullptr;
    QByteArray m_enTete;
    quint32 m_tailleSecteur = 512;
    QVector<quint32> m_lieuxTable; // the sectors that hold the table
    QVector<quint32> m_table;      // next sector of each sector
    QVector<quint32> m_miniTable;  // the same for the 64-byte sectors of small streams
    QVector<Entree> m_entrees;
};
