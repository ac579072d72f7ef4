// A look at a chosen file before anything is done to it.
#pragma once

#include "platform/Erreur.h"

#include <QString>

namespace SondeBase
{
enum class Nature {
    Etude,   // a store of ours, or at least a file of its engine
    Jet,     // an Access file, of any version
    Inconnue // anything else, or no file
};

// What the file is by its first bytes, never by its name.
Nature nature(const QString &cheminHote);

// The same, with all that can be seen before a file is used. Nothing is written: not to the file, not beside it. An Erreur
// with the engine's number and a French reason for a file that cannot be used: absent, empty, unreadable, no database,
// cut short, read-only or in a read-only folder, used by another program, or a database that holds no study (the tables
// of samplings, results and stations are there in every study). Of a Jet file nothing but its first bytes is examined. Never Inconnue.
Nature examiner(const QString &cheminHote);

// The error of the engine in French words where it is one that a file can cause; as it is otherwise.
Erreur enFrancais(const Erreur &erreur);
} // namespace SondeBase
