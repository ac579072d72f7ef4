// Real Access databases (.mdb): what stands in a Jet file.
#pragma once

#include "database/jet/Protocole.h"

#include <functional>
#include <memory>
#include <optional>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

enum class TypeJet {
    Booleen = 1,
    Octet = 2,
    Entier = 3,
    EntierLong = 4,
    Monetaire = 5,
    Simple = 6,
    Double = 7,
    DateHeure = 8,
    Binaire = 9,
    Texte = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Numerique = 16
};

struct ColonneJet {
    QString nom;
    TypeJet type = TypeJet::Texte;
    int longueur = 0; // characters of a text, bytes of the others
    bool numeroAuto = false;
};

struct TableJet {
    QString nom;
    QList<ColonneJet> colonnes;
    // Rows that the file announces; a base that was not closed properly announces none.
    qint64 lignes = 0;
};

struct RelationJet {
    QString nom;
    QString table; // the one that refers
    QStringList colonnes;
    QString tableCible;
    QStringList colonnesCible;
    bool imposee = true; // Access refuses what breaks it
    bool majEnCascade = false;
    bool suppressionEnCascade = false;
};

// One value of a row. Texts are UTF-8; `octets` lives until the next row.
struct ValeurJet {
    ProtocoleJet::Valeur genre = ProtocoleJet::Valeur::Nulle;
    qint64 entier = 0;
    double reel = 0; // Reel, Simple (its shortest decimal form, as a double), DateHeure
    QByteArrayView octets;

    bool nulle() const { return genre == ProtocoleJet::Valeur::Nulle; }
    // qlonglong, double, QString, QByteArray, bool, or for a DateHeure its double; invalid for null.
    QVariant variant() const;
};

// Days since 30/12/1899, as Jet keeps dates and times: "2009-03-01" and "10:00:00".
struct DateHeureJet {
    QString date;
    QString heure;
    bool minuit = false;
    bool sansDate = false; // a time alone

    explicit DateHeureJet(double jours);
};

// Reads one file, in a process of its own that may crash, hang or swell without harm to the program: all of that, and
// any damage to the file, is an Erreur in French that names the table.
//
//     LecteurJet lecteur(chemin);
//     lecteur.lire([&](const TableJet &table, const std::vector<ValeurJet> &ligne) { ... });
class LecteurJet
{
public:
    struct Reglages {
        // A reading process that has said nothing for this long is given up.
        int silenceMs = 20000;
        // The structure alone: `lire` cannot be called.
        bool structureSeule = false;
        // Called a few times a second while waiting and reading.
        std::function<void()> battement;
        // Path of the reading process; empty: beside the program.
        QString programme;
    };

    // 3 or 4 from the first bytes of a file, whatever its name; nothing for a file that is no Jet base.
    static std::optional<int> reconnaitre(const QString &cheminHote);

    // Reads the structure.
    explicit LecteurJet(const QString &cheminHote);
    LecteurJet(const QString &cheminHote, Reglages reglages);
    ~LecteurJet();
    LecteurJet(const LecteurJet &) = delete;
    LecteurJet &operator=(const LecteurJet &) = delete;

    int generation() const;
    // "08.50"; nothing where Access never opened the file.
    std::optional<QString> accessVersion() const;
    // The user's tables.
    const QList<TableJet> &tables() const;
    // A table by its name in any case, or nothing.
    const TableJet *table(const QString &nom) const;
    const QList<RelationJet> &relations() const;

    using Recevoir = std::function<void(const TableJet &table, const std::vector<ValeurJet> &ligne)>;
    // Every row of every table, in the order of tables(); once. What was received before an Erreur is not the whole.
    void lire(const Recevoir &recevoir);

private:
    struct Etat;
    std::unique_ptr<Etat> m_etat;
};
