// The recognised columns of an imported workbook, and their search in its first row. Pure: texts in, positions out.
#pragma once

#include <array>
#include <functional>
#include <QString>
#include <QStringList>
#include <QVector>

// A column that a layout knows.
struct EnteteExcel {
    QStringList ecritures; // the headers it may bear; the first names it in messages about a cell
    QString nomMessage;    // how the message on missing columns names it, blanks included
    bool obligatoire = true;
};

// The columns of one kind of workbook, in the order in which missing ones are named.
using DispositionExcel = QVector<EnteteExcel>;

// Positions of a layout's columns in a sheet, 1-based, 0 for an absent one: ImportSession::ColonnesExcel.
using ColonnesReconnues = std::array<int, 16>;

// The fields of each layout; their values index the layout and ColonnesReconnues.
enum class ChampPhysico {
    CodeAgence,
    Nom,
    Date,
    Heure,
    Parametre,
    Valeur,
    CodeRemarque,
    CodeFraction,
    Commentaire,
    Unite,
    Seuil,
    Protocole,
    Gestionnaire,
    Preleveur,
    Laboratoire,
    Reseau,
};
enum class ChampHydro { TypeDebit, Station, Date, Heure, Debit };
enum class ChampPluvio { Station, Date, Mesures, Commentaire, Gestionnaire };
enum class ChampIntervenant { CodeAncien, SiretNouveau };

const DispositionExcel &dispositionPhysico();
const DispositionExcel &dispositionHydro();
const DispositionExcel &dispositionPluvio();
const DispositionExcel &dispositionIntervenant();

// The headers of a sheet: row 1 from column 1 up to the first empty cell, which ends the layout.
QStringList entetesDeLigne(const QVector<QVariant> &ligne1);

struct Reconnaissance {
    ColonnesReconnues colonnes{};
    QStringList manquantes; // message names of the missing obligatory columns, in the layout's order

    bool complete() const { return manquantes.isEmpty(); }
    // What the user is told; empty when nothing is missing.
    QString message() const;
};

// Holds each header against the layout: any case, otherwise letter for letter, blanks included. A header that is there
// twice counts by its rightmost column; unknown ones are passed over. `reconnue` is called for each recognised column.
Reconnaissance reconnaitre(const QStringList &entetes, const DispositionExcel &disposition,
                           const std::function<void()> &reconnue = {});
