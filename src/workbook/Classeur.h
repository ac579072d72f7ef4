// One open workbook.
#pragma once

#include "workbook/Feuille.h"

#include <memory>
#include <optional>
#include <QString>
#include <QStringList>

// Closed without saving when destroyed. Sheets and ranges got from it stay handles on it, and fail once it is closed.
class Classeur
{
public:
    class Donnees;
    explicit Classeur(std::shared_ptr<Donnees> donnees);
    ~Classeur();
    Classeur(const Classeur &) = delete;
    Classeur &operator=(const Classeur &) = delete;

    // Saves under this host path; the workbook then bears that name. An existing file is replaced. The format is .xls,
    // unless the name ends in ".xlsx" or ".ods". An Erreur tells what is in the way (a folder that cannot be written,
    // a file open in another program, a full disk), and a file that was there is then untouched.
    void enregistrerSous(const QString &cheminHote);
    // Bears this name from now on, the file that it was opened from standing there as it is: what enregistrerSous gives for
    // a workbook in which nothing was written yet, without the time that writing it out takes.
    void reprendreSous(const QString &cheminHote);
    // Saves under the name that it bears.
    void enregistrer();
    // The same, after which it is closed: the end of a report.
    void enregistrerEtFermer();
    void exporterPdf(const QString &cheminHote);
    void fermer();

    // Host path of the file; empty for one never saved.
    QString chemin() const;

    QStringList feuilles() const;
    // A sheet by its name, or by its position from 1. An absent one is an Erreur.
    Feuille feuille(const QString &nom) const;
    Feuille feuille(int position) const;
    // Adds a sheet after the others.
    Feuille ajouterFeuille(const QString &nom);

    // The range behind a defined name ("reseau_sandre"), or nothing.
    std::optional<Plage> plageNommee(const QString &nom) const;
    // The font of every cell that is given no other one.
    void policeParDefaut(const QString &nom, double points);
    // Rows keep from now on the heights that they have, whatever is written in them: for a workbook made from a template,
    // in which measuring every text again takes longer than writing it. A row can still be given its height.
    void figerHauteurs();
    void nommerPlage(const QString &nom, const Plage &plage);

private:
    std::shared_ptr<Donnees> m_donnees;
};
