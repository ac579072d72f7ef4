// How a value of an Access file is written in the store.
#pragma once

#include "database/jet/LecteurJet.h"
#include "database/Schema.h"

#include <QByteArray>
#include <variant>

// What a column of the store holds. The columns that the schema knows have its kinds, whatever type the file gave them;
// the others follow their type in the file.
enum class GenreMagasin { Texte, Entier, Reel, Date, Heure, DateHeure, OuiNon, Nombre, Octets };

GenreMagasin genreMagasin(Schema::Genre genre);
GenreMagasin genreMagasin(TypeJet type);

// Null, a whole number, a number, UTF-8 text or bytes.
struct OctetsMagasin {
    QByteArrayView v;
};
using ValeurMagasin = std::variant<std::monostate, qint64, double, QByteArrayView, OctetsMagasin>;

// The value as a column of that kind holds it: a number in a text column is its digits ("3", "12.5"), a typed "12,5" in
// a number column is a number, a date is "2009-03-01", a time "10:00:00", a boolean -1 or 0. A text that is no number,
// date or time is kept as it stands. `tampon` keeps the text that had to be made.
ValeurMagasin versMagasin(const ValeurJet &valeur, GenreMagasin genre, QByteArray &tampon);
