// A sampling as its screens show it: its key, and one row for each result.
#pragma once

#include <memory>
#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

// The two families of parameters, each with its screen.
enum class FamillePrelevement { PhysicoChimie, Pesticides };

struct ClePrelevement {
    QString station; // CodeSandreStationM
    QDate date;
    // "hh:mm:ss"; empty: the samplings of that day, whatever their time.
    QString heure = {};
};

// What a row shows, all of it text, as typed.
struct TextesLigne {
    QString parametre; // NomParam
    QString resultat;
    QString unite; // SymboleUnite, follows the parameter
    QString remarque;
    QString fraction; // CD_FRACTION
    QString methode;  // CodeMethode; never shown
    QString preleveur;
    QString laboratoire;
    QString gestionnaire;
    QString reseau; // labels joined by M_Reseaux::SEPARATEUR
    QString autre;
    QString lieu;                // label
    QString commentaireAnalyse;  // not in the family of pesticides
    QString commentaireResultat; // the one comment of the family of pesticides
    QString seuil;
    QString protocole; // label
    QString ld;
    QString lq;
    QString ls;
    bool operator==(const TextesLigne &) const = default;
};

// What the store held where a row comes from. A save keeps whatever of it the user has left alone, also what the texts do
// not tell: a method, further decimals, a code of two actors of one name, a place that is null.
struct SourceLigne {
    qint64 numPrel = 0;
    TextesLigne textes;
    QString codeParametre;
    QVariant resultat;
    QVariant remarque;
    QVariant fraction;
    QVariant methode;
    QString codePreleveur;
    QVariant codeLaboratoire;
    QVariant codeGestionnaire;
    QVariant lieu;
    QVariant commentaireAnalyse;
    QVariant commentaireResultat;
    QVariant seuil;
    QVariant ld;
    QVariant lq;
    QVariant ls;
    QHash<QString, QStringList> reseaux; // codes of the sampling's networks, by label
};

struct LignePrelevement : TextesLigne {
    std::shared_ptr<const SourceLigne> source; // null for a row that the user has added

    // Whether it holds nothing at all.
    bool estVide() const { return *this == TextesLigne(); }
    const TextesLigne &textes() const { return *this; }
    friend bool operator==(const LignePrelevement &a, const TextesLigne &b) { return a.textes() == b; }
};
