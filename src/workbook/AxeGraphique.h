// One axis of a chart.
#pragma once

#include "workbook/Graphique.h"

#include <optional>

// What is absent is left to the application. Values of a date axis are day numbers.
struct EchelleAxe {
    std::optional<double> minimum;
    std::optional<double> maximum;
    std::optional<double> pasMajeur;
    std::optional<double> pasMineur;
    bool logarithmique = false;
    bool inversee = false; // ReversePlotOrder: a value axis then runs from the top down
};

// Where this axis stands on the other one.
enum class Croisement { Automatique = -4105, Minimum = 4, Maximum = 2 };
enum class Graduation { Aucune = -4142, Interieure = 2, Exterieure = 3, Croisee = 4 };
enum class PlaceGraduations { PresDeLAxe = 4, Bas = -4134, Haut = -4127, Aucune = -4142 };

class AxeGraphique
{
public:
    class Donnees;
    explicit AxeGraphique(std::shared_ptr<Donnees> donnees);

    EchelleAxe echelle() const;
    void echelle(const EchelleAxe &echelle);
    void croisement(Croisement croisement);
    Croisement croisement() const;
    // CategoryType: a time scale (each day at its place) or one place a row.
    void temporel(bool oui);
    bool estTemporel() const;
    // AxisBetweenCategories: the first and last points stand half a place inside.
    void entreCategories(bool oui);

    // In English form: "dd/mm/yy", "0.00"; empty: as the cells.
    void formatNombre(const QString &format);
    QString formatNombre() const;
    // Degrees; 90 is upward, 0 level.
    void orientation(int degres);
    int orientation() const;
    // Of its labels, and of the title that it has.
    void taillePolice(double points);
    void placeGraduations(PlaceGraduations place);
    void graduations(Graduation majeures, Graduation mineures);

    // Empty: no title.
    void titre(const QString &texte);
    QString titre() const;
    void afficher(bool oui);
    void quadrillage(bool oui, Teinte couleur = Teinte::automatique());
    void couleur(Teinte couleur);

private:
    std::shared_ptr<Donnees> m_donnees;
};
