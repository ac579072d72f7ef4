// Steps that the rows of several layouts share. Each returns what it read or throws ArretImport.
#pragma once

#include "exchange/ArretImport.h"
#include "exchange/CelluleImport.h"
#include "exchange/LigneExcel.h"
#include "exchange/ReferencesImport.h"

namespace ChampsCommuns
{
inline constexpr int LONGUEUR_STATION = 8;
inline constexpr int LONGUEUR_INTERVENANT = 115;
inline constexpr int LONGUEUR_TEXTE = 255;

// A station's number, held to its length only.
template <class Champ> QString numeroStation(const LigneExcel &ligne, Champ champ)
{
    QString numero = ligne.texte(champ);
    if (numero.size() > LONGUEUR_STATION)
        throw ArretImport::tropLong(QStringLiteral("Le numéro de la station '"), numero, LONGUEUR_STATION);
    return numero;
}

// The code of the named element. `debut` begins the message on a name of more than `maximum` characters.
QString codeElement(const QString &nom, const QString &debut, int maximum, const TableDeNoms &table,
                    TypeElement type);

template <class Champ> QString gestionnaire(const LigneExcel &ligne, Champ champ, const TableDeNoms &table)
{
    return codeElement(ligne.texte(champ), QStringLiteral("Le gestionnaire '"), LONGUEUR_INTERVENANT, table,
                       TypeElement::Gestionnaire);
}

// `suite` closes the message on what is no date.
QDate jour(const QVariant &cellule, const QString &suite);

template <class Champ> QDate date(const LigneExcel &ligne, Champ champ)
{
    return jour(ligne.cellule(champ),
                QStringLiteral(" Corrigez votre fichier puis recommencer l'import des données."));
}

// The hour as "hh:mm:ss", or empty.
QString heureControlee(const QVariant &cellule);

template <class Champ> QString heure(const LigneExcel &ligne, Champ champ)
{
    return heureControlee(ligne.cellule(champ));
}

// A number that must be there; `libelleVide` is what F_Choix shows when it is not.
template <class Champ> double nombre(const LigneExcel &ligne, Champ champ, const QString &libelleVide)
{
    if (ligne.vide(champ))
        throw ArretImport::elementVide(libelleVide);
    if (const std::optional<double> lu = CelluleImport::nombre(ligne.cellule(champ)))
        return *lu;
    throw ArretImport::faute(QStringLiteral("La valeur du résultat '") + citer(ligne.texte(champ)) +
                             QStringLiteral("' doit être de format numérique."));
}

template <class Champ> QString commentaire(const LigneExcel &ligne, Champ champ)
{
    QString texte = ligne.texte(champ);
    if (texte.size() > LONGUEUR_TEXTE)
        throw ArretImport::tropLong(QStringLiteral("Le commentaire '"), texte, LONGUEUR_TEXTE);
    return texte;
}
} // namespace ChampsCommuns
