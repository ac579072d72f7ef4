#include "workbook/FormatFichier.h"

#include "platform/Chemins.h"
#include "platform/Erreur.h"
#include "workbook/FichierCompose.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QtEndian>

namespace
{
enum Numero { Absent = 10, Illisible, Vide, PasUnClasseur, Tronque, MotDePasse };

constexpr char SIGNATURE_OLE2[] = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr char SIGNATURE_ZIP[] = "PK\x03\x04";
constexpr char FIN_ZIP[] = "PK\x05\x06";
constexpr char ENTREE_ZIP[] = "PK\x01\x02";

[[noreturn]] void refuser(Numero numero, const QString &raison, const QString &chemin)
{
    throw Erreur(numero, raison.arg(Chemins::titre(chemin)));
}

[[noreturn]] void pasUnClasseur(const QString &chemin)
{
    refuser(PasUnClasseur, QStringLiteral("Le fichier « %1 » n'est pas un classeur."), chemin);
}

[[noreturn]] void tronque(const QString &chemin)
{
    refuser(Tronque, QStringLiteral("Le fichier « %1 » est tronqué ou abîmé : il ne peut pas être lu."),
            chemin);
}

// FILEPASS, near the top of the stream, says that the records after it are encrypted.
bool fluxChiffre(const QByteArray &debut)
{
    constexpr quint16 FILEPASS = 0x2F;
    for (qsizetype i = 0; i + 4 <= debut.size();) {
        if (qFromLittleEndian<quint16>(debut.constData() + i) == FILEPASS)
            return true;
        i += 4 + qFromLittleEndian<quint16>(debut.constData() + i + 2);
    }
    return false;
}

ExamenFichier examinerOle2(QFile &fichier)
{
    const QString chemin = fichier.fileName();
    FichierCompose compose;
    if (!compose.lire(fichier))
        tronque(chemin);
    const QStringList noms = compose.noms();
    if (noms.contains(QStringLiteral("EncryptedPackage")))
        refuser(MotDePasse,
                QStringLiteral(
                    "Le fichier « %1 » est protégé par un mot de passe. Enregistrez-le sans mot de passe, "
                    "puis recommencez."),
                chemin);
    for (const QString &nom : {QStringLiteral("Workbook"), QStringLiteral("Book")}) {
        if (!noms.contains(nom))
            continue;
        QByteArray debut;
        if (!compose.flux(nom, 4096, debut))
            tronque(chemin);
        return {FormatFichier::Xls, fluxChiffre(debut)};
    }
    pasUnClasseur(chemin);
}

// A package's entries, by name, with their compression method, from its directory at the end of the file. False
// without one.
bool lireEntreesZip(QFile &fichier, QHash<QByteArray, quint16> &entrees)
{
    constexpr qint64 PLUS_LONGUE_FIN = 22 + 65535;
    const qint64 depart = qMax<qint64>(0, fichier.size() - PLUS_LONGUE_FIN);
    fichier.seek(depart);
    const QByteArray fin = fichier.readAll();
    const qsizetype place = fin.lastIndexOf(FIN_ZIP);
    if (place < 0 || place + 22 > fin.size())
        return false;
    const auto taille = qFromLittleEndian<quint32>(fin.constData() + place + 12);
    const auto debut = qFromLittleEndian<quint32>(fin.constData() + place + 16);
    if (static_cast<qint64>(debut) + taille > depart + place || !fichier.seek(debut))
        return false;
    const QByteArray repertoire = fichier.read(taille);
    for (qsizetype i = 0; i + 46 <= repertoire.size() && repertoire.mid(i, 4) == QByteArray(ENTREE_ZIP);) {
        const auto longueur = qFromLittleEndian<quint16>(repertoire.constData() + i + 28);
        entrees.insert(repertoire.mid(i + 46, longueur),
                       qFromLittleEndian<quint16>(repertoire.constData() + i + 10));
        i += 46 + longueur + qFromLittleEndian<quint16>(repertoire.constData() + i + 30) +
             qFromLittleEndian<quint16>(repertoire.constData() + i + 32);
    }
    return true;
}

ExamenFichier examinerZip(QFile &fichier)
{
    fichier.seek(0);
    const QByteArray debut = fichier.read(128);
    QHash<QByteArray, quint16> entrees;
    if (!lireEntreesZip(fichier, entrees))
        tronque(fichier.fileName());
    if (entrees.contains("xl/workbook.xml") || entrees.contains("xl/workbook.bin"))
        return {FormatFichier::Xlsx, false};
    // The type of an OpenDocument package stands in clear at byte 38. What is encrypted there is not compressed.
    if (entrees.contains("content.xml") &&
        debut.mid(38).startsWith("application/vnd.oasis.opendocument.spreadsheet"))
        return {FormatFichier::Ods, entrees.value("content.xml") == 0};
    pasUnClasseur(fichier.fileName());
}
} // namespace

ExamenFichier examinerFichier(const QString &cheminHote)
{
    const QFileInfo info(cheminHote);
    if (!info.exists())
        refuser(Absent, QStringLiteral("Le fichier « %1 » n'existe pas."), cheminHote);
    QFile fichier(cheminHote);
    if (!info.isFile() || !fichier.open(QIODevice::ReadOnly))
        refuser(Illisible,
                QStringLiteral("Le fichier « %1 » ne peut pas être lu : il est peut-être ouvert dans un "
                               "autre programme, ou ses droits l'interdisent."),
                cheminHote);
    if (fichier.size() == 0)
        refuser(Vide, QStringLiteral("Le fichier « %1 » est vide."), cheminHote);

    const QByteArray debut = fichier.read(8);
    if (debut.startsWith(QByteArray(SIGNATURE_OLE2, 8)))
        return examinerOle2(fichier);
    if (debut.startsWith(SIGNATURE_ZIP))
        return examinerZip(fichier);
    if (info.suffix().compare(QLatin1String("csv"), Qt::CaseInsensitive) == 0)
        return {FormatFichier::Csv, false};
    // The beginning of a compound file shorter than its own signature.
    if (QByteArray(SIGNATURE_OLE2, 8).startsWith(debut))
        tronque(cheminHote);
    pasUnClasseur(cheminHote);
}
