// The hidden spreadsheet application (LibreOffice Calc) and its life.
#pragma once

#include "workbook/Classeur.h"

#include <memory>
#include <QString>

// A failure of the spreadsheet application is an Erreur (platform/Erreur.h) with its words; a dead or hung instance too:
// the next call to ouvrir or ajouter starts a fresh one.
class Tableur
{
public:
    Tableur();
    ~Tableur(); // ends the instance and leaves no process and no profile folder behind
    Tableur(const Tableur &) = delete;
    Tableur &operator=(const Tableur &) = delete;

    // Starts the instance in the background; returns at once. Calling it again while one runs does nothing.
    void demarrerEnAvance();
    // Opens a workbook (.xls, .xlsx, .ods, .csv) without prompt and without update of links. Waits for the instance
    // if it is still starting.
    std::unique_ptr<Classeur> ouvrir(const QString &cheminHote, bool lectureSeule = false);
    // A new workbook of one sheet.
    std::unique_ptr<Classeur> ajouter();
    // Ends the instance; another one is started when needed.
    void quitter();

    // For the scenario player and the tests: kills the process outright.
    void tuer();
    // Process number of the running instance, 0 when there is none.
    qint64 numeroProcessus() const;

private:
    class Instance;
    std::shared_ptr<Instance> m_instance;
};
