// A text box drawn on a sheet ("Text Box 1").
#pragma once

#include "workbook/StyleGraphique.h"

#include <memory>

// A handle, got from Feuille::zoneTexte. Its name outlives the .xls file.
class ZoneTexte
{
public:
    class Donnees;
    explicit ZoneTexte(std::shared_ptr<Donnees> donnees);

    QString nom() const;
    QString texte() const;
    // Lines are parted by "\n". The text takes the look of the first characters that were there; the first
    // `lignesEnGras` lines are then bold, the others are not.
    void ecrire(const QString &texte, int lignesEnGras = 0);
    void police(const QString &nom, double points);
    void couleurPolice(Couleur couleur);
    void alignement(Alignement alignement);
    // Couleur::aucune() leaves it transparent.
    void fond(Couleur couleur);
    void bord(const AspectTrait &aspect);
    void montrer(bool oui);
    bool visible() const;
    // In hundredths of a millimetre from the sheet's corner.
    Cadre cadre() const;
    void placer(const Cadre &cadre);
    void supprimer();

private:
    std::shared_ptr<Donnees> m_donnees;
};
