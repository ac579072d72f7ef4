// The samplings of the demonstration study: who sampled what, where and when, and what was found.
#pragma once

#include "Chimie.h"

#include <map>
#include <memory>
#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

// One result, as MESURE_PHYSICO holds it. A null value is an analysis that failed (remark code "0").
struct Resultat {
    QString parametre;
    QString fraction;
    QVariant valeur;
    QVariant remarque;
    QVariant ld;
    QVariant lq;
    QVariant ls;
    QVariant seuil;
    QString lieu;
    QVariant commentaire_analyse;
    QVariant commentaire_resultat;
    QVariant laboratoire;
    QVariant methode;
    QString gestionnaire;
    // Of the campaign that asked for this result, where a workbook needs one for the row.
    QString reseau;
};

struct Prelevement {
    QString station;
    QDate date;
    QVariant heure; // "hh:mm:ss" or null
    QString preleveur;
    QString producteur;
    QVariant protocole;
    QStringList reseaux;
    std::vector<Resultat> resultats;
};

// The weather and the streams of the whole study, and the tables of donnees/etude.
class Campagnes
{
public:
    // `dossier` is the folder of the study's tables.
    explicit Campagnes(const QString &dossier);

    // The samplings that a table of campaigns ("campagnes.csv") gives, by date, then station and time. Campaigns that
    // meet on one station, day, time and sampler share one sampling, which then belongs to the networks of both.
    std::vector<Prelevement> prelevements(const QString &fichier) const;

    // Rain of the rainfall station, mm.
    double pluie_mm(QDate date) const;
    // Mean flow of a day at a hydrometric station, l/s.
    double debit_l_s(const QString &stationHydro, QDate date) const;

    QDate debut() const;
    QDate fin() const;

private:
    struct Analyse {
        int decimales = 1;
        QVariant ld, lq, ls, methode;
        QString lieu;
    };
    struct Riviere {
        Eau eau;
        QString stationHydro; // whose catchment rules it
        double superficie_km2 = 0;
    };
    struct Bassin {
        double superficie_km2 = 0;
        std::shared_ptr<Hydrologie> hydrologie;
    };
    struct Campagne;

    QList<QDate> dates(const Campagne &campagne) const;
    QList<QDate> datesDePluie(const Campagne &campagne) const;
    Echantillon echantillon(const QString &station, QDate date, const QString &graine) const;
    Resultat resultat(const Campagne &campagne, const QString &parametre, const QString &fraction,
                      const Echantillon &echantillon) const;
    void ajouter(const Campagne &campagne, QDate date, Prelevement &prelevement) const;

    QString m_dossier;
    std::map<QString, Bassin> m_bassins;
    std::map<QString, Riviere> m_rivieres;
    std::map<std::pair<QString, QString>, Analyse> m_analyses; // by parameter and fraction
    std::map<QString, Molecule> m_molecules;
    QHash<QString, QList<std::pair<QString, QString>>> m_programmes; // parameters and fractions
};
