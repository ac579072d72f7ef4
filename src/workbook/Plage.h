// A rectangle of cells: values, formats, fills and borders.
#pragma once

#include <memory>
#include <QDateTime>
#include <QString>
#include <QVariant>
#include <QVector>

// What a cell holds when it is read: nothing, a number, a text, a date (the number of a cell whose format is a date),
// or an error with its sign ("#N/A").
struct ErreurCellule {
    QString signe;
};
Q_DECLARE_METATYPE(ErreurCellule)

// Rows of cells. Values are: an invalid QVariant (empty), double, QString, QDateTime (a cell formatted as a date; in
// UTC, so that no hour is lost to a change of clock: read its date() and time()), QTime (formatted as a time alone),
// ErreurCellule. Times are rounded to the second.
using Valeurs = QVector<QVector<QVariant>>;

// Edges of a range, as the spreadsheet numbers them.
enum class Bord {
    DiagonaleBas = 5,
    DiagonaleHaut = 6,
    Gauche = 7,
    Haut = 8,
    Bas = 9,
    Droite = 10,
    InterieurVertical = 11,
    InterieurHorizontal = 12
};
enum class TraitBord { Continu = 1, Aucun = -4142 };
enum class EpaisseurBord { Fin = 2, Moyen = -4138 };
enum class Alignement { Standard, Gauche, Centre, Droite, Haut, Milieu, Bas };

inline constexpr int COULEUR_AUTOMATIQUE = -4105;

class BlocValeurs;

// A handle: copies speak of the same cells. Every call goes to the spreadsheet application: write whole ranges. Once
// cells or rows of its sheet were inserted or deleted, a range is to be asked for again.
class Plage
{
public:
    class Donnees;
    explicit Plage(std::shared_ptr<Donnees> donnees);

    int ligne() const; // first row, from 1
    int colonne() const;
    int lignes() const; // number of rows
    int colonnes() const;

    // Read: one round trip for the whole range (and one for its formats).
    Valeurs valeurs() const;
    QVariant valeur() const; // of the first cell
    // Read without a look at the formats, in one round trip: a date comes as its number.
    Valeurs contenu() const;
    // One cell of the range, counted from 1 inside it.
    Plage cellule(int ligne, int colonne) const;

    // Write one value into every cell. A text is never read as a formula; a QDate or QDateTime becomes a date value
    // with the format "dd/mm/yyyy" ("dd/mm/yyyy hh:mm" with a time of day) unless the cell has a date format already,
    // a QTime likewise "hh:mm"; a text longer than the 32 767 characters of a cell is cut, with an ellipsis; an invalid QVariant empties the cell, its format stays; a number that is not finite
    // becomes the error #N/A.
    void ecrire(const QVariant &valeur);
    // Write a rectangle of the range's own size.
    void ecrire(const Valeurs &valeurs);
    // The same without a look at the formats, which stay as they are: for cells that a template has prepared.
    void ecrireContenu(const Valeurs &valeurs);
    void ecrireBloc(const BlocValeurs &bloc);

    void viderContenu();                     // ClearContents: the formats stay
    void effacer();                          // contents and looks: as never used
    void supprimerCellules(bool versLeHaut); // Delete with Shift: up, else to the left
    void insererCellules(bool versLeBas);    // Insert with Shift: down, else to the right

    void formatNombre(const QString &format); // "@", "General", "dd/mm/yyyy", "dd/mm/yy", "0.00"
    void gras(bool oui);
    void italique(bool oui);
    void taillePolice(double points);
    void nomPolice(const QString &nom);
    void couleurPolice(int rvb); // 0xRRGGBB
    void alignementHorizontal(Alignement alignement);
    void alignementVertical(Alignement alignement);
    void orientation(int degres);
    void renvoiALaLigne(bool oui);
    void fusionner();
    // Interior.ColorIndex with Pattern 1: index 1 to 56 of the spreadsheet's default palette.
    void fond(int indexCouleur);
    void fondRvb(int rvb);
    void sansFond();
    // The fill as 0xRRGGBB, or -1 without one.
    int couleurFond() const;
    void bord(Bord bord, TraitBord trait, EpaisseurBord epaisseur = EpaisseurBord::Fin,
              int indexCouleur = COULEUR_AUTOMATIQUE);

    const Donnees &donnees() const { return *m_donnees; }

private:
    std::shared_ptr<Donnees> m_donnees;
};
