// Big generated content for measures of speed.
#pragma once

#include <functional>
#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

class QSqlDatabase;

// Two things are made from the same plan: a base, and the rows of a laboratory's workbook that the base has not got.
//
// The base of N results: one station "04999010" with 120 nitrates (parameter 1340, monthly from January 2008 to
// December 2017) and a flow for each day of these ten years at "J7999910", the same in every base whatever its N; all
// other results stand on 100 other stations and on every other physico-chemical parameter and pesticide.
class Banc
{
public:
    // One row of a workbook, as names and numbers.
    struct Ligne {
        QString codeStation;
        QString nomStation;
        QDate date;
        QString heure; // "hh:mm"
        QString parametre;
        double valeur = 0;
        int remarque = 1;
        QString fraction;
        QString commentaire;
        QString unite;
        QString seuil;
        QString protocole;
        QString gestionnaire;
        QString preleveur;
        QString laboratoire;
        QString reseau;
    };

    // `donnees` is the folder that holds "referentiel".
    explicit Banc(const QString &donnees);

    // Basin, stations, actors, networks and flows: all that the workbook's rows name, and no result.
    void remplirElements(const QSqlDatabase &base) const;
    // Adds `nombre` results to a base with its elements.
    void remplirResultats(const QSqlDatabase &base, int nombre) const;
    // Calls `recevoir` with the rows of a workbook of this size, dated 2020 and later: a base of any size is without
    // them. About one sampling in 25 rows.
    void lignes(int nombre, const std::function<void(const Ligne &)> &recevoir) const;

private:
    struct Parametre {
        QString code;
        QString nom;
        QString symbole;
    };
    std::vector<Parametre> m_parametres; // all but 1340
};
