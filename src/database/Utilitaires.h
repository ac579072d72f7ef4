// The run log of a maintenance command: a text file in "C:\Projet\MajIntervenant\".
#pragma once

#include <QFile>
#include <QString>

class Dialogue;

//     Utilitaires::Journal journal(dialogue);
//     const QString chemin = journal.OuvrirJournal("Importation MAJ codes intervenants");
//     journal.EcrireJournal("...");
//     journal.FermerJournal("Importation MAJ codes intervenants");
namespace Utilitaires
{
class Journal
{
public:
    explicit Journal(Dialogue &dialogue) : m_dialogue(dialogue) {}

    // Opens "<prefixe>_yyyyMMddHHmm.log" (UTF-8, replaced if it is there), writes its heading and returns its path in the
    // Windows form. The folder is made if it is absent. A failure is shown, and the path comes back all the same.
    QString OuvrirJournal(const QString &prefixe);
    // One line. Does nothing while no log is open.
    void EcrireJournal(const QString &texte);
    // Writes the closing block and closes the file. A failure is shown.
    void FermerJournal(const QString &prefixe);

private:
    void ecrireCadre(const QString &texte);
    void montrerErreur();

    Dialogue &m_dialogue;
    QFile m_fichier;
};
} // namespace Utilitaires
