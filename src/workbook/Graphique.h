// A chart standing on a sheet.
#pragma once

#include "workbook/StyleGraphique.h"

#include <memory>
#include <QVector>

class AxeGraphique;
class SerieGraphique;

enum class PlaceLegende { Droite, Bas, Haut, Gauche };

// A handle, got from Feuille::graphique("Graphique"); copies speak of the same chart.
//
//   Graphique graphique = feuille.graphique(QStringLiteral("Graphique"));
//   SerieGraphique mesures = graphique.serie(1);
//   mesures.valeurs(feuille.plage(9, 2, derniere, 2));
//   mesures.abscisses(feuille.plage(9, 1, derniere, 1));
//   mesures.nommer(feuille.cellule(8, 2));
//   graphique.axe(TypeAxe::Valeur).titre(QStringLiteral(" ( mg/l ) "));
//
// From the moment when it is asked for the application does not draw it, until the workbook is closed.
//
// The .xls format forgets a chart's name. A chart is therefore found through a name defined on the sheet, the chart's
// own ("Graphique 1" is the name Graphique_1), on the cell under the chart's top left corner.
class Graphique
{
public:
    class Donnees;
    explicit Graphique(std::shared_ptr<Donnees> donnees);

    QString nom() const;

    // Series are numbered from 1 in the order that the file gives them; a deleted one closes the ranks, a new one
    // comes last, and changing a series' type or axis group does not move it. A number or name that is not there is
    // an Erreur.
    int nombreSeries() const;
    SerieGraphique serie(int numero) const;
    // By the text that the legend shows.
    SerieGraphique serie(const QString &nom) const;
    bool aSerie(const QString &nom) const;
    SerieGraphique nouvelleSerie(TypeSerie type, int groupeAxes = 1);
    void supprimerSeries(const QVector<int> &numeros);

    // The axis of a group, 1 or 2. The secondary value axis is there while a series is attached to it; asking for it
    // without is an Erreur.
    AxeGraphique axe(TypeAxe type, int groupe = 1) const;
    bool aAxeSecondaire() const;

    // Empty: no title.
    void titre(const QString &texte);
    QString titre() const;
    void legende(bool oui, PlaceLegende place = PlaceLegende::Bas);
    bool aLegende() const;
    void taillePoliceLegende(double points);
    void fondLegende(Teinte fond, const AspectTrait &bord);
    // Where the plot stands in the chart, axes' labels left out; in hundredths of a millimetre from its corner.
    void zoneTracage(const CadreDessin &cadre);
    void fondZoneTracage(Teinte fond, const AspectTrait &bord);
    void fond(Teinte couleur, const AspectTrait &bord);
    // Rows without a value: the line stops, or goes on to the next value.
    void relierLesTrous(bool oui);

    // In hundredths of a millimetre from the sheet's corner.
    CadreDessin cadre() const;

private:
    std::shared_ptr<Donnees> m_donnees;
};
