// What may be typed in a sampling, and what must be. Pure: the reference tables are asked through functions.
#pragma once

#include "capture/LignePrelevement.h"
#include "platform/RefusSaisie.h"

#include <functional>
#include <optional>

namespace ReglesPrelevement
{
// Columns of the grid.
enum Colonne {
    PARAMETRE,
    RESULTAT,
    UNITE,
    CODE_REMARQUE,
    FRACTION,
    PRELEVEUR,
    LABORATOIRE,
    GESTIONNAIRE,
    RESEAU,
    AUTRE,
    NOMBRE_COLONNES
};

// The text of a row behind a column; a reference to be written to.
QString &texte(TextesLigne &ligne, int colonne);
const QString &texte(const TextesLigne &ligne, int colonne);

// Whether a record of that name (code, for a fraction) is there.
struct References {
    std::function<bool(const QString &)> parametre;
    std::function<bool(const QString &)> fraction;
    std::function<bool(const QString &)> intervenant;
    std::function<bool(const QString &)> reseau;
    // Whether a parameter is measured on the spot, by nobody's laboratory.
    std::function<bool(const QString &)> environnemental;
};

// The rows of lst_autre.
const QStringList &choixAutre();

// Judges the text of a cell that was edited; nothing where it can be taken.
std::optional<RefusSaisie> jugerCellule(int colonne, const QString &texte, const References &references);

// The labels of a text of networks. A known label may hold the separator itself.
QStringList decouperReseaux(const QString &texte, const std::function<bool(const QString &)> &connu);

// The first thing that is missing for a save, with its message (titled "Attention") and, where it is in the grid, the
// cell; -1: no cell.
struct Manque {
    QString message;
    enum class Champ { Station, Date, Tableau } champ = Champ::Tableau;
    int ligne = -1;
    int colonne = -1;
};
std::optional<Manque> premierManque(const QString &station, const QString &date,
                                    const QList<TextesLigne> &lignes, const References &references);

// "hh:mm:ss" for a time that M_Variables_OVRA::HeureValide takes; empty for any other text.
QString heureNormale(const QString &texte);

// Whether two rows belong to one sampling: the network and the protocol of one are those of the other.
bool memePrelevement(const LignePrelevement &a, const LignePrelevement &b);

// A limit of the detail sheet, as its row holds it: with a comma.
QString limite(const QString &texte);
std::optional<RefusSaisie> jugerLimite(const QString &texte);
std::optional<RefusSaisie> jugerLieu(const QString &texte, const QStringList &proposes);
std::optional<RefusSaisie> jugerProtocole(const QString &texte, const QStringList &proposes);
// A text under the length of its column; `quoi` begins the message ("Le seuil de détection").
std::optional<RefusSaisie> jugerLongueur(const QString &texte, int maximum, const QString &quoi);
} // namespace ReglesPrelevement
