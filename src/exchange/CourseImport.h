// The run of an import from a workbook: what is the same for every kind of measure.
//
// A run goes row by row and stops at the first row that needs the user: it stores where it stands in ImportSession and
// returns, the workbook closed. Once the user has settled the row, the same routine is called again and goes on from
// there. Nothing waits inside: all continuity lies in ImportSession.
#pragma once

#include "exchange/DispositionExcel.h"

#include <functional>
#include <QString>

class LigneExcel;
struct ArretImport;
struct Session;

// How a run ended, and what the screens have to show.
struct IssueImport {
    enum class Fin {
        Terminee,     // all rows done, the counts told
        Arretee,      // a message has told why
        Choix,        // F_Choix, in `mode`
        ChoixUnite,   // F_Choix_unite, on ElementNom and ElementParametre of ImportSession
        Remplacement, // F_Import_Remplace
    };
    Fin fin = Fin::Terminee;
    int mode = 0;          // of F_Choix: 1 the element is empty, 2 it is unknown
    QString libelleAction; // lbl_action
    QString element;       // txt_element
};

// What the closing message says.
struct PhrasesFin {
    QString aucune;
    QString une;       // behind "1"
    QString plusieurs; // behind the count
};

// One kind of measure.
struct TravailImport {
    // Reads, checks and writes one row; throws ArretImport where the user is needed.
    using Etapes = std::function<void(const LigneExcel &ligne, bool remplacer)>;

    const DispositionExcel &disposition;
    int champCle = 0; // the field whose first empty cell ends the data
    PhrasesFin phrases;
    // Reads the reference tables and prepares the statements of a run.
    std::function<Etapes()> preparer;
};

// Runs or resumes the import of session.importSession.FichierImport. No failure leaves it: all end as a message.
IssueImport executerImport(Session &session, const TravailImport &travail);
