// The opening of a study: what the file is, whether it can be used, what has to be added to it.
#pragma once

#include <functional>
#include <QString>

class DataEnvironment1;
class Dialogue;

// The steps of an opening that belong to other layers, or come with files of former generations. The two of the palette
// are always given; where another one is missing and the file calls for it, the opening fails.
struct EtapesOuverture {
    // Makes and fills COULEURS_GRAPH; fills the session's palette from it.
    std::function<void()> CreerCouleurs;
    std::function<void()> ChargerCouleurs;

    // Makes of a Jet file a store beside it and returns the store's host path; the opening goes on there. Empty once the
    // user has been told that the file is refused.
    std::function<QString(const QString &fichierJet)> ConvertirBase97;
    // Tells that step what became of the store, with no connection on it: accepted, it is put in the place of the file,
    // else thrown away.
    std::function<void(bool acceptee)> TerminerConversion;
    // Two characters of the version of a Jet file.
    std::function<QString(const QString &fichierJet)> LireVersionJet;
    // Whether RESEAU_MESURE.CodeReseau was a text column in the Jet file. Where it is not given, the store's own column
    // is looked at.
    std::function<bool()> CodeReseauEstTexte;
    // From DbVersion "4.0.0" to "4.0.1".
    std::function<void()> MettreAJourVersion;
    // From a store without TECHNIQUE to the current structure; false when the user refused.
    std::function<bool()> TransposerStructure;
};

struct Ouverture {
    DataEnvironment1 &donnees;
    Dialogue &dialogue;
    QString FichierBase; // host path
    EtapesOuverture etapes;

    // Left by OuvrirBase.
    QString ChaineFournisseur;
    QString VersionAccess;
};

namespace M_Ouvrir_bdd_OVRA
{
// True when the study is open in `donnees` and usable. Otherwise the user has been told why, no connection is left, and
// a refused file is as it was, byte for byte.
bool OuvrirBase(Ouverture &ouverture);

// The two judgements, on the store that is open.
bool VerifierVersionBase(Ouverture &ouverture);
bool VerifierStructure(Ouverture &ouverture);

// "09" for a store of ours, the first two characters of a Jet file's version otherwise.
QString LireVersionAccess(const Ouverture &ouverture, const QString &chemin);

// Adds to STATION_QUALITE the columns of the maps where ALT_NO3 is missing. A failure is shown.
void InitChampsCarte(const DataEnvironment1 &donnees, Dialogue &dialogue);
} // namespace M_Ouvrir_bdd_OVRA
