// The saving of one record, with the dialogue that all saves share.
#pragma once

#include "capture/DescriptionFiche.h"

#include <functional>
#include <optional>
#include <QVariant>

class DataEnvironment1;
class Dialogue;

// One row to write, and what goes with it. Each statement commits by itself: what was written before a failure stays.
struct Enregistrement {
    struct Colonne {
        QString nom;
        QVariant valeur; // an invalid one, or an invalid date, is null
    };

    QString table;
    // What finds the row: a value of this column, whatever the case of its letters (É = é).
    QString critere;
    QString cle;
    QList<Colonne> colonnes; // written in this order
    // Rewrites the dependent rows once the row (its rowid, which is also its number where the store gives one) is there.
    std::function<void(const DataEnvironment1 &, qint64 rang)> dependants = {};
    QString fin; // the closing question
    // Runs after it, whatever the answer.
    std::function<void(const DataEnvironment1 &)> aLaFin = {};
    // Asked, with Yes and No, before anything else where it is not empty, titled "Attention".
    QString avertissement = {};
};

// What became of a save, for the screen: stay as it is, be emptied for another one, or close.
enum class Suite { Annule, Echec, Autre, Fini };

namespace M_Enreg_Tables
{
// Asks, writes the row (an insert where none is found), its dependent rows, and asks whether to go on. A failure is shown
// in the box of run-time failures.
Suite enregistrer(const DataEnvironment1 &donnees, Dialogue &dialogue, const Enregistrement &enregistrement);

// The same dialogue around the saving of measures, which takes the place of what is there: asks, has `ecrire` write, asks
// `fin`. What `ecrire` throws is shown in the box of run-time failures.
Suite enregistrerMesures(Dialogue &dialogue, const std::function<void()> &ecrire, const QString &fin);

// The rowid of the row that a value finds, or nothing.
std::optional<qint64> chercher(const DataEnvironment1 &donnees, const QString &table, const QString &colonne,
                               const QString &valeur);

// The row of a sheet: its columns in the order of the description, found by the criterion, or by `interne` (a value of
// the internal key) where a row was chosen and the table has such a key; its link tables are the dependent rows.
Enregistrement ligne(const DescriptionFiche &description, const ValeursFiche &valeurs,
                     const QString &interne = {}, const LiensFiche &liens = {});

// Rewrites the link tables of a row that is there.
void recrireLiens(const DataEnvironment1 &donnees, const DescriptionFiche &description, qint64 rang,
                  const LiensFiche &liens);
// Deletes every row of a link table that carries this key, then adds one for each of the other's.
void recrireLiens(const DataEnvironment1 &donnees, const QString &table, const QString &colonneCle,
                  const QVariant &cle, const QString &colonneLiee, const QStringList &lies);
} // namespace M_Enreg_Tables
