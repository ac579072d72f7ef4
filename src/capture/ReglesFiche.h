// What the fields of a reference sheet take, and the words that refuse the rest.
#pragma once

#include "capture/DescriptionFiche.h"

#include <optional>
#include <QVariant>

class DataEnvironment1;

struct RefusFiche {
    QString message;
    QString titre;
    QString controle = {}; // the field to go back to
};

namespace ReglesFiche
{
// Whether a field can be left with this text, by the length and the type of its column. An empty one always can.
std::optional<RefusFiche> refusChamp(const QString &table, const ChampFiche &champ, const QString &texte);
// Whether these values can be saved: every field as above, and none empty that may not be. The first refusal, in order.
std::optional<RefusFiche> refusFiche(const DescriptionFiche &description, const ValeursFiche &valeurs);
// Where a row was chosen by an internal key and its criterion typed anew: whether another row has that value already.
std::optional<RefusFiche> refusDoublon(const DataEnvironment1 &donnees, const DescriptionFiche &description,
                                       const ValeursFiche &valeurs, const QString &interne);
// Whether a text can be stored as it is typed in a column of this length (0: any): the message that refuses it, or an
// empty text. `lignes`: line breaks and tabs are text.
QString refusTexte(const QString &designation, const QString &texte, int longueur, bool lignes = false);

// What the store takes for a text typed into this column: a text without the blanks around it; a number, a date or null.
// An unreadable one is an Erreur; refusChamp comes first.
QVariant valeurAEcrire(const QString &table, const QString &colonne, const QString &texte);
// The other way: what the field shows for a stored value.
QString texteAMontrer(const QString &table, const QString &colonne, const QVariant &valeur);
} // namespace ReglesFiche
