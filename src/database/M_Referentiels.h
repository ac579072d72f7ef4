// Names to codes and codes to names.
#pragma once

#include <QString>
#include <QStringList>

class DataEnvironment1;

// Text in, text out; an empty text gives the empty text, and so does a name that is not found, unless told otherwise.
// The first row that bears the name wins, in the order of the command; the case of letters makes no difference (É = é).
// Tables are kept in memory, so that an import may ask for every row.
namespace M_Referentiels
{
QString CodeParametre(const DataEnvironment1 &donnees, const QString &nom);
// `siAbsent` for an empty or unknown symbol: the imports store "0". Of symbols that differ by their case alone (mS, MS),
// the one written in the same way comes first.
QString CodeUniteDeSymbole(const DataEnvironment1 &donnees, const QString &symbole,
                           const QString &siAbsent = {});
// "-" for an empty or unknown code.
QString SymboleUniteDeCode(const DataEnvironment1 &donnees, const QString &code);
QString CodeDepartement(const DataEnvironment1 &donnees, const QString &nom);
QString CodeFraction(const DataEnvironment1 &donnees, const QString &nom);
bool FractionExiste(const DataEnvironment1 &donnees, const QString &code);
QString CodeStationHydro(const DataEnvironment1 &donnees, const QString &intitule);
QString IntituleStationHydro(const DataEnvironment1 &donnees, const QString &code);
QString CodeSousBassin(const DataEnvironment1 &donnees, const QString &nom);
QString NumeroBassin(const DataEnvironment1 &donnees, const QString &nom);
QString NumeroCommune(const DataEnvironment1 &donnees, const QString &nom);
QString CodeGestionnaire(const DataEnvironment1 &donnees, const QString &nom);
QString CodePreleveur(const DataEnvironment1 &donnees, const QString &nom);
QString CodeLaboratoire(const DataEnvironment1 &donnees, const QString &nom);
QString CodeReseauDeLibelle(const DataEnvironment1 &donnees, const QString &libelle);
QString LibelleReseauDeCode(const DataEnvironment1 &donnees, const QString &code);
QString NomGestionnaire(const DataEnvironment1 &donnees, const QString &code);
// The text "Null" for a station that has no everyday code.
QString CodeUsuelStation(const DataEnvironment1 &donnees, const QString &code);
// Name of the study's reference basin; empty in a database that is not set up yet.
QString BassinReference(const DataEnvironment1 &donnees);

// Whether a parameter may be imported in a unit, given by its code or its symbol: 0 no, 1 yes in the unit that this system
// uses, 2 yes in another one. 0 without a parameter or without a unit.
int UniteParametreConnue(const DataEnvironment1 &donnees, const QString &parametre, const QString &codeUnite,
                         const QString &symbole);
// The same, under the name that the imports use.
int ParamUniteAssociee(const DataEnvironment1 &donnees, const QString &codeParam, const QString &codeUnite,
                       const QString &symboleUnite);

// True when `valeur` is empty or is one of the first `n` texts of `liste`.
bool DansListe(const QString &valeur, const QStringList &liste, qsizetype n);
} // namespace M_Referentiels
