// Writing a workbook to a file, so that the file is either the whole workbook or what it was before.
// Needs the headers of the office: included by the sources of this folder only.
#pragma once

#include "workbook/DonneesClasseur.h"
#include "workbook/SauvegardeLongue.h"

// The application's name for the format of .xls.
inline constexpr char FILTRE_XLS[] = "MS Excel 97";

// The spreadsheet writes into its own temporary folder, and the finished file is put in place from there: an instance
// that is killed meanwhile leaves nothing beside the user's documents. An Erreur tells why the file cannot be written.
// `patience`, where given, bounds the writing in place of DelaisTableur::fichier and is called meanwhile.
void ecrireClasseur(Classeur::Donnees &donnees, const QString &cheminHote, const char *filtre,
                    const SauvegardeLongue::Patience *patience = nullptr);
// The same, after which the workbook is closed: the file is put in place while the application lets go of it.
void ecrireEtFermer(Classeur::Donnees &donnees, const QString &cheminHote, const char *filtre);
// The application's name for the format that a file's extension asks for: .xls unless it is .xlsx or .ods.
const char *filtrePour(const QString &cheminHote);
// Puts a copy of a workbook's file at this path, with the same care and the same words.
void copierClasseur(const QString &source, const QString &cheminHote);
