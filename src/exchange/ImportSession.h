// The state of an import, kept from one resumption to the next.
#pragma once

#include <array>
#include <QString>

// Which routine a button restarts.
enum class TypeImport {
    Aucun = 0,
    Physico = 1,
    PhysicoBis = 2, // the same routine
    Hydro = 3,
    Pluvio = 4,
    StationsExcel = 5,
    Trames = 6,
    TramesBis = 7,
    StationsTrames = 8,
    Quesu = 9,
};

// What kind of element is in question.
enum class TypeElement {
    Aucun = 0,
    StationQualite = 2,
    Parametre = 3,
    Gestionnaire = 4,
    Laboratoire = 5,
    Reseau = 6,
    Preleveur = 7,
    ParametreParCode = 8,
    StationHydro = 9,
    UniteDeParametre = 10,
    StationPluvio = 11,
    Commune = 12,
    Bassin = 13,
    CommuneTrames = 14,
};

struct ImportSession {
    QString FichierImport;  // full path of the chosen file
    QString TitreImport;    // its name without the folder
    QString DossierFichier; // the folder; where the next file dialog starts
    TypeImport typeImport = TypeImport::Aucun;
    bool FormatTeste = false;    // the format check has passed in this run
    int LigneMaxProgression = 0; // scale of the progress bar; 0 = not yet measured
    int LigneReprise = 0;        // row at which the next run resumes; 0 = from the beginning
    QString ElementNom;
    QString ElementCode;
    QString ElementUnite;
    QString ElementParametre;
    TypeElement typeElement = TypeElement::Aucun;
    bool RemplacerTout = false;
    int NbEnregistres = 0;
    bool LigneIgnoree = false; // after Ignorer, until the next action of the dialog
    // 1-based columns found by the format check, 0 = absent; kept across resumptions.
    std::array<int, 16> ColonnesExcel{};

    // The file whose import the user has interrupted from the progress window; empty otherwise.
    QString FichierInterrompu;

    // Frames and XML documents give codes where a workbook gives names.
    bool donneDesCodes() const;
    // What the menu does before an import; LigneReprise stays.
    void viderCompteurs();
    // A new import of the file at this host path. The row at which a stopped import stood stays, on purpose, whatever the
    // file; only an import that the user has interrupted himself resumes with its own file alone.
    void commencer(const QString &fichier, TypeImport type);
};
