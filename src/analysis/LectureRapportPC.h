// What the statistics report reads from the base: its heading, and the measures year by year.
#pragma once

#include "analysis/Annees.h"
#include "analysis/DemandeRapport.h"
#include "analysis/StatistiquesPC.h"
#include "database/Requete.h"

#include <functional>
#include <optional>
#include <QString>
#include <QStringList>

class DataEnvironment1;

// The unit of a parameter that has none.
inline constexpr QStringView UNITE_NON_DEFINIE = u"non définie";

// The station, the parameter and what its values are held against.
struct EnTeteRapport {
    QString bassin; // NomBV
    QString codeAffiche;
    QString riviere;
    QString station;   // NomStationM
    QString parametre; // as the report shows it: for organic carbon with the label of its fraction
    QString unite;
    QString codeParametre;
    QString codeFraction; // empty but for organic carbon
    QString libelleFraction;
    Limites limites;
    std::optional<GrilleSEQ> grille;
};

// The fraction is left empty where none was chosen, and for every parameter but organic carbon.
EnTeteRapport lireEnTete(const DataEnvironment1 &donnees, const DemandeRapport &demande);

// Names of these producers, in the same order; a code without a name is left out.
QStringList lireNomsGestionnaires(const DataEnvironment1 &donnees, const QStringList &codes);

// Number of rows of the named command Mesure_PC: every physico-chemical result of the base, counted without joining them.
qint64 compterResultatsDeLaBase(const DataEnvironment1 &donnees);

// The measures of one station and parameter. Statements are prepared once and run for each year.
class LecteurMesuresPC
{
public:
    LecteurMesuresPC(const DataEnvironment1 &donnees, const DemandeRapport &demande,
                     const EnTeteRapport &enTete);

    // The records of a year, by date, and the flows of their days. `parEnregistrement` is called for each.
    AnneeLue lire(const Annee &annee, const std::function<void()> &parEnregistrement);

private:
    QList<double> lireDebits(QDate jour);

    QVariantList m_parametres; // all but the dates, which come first
    Requete m_mesures;
    Requete m_debits;
    QString m_stationDebit;
};
