// Reads what a reference sheet shows.
#pragma once

#include "capture/DescriptionFiche.h"
#include "platform/Choix.h"

#include <optional>

class DataEnvironment1;

// A row as its sheet shows it.
struct FicheLue {
    qint64 rang = 0; // its rowid, which is also its number where the store gives one
    QString cle;     // the criterion's value
    QString interne; // the internal key's value, where the table has one
    ValeursFiche valeurs;
    LiensFiche liens;
};

namespace LectureFiche
{
// The keys that the key combo offers, in French order: what is unique as the code, the criterion as the text.
ListeChoix cles(const DataEnvironment1 &donnees, const DescriptionFiche &description);
// The row of that code.
std::optional<FicheLue> lire(const DataEnvironment1 &donnees, const DescriptionFiche &description,
                             const QString &code);
// The code of the row whose criterion has this value, in any case; empty where there is none.
QString codeDe(const DataEnvironment1 &donnees, const DescriptionFiche &description, const QString &valeur);

// Values of one column of a link table, for the rows that carry this key.
QStringList lies(const DataEnvironment1 &donnees, const QString &table, const QString &colonneCle,
                 const QVariant &cle, const QString &colonneLiee);
// The texts that stand in a column, each once, in French order: proposals for a free combo.
QStringList valeursConnues(const DataEnvironment1 &donnees, const QString &table, const QString &colonne);
// Rows of a command as a list offers them: code, text and complement columns (the last may be empty). Rows without a
// text show their code.
ListeChoix liste(const DataEnvironment1 &donnees, const QString &commande, const QString &code,
                 const QString &texte, const QString &complement = {});
} // namespace LectureFiche
