// What stands behind Graphique, SerieGraphique, AxeGraphique and BoiteTexte.
// Needs the headers of the office: included by the sources of this folder only.
#pragma once

#include "workbook/DonneesClasseur.h"
#include "workbook/SerieGraphique.h"

#include <array>
#include <com/sun/star/beans/XMultiPropertySet.hpp>
#include <com/sun/star/chart2/data/XDataProvider.hpp>
#include <com/sun/star/chart2/data/XLabeledDataSequence.hpp>
#include <com/sun/star/chart2/XChartDocument.hpp>
#include <com/sun/star/chart2/XChartTypeContainer.hpp>
#include <com/sun/star/chart2/XCoordinateSystem.hpp>
#include <com/sun/star/chart2/XDataSeries.hpp>
#include <com/sun/star/chart2/XDataSeriesContainer.hpp>
#include <com/sun/star/chart2/XScaling.hpp>
#include <com/sun/star/chart2/XTitled.hpp>
#include <com/sun/star/drawing/LineDash.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <map>
#include <vector>

// One element as a sequence.
template <class T> css::uno::Sequence<T> seule(const T &element)
{
    return {&element, 1};
}

enum NumeroGraphique {
    GraphiqueAbsent = 60,
    SerieAbsente,
    AxeAbsent,
    ZoneAbsente,
    CouleurInconnue,
    PointInconnu,
    NomPris
};

// Properties set together in one message; the application wants their names in order.
class Reglages
{
public:
    Reglages &mettre(const char *nom, const css::uno::Any &valeur)
    {
        m_valeurs[rtl::OUString::createFromAscii(nom)] = valeur;
        return *this;
    }
    template <class T> Reglages &mettre(const char *nom, const T &valeur)
    {
        return mettre(nom, css::uno::Any(valeur));
    }
    void appliquer(const css::uno::Reference<css::uno::XInterface> &objet) const
    {
        appliquer(css::uno::Reference<css::beans::XMultiPropertySet>(objet, css::uno::UNO_QUERY_THROW));
    }
    void appliquer(const css::uno::Reference<css::beans::XMultiPropertySet> &objet) const;

private:
    std::map<rtl::OUString, css::uno::Any> m_valeurs;
};

class SerieGraphique::Donnees
{
public:
    css::uno::Reference<css::chart2::XDataSeries> objet;
    TypeSerie type = TypeSerie::Ligne;
    int groupe = 1;
    std::shared_ptr<RetouchesSerie> retouches = std::make_shared<RetouchesSerie>();
    int deplacementsValeurs = -1; // of cells, when the range in the retouches was the values'

    // The values with their label; made when the series has none yet.
    const css::uno::Reference<css::chart2::data::XLabeledDataSequence> &valeurs(const Graphique::Donnees &g);
    // Property of the series.
    css::uno::Any lire(const char *nom) const;
    // The same object, asked for when it is needed.
    const css::uno::Reference<css::beans::XMultiPropertySet> &reglages() const
    {
        if (!m_reglages.is())
            m_reglages.set(objet, css::uno::UNO_QUERY_THROW);
        return m_reglages;
    }

private:
    css::uno::Reference<css::chart2::data::XLabeledDataSequence> m_valeurs;
    mutable css::uno::Reference<css::beans::XMultiPropertySet> m_reglages;
};

// Where a chart stands on its sheet. What is empty is asked for when it is needed.
struct PlaceGraphique {
    css::uno::Reference<css::drawing::XShape> forme;
    css::uno::Reference<css::beans::XPropertySet> coin; // the cell under its corner
    int rang = 0;                                       // among the charts of the sheet
};

class Graphique::Donnees
{
public:
    Donnees(std::shared_ptr<Feuille::Donnees> donneesFeuille, QString nomGraphique,
            const css::uno::Reference<css::uno::XInterface> &modele, PlaceGraphique placeGraphique);

    template <class F> std::invoke_result_t<F> appeler(F &&appels) const
    {
        return feuille->appeler(std::forward<F>(appels));
    }
    // An object of the chart library, by its name after "com.sun.star.chart2.".
    css::uno::Reference<css::uno::XInterface> creer(const char *service) const;
    // A range as a sequence of values of this role ("values-y"); with a label on `nom` if given.
    css::uno::Reference<css::chart2::data::XDataSequence> suite(const Plage &cellules,
                                                                const char *role) const;
    // Key of a number format in the chart's own table; the English form.
    sal_Int32 cleFormat(const QString &format) const;
    QString formatDeCle(sal_Int32 cle) const;

    // Puts the series among those of its type and axis group, in the order in which they are drawn.
    void ranger(SerieGraphique::Donnees &serie);
    // From now on the file is given what stands in the series' retouches.
    void retoucher(SerieGraphique::Donnees &serie);
    // Takes series out of their types; a type left without any goes too.
    void oter(const std::vector<std::shared_ptr<SerieGraphique::Donnees>> &otees);
    bool aSecondaires() const;
    void oublierAxeVide();
    css::uno::Reference<css::chart2::XAxis> axe(TypeAxe type, int groupe) const; // empty without
    css::uno::Reference<css::chart2::XAxis> nouvelAxe(TypeAxe type, bool montre) const;
    css::uno::Reference<css::beans::XPropertySet> diagramme() const;

    std::shared_ptr<Feuille::Donnees> feuille;
    QString nom;
    css::uno::Reference<css::frame::XModel> modele;
    css::uno::Reference<css::chart2::XChartDocument> document;
    css::uno::Reference<css::chart2::XCoordinateSystem> repere;
    css::uno::Reference<css::chart2::data::XDataProvider> source;
    // The scaling of axes that are not logarithmic.
    const css::uno::Reference<css::chart2::XScaling> &lineaire() const;
    std::vector<std::shared_ptr<SerieGraphique::Donnees>> series;
    QString abscisses; // address of the categories, once set
    std::shared_ptr<RetouchesGraphique> retouches;
    const css::uno::Reference<css::drawing::XShape> &forme() const;
    const css::uno::Reference<css::beans::XPropertySet> &coin() const;

private:
    // A type of the chart with its series, in their order.
    struct Type {
        css::uno::Reference<css::chart2::XChartType> objet;
        QString service; // "com.sun.star.chart2.LineChartType"
        css::uno::Reference<css::chart2::XDataSeriesContainer> contenu;
        std::vector<css::uno::Reference<css::chart2::XDataSeries>> series;
    };

    void lireSeries();
    QString adresseDe(const Plage &cellules) const; // as the chart library wants it

    mutable PlaceGraphique m_place;
    css::uno::Reference<css::chart2::XChartTypeContainer> m_conteneur;
    std::vector<Type> m_types; // as they stand in the chart: nobody else changes it
    mutable css::uno::Reference<css::chart2::XScaling> m_lineaire;
    // Those of the categories, then of the values, by group; once found they stay.
    mutable std::array<css::uno::Reference<css::chart2::XAxis>, 4> m_axes;
};

// A title of the chart or of an axis.
void ecrireTitre(const Graphique::Donnees &graphique,
                 const css::uno::Reference<css::uno::XInterface> &porteur, const QString &texte,
                 bool vertical);
QString lireTitre(const css::uno::Reference<css::uno::XInterface> &porteur);

// Properties of a line, under other names for edges.
struct NomsTrait {
    const char *style;
    const char *couleur;
    const char *epaisseur;
    const char *nomTirets;
};
// The filter of .xls knows dashes by their name in the chart's own table only, where they are put when they lack.
void mettreTrait(Reglages &reglages, const AspectTrait &aspect, const NomsTrait &noms,
                 const css::uno::Reference<css::uno::XInterface> &document);
constexpr NomsTrait TRAIT_ORDINAIRE{"LineStyle", "LineColor", "LineWidth", "LineDashName"};
constexpr NomsTrait TRAIT_COURBE{"LineStyle", "Color", "LineWidth", "LineDashName"};
constexpr NomsTrait TRAIT_BORD{"BorderStyle", "BorderColor", "BorderWidth", "BorderDashName"};
void mettreFond(Reglages &reglages, Teinte couleur, const char *nomCouleur);
