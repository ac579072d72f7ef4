// The statistics report as pure computation: records and flows in, one column of figures a year and two for the whole
// period out. No database, no workbook.
#pragma once

#include "analysis/ClasseSEQ.h"
#include "analysis/SerieMesures.h"

#include <optional>
#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <vector>

// One record of the measure query, accepted or not.
struct EnregistrementPC {
    QDate date; // null where the base has none
    double valeur = 0;
    QString codeRemarque; // as stored
    QString gestionnaire; // CodeSandreGest, empty for null
    QString commentaire;  // CommResAnaPC, empty for null
};

// A remark code as a number, comma or point; none where it is empty or no number.
std::optional<double> numeroRemarque(const QString &codeRemarque);

// What becomes of a record because of its remark code. A code that is empty or not a number leaves the value as it is.
enum class EffetRemarque { TelQuel, Ecarte, Moitie };
EffetRemarque effetRemarque(const QString &codeRemarque);

// Producers and result comments to keep; an empty list keeps all. An empty comment stands for a record without one.
struct FiltresMesures {
    QStringList gestionnaires;
    QStringList commentaires;
    bool accepte(const EnregistrementPC &enregistrement) const;
};

// What the values are held against; none where there is nothing to compare with.
struct Limites {
    std::optional<double> objectifMoyen;
    std::optional<double> objectifMaximum;
    std::optional<double> seuil;
};

struct AnneeLue {
    QList<EnregistrementPC> enregistrements;
    // Daily flows (l/s) of the linked station on the days of the records; several rows may bear the same day.
    QHash<QDate, QList<double>> debits;
};

struct DonneesStatistiques {
    QList<AnneeLue> annees;
    FiltresMesures filtres;
    Limites limites;
    std::optional<GrilleSEQ> grille;
    // Number of rows of the command Mesure_PC: every physico-chemical result of the base.
    qint64 resultatsDeLaBase = 0;
};

// Frequencies with which each limit was exceeded, strictly, in % of the accepted records.
struct Depassements {
    std::optional<double> objectifMoyen;
    std::optional<double> objectifMaximum;
    std::optional<double> seuil;
};

// One column of a yearly block. Figures are unrounded; none stands for "-".
struct StatistiquesAnnee {
    bool vide = true; // no accepted record: the whole column is "-"
    qint64 effectif = 0;
    std::optional<double> moyenne;
    std::optional<double> quantile90;
    std::optional<double> maximum;
    std::optional<double> quantile10;
    std::optional<double> minimum;
    Depassements depassements;
    std::optional<double> mediane;
    std::optional<double> ecartType;
    std::optional<double> moyennePonderee; // by the flows
    std::optional<int> couleurClasse;      // ColorIndex
};

// One column of the interannual block.
struct StatistiquesPeriode {
    bool vide = true;
    qint64 effectif = 0;
    std::optional<double> moyenne;
    double maximum = 0;
    std::optional<double> minimum;
    Depassements depassements;
    std::optional<double> quantile90;
    std::optional<double> quantile10;
    std::optional<double> ecartType;
    std::optional<double> mediane;
};

struct ResultatStatistiques {
    QList<StatistiquesAnnee> annees;
    // Over the count of the whole base, and over the accepted records alone.
    StatistiquesPeriode surLaBase;
    StatistiquesPeriode surLesRetenues;
    int mesuresLues = 0;     // before the filters
    int mesuresRetenues = 0; // what the report was reckoned on
    QStringList sources;     // CodeSandreGest of the accepted records, once each, as they were met
};

ResultatStatistiques calculerStatistiques(const DonneesStatistiques &donnees);
