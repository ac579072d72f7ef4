// How the parts of a chart look: kinds of series, markers, lines, colours. The numbers are the spreadsheet's own
// constants, as its automation takes them.
#pragma once

#include "workbook/Plage.h"

#include <optional>

enum class TypeSerie {
    Ligne = 65,             // line with markers
    Histogramme = 51,       // clustered columns
    HistogrammeEmpile = 52, // stacked columns
    AireEmpilee = 76,       // stacked areas
    NuagePoints = -4169     // points by abscissa and ordinate
};

enum class Marqueur {
    Automatique = -4105,
    Aucun = -4142,
    Carre = 1,
    Losange = 2,
    Triangle = 3,
    Etoile = 5,
    Cercle = 8,
    Plus = 9,
    Croix = -4168
};

enum class StyleTrait { Continu = 1, Tirets = -4115, Points = -4118, TiretPoint = 4, Aucun = -4142 };
enum class EpaisseurTrait { Filet = 1, Fin = 2, Moyen = -4138, Epais = 4 };

// A rectangle in hundredths of a millimetre.
struct CadreDessin {
    int x = 0;
    int y = 0;
    int largeur = 0;
    int hauteur = 0;
};

enum class TypeAxe { Categorie = 1, Valeur = 2 };

// A colour as the automation gives it: an index of the default palette, a scheme colour, or a plain one.
//
//   Teinte::index(3)      // red: ColorIndex 3; -4105 is automatic, -4142 none
//   Teinte::schema(10)    // red too: SchemeColor counts the palette from 8
class Teinte
{
public:
    static Teinte automatique() { return Teinte(Genre::Automatique, 0); }
    static Teinte aucune() { return Teinte(Genre::Aucune, 0); }
    // 1 to 56, or -4105 (automatic), or -4142 (none); another index is an Erreur.
    static Teinte index(int indexCouleur);
    // 8 to 63 for the palette's 1 to 56, 0 to 7 for its first eight; another one is an Erreur.
    static Teinte schema(int couleurDeSchema);
    static Teinte rvb(int rvb) { return Teinte(Genre::Rvb, rvb); } // 0xRRGGBB

    bool estAutomatique() const { return m_genre == Genre::Automatique; }
    bool estAucune() const { return m_genre == Genre::Aucune; }
    int rvb() const { return m_rvb; }
    bool operator==(const Teinte &) const = default;

private:
    enum class Genre { Automatique, Aucune, Rvb };
    Teinte(Genre genre, int rvb) : m_genre(genre), m_rvb(rvb) {}

    Genre m_genre;
    int m_rvb;
};

// A marker; size in points, 2 to 72. The edge is the foreground, the fill the background: without fill it is hollow.
// An automatic colour is the series' own.
struct AspectMarqueur {
    Marqueur style = Marqueur::Automatique;
    int taille = 5;
    Teinte bord = Teinte::automatique();
    Teinte fond = Teinte::automatique();
};

// A line: of a series, or the edge of columns and areas. An automatic colour leaves the one it has.
struct AspectTrait {
    StyleTrait style = StyleTrait::Continu;
    Teinte couleur = Teinte::automatique();
    EpaisseurTrait epaisseur = EpaisseurTrait::Fin;
};

// What a data label shows, and where it stands.
enum class PlaceEtiquette {
    Automatique,
    DessusDuPoint,
    DessousDuPoint,
    AGauche,
    ADroite,
    AuCentre,
    Exterieur
};
struct AspectEtiquette {
    // In English form ("#,##0"); empty: as the cells.
    QString formatNombre;
    PlaceEtiquette place = PlaceEtiquette::Automatique;
    double taillePolice = 0; // points; 0: as it is
    int orientation = 0;     // degrees, 90 upward
    bool clefLegende = false;
};
