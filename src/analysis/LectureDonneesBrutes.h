// Reading the results that the raw data screen shows, in slices that leave the window alive.
#pragma once

#include "analysis/JeuDonneesBrutes.h"

#include <memory>

class DataEnvironment1;

// A reading goes on by `avancer`, some milliseconds at a time, from the window's own loop: there is one connection and one
// thread, and no statement is left open between two slices, so that anything else may use the base meanwhile.
//
//     LectureDonneesBrutes lecture(donnees, demande);
//     while (lecture.avancer(20))
//         ...
//     show(lecture.jeu());
//
// The results of each sampling are found by the index on their sampling and parameter, which holds all that is kept of
// them: the results themselves are not read, and come in the order in which they are shown.
class LectureDonneesBrutes
{
public:
    LectureDonneesBrutes(const DataEnvironment1 &donnees, const DemandeDonneesBrutes &demande);

    // Reads for about so many milliseconds; true while there is more to read. What the engine reports is an Erreur.
    bool avancer(int dureeMs);
    // How far it is, from 0 to 100.
    int pourcentage() const;
    // What was read; whole once `avancer` has returned false.
    std::shared_ptr<JeuDonneesBrutes> jeu() const { return m_jeu; }

private:
    enum class Etape { Prelevements, Reseaux, Orphelins, Resultats, Fin };

    void lireNoms();
    void lirePrelevements();
    void lireReseaux();
    // Results whose sampling is not in the base: between the numbers of those that are.
    void lireOrphelins();
    void lireResultats(int dureeMs);
    void rangerPrelevements();
    void attribuerReseaux();
    bool retenu(int jour) const;
    bool retenuParFamille(int parametre);
    // Keeps the results of a sampling, or of none.
    void garder(class InstructionDirecte &lecture, int prelevement);

    const DataEnvironment1 &m_donnees;
    std::shared_ptr<JeuDonneesBrutes> m_jeu;
    Etape m_etape = Etape::Prelevements;
    int m_debut; // aaaammjj; 0 for no bound
    int m_fin;
    QSet<QString> m_pesticides; // folded codes
    QList<bool> m_familles;     // by number of parameter: whether it is of the family
    // The samplings by number, for the networks and the gaps, until they are sorted.
    qint64 m_dernier = std::numeric_limits<qint64>::min(); // the last key read by the step under way
    std::size_t m_rang = 0;
    std::vector<QList<int>>
        m_reseaux; // by sampling, numbers of m_nomsReseaux, in the order in which they were given
    Lexique m_nomsReseaux;
};

// Reads a whole column of the results of a set: what sorting by it needs.
class LectureColonneBrute
{
public:
    LectureColonneBrute(const DataEnvironment1 &donnees, std::shared_ptr<JeuDonneesBrutes> jeu,
                        ColonneBrute colonne);
    // As LectureDonneesBrutes::avancer. The set has the column only once this has returned false.
    bool avancer(int dureeMs);
    int pourcentage() const;

private:
    void lireUnBloc();
    void noter(quint32 place, const class InstructionDirecte &lecture);

    const DataEnvironment1 &m_donnees;
    std::shared_ptr<JeuDonneesBrutes> m_jeu;
    ColonneBrute m_colonne;
    std::vector<quint32> m_parNumero; // places of the results, by their key
    std::size_t m_lus = 0;
    JeuDonneesBrutes::Attribut m_attribut;
    std::vector<double> m_valeurs;
};

// What tells whether the base has been written to since: equal marks, nothing has.
struct MarqueBase {
    qint64 miennes = 0;
    qint64 autres = 0;
    bool operator==(const MarqueBase &) const = default;
    static MarqueBase lire(const DataEnvironment1 &donnees);
};
