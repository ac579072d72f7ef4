#include "workbook/DonneesGraphique.h"

#include <array>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/chart/ChartAxisPosition.hpp>
#include <com/sun/star/chart2/AxisType.hpp>
#include <com/sun/star/chart2/StackingDirection.hpp>
#include <com/sun/star/chart2/XCoordinateSystemContainer.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <QRegularExpression>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
constexpr char PREFIXE[] = "com.sun.star.chart2.";

// The chart library's own kind of a series, and how series of the kind stand on each other. In the order of drawing:
// what comes later covers what comes before.
struct Genre {
    const char *service;
    css::chart2::StackingDirection empilement;
    int rang;
};

Genre genre(TypeSerie type)
{
    switch (type) {
    case TypeSerie::AireEmpilee:
        return {"AreaChartType", css::chart2::StackingDirection_Y_STACKING, 0};
    case TypeSerie::HistogrammeEmpile:
        return {"ColumnChartType", css::chart2::StackingDirection_Y_STACKING, 1};
    case TypeSerie::Histogramme:
        return {"ColumnChartType", css::chart2::StackingDirection_NO_STACKING, 1};
    case TypeSerie::Ligne:
        return {"LineChartType", css::chart2::StackingDirection_NO_STACKING, 2};
    case TypeSerie::NuagePoints:
        return {"ScatterChartType", css::chart2::StackingDirection_NO_STACKING, 3};
    }
    return {"LineChartType", css::chart2::StackingDirection_NO_STACKING, 2};
}

int rangDe(const QString &service)
{
    if (service.contains(QLatin1String("Area")))
        return 0;
    if (service.contains(QLatin1String("Column")))
        return 1;
    return service.contains(QLatin1String("Scatter")) ? 3 : 2;
}

TypeSerie typeDe(const QString &service, css::chart2::StackingDirection empilement)
{
    switch (rangDe(service)) {
    case 0:
        return TypeSerie::AireEmpilee;
    case 1:
        return empilement == css::chart2::StackingDirection_Y_STACKING ? TypeSerie::HistogrammeEmpile
                                                                       : TypeSerie::Histogramme;
    case 3:
        return TypeSerie::NuagePoints;
    default:
        return TypeSerie::Ligne;
    }
}
} // namespace

Graphique::Donnees::Donnees(std::shared_ptr<Feuille::Donnees> donneesFeuille, QString nomGraphique,
                            const Reference<css::uno::XInterface> &modeleGraphique,
                            PlaceGraphique placeGraphique)
    : feuille(std::move(donneesFeuille)), nom(std::move(nomGraphique)),
      modele(modeleGraphique, UNO_QUERY_THROW), document(modeleGraphique, UNO_QUERY_THROW),
      m_place(std::move(placeGraphique))
{
    const Reference<css::chart2::XCoordinateSystemContainer> reperes(document->getFirstDiagram(),
                                                                     UNO_QUERY_THROW);
    const auto tous = reperes->getCoordinateSystems();
    if (!tous.hasElements())
        throw Erreur(GraphiqueAbsent, QStringLiteral("Le graphique « %1 » n'a pas d'axes.").arg(nom));
    repere = tous[0];
    source = document->getDataProvider();
    feuille->classeur->suspendre(modele);
    auto &toutes = feuille->classeur->retouches.graphiques;
    const auto sienne = std::find_if(toutes.begin(), toutes.end(), [&](const auto &r) {
        return r->feuille == feuille->rang() && r->rang == m_place.rang;
    });
    retouches = sienne != toutes.end() ? *sienne : std::make_shared<RetouchesGraphique>();
    if (sienne == toutes.end()) {
        retouches->feuille = feuille->rang();
        retouches->rang = m_place.rang;
        toutes.append(retouches);
    }
    lireSeries();
}

// The numbers of the series: the file gives those of the primary axes first, each axis group by types.
void Graphique::Donnees::lireSeries()
{
    std::vector<std::shared_ptr<SerieGraphique::Donnees>> secondaires;
    m_conteneur.set(repere, UNO_QUERY_THROW);
    for (const auto &objetType : m_conteneur->getChartTypes()) {
        Type type{objetType, versQt(objetType->getChartType()), {objetType, UNO_QUERY_THROW}, {}};
        std::shared_ptr<SerieGraphique::Donnees> premiere;
        for (const auto &objet : type.contenu->getDataSeries()) {
            type.series.push_back(objet);
            auto serie = std::make_shared<SerieGraphique::Donnees>();
            serie->objet = objet;
            // Series of one type share their axes and stand on each other, or do not: the first tells for all.
            if (premiere) {
                serie->type = premiere->type;
                serie->groupe = premiere->groupe;
            } else {
                const std::array<rtl::OUString, 2> noms{rtl::OUString("AttachedAxisIndex"),
                                                        rtl::OUString("StackingDirection")};
                const auto lues = serie->reglages()->getPropertyValues({noms.data(), 2});
                sal_Int32 axe = 0;
                lues[0] >>= axe;
                auto empilement = css::chart2::StackingDirection_NO_STACKING;
                lues[1] >>= empilement;
                serie->type = typeDe(type.service, empilement);
                serie->groupe = axe == 1 ? 2 : 1;
                premiere = serie;
            }
            (serie->groupe == 2 ? secondaires : series).push_back(serie);
        }
        m_types.push_back(std::move(type));
    }
    series.insert(series.end(), secondaires.begin(), secondaires.end());
}

Reference<css::uno::XInterface> Graphique::Donnees::creer(const char *service) const
{
    return feuille->classeur->instance->creer(rtl::OUString::createFromAscii(PREFIXE) +
                                              rtl::OUString::createFromAscii(service));
}

namespace
{
// Cells of an address with its sheet; nothing for a longer list of them.
std::optional<RectangleCellules> rectangle(const QString &adresse)
{
    static const QRegularExpression forme(
        QStringLiteral("\\.\\$?([A-Z]+)\\$?([0-9]+)(?::\\$?([A-Z]+)\\$?([0-9]+))?$"));
    const QRegularExpressionMatch lue = forme.match(adresse);
    if (!lue.hasMatch())
        return std::nullopt;
    const auto colonne = [](const QString &lettres) {
        int numero = 0;
        for (const QChar lettre : lettres)
            numero = numero * 26 + lettre.unicode() - 'A' + 1;
        return numero - 1;
    };
    const int ligne = lue.captured(2).toInt() - 1;
    const int premiere = colonne(lue.captured(1));
    if (lue.captured(4).isEmpty())
        return RectangleCellules{ligne, premiere, ligne, premiere};
    return RectangleCellules{ligne, premiere, lue.captured(4).toInt() - 1, colonne(lue.captured(3))};
}

QString colonneEnLettres(int colonne) // from 0
{
    QString lettres;
    for (int reste = colonne + 1; reste > 0; reste = (reste - 1) / 26)
        lettres.prepend(QChar(u'A' + (reste - 1) % 26));
    return lettres;
}
} // namespace

QString Graphique::Donnees::adresseDe(const Plage &cellules) const
{
    const auto &lieu = cellules.donnees().adresse;
    QString nomFeuille = cellules.donnees().feuille->nom();
    nomFeuille.replace(QLatin1Char('\''), QLatin1String("''"));
    const QString debut = QStringLiteral("$'%1'.$%2$%3")
                              .arg(nomFeuille, colonneEnLettres(lieu.StartColumn))
                              .arg(lieu.StartRow + 1);
    return debut + QStringLiteral(":$%1$%2").arg(colonneEnLettres(lieu.EndColumn)).arg(lieu.EndRow + 1);
}

Reference<css::chart2::data::XDataSequence> Graphique::Donnees::suite(const Plage &cellules,
                                                                      const char *role) const
{
    const auto valeurs = source->createDataSequenceByRangeRepresentation(versUno(adresseDe(cellules)));
    Reference<css::beans::XPropertySet>(valeurs, UNO_QUERY_THROW)
        ->setPropertyValue("Role", Any(rtl::OUString::createFromAscii(role)));
    return valeurs;
}

sal_Int32 Graphique::Donnees::cleFormat(const QString &format) const
{
    constexpr sal_Int32 STANDARD = 0; // in every table of formats
    if (format == QLatin1String("General"))
        return STANDARD;
    const css::lang::Locale anglais("en", "US", rtl::OUString());
    const css::lang::Locale sien;
    return Reference<css::util::XNumberFormatsSupplier>(document, UNO_QUERY_THROW)
        ->getNumberFormats()
        ->addNewConverted(versUno(format), anglais, sien);
}

QString Graphique::Donnees::formatDeCle(sal_Int32 cle) const
{
    rtl::OUString format;
    Reference<css::util::XNumberFormatsSupplier>(document, UNO_QUERY_THROW)
        ->getNumberFormats()
        ->getByKey(cle)
        ->getPropertyValue("FormatString") >>= format;
    return versQt(format);
}

const Reference<css::chart2::XScaling> &Graphique::Donnees::lineaire() const
{
    if (!m_lineaire.is())
        m_lineaire.set(creer("LinearScaling"), UNO_QUERY_THROW);
    return m_lineaire;
}

void Graphique::Donnees::ranger(SerieGraphique::Donnees &serie)
{
    const Genre voulu = genre(serie.type);
    Reglages()
        .mettre("AttachedAxisIndex", static_cast<sal_Int32>(serie.groupe - 1))
        .mettre("StackingDirection", voulu.empilement)
        .appliquer(serie.reglages());
    // Secondary axes are there for their series only. That of the categories is not shown, but without it the file
    // would place the series by their rows, not by their dates.
    if (const auto valeurs = axe(TypeAxe::Valeur, 2); serie.groupe == 2 && valeurs.is()) {
        Reglages().mettre("Show", true).appliquer(valeurs);
    } else if (serie.groupe == 2) {
        const auto nouvel = nouvelAxe(TypeAxe::Valeur, true);
        css::chart2::ScaleData echelle = nouvel->getScaleData();
        echelle.AxisType = css::chart2::AxisType::REALNUMBER;
        nouvel->setScaleData(echelle);
        repere->setAxisByDimension(1, nouvel, 1);
    }
    if (serie.groupe == 2 && !axe(TypeAxe::Categorie, 2).is()) {
        const auto categories = nouvelAxe(TypeAxe::Categorie, false);
        categories->setScaleData(axe(TypeAxe::Categorie, 1)->getScaleData());
        repere->setAxisByDimension(0, categories, 1);
    }
    // Series of one type and one axis group stand together.
    const QString service = QLatin1String(PREFIXE) + QLatin1String(voulu.service);
    for (Type &type : m_types) {
        if (type.service != service)
            continue;
        if (!type.series.empty()) {
            const auto voisine = std::find_if(series.begin(), series.end(),
                                              [&](const auto &s) { return s->objet == type.series.front(); });
            if (voisine == series.end() || (*voisine)->groupe != serie.groupe ||
                (*voisine)->type != serie.type)
                continue;
        }
        type.contenu->addDataSeries(serie.objet);
        type.series.push_back(serie.objet);
        return;
    }
    Type nouveau{{creer(voulu.service), UNO_QUERY_THROW}, service, {}, {serie.objet}};
    nouveau.contenu.set(nouveau.objet, UNO_QUERY_THROW);
    nouveau.contenu->addDataSeries(serie.objet);
    m_types.insert(std::find_if(m_types.begin(), m_types.end(),
                                [&](const Type &type) { return rangDe(type.service) > voulu.rang; }),
                   nouveau);
    std::vector<Reference<css::chart2::XChartType>> objets;
    for (const Type &type : m_types)
        objets.push_back(type.objet);
    m_conteneur->setChartTypes({objets.data(), static_cast<sal_Int32>(objets.size())});
}

void Graphique::Donnees::retoucher(SerieGraphique::Donnees &serie)
{
    // Of a series of the file, or after a move of cells: "$Mesures.$B$9:$B$60".
    if (!serie.retouches->valeurs || serie.deplacementsValeurs != feuille->classeur->deplacements)
        serie.retouches->valeurs =
            rectangle(versQt(serie.valeurs(*this)->getValues()->getSourceRangeRepresentation()));
    serie.deplacementsValeurs = feuille->classeur->deplacements;
    if (!retouches->series.contains(serie.retouches))
        retouches->series.append(serie.retouches);
}

void Graphique::Donnees::oter(const std::vector<std::shared_ptr<SerieGraphique::Donnees>> &otees)
{
    const auto disparait = [&otees](const Reference<css::chart2::XDataSeries> &serie) {
        return std::any_of(otees.begin(), otees.end(), [&serie](const auto &o) { return o->objet == serie; });
    };
    for (auto type = m_types.begin(); type != m_types.end();) {
        auto &siennes = type->series;
        const size_t avant = siennes.size();
        siennes.erase(std::remove_if(siennes.begin(), siennes.end(), disparait), siennes.end());
        if (siennes.size() == avant) {
            ++type;
            continue;
        }
        type->contenu->setDataSeries({siennes.data(), static_cast<sal_Int32>(siennes.size())});
        // The last type stays, empty: a chart without any has no axes.
        if (siennes.empty() && m_types.size() > 1) {
            m_conteneur->removeChartType(type->objet);
            type = m_types.erase(type);
        } else {
            ++type;
        }
    }
}

bool Graphique::Donnees::aSecondaires() const
{
    return std::any_of(series.begin(), series.end(), [](const auto &s) { return s->groupe == 2; });
}

void Graphique::Donnees::oublierAxeVide()
{
    // Hidden, not taken away: the filter of .xls does not survive a hole in the list of axes. Without a series the file
    // has none.
    if (const auto valeurs = axe(TypeAxe::Valeur, 2); !aSecondaires() && valeurs.is())
        Reglages().mettre("Show", false).appliquer(valeurs);
}

Reference<css::chart2::XAxis> Graphique::Donnees::nouvelAxe(TypeAxe type, bool montre) const
{
    const Reference<css::chart2::XAxis> nouvel(creer("Axis"), UNO_QUERY_THROW);
    Reglages()
        .mettre("CrossoverPosition", type == TypeAxe::Valeur ? css::chart::ChartAxisPosition_END
                                                             : css::chart::ChartAxisPosition_START)
        .mettre("Show", montre)
        .appliquer(nouvel);
    return nouvel;
}

Reference<css::chart2::XAxis> Graphique::Donnees::axe(TypeAxe type, int groupe) const
{
    const sal_Int32 dimension = type == TypeAxe::Categorie ? 0 : 1;
    if (groupe < 1 || groupe > 2)
        return {};
    auto &connu = m_axes[static_cast<size_t>(2 * dimension + groupe - 1)];
    if (!connu.is() && (groupe == 1 || repere->getMaximumAxisIndexByDimension(dimension) > 0))
        connu = repere->getAxisByDimension(dimension, groupe - 1);
    return connu;
}

Reference<css::beans::XPropertySet> Graphique::Donnees::diagramme() const
{
    return {document->getFirstDiagram(), UNO_QUERY_THROW};
}
