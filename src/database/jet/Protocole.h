// What the reading process tells the program: a stream of records on its standard output.
#pragma once

#include <cstdint>

// Each record is a kind (one byte), the size of its body (four bytes) and the body; whole numbers are little-endian, a
// text is its size (four bytes) and its UTF-8. The stream is, in this order:
//
//     Entete        generation of the file (one byte: 3 or 4), 1 and AccessVersion as a text, or 0 where there is none
//     Table ...     name, 1 for a table of the user and 0 for MSysRelationships, rows that the file announces (four
//                   bytes), number of columns (two bytes), and for each: name, type, length in characters or bytes
//                   (two bytes), 1 for an automatic number. MSysRelationships comes first, its rows with it.
//     FinStructure
//     Ligne ...     the rows of the user's first table: for each column a Valeur and what goes with it; then FinTable:
//                   the number of rows read (four bytes); then the next table's, in the order of the Table records
//     Fin           everything was read
//
// or, at any point, Echec: a Motif (one byte) and the name of the table in hand. A stream that stops before Fin comes
// from a process that died. The reader of the stream trusts nothing in it: a damaged file may have made the process
// write anything.
namespace ProtocoleJet
{
enum class Genre : std::uint8_t {
    Entete = 'V',
    Table = 'T',
    FinStructure = 'S',
    Ligne = 'L',
    FinTable = 'F',
    Fin = 'Z',
    Echec = 'E'
};

enum class Valeur : std::uint8_t {
    Nulle = 0,
    Entier = 1,    // eight bytes
    Reel = 2,      // eight bytes of a double
    Simple = 3,    // four bytes of a float
    Texte = 4,     // a text
    DateHeure = 5, // eight bytes of a double: days since 30/12/1899
    Octets = 6,    // size and bytes
    Vrai = 7,
    Faux = 8
};

enum class Motif : std::uint8_t {
    PasLisible = 1,     // the file cannot be opened, or its catalogue cannot be read
    TableIllisible = 2, // a table's definition is damaged
    LigneIllisible = 3, // a row or a long text is damaged
    CompteFaux = 4,     // fewer or more rows than the file announces
    Interne = 5,        // out of memory and the like
    Tronque = 6         // the file is not a whole number of pages
};

inline constexpr std::uint32_t TAILLE_ENTETE = 5;
// No record is longer: a row has at most 255 columns, of which long texts are bounded below.
inline constexpr std::uint32_t TAILLE_MAXIMALE = 256U << 20;
// Longest memo text or picture, in bytes; Jet's own limit for what is typed is 64 KB.
inline constexpr std::uint32_t LONGUEUR_MAXIMALE = 64U << 20;
} // namespace ProtocoleJet
