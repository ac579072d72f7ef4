// The upgrades that bring a study of a former version of the program up to date.
#pragma once

#include <functional>
#include <QString>

class DataEnvironment1;
class Dialogue;

namespace M_Structure_2002
{
// From DbVersion "4.0.0" to "4.0.1": foreign keys with their cascades, comment columns of 255 characters, three fixed
// corrections of the contents, and the version. Copes with what an interrupted run left; a table that is absent is
// skipped. A failure is an Erreur and leaves "4.0.0".
void MettreAJourVersion(const DataEnvironment1 &donnees);

struct Transposition {
    Dialogue &dialogue;
    // "corresp_reseaux.xls" beside the study, host path; looked for, may be absent.
    QString fichierReseaux;
    // Transposes the network codes from that workbook.
    std::function<void(const QString &fichier)> TransposerReseaux;
};

// From the old format, without TECHNIQUE, to the current one. Asks the user first: false when he refuses. The structure
// changes as a whole or not at all; the networks are transposed after it.
bool TransposerStructure(const DataEnvironment1 &donnees, const Transposition &transposition);

// The samplings of one network become those of another; one that is in both keeps one membership.
void TransposerPrelevements(const DataEnvironment1 &donnees, const QString &ancien, const QString &nouveau);

// Gives a text column another length, through a spare column `colonne`_Nouv, which an interrupted run of this program's
// forerunners may have left: its values count where the column itself has none. All or nothing.
void RetyperColonne(const DataEnvironment1 &donnees, const QString &table, const QString &colonne,
                    int longueur);

// Gives a column another type at the same place; adds it at the end where it is absent. Values are converted as the
// type means them (a number becomes its digits in a text column). The indexes of the column go.
struct Champ {
    QString nom;
    QString type;           // as declared: "VARCHAR(10)"
    QString collation = {}; // "NOCASE"; empty for the engine's own
};
void RemplacerChamp(const DataEnvironment1 &donnees, const QString &table, const Champ &champ);

// Makes the schema's foreign keys of this table, with their cascades, and drops what stood in their place. One whose
// target is absent or not unique cannot be made and is left out.
void RefaireClesEtrangeres(const DataEnvironment1 &donnees, const QString &table);
} // namespace M_Structure_2002
