// The reference tables that the rows of an import are held against: a snapshot for one run, so that the check of a row
// needs no base, and names that an old base holds with blanks around them are found.
#pragma once

#include <optional>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

class DataEnvironment1;

// Names and codes to what they stand for: blanks around them and case make no difference, the first of two rows with one
// name counts.
class TableDeNoms
{
public:
    void ajouter(const QString &nom, const QString &code);
    // Nothing for an unknown or an empty name.
    std::optional<QString> chercher(const QString &nom) const;

private:
    QHash<QString, QString> m_codes;
    // What was sought so far, as it was written: a file says the same names over and over.
    mutable QHash<QString, std::optional<QString>> m_cherches;
};

// The units in which each parameter may be imported (IMPORT_PAR_URF).
class UnitesAssociees
{
public:
    void ajouter(const QString &codeParam, const QString &codeUnite, const QString &symbole, bool isOvl);
    // 0 when no row of the parameter has this unit code or this symbol, or both are empty; otherwise 1 when the first
    // such row is the pair that this system uses, 2 when it is not.
    int ParamUniteAssociee(const QString &codeParam, const QString &codeUnite, const QString &symbole) const;

private:
    struct Unite {
        QString code;
        QString symbole;
        bool isOvl = false;
    };
    int premiere(const QString &codeParam, const QString &codeUnite, const QString &symbole) const;

    QHash<QString, QVector<Unite>> m_unites;
    mutable QHash<QStringList, int> m_cherchees;
};

struct ReferencesPhysico {
    TableDeNoms stations;           // code to code as stored
    QHash<QString, QString> points; // stored station code to its first sampling point
    TableDeNoms parametres;
    UnitesAssociees unites;
    TableDeNoms gestionnaires;
    TableDeNoms preleveurs;
    TableDeNoms laboratoires;
    TableDeNoms reseaux;
    TableDeNoms fractions; // code to code as stored
};
struct ReferencesHydro {
    TableDeNoms stations;
};
struct ReferencesPluvio {
    TableDeNoms stations;
    TableDeNoms gestionnaires;
};

// Read through the named commands, whose order decides between two rows of one name.
ReferencesPhysico lireReferencesPhysico(const DataEnvironment1 &donnees);
ReferencesHydro lireReferencesHydro(const DataEnvironment1 &donnees);
ReferencesPluvio lireReferencesPluvio(const DataEnvironment1 &donnees);
