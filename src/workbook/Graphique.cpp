#include "workbook/Graphique.h"

#include "workbook/AxeGraphique.h"
#include "workbook/DonneesGraphique.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/chart/ChartLegendExpansion.hpp>
#include <com/sun/star/chart/MissingValueTreatment.hpp>
#include <com/sun/star/chart2/LegendPosition.hpp>
#include <com/sun/star/chart2/RelativePosition.hpp>
#include <com/sun/star/chart2/RelativeSize.hpp>
#include <com/sun/star/chart2/XFormattedString.hpp>
#include <com/sun/star/chart2/XLegend.hpp>
#include <com/sun/star/chart2/XTitle.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;

namespace
{
Reference<css::chart2::XTitle> titreDe(const Reference<css::uno::XInterface> &porteur)
{
    return Reference<css::chart2::XTitled>(porteur, UNO_QUERY_THROW)->getTitleObject();
}
} // namespace

void ecrireTitre(const Graphique::Donnees &graphique, const Reference<css::uno::XInterface> &porteur,
                 const QString &texte, bool vertical)
{
    const Reference<css::chart2::XTitled> titre(porteur, UNO_QUERY_THROW);
    if (texte.isEmpty()) {
        titre->setTitleObject(nullptr);
        return;
    }
    Reference<css::chart2::XTitle> objet = titre->getTitleObject();
    const bool nouveau = !objet.is();
    if (nouveau) {
        objet.set(graphique.creer("Title"), UNO_QUERY_THROW);
        if (vertical)
            Reglages().mettre("TextRotation", 90.0).appliquer(objet);
    }
    // The look of its first characters holds for all of it.
    const auto anciens = objet->getText();
    const Reference<css::chart2::XFormattedString> morceau =
        anciens.hasElements()
            ? anciens[0]
            : Reference<css::chart2::XFormattedString>(graphique.creer("FormattedString"), UNO_QUERY_THROW);
    morceau->setString(versUno(texte));
    if (anciens.getLength() != 1)
        objet->setText(seule(morceau));
    if (nouveau)
        titre->setTitleObject(objet);
}

QString lireTitre(const Reference<css::uno::XInterface> &porteur)
{
    const auto objet = titreDe(porteur);
    QString texte;
    if (objet.is())
        for (const auto &morceau : objet->getText())
            texte += versQt(morceau->getString());
    return texte;
}

Graphique::Graphique(std::shared_ptr<Donnees> donnees) : m_donnees(std::move(donnees)) {}

QString Graphique::nom() const
{
    return m_donnees->nom;
}

int Graphique::nombreSeries() const
{
    return static_cast<int>(m_donnees->series.size());
}

SerieGraphique Graphique::serie(int numero) const
{
    if (numero < 1 || numero > nombreSeries())
        throw Erreur(
            SerieAbsente,
            QStringLiteral("Le graphique « %1 » n'a pas de série n° %2.").arg(m_donnees->nom).arg(numero));
    return {m_donnees, m_donnees->series[static_cast<size_t>(numero - 1)]};
}

bool Graphique::aSerie(const QString &nom) const
{
    return std::any_of(m_donnees->series.begin(), m_donnees->series.end(),
                       [&](const auto &s) { return SerieGraphique(m_donnees, s).nom() == nom; });
}

SerieGraphique Graphique::serie(const QString &nom) const
{
    for (const auto &serie : m_donnees->series)
        if (const SerieGraphique trouvee(m_donnees, serie); trouvee.nom() == nom)
            return trouvee;
    throw Erreur(SerieAbsente,
                 QStringLiteral("Le graphique « %1 » n'a pas de série « %2 ».").arg(m_donnees->nom, nom));
}

SerieGraphique Graphique::nouvelleSerie(TypeSerie type, int groupeAxes)
{
    return m_donnees->appeler([&] {
        auto serie = std::make_shared<SerieGraphique::Donnees>();
        serie->objet.set(m_donnees->creer("DataSeries"), UNO_QUERY_THROW);
        serie->type = type;
        serie->groupe = groupeAxes;
        m_donnees->ranger(*serie);
        m_donnees->series.push_back(serie);
        return SerieGraphique(m_donnees, serie);
    });
}

void Graphique::supprimerSeries(const QVector<int> &numeros)
{
    std::vector<std::shared_ptr<SerieGraphique::Donnees>> otees;
    for (const int numero : numeros) {
        serie(numero); // an Erreur where there is none
        otees.push_back(m_donnees->series[static_cast<size_t>(numero - 1)]);
    }
    m_donnees->appeler([&] {
        m_donnees->oter(otees);
        const auto disparue = [&otees](const auto &une) {
            return std::find(otees.begin(), otees.end(), une) != otees.end();
        };
        auto &series = m_donnees->series;
        series.erase(std::remove_if(series.begin(), series.end(), disparue), series.end());
        m_donnees->oublierAxeVide();
    });
}

bool Graphique::aAxeSecondaire() const
{
    return m_donnees->aSecondaires();
}

void Graphique::titre(const QString &texte)
{
    m_donnees->appeler([&] { ecrireTitre(*m_donnees, m_donnees->document, texte, false); });
}

QString Graphique::titre() const
{
    return m_donnees->appeler([this] { return lireTitre(m_donnees->document); });
}

void Graphique::legende(bool oui, PlaceLegende place)
{
    m_donnees->appeler([&] {
        const auto diagramme = m_donnees->document->getFirstDiagram();
        if (!oui) {
            diagramme->setLegend(nullptr);
            return;
        }
        if (!diagramme->getLegend().is())
            diagramme->setLegend(
                Reference<css::chart2::XLegend>(m_donnees->creer("Legend"), UNO_QUERY_THROW));
        using css::chart2::LegendPosition;
        const bool enLigne = place == PlaceLegende::Bas || place == PlaceLegende::Haut;
        auto cote = css::chart2::LegendPosition_PAGE_END;
        if (place == PlaceLegende::Haut)
            cote = css::chart2::LegendPosition_PAGE_START;
        else if (place == PlaceLegende::Gauche)
            cote = css::chart2::LegendPosition_LINE_START;
        else if (place == PlaceLegende::Droite)
            cote = css::chart2::LegendPosition_LINE_END;
        Reglages()
            .mettre("Show", true)
            .mettre("AnchorPosition", cote)
            .mettre("Expansion",
                    enLigne ? css::chart::ChartLegendExpansion_WIDE : css::chart::ChartLegendExpansion_HIGH)
            .appliquer(diagramme->getLegend());
    });
}

bool Graphique::aLegende() const
{
    return m_donnees->appeler([this] { return m_donnees->document->getFirstDiagram()->getLegend().is(); });
}

void Graphique::taillePoliceLegende(double points)
{
    m_donnees->appeler([&] {
        const auto legende = m_donnees->document->getFirstDiagram()->getLegend();
        if (legende.is())
            Reglages().mettre("CharHeight", static_cast<float>(points)).appliquer(legende);
    });
}

void Graphique::fondLegende(Teinte fond, const AspectTrait &bord)
{
    m_donnees->appeler([&] {
        const auto legende = m_donnees->document->getFirstDiagram()->getLegend();
        if (!legende.is())
            return;
        Reglages reglages;
        mettreFond(reglages, fond, "FillColor");
        mettreTrait(reglages, bord, TRAIT_ORDINAIRE, m_donnees->document);
        reglages.appliquer(legende);
    });
}

void Graphique::zoneTracage(const CadreDessin &cadre)
{
    m_donnees->appeler([&] {
        const css::awt::Size taille = m_donnees->forme()->getSize();
        css::chart2::RelativePosition place;
        place.Primary = static_cast<double>(cadre.x) / taille.Width;
        place.Secondary = static_cast<double>(cadre.y) / taille.Height;
        place.Anchor = css::drawing::Alignment_TOP_LEFT;
        css::chart2::RelativeSize etendue;
        etendue.Primary = static_cast<double>(cadre.largeur) / taille.Width;
        etendue.Secondary = static_cast<double>(cadre.hauteur) / taille.Height;
        Reglages()
            .mettre("PosSizeExcludeAxes", true)
            .mettre("RelativePosition", place)
            .mettre("RelativeSize", etendue)
            .appliquer(m_donnees->document->getFirstDiagram());
    });
}

void Graphique::fondZoneTracage(Teinte fond, const AspectTrait &bord)
{
    m_donnees->appeler([&] {
        Reglages reglages;
        mettreFond(reglages, fond, "FillColor");
        mettreTrait(reglages, bord, TRAIT_ORDINAIRE, m_donnees->document);
        reglages.appliquer(m_donnees->document->getFirstDiagram()->getWall());
    });
}

void Graphique::fond(Teinte couleur, const AspectTrait &bord)
{
    m_donnees->appeler([&] {
        Reglages reglages;
        mettreFond(reglages, couleur, "FillColor");
        mettreTrait(reglages, bord, TRAIT_ORDINAIRE, m_donnees->document);
        reglages.appliquer(m_donnees->document->getPageBackground());
    });
}

void Graphique::relierLesTrous(bool oui)
{
    m_donnees->appeler([&] {
        Reglages()
            .mettre("MissingValueTreatment", oui ? css::chart::MissingValueTreatment::CONTINUE
                                                 : css::chart::MissingValueTreatment::LEAVE_GAP)
            .appliquer(m_donnees->document->getFirstDiagram());
    });
}

CadreDessin Graphique::cadre() const
{
    return m_donnees->appeler([this] {
        const css::awt::Point coin = m_donnees->forme()->getPosition();
        const css::awt::Size taille = m_donnees->forme()->getSize();
        return CadreDessin{coin.X, coin.Y, taille.Width, taille.Height};
    });
}
