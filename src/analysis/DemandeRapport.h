// What the physico-chemical report is asked for: the selection screen's controls, as plain values.
#pragma once

#include "analysis/Annees.h"

#include <optional>
#include <QDate>
#include <QString>
#include <QStringList>

struct DemandeRapport {
    QString codeStation; // CodeSandreStationM
    // The usual code is shown in place of the station's code, where it has one.
    bool afficherCodeUsuel = false;

    QString parametre; // NomParam, as chosen in cmb_param
    // The chosen row of ZC_FRACTION, "23 - Eau brute"; read for the parameter "1841" alone. Empty: none chosen.
    QString fraction;

    QDate debut;
    QDate fin;
    ModeAnnee mode = ModeAnnee::Civile;

    // Filters; an empty list filters nothing.
    QStringList gestionnaires; // CodeSandreGest of the selected producers
    QStringList reseaux;       // CodeReseau of the selected networks
    QStringList commentaires;  // CommResAnaPC; the row "- vide -" is given as an empty text
    QString protocole;         // label of cmb_protoc ("Suivi pluie"); empty: none chosen

    std::optional<double> seuil; // txt_valeur as a number; a typed 0 is a threshold
    QString stationDebit;        // CodeStationHM when opt_debit is chosen, else empty
};
