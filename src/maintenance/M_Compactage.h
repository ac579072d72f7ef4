// The compaction of the study's file.
#pragma once

#include <functional>
#include <QString>

class DataEnvironment1;
class Dialogue;

// The file is rewritten without its free space into a scratch file, and that one takes its place. At every moment the
// path holds a whole study, the old one or the new one: the new content is copied and synchronised beside the file, and
// one rename puts it in place. A scratch file that an interrupted run left behind is asked about, never silently lost.
namespace M_Compactage
{
// Where the rewriting happens.
inline constexpr char16_t FICHIER_TRAVAIL[] = u"C:\\PROJET\\Base\\Temp_bd_ovra.mdb";

// Rewrites `fichier` (closed by everyone) through `travail`; both are host paths. `progres` is told 0 to 4. An Erreur
// tells why it cannot be; the file is then as it was and no part of a copy is left.
void reecrire(const QString &fichier, const QString &travail, const std::function<void(int)> &progres);

enum class Issue {
    Annule,     // the user kept the scratch file, or the file cannot be compacted so
    Impossible, // told; the base is open again
    Termine,    // told; the base is open again
    BasePerdue, // the base could not be opened again, told: the program must end
};

// The whole command with its boxes. `rouvrir` opens the base again as at the start (false when it is refused).
Issue compacter(DataEnvironment1 &donnees, const QString &fichierBase, Dialogue &dialogue,
                const std::function<bool()> &rouvrir);
} // namespace M_Compactage
