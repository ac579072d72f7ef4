// A text box drawn on a sheet ("Text Box 1").
#pragma once

#include "workbook/StyleGraphique.h"

#include <memory>
#include <optional>

// A handle, got from Feuille::zoneTexte. Its name outlives the .xls file.
class BoiteTexte
{
public:
    class Donnees;
    explicit BoiteTexte(std::shared_ptr<Donnees> donnees);

    QString nom() const;
    QString texte() const;
    struct Police {
        QString nom;
        double points = 0;
    };
    // Lines are parted by "\n". The text takes the look of the first characters that were there; the first
    // `lignesEnGras` lines are then bold, the others are not. A font given is that of all of it.
    void ecrire(const QString &texte, int lignesEnGras = 0, const std::optional<Police> &police = {});
    void police(const Police &police);
    void couleurPolice(Teinte couleur);
    // Of the lines across the box (Gauche, Centre, Droite), or of the whole in its height (Haut, Milieu, Bas).
    void alignement(Alignement alignement);
    // Teinte::aucune() leaves it transparent.
    void fond(Teinte couleur);
    void bord(const AspectTrait &aspect);
    void montrer(bool oui);
    bool visible() const;
    // In hundredths of a millimetre from the sheet's corner.
    CadreDessin cadre() const;
    void placer(const CadreDessin &cadre);
    void supprimer();

private:
    std::shared_ptr<Donnees> m_donnees;
};
