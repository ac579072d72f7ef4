// The results that the raw data screen shows, as few numbers each.
#pragma once

#include "analysis/DemandeDonneesBrutes.h"
#include "analysis/Lexique.h"

#include <array>
#include <QTime>
#include <vector>

// A million results are held in some 20 MB: their key, their sampling and their parameter, with the samplings and the
// texts beside. The rest is read for the rows that are looked at (LignesDonneesBrutes), or for a whole column when the
// user sorts by it (LectureColonneBrute).
struct JeuDonneesBrutes {
    // Of a table that gives names: nothing.
    static constexpr int AUCUN = Lexique::AUCUN;

    struct Prelevement {
        qint64 numPrel = 0;
        int station = AUCUN; // in `stations`
        int jour = 0;        // aaaammjj; 0 without a date
        int heure = AUCUN;   // seconds since midnight
        int preleveur = AUCUN;
        int reseaux = AUCUN;
    };
    struct Resultat {
        qint64 numAnaPC = 0;
        int prelevement = AUCUN; // in `prelevements`; AUCUN where the file has lost it
        int parametre = AUCUN;
    };

    // A column that is read only when needed: a number of its lexicon for each result.
    struct Attribut {
        Lexique lexique;
        std::vector<int> numeros; // empty until read
    };
    // Those columns: Remarque, Fraction, Gestionnaire, Laboratoire.
    static constexpr std::array ATTRIBUTS{ColonneBrute::Remarque, ColonneBrute::Fraction,
                                          ColonneBrute::Gestionnaire, ColonneBrute::Laboratoire};

    DemandeDonneesBrutes demande;
    Lexique stations;
    Lexique parametres;
    QHash<QString, QString> unites; // symbol by folded parameter code
    Lexique preleveurs;
    Lexique reseaux; // the joined labels of a sampling's networks
    std::vector<Prelevement> prelevements;
    // In the order in which they are shown until the user sorts them: station, date, time, parameter's code.
    std::vector<Resultat> resultats;
    std::array<Attribut, ATTRIBUTS.size()> attributs;
    std::vector<double> valeurs; // ResultatAnaPC, not a number for null; empty until read
    // Places in `resultats`, in the order shown; empty: as they stand.
    std::vector<quint32> ordre;

    qsizetype nombre() const { return static_cast<qsizetype>(resultats.size()); }
    // Place in `resultats` of a row shown.
    std::size_t place(qsizetype ligne) const
    {
        const auto rang = static_cast<std::size_t>(ligne);
        return ordre.empty() ? rang : ordre[rang];
    }
    const Resultat &resultat(qsizetype ligne) const { return resultats[place(ligne)]; }
    // Null where the result has lost its sampling.
    const Prelevement *prelevement(const Resultat &resultat) const
    {
        return resultat.prelevement < 0 ? nullptr
                                        : &prelevements[static_cast<std::size_t>(resultat.prelevement)];
    }
    QString unite(int parametre) const { return unites.value(parametres.code(parametre).toCaseFolded()); }

    // The place of a column in `attributs`, or -1.
    static int rangAttribut(ColonneBrute colonne);
    // Whether the whole column has been read, as sorting by it needs.
    bool colonneLue(ColonneBrute colonne) const;
};

namespace JourBrut
{
// "2009-03-01" as aaaammjj, 0 for anything else; and back.
int lire(QByteArrayView iso);
int deDate(QDate date);
QDate date(int jour);
// "10:30:00" as seconds, -1 for anything else; and back.
int lireHeure(QByteArrayView texte);
QTime heure(int secondes);
} // namespace JourBrut
