// The state of one run, handed down to every screen and routine. Core: no widget here.
#pragma once

#include "database/DataEnvironment1.h"
#include "exchange/ImportSession.h"
#include "platform/Chemins.h"
#include "platform/Dialogue.h"
#include "workbook/CoursRapport.h"
#include "workbook/Tableur.h"

#include <array>
#include <QString>
#include <QStringList>

enum class TypeExport { Aucun = 0, PhysicoChimie = 1, Pesticides = 2, Hydrometrie = 3, Pluviometrie = 4 };
enum class FormatExport { Aucun = 0, Tableur = 1, Sysiphe = 2, Trames = 3, Xml = 4 };

struct Session {
    explicit Session(Dialogue &d) : dialogue(d) {}

    // The chosen study. CheminBase is its folder with the separator, FichierBase the path as the dialog returned it,
    // TitreBase the file name.
    QString CheminBase;
    QString FichierBase;
    QString TitreBase;
    QString CheminTravail;
    QString ChaineFournisseur;
    QString VersionAccess;

    // For the maps: their two folders and the situations that their dialogs offer.
    QString CheminDessin;
    QString CheminCarteTravail;
    QStringList TypesCarte;
    bool CalculCarteEnCours = false;

    TypeExport typeExport = TypeExport::Aucun;
    FormatExport formatExport = FormatExport::Aucun;

    // How a screen was opened: 1 by default; which screen called a reference sheet, 0 to 83.
    int ModeSaisie = 1;
    int OrigineSaisie = 0;
    bool ModeIntervenant = false;
    // Set while a screen is being reset by its Vider routine: the handlers of its lists then do nothing.
    bool ViderEnCours = false;
    // Set during the last two steps of the main window's load only.
    bool ChargementEnCours = false;

    // The palette of the charts, 40 colours, from COULEURS_GRAPH.
    std::array<int, 40> CouleurR{};
    std::array<int, 40> CouleurG{};
    std::array<int, 40> CouleurB{};

    ImportSession importSession;

    Dialogue &dialogue;
    DataEnvironment1 donnees;
    Tableur tableur;
    DossiersRecents dossiers;
    EtatRapport etatRapport;
};
