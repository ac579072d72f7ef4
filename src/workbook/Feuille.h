// One sheet of a workbook.
#pragma once

#include "workbook/MiseEnPage.h"
#include "workbook/Plage.h"

#include <memory>
#include <optional>
#include <QString>

class Graphique;
class BoiteTexte;
struct CadreDessin;

// Rows and columns count from 1, as in the spreadsheet. A handle: copies speak of the same sheet.
class Feuille
{
public:
    class Donnees;
    explicit Feuille(std::shared_ptr<Donnees> donnees);

    QString nom() const;
    void renommer(const QString &nom);

    Plage cellule(int ligne, int colonne) const;
    Plage plage(int ligne1, int colonne1, int ligne2, int colonne2) const;
    // "A4", "B2:D10".
    Plage plage(const QString &adresse) const;

    // Inserts rows before this one, pushing the rest down; they take the formats of the row above.
    void insererLignes(int ligne, int nombre = 1);
    void supprimerLignes(int ligne, int nombre = 1);
    // Copies cells, values and looks, of this workbook; this is the top left cell of where they go.
    void copier(const Plage &source, int ligne, int colonne);
    // Last row and column that hold anything; 0 when the sheet is empty.
    int derniereLigne() const;
    int derniereColonne() const;
    // Height of a row and width of a column, in hundredths of a millimetre.
    void hauteurLigne(int ligne, int centiemesMm);
    void largeurColonne(int colonne, int centiemesMm);
    // Hides columns, or shows them again.
    void cacherColonnes(int colonne, int nombre, bool oui);
    // The same height for several rows, in one go.
    void hauteurLignes(int ligne, int nombre, int centiemesMm);
    // Adjusts a row's height to what it holds.
    void hauteurOptimale(int ligne);

    void mettreEnPage(const MiseEnPage &page);
    // A new page begins with this row.
    void sautDePage(int ligne);
    // Prints this part only.
    void zoneImpression(const Plage &plage);
    // A .xls saved from now on opens on this sheet, with this column at its left edge.
    void montrerDepuis(int colonne);
    // Hides the sheet, or shows it again.
    void cacher(bool oui);

    // A chart by its name (see Graphique.h), a text box by its name (BoiteTexte.h); an absent one is an Erreur.
    Graphique graphique(const QString &nom) const;
    BoiteTexte zoneTexte(const QString &nom) const;
    bool aZoneTexte(const QString &nom) const;
    // Makes an empty chart, a text box; the place in hundredths of a millimetre from the sheet's corner.
    Graphique ajouterGraphique(const QString &nom, const CadreDessin &cadre);
    BoiteTexte ajouterZoneTexte(const QString &nom, const CadreDessin &cadre);

    const Donnees &donnees() const { return *m_donnees; }

private:
    std::shared_ptr<Donnees> m_donnees;
};
