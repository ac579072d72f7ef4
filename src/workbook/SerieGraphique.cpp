#include "workbook/SerieGraphique.h"

#include "workbook/DonneesGraphique.h"

#include <array>
#include <com/sun/star/chart/DataLabelPlacement.hpp>
#include <com/sun/star/chart2/data/XDataSink.hpp>
#include <com/sun/star/chart2/data/XDataSource.hpp>
#include <com/sun/star/chart2/data/XTextualDataSequence.hpp>
#include <com/sun/star/chart2/DataPointLabel.hpp>
#include <com/sun/star/chart2/Symbol.hpp>
#include <com/sun/star/chart2/SymbolStyle.hpp>
#include <com/sun/star/chart2/XChartTypeContainer.hpp>
#include <com/sun/star/chart2/XDataSeriesContainer.hpp>
#include <string_view>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
using Etiquetees = Reference<css::chart2::data::XLabeledDataSequence>;
constexpr double CENTIEMES_PAR_POINT = 2540.0 / 72.0;
constexpr char VALEURS[] = "values-y";

rtl::OUString role(const Reference<css::chart2::data::XDataSequence> &suite)
{
    rtl::OUString lu;
    if (suite.is())
        Reference<css::beans::XPropertySet>(suite, UNO_QUERY_THROW)->getPropertyValue("Role") >>= lu;
    return lu;
}

QString adresse(const Reference<css::chart2::data::XDataSequence> &suite)
{
    if (!suite.is())
        return {};
    return versQt(suite->getSourceRangeRepresentation()).remove(QLatin1Char('$')).remove(QLatin1Char('\''));
}

// The series' sequence of this role; empty without.
Etiquetees etiquetee(const Reference<css::chart2::XDataSeries> &serie, const char *voulu)
{
    const Reference<css::chart2::data::XDataSource> source(serie, UNO_QUERY_THROW);
    const auto suites = source->getDataSequences();
    // A series of one sequence has its values: no need to ask for its role.
    if (suites.getLength() == 1 && std::string_view(voulu) == VALEURS)
        return suites[0];
    for (const auto &suite : suites)
        if (role(suite->getValues()).equalsAscii(voulu))
            return suite;
    return {};
}

Etiquetees ajouterSuite(const Graphique::Donnees &graphique, const Reference<css::chart2::XDataSeries> &serie)
{
    const Etiquetees nouvelle(graphique.creer("data.LabeledDataSequence"), UNO_QUERY_THROW);
    const auto presentes =
        Reference<css::chart2::data::XDataSource>(serie, UNO_QUERY_THROW)->getDataSequences();
    std::vector<Etiquetees> toutes(presentes.begin(), presentes.end());
    toutes.push_back(nouvelle);
    Reference<css::chart2::data::XDataSink>(serie, UNO_QUERY_THROW)
        ->setData({toutes.data(), static_cast<sal_Int32>(toutes.size())});
    return nouvelle;
}

// Numbers of the library's symbols, as the .xls filter turns them into the format's own.
std::pair<Marqueur, sal_Int32> constexpr SYMBOLES[] = {
    {Marqueur::Carre, 0},  {Marqueur::Losange, 1}, {Marqueur::Triangle, 3}, {Marqueur::Cercle, 8},
    {Marqueur::Etoile, 9}, {Marqueur::Croix, 10},  {Marqueur::Plus, 11}};

css::chart2::Symbol symbole(const AspectMarqueur &aspect, const SerieGraphique::Donnees &serie)
{
    css::chart2::Symbol symbole;
    symbole.Style = css::chart2::SymbolStyle_STANDARD;
    if (aspect.style == Marqueur::Aucun)
        symbole.Style = css::chart2::SymbolStyle_NONE;
    else if (aspect.style == Marqueur::Automatique)
        symbole.Style = css::chart2::SymbolStyle_AUTO;
    for (const auto &[marqueur, numero] : SYMBOLES)
        if (marqueur == aspect.style)
            symbole.StandardSymbol = numero;
    const auto cote = static_cast<sal_Int32>(qRound(aspect.taille * CENTIEMES_PAR_POINT));
    symbole.Size = {cote, cote};
    constexpr sal_Int32 CREUX = 0xFFFFFF;
    if (!aspect.bord.estAutomatique())
        symbole.BorderColor = aspect.bord.rvb();
    else if (aspect.style != Marqueur::Aucun)
        serie.lire("Color") >>= symbole.BorderColor;
    symbole.FillColor = aspect.fond.estAutomatique() ? symbole.BorderColor
                                                     : (aspect.fond.estAucune() ? CREUX : aspect.fond.rvb());
    return symbole;
}

// The filter gives a marker the colour of its series or point, and a fill.
RetoucheMarqueur retouche(const AspectMarqueur &aspect)
{
    RetoucheMarqueur voulue;
    if (!aspect.bord.estAutomatique() && !aspect.bord.estAucune())
        voulue.bord = aspect.bord.rvb();
    if (!aspect.fond.estAutomatique() && !aspect.fond.estAucune())
        voulue.fond = aspect.fond.rvb();
    voulue.sansFond = aspect.fond.estAucune();
    return voulue;
}

AspectMarqueur aspect(const css::chart2::Symbol &symbole)
{
    AspectMarqueur lu;
    if (symbole.Style == css::chart2::SymbolStyle_NONE)
        lu.style = Marqueur::Aucun;
    else if (symbole.Style == css::chart2::SymbolStyle_STANDARD)
        for (const auto &[marqueur, numero] : SYMBOLES)
            if (symbole.StandardSymbol == numero)
                lu.style = marqueur;
    lu.taille = qRound(symbole.Size.Height / CENTIEMES_PAR_POINT);
    lu.bord = Teinte::rvb(symbole.BorderColor);
    lu.fond = Teinte::rvb(symbole.FillColor);
    return lu;
}

// A number format that shows this text whatever the number, for negative ones and zero too.
QString formatLitteral(const QString &texte)
{
    QString cite = texte;
    cite.replace(QLatin1Char('"'), QLatin1String("\"\\\"\""));
    cite = QLatin1Char('"') + cite + QLatin1Char('"');
    return cite + QLatin1Char(';') + cite + QLatin1Char(';') + cite;
}

void mettreEtiquette(Reglages &reglages, const AspectEtiquette &aspect, const Graphique::Donnees &graphique)
{
    css::chart2::DataPointLabel montree;
    montree.ShowNumber = true;
    montree.ShowLegendSymbol = aspect.clefLegende;
    reglages.mettre("Label", montree);
    if (!aspect.formatNombre.isEmpty()) {
        reglages.mettre("LinkNumberFormatToSource", false);
        reglages.mettre("NumberFormat", graphique.cleFormat(aspect.formatNombre));
    }
    namespace Place = css::chart::DataLabelPlacement;
    switch (aspect.place) {
    case PlaceEtiquette::Automatique:
        break;
    case PlaceEtiquette::DessusDuPoint:
        reglages.mettre("LabelPlacement", Place::TOP);
        break;
    case PlaceEtiquette::DessousDuPoint:
        reglages.mettre("LabelPlacement", Place::BOTTOM);
        break;
    case PlaceEtiquette::AGauche:
        reglages.mettre("LabelPlacement", Place::LEFT);
        break;
    case PlaceEtiquette::ADroite:
        reglages.mettre("LabelPlacement", Place::RIGHT);
        break;
    case PlaceEtiquette::AuCentre:
        reglages.mettre("LabelPlacement", Place::CENTER);
        break;
    case PlaceEtiquette::Exterieur:
        reglages.mettre("LabelPlacement", Place::OUTSIDE);
        break;
    }
    if (aspect.taillePolice > 0)
        reglages.mettre("CharHeight", static_cast<float>(aspect.taillePolice));
    if (aspect.orientation != 0)
        reglages.mettre("TextRotation", static_cast<double>(aspect.orientation));
}
} // namespace

const Etiquetees &SerieGraphique::Donnees::valeurs(const Graphique::Donnees &g)
{
    if (!m_valeurs.is())
        m_valeurs = etiquetee(objet, VALEURS);
    if (!m_valeurs.is())
        m_valeurs = ajouterSuite(g, objet);
    return m_valeurs;
}

Any SerieGraphique::Donnees::lire(const char *nom) const
{
    return Reference<css::beans::XPropertySet>(objet, UNO_QUERY_THROW)
        ->getPropertyValue(rtl::OUString::createFromAscii(nom));
}

SerieGraphique::SerieGraphique(std::shared_ptr<Graphique::Donnees> graphique,
                               std::shared_ptr<Donnees> donnees)
    : m_graphique(std::move(graphique)), m_donnees(std::move(donnees))
{
}

QString SerieGraphique::nom() const
{
    return m_graphique->appeler([this]() -> QString {
        const Reference<css::chart2::data::XTextualDataSequence> label(
            m_donnees->valeurs(*m_graphique)->getLabel(), css::uno::UNO_QUERY);
        if (!label.is())
            return {};
        QStringList textes;
        for (const rtl::OUString &texte : label->getTextualData())
            textes.append(versQt(texte));
        return textes.join(QLatin1Char(' '));
    });
}

void SerieGraphique::nommer(const Plage &cellule)
{
    m_graphique->appeler(
        [&] { m_donnees->valeurs(*m_graphique)->setLabel(m_graphique->suite(cellule, "label")); });
}

TypeSerie SerieGraphique::type() const
{
    return m_donnees->type;
}

void SerieGraphique::changerType(TypeSerie type)
{
    if (m_donnees->type == type)
        return;
    m_graphique->appeler([&] {
        m_graphique->oter({m_donnees});
        m_donnees->type = type;
        m_graphique->ranger(*m_donnees);
    });
}

int SerieGraphique::groupeAxes() const
{
    return m_donnees->groupe;
}

void SerieGraphique::changerGroupeAxes(int groupe)
{
    if (m_donnees->groupe == groupe)
        return;
    m_graphique->appeler([&] {
        m_graphique->oter({m_donnees});
        m_donnees->groupe = groupe;
        m_graphique->ranger(*m_donnees);
        m_graphique->oublierAxeVide();
    });
}

QString SerieGraphique::adresseValeurs() const
{
    return m_graphique->appeler([this] { return adresse(m_donnees->valeurs(*m_graphique)->getValues()); });
}

QString SerieGraphique::adresseNom() const
{
    return m_graphique->appeler([this] { return adresse(m_donnees->valeurs(*m_graphique)->getLabel()); });
}

QString SerieGraphique::adresseAbscisses() const
{
    return m_graphique->appeler([this]() -> QString {
        const Etiquetees suite = m_donnees->type == TypeSerie::NuagePoints
                                     ? etiquetee(m_donnees->objet, "values-x")
                                     : m_graphique->axe(TypeAxe::Categorie, 1)->getScaleData().Categories;
        return suite.is() ? adresse(suite->getValues()) : QString();
    });
}

void SerieGraphique::valeurs(const Plage &cellules)
{
    m_graphique->appeler(
        [&] { m_donnees->valeurs(*m_graphique)->setValues(m_graphique->suite(cellules, VALEURS)); });
    const auto &lieu = cellules.donnees().adresse;
    m_donnees->retouches->valeurs =
        RectangleCellules{lieu.StartRow, lieu.StartColumn, lieu.EndRow, lieu.EndColumn};
    m_donnees->deplacementsValeurs = m_graphique->feuille->classeur->deplacements;
}

void SerieGraphique::abscisses(const Plage &cellules)
{
    m_graphique->appeler([&] {
        if (m_donnees->type == TypeSerie::NuagePoints) {
            Etiquetees suite = etiquetee(m_donnees->objet, "values-x");
            if (!suite.is())
                suite = ajouterSuite(*m_graphique, m_donnees->objet);
            suite->setValues(m_graphique->suite(cellules, "values-x"));
            return;
        }
        const auto &lieu = cellules.donnees().adresse;
        const QString voulue = QStringLiteral("%1:%2:%3:%4:%5")
                                   .arg(lieu.Sheet)
                                   .arg(lieu.StartColumn)
                                   .arg(lieu.StartRow)
                                   .arg(lieu.EndColumn)
                                   .arg(lieu.EndRow);
        if (m_graphique->abscisses == voulue)
            return;
        const auto axe = m_graphique->axe(TypeAxe::Categorie, 1);
        css::chart2::ScaleData echelle = axe->getScaleData();
        const bool nouvelles = !echelle.Categories.is();
        if (nouvelles)
            echelle.Categories.set(m_graphique->creer("data.LabeledDataSequence"), UNO_QUERY_THROW);
        echelle.Categories->setValues(m_graphique->suite(cellules, "categories"));
        if (nouvelles)
            axe->setScaleData(echelle);
        if (const auto second = m_graphique->axe(TypeAxe::Categorie, 2); second.is())
            second->setScaleData(echelle);
        m_graphique->abscisses = voulue;
    });
}

AspectMarqueur SerieGraphique::aspectMarqueur() const
{
    return m_graphique->appeler([this] {
        css::chart2::Symbol lu;
        m_donnees->lire("Symbol") >>= lu;
        return aspect(lu);
    });
}

AspectMarqueur SerieGraphique::aspectMarqueur(int point) const
{
    return m_graphique->appeler([&] {
        css::chart2::Symbol lu;
        m_donnees->objet->getDataPointByIndex(point - 1)->getPropertyValue("Symbol") >>= lu;
        return aspect(lu);
    });
}

void SerieGraphique::marqueur(const AspectMarqueur &aspect)
{
    m_graphique->appeler([&] {
        Reglages().mettre("Symbol", symbole(aspect, *m_donnees)).appliquer(m_donnees->reglages());
        if (const auto voulu = retouche(aspect); voulu.bord || voulu.fond || voulu.sansFond) {
            m_donnees->retouches->serie = voulu;
            m_graphique->retoucher(*m_donnees);
        } else {
            m_donnees->retouches->serie.reset();
        }
    });
}

void SerieGraphique::marqueurs(const QVector<int> &points, const AspectMarqueur &aspect)
{
    m_graphique->appeler([&] {
        const Any voulu(symbole(aspect, *m_donnees)); // its colours are given to the finished file
        const RetoucheMarqueur voulue = retouche(aspect);
        for (const int point : points) {
            m_donnees->objet->getDataPointByIndex(point - 1)->setPropertyValue("Symbol", voulu);
            m_donnees->retouches->points.insert(point - 1, voulue);
        }
        if (!points.isEmpty())
            m_graphique->retoucher(*m_donnees);
    });
}

void SerieGraphique::trait(const AspectTrait &aspect)
{
    m_graphique->appeler([&] {
        const bool courbe = m_donnees->type == TypeSerie::Ligne || m_donnees->type == TypeSerie::NuagePoints;
        Reglages reglages;
        mettreTrait(reglages, aspect, courbe ? TRAIT_COURBE : TRAIT_BORD, m_graphique->document);
        reglages.appliquer(m_donnees->reglages());
    });
}

void SerieGraphique::remplissage(Teinte couleur)
{
    m_graphique->appeler([&] {
        Reglages reglages;
        mettreFond(reglages, couleur, "Color");
        reglages.appliquer(m_donnees->reglages());
    });
}

void SerieGraphique::espacement(int pourcent)
{
    m_graphique->appeler([&] {
        const Reference<css::chart2::XChartTypeContainer> types(m_graphique->repere, UNO_QUERY_THROW);
        for (const auto &type : types->getChartTypes()) {
            const auto series =
                Reference<css::chart2::XDataSeriesContainer>(type, UNO_QUERY_THROW)->getDataSeries();
            if (std::find(series.begin(), series.end(), m_donnees->objet) == series.end())
                continue;
            const auto vide = static_cast<sal_Int32>(pourcent);
            Reglages()
                .mettre("GapwidthSequence", css::uno::Sequence<sal_Int32>(std::array{vide, vide}.data(), 2))
                .appliquer(type);
            return;
        }
    });
}

void SerieGraphique::etiquettes(const AspectEtiquette &aspect)
{
    m_graphique->appeler([&] {
        Reglages reglages;
        mettreEtiquette(reglages, aspect, *m_graphique);
        reglages.appliquer(m_donnees->reglages());
    });
}

void SerieGraphique::sansEtiquettes()
{
    m_graphique->appeler([this] {
        Reglages().mettre("Label", css::chart2::DataPointLabel()).appliquer(m_donnees->reglages());
    });
}

// A label's own text does not pass the filter of .xls, but its number format does: one that is all text.
void SerieGraphique::etiquettes(const QVector<QPair<int, QString>> &textes, const AspectEtiquette &aspect)
{
    m_graphique->appeler([&] {
        Reglages reglages;
        mettreEtiquette(reglages, aspect, *m_graphique);
        reglages.mettre("LinkNumberFormatToSource", false);
        QHash<QString, sal_Int32> formats;
        for (const auto &[point, texte] : textes) {
            if (!formats.contains(texte))
                formats.insert(texte, m_graphique->cleFormat(formatLitteral(texte)));
            reglages.mettre("NumberFormat", formats.value(texte));
            reglages.appliquer(m_donnees->objet->getDataPointByIndex(point - 1));
        }
    });
}

void SerieGraphique::dansLegende(bool oui)
{
    m_graphique->appeler([&] {
        Reglages().mettre("ShowLegendEntry", oui).appliquer(m_donnees->reglages());
        m_donnees->retouches->horsLegende = !oui; // the filter names them all
        m_graphique->retoucher(*m_donnees);
    });
}

void SerieGraphique::supprimer()
{
    m_graphique->appeler([this] {
        auto &series = m_graphique->series;
        const auto place = std::find(series.begin(), series.end(), m_donnees);
        if (place == series.end())
            return;
        m_graphique->oter({m_donnees});
        series.erase(place);
        m_graphique->oublierAxeVide();
    });
}
