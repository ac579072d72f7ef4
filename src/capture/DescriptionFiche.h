// A reference sheet as data: the row of one table that it shows, field by field.
#pragma once

#include <QList>
#include <QMap>
#include <QString>

// One field. Its length and its type are those that the schema declares for the column.
struct ChampFiche {
    QString controle;    // name of the control: "txt_nom"
    QString colonne;     // column of the table: "NomCommune"
    QString designation; // begins the messages: "Le nom de la commune"
    QString siVide = {}; // the message that refuses an empty field; empty where it may be empty
};

// Rows elsewhere that name a row of the sheet, and so keep it from being deleted.
struct UsageFiche {
    QString table;
    QString colonne;
    QString singulier; // "station de qualité"
    QString pluriel;
    // Column of the sheet's own table that they name; empty: the criterion.
    QString nommee = {};
};

// Rows that are a part of the sheet's row and go with it when it is deleted.
struct DependanceFiche {
    QString table;
    QString colonne;
    QString nommee = {}; // as in UsageFiche
};

// A link table that a list of the sheet shows: one row for each chosen row of the list. A save rewrites it, a deletion
// empties it.
struct LienFiche {
    QString controle; // a ListeFiltree: "lst_commune"
    QString table;    // "BVXCommune"
    QString colonneCle;
    QString colonneLiee;
    QString nommee = {}; // column of the sheet's own table that `colonneCle` repeats; empty: the criterion
};

//     const DescriptionFiche COMMUNE{
//         .table = "COMMUNE", .critere = "NumCommune", .libelle = "NomCommune",
//         .champs = {{"txt_code", "NumCommune", "Le numéro de la commune", "Le numéro ... doit être renseigné."}, ...},
//         .objet = "La commune", .feminin = true,
//         .fin = "L'enregistrement de la commune a été effectué. Désirez-vous en effectuer un autre?",
//         .usages = {{"BVXCommune", "NumCommune", "bassin versant", "bassins versants"}}};
struct DescriptionFiche {
    QString table;
    // The column whose typed value finds the row; the key combo offers its values.
    QString critere;
    // A key of the store's own by which a chosen row is found even where the criterion has been typed anew; may be empty.
    QString cleInterne = {};
    // The column shown beside the criterion in the key combo; may be empty.
    QString libelle = {};
    QList<ChampFiche> champs;    // in the order in which the columns are written
    QString objet;               // "La commune": begins the messages about a whole row
    bool feminin = false;        // of `objet`
    QString fin;                 // the closing question of a save
    QList<LienFiche> liens = {}; // in the order in which they are rewritten
    QList<UsageFiche> usages = {};
    QList<DependanceFiche> dependances = {};

    const ChampFiche *champ(const QString &colonne) const
    {
        for (const ChampFiche &c : champs) {
            if (c.colonne == colonne)
                return &c;
        }
        return nullptr;
    }
};

// What the controls of a sheet hold, by column: typed texts, and the codes of chosen rows.
using ValeursFiche = QMap<QString, QString>;
// Codes of the rows chosen in its lists, by link table.
using LiensFiche = QMap<QString, QStringList>;
