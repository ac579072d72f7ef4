// Where LibreOffice is on this host, and the profile folder that makes an instance of ours start quickly.
#pragma once

#include <QStringList>

struct InstallationCalc {
    QString programme;        // the executable to start; empty when LibreOffice was not found
    QString dossierProgramme; // LibreOffice's folder "program", where its types and services are

    // Looks for `programmeImpose`, else for the variable OVRALIS_SOFFICE, else for the installed LibreOffice.
    static InstallationCalc chercher(const QString &programmeImpose);
    // Writes a profile of ours into this folder, which exists and is empty: French number and paper conventions, no
    // lock files, no macros, no recovery, no undo. An instance that is given an empty folder fills it and then starts
    // a second time; this one starts once.
    void ecrireProfil(const QString &dossier) const;
    // A folder as the URL that the application wants.
    static QString urlDossier(const QString &dossier);
    // Paths of the sockets that an instance with this profile and this pipe name leaves when it is killed.
    static QStringList prises(const QString &dossier, const QString &nomTube);
};
