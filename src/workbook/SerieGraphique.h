// One series of a chart.
#pragma once

#include "workbook/Graphique.h"

#include <QPair>
#include <QVector>

// A handle: copies speak of the same series. Points count from 1, as the rows of its range do. A call costs a few
// messages to the application, whatever the range's length; the calls that take many points cost three a point.
class SerieGraphique
{
public:
    class Donnees;
    SerieGraphique(std::shared_ptr<Graphique::Donnees> graphique, std::shared_ptr<Donnees> donnees);

    // The legend's text.
    QString nom() const;
    // The legend shows what this cell holds, now and later.
    void nommer(const Plage &cellule);

    TypeSerie type() const;
    void changerType(TypeSerie type);
    // 1 primary, 2 secondary; the secondary value axis is made with its first series and goes with its last.
    int groupeAxes() const;
    void changerGroupeAxes(int groupe);

    // Addresses of the ranges, as "Mesures!B9:B60"; empty without.
    QString adresseValeurs() const;
    QString adresseAbscisses() const;
    QString adresseNom() const;
    void valeurs(const Plage &cellules);
    // All series but those of a scatter chart share their abscissae, so it is enough to give them to one.
    void abscisses(const Plage &cellules);

    AspectMarqueur aspectMarqueur() const;
    void marqueur(const AspectMarqueur &aspect);
    // The marker of single points, from 1. A marker of a point keeps what the series does not show itself.
    void marqueurs(const QVector<int> &points, const AspectMarqueur &aspect);
    // Marker of a point that was given one of its own; else the series' one.
    AspectMarqueur aspectMarqueur(int point) const;

    // The line of a curve, the edge of columns and areas.
    void trait(const AspectTrait &aspect);
    // The fill of columns and areas.
    void remplissage(Teinte couleur);
    // Width of the gaps between columns, in hundredths of a column's width, 0 to 500; it holds for all series of the
    // same type and axis group.
    void espacement(int pourcent);

    // Data labels of the whole series: its values.
    void etiquettes(const AspectEtiquette &aspect = {});
    void sansEtiquettes();
    // Labels of single points (from 1) with a text of their own, where the point has a value.
    void etiquettes(const QVector<QPair<int, QString>> &textes, const AspectEtiquette &aspect = {});

    // The legend names the series or passes over it.
    void dansLegende(bool oui);
    void supprimer();

private:
    std::shared_ptr<Graphique::Donnees> m_graphique;
    std::shared_ptr<Donnees> m_donnees;
};
