// Raw data written to a workbook.
#pragma once

#include "analysis/LignesDonneesBrutes.h"

#include <memory>

class Dialogue;
class DossiersRecents;
class EtatRapport;
class Progression;
class Tableur;

namespace ExportDonneesBrutes
{
// A sheet and the rows that stand on it, under a row of titles.
struct Feuillet {
    QString nom;
    qsizetype premiere = 0;
    qsizetype nombre = 0;
    bool operator==(const Feuillet &) const = default;
};

// Rows that a sheet holds under its titles, by the file's extension: 65 535 in an .xls, 1 048 575 in an .xlsx or .ods.
qsizetype lignesParFeuille(const QString &chemin);
// The sheets for so many rows: "Données brutes", or "Données brutes 1", "Données brutes 2"… where one is too small.
QList<Feuillet> repartir(qsizetype nombre, qsizetype parFeuille);
// What is asked before rows are spread over several sheets of that file; empty where one holds them.
QString avertissement(qsizetype nombre, const QString &chemin);

// Asks for the file, writes every row of the set in the order shown, saves, tells and shows the document. Nothing is left
// out: what one sheet cannot hold goes on to others, once the user agrees. While it runs, nothing else can be started;
// it can be given up, and no file is then made. An Erreur likewise leaves what stood under that name as it was.
// True when a document was made.
struct Services {
    Dialogue &dialogue;
    Tableur &tableur;
    DossiersRecents &dossiers;
    EtatRapport &etat;
};
bool exporter(const Services &services, const DataEnvironment1 &donnees,
              const std::shared_ptr<const JeuDonneesBrutes> &jeu);
} // namespace ExportDonneesBrutes
