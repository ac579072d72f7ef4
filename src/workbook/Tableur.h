// The hidden spreadsheet application (LibreOffice Calc) and its life.
#pragma once

#include "platform/Erreur.h"
#include "workbook/Classeur.h"

#include <functional>
#include <memory>
#include <QString>

class InstanceCalc;

// A failure of the application itself, not of what was asked of it: absent, unable to start, dead or hung.
class ErreurTableur : public Erreur
{
public:
    using Erreur::Erreur;
};

// How long the application may stay without an answer before it is taken for hung and killed, in milliseconds.
struct DelaisTableur {
    int demarrage = 60'000;
    int fichier = 120'000; // opening, saving, exporting
    int appel = 20'000;    // any other call
    int essai = 5'000;     // the question "are you there?" put to an instance kept from an earlier report
};

// A workbook that the application is opening. Lives in the main thread, no longer than its Tableur; when it goes before it was
// waited for, it waits.
class OuvertureEnCours
{
public:
    class Donnees;
    explicit OuvertureEnCours(std::unique_ptr<Donnees> donnees);
    ~OuvertureEnCours();
    OuvertureEnCours(const OuvertureEnCours &) = delete;
    OuvertureEnCours &operator=(const OuvertureEnCours &) = delete;

    // Once. What went wrong meanwhile comes out here.
    std::unique_ptr<Classeur> attendre();

private:
    std::unique_ptr<Donnees> m_donnees; // empty once waited for
};

// A failure of the spreadsheet application is an Erreur (platform/Erreur.h) with its words; a dead or hung instance is
// an ErreurTableur: the next call to ouvrir or ajouter starts a fresh one. Lives in the main thread.
class Tableur
{
public:
    Tableur();
    ~Tableur(); // ends the instance and leaves no process and no profile folder behind
    Tableur(const Tableur &) = delete;
    Tableur &operator=(const Tableur &) = delete;

    // Starts the instance in the background; returns at once. Calling it again while one runs does nothing.
    // Never fails: what goes wrong is told by the first call that needs the instance.
    void demarrerEnAvance();
    // Opens a workbook (.xls, .xlsx, .ods, .csv) without prompt, macro or update of links; the kind is judged by the
    // content, and what is not a workbook, is truncated or has a password is an Erreur that says so. Waits for the
    // instance if it is still starting. A workbook opened for reading only cannot be saved under its own name.
    std::unique_ptr<Classeur> ouvrir(const QString &cheminHote, bool lectureSeule = false);
    // The same, begun: the application opens the file while the caller does what needs neither it nor a workbook.
    OuvertureEnCours commencerOuverture(const QString &cheminHote, bool lectureSeule = false);
    // A new workbook of one sheet.
    std::unique_ptr<Classeur> ajouter();
    // Ends the instance; another one is started when needed. Workbooks still open are lost.
    void quitter();

    // For the scenario player and the tests: kills the process outright.
    void tuer();
    // Process number of the running instance, 0 when there is none.
    qint64 numeroProcessus() const;

    // The program to start in place of the installed soffice (also: the environment variable OVRALIS_SOFFICE).
    void definirProgramme(const QString &cheminHote);
    void definirDelais(const DelaisTableur &delais);
    // Called some times a second while the start of an instance is waited for, to keep the windows alive; empty: the
    // wait just blocks.
    void definirAttente(const std::function<void()> &ceder);

private:
    std::shared_ptr<InstanceCalc> instance();

    QString m_programme;
    DelaisTableur m_delais;
    std::function<void()> m_ceder;
    std::shared_ptr<InstanceCalc> m_instance;
};
