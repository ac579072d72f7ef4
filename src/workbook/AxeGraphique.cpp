#include "workbook/AxeGraphique.h"

#include "workbook/DonneesGraphique.h"

#include <com/sun/star/chart/ChartAxisLabelPosition.hpp>
#include <com/sun/star/chart/ChartAxisPosition.hpp>
#include <com/sun/star/chart2/AxisType.hpp>
#include <com/sun/star/chart2/SubIncrement.hpp>
#include <com/sun/star/chart2/TickmarkStyle.hpp>
#include <com/sun/star/chart2/XFormattedString.hpp>
#include <com/sun/star/chart2/XTitle.hpp>
#include <com/sun/star/lang/XServiceName.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

class AxeGraphique::Donnees
{
public:
    Donnees(std::shared_ptr<Graphique::Donnees> donneesGraphique, TypeAxe typeAxe, int groupeAxe,
            const Reference<css::chart2::XAxis> &axe)
        : graphique(std::move(donneesGraphique)), type(typeAxe), groupe(groupeAxe), objet(axe)
    {
    }
    template <class F> std::invoke_result_t<F> appeler(F &&appels) const
    {
        return graphique->appeler(std::forward<F>(appels));
    }
    void regler(const Reglages &reglages) const
    {
        appeler([&] { reglages.appliquer(objet); });
    }
    Any lire(const char *nom) const
    {
        return appeler([&] {
            return Reference<css::beans::XPropertySet>(objet, UNO_QUERY_THROW)
                ->getPropertyValue(rtl::OUString::createFromAscii(nom));
        });
    }
    // The axis across it, on which it stands.
    Reference<css::chart2::XAxis> autre() const
    {
        const auto perpendiculaire = type == TypeAxe::Categorie ? TypeAxe::Valeur : TypeAxe::Categorie;
        const auto sien = graphique->axe(perpendiculaire, groupe);
        return sien.is() ? sien : graphique->axe(perpendiculaire, 1);
    }

    // The categories of both groups are the same, and so are their places.
    void placer(const css::chart2::ScaleData &echelle) const
    {
        objet->setScaleData(echelle);
        if (type != TypeAxe::Categorie || groupe != 1)
            return;
        if (const auto second = graphique->axe(type, 2); second.is())
            second->setScaleData(echelle);
    }

    std::shared_ptr<Graphique::Donnees> graphique;
    TypeAxe type;
    int groupe;
    Reference<css::chart2::XAxis> objet;
};

namespace
{
std::optional<double> nombre(const Any &valeur)
{
    double lu = 0;
    if (valeur >>= lu)
        return lu;
    return std::nullopt;
}

Any versAny(const std::optional<double> &valeur)
{
    return valeur ? Any(*valeur) : Any();
}

sal_Int32 repere(Graduation graduation)
{
    switch (graduation) {
    case Graduation::Interieure:
        return css::chart2::TickmarkStyle::INNER;
    case Graduation::Exterieure:
        return css::chart2::TickmarkStyle::OUTER;
    case Graduation::Croisee:
        return css::chart2::TickmarkStyle::INNER | css::chart2::TickmarkStyle::OUTER;
    case Graduation::Aucune:
        break;
    }
    return 0;
}
} // namespace

AxeGraphique Graphique::axe(TypeAxe type, int groupe) const
{
    return m_donnees->appeler([&] {
        const auto axe = m_donnees->axe(type, groupe);
        if (!axe.is() || (groupe == 2 && !m_donnees->aSecondaires()))
            throw Erreur(AxeAbsent,
                         QStringLiteral("Le graphique « %1 » n'a pas cet axe : aucune série n'y est "
                                        "rattachée.")
                             .arg(m_donnees->nom));
        return AxeGraphique(std::make_shared<AxeGraphique::Donnees>(m_donnees, type, groupe, axe));
    });
}

AxeGraphique::AxeGraphique(std::shared_ptr<Donnees> donnees) : m_donnees(std::move(donnees)) {}

EchelleAxe AxeGraphique::echelle() const
{
    return m_donnees->appeler([this] {
        const css::chart2::ScaleData lue = m_donnees->objet->getScaleData();
        EchelleAxe echelle;
        echelle.minimum = nombre(lue.Minimum);
        echelle.maximum = nombre(lue.Maximum);
        echelle.pasMajeur = nombre(lue.IncrementData.Distance);
        echelle.inversee = lue.Orientation == css::chart2::AxisOrientation_REVERSE;
        echelle.logarithmique =
            lue.Scaling.is() &&
            Reference<css::lang::XServiceName>(lue.Scaling, UNO_QUERY_THROW)->getServiceName() ==
                "com.sun.star.chart2.LogarithmicScaling";
        if (echelle.pasMajeur && lue.IncrementData.SubIncrements.hasElements()) {
            sal_Int32 parts = 0;
            if ((lue.IncrementData.SubIncrements[0].IntervalCount >>= parts) && parts > 0)
                echelle.pasMineur = *echelle.pasMajeur / parts;
        }
        return echelle;
    });
}

void AxeGraphique::echelle(const EchelleAxe &echelle)
{
    m_donnees->appeler([&] {
        css::chart2::ScaleData voulue = m_donnees->objet->getScaleData();
        voulue.Minimum = versAny(echelle.minimum);
        voulue.Maximum = versAny(echelle.maximum);
        voulue.Orientation = echelle.inversee ? css::chart2::AxisOrientation_REVERSE
                                              : css::chart2::AxisOrientation_MATHEMATICAL;
        voulue.IncrementData.Distance = versAny(echelle.pasMajeur);
        voulue.IncrementData.SubIncrements = css::uno::Sequence<css::chart2::SubIncrement>();
        if (echelle.pasMajeur && echelle.pasMineur && *echelle.pasMineur > 0) {
            css::chart2::SubIncrement parts;
            parts.IntervalCount <<= static_cast<sal_Int32>(qRound(*echelle.pasMajeur / *echelle.pasMineur));
            voulue.IncrementData.SubIncrements = seule(parts);
        }
        if (m_donnees->type == TypeAxe::Valeur && echelle.logarithmique)
            voulue.Scaling.set(m_donnees->graphique->creer("LogarithmicScaling"), UNO_QUERY_THROW);
        else if (m_donnees->type == TypeAxe::Valeur)
            voulue.Scaling = m_donnees->graphique->lineaire();
        m_donnees->placer(voulue);
    });
}

void AxeGraphique::croisement(Croisement croisement)
{
    auto place = css::chart::ChartAxisPosition_ZERO;
    if (croisement == Croisement::Minimum)
        place = css::chart::ChartAxisPosition_START;
    else if (croisement == Croisement::Maximum)
        place = css::chart::ChartAxisPosition_END;
    m_donnees->regler(Reglages().mettre("CrossoverPosition", place));
}

Croisement AxeGraphique::croisement() const
{
    auto place = css::chart::ChartAxisPosition_ZERO;
    m_donnees->lire("CrossoverPosition") >>= place;
    if (place == css::chart::ChartAxisPosition_START)
        return Croisement::Minimum;
    return place == css::chart::ChartAxisPosition_END ? Croisement::Maximum : Croisement::Automatique;
}

void AxeGraphique::temporel(bool oui)
{
    m_donnees->appeler([&] {
        css::chart2::ScaleData echelle = m_donnees->objet->getScaleData();
        echelle.AutoDateAxis = false;
        echelle.AxisType = oui ? css::chart2::AxisType::DATE : css::chart2::AxisType::CATEGORY;
        m_donnees->placer(echelle);
    });
}

bool AxeGraphique::estTemporel() const
{
    return m_donnees->appeler(
        [this] { return m_donnees->objet->getScaleData().AxisType == css::chart2::AxisType::DATE; });
}

void AxeGraphique::entreCategories(bool oui)
{
    m_donnees->appeler([&] {
        css::chart2::ScaleData echelle = m_donnees->objet->getScaleData();
        echelle.ShiftedCategoryPosition = oui;
        m_donnees->placer(echelle);
    });
    if (m_donnees->type == TypeAxe::Categorie)
        m_donnees->graphique->retouches->entreCategories = oui;
}

void AxeGraphique::formatNombre(const QString &format)
{
    Reglages reglages;
    reglages.mettre("LinkNumberFormatToSource", format.isEmpty());
    if (!format.isEmpty())
        reglages.mettre("NumberFormat",
                        m_donnees->appeler([&] { return m_donnees->graphique->cleFormat(format); }));
    m_donnees->regler(reglages);
    if (m_donnees->type != TypeAxe::Categorie || m_donnees->groupe != 1)
        return;
    // The filter leaves it out. The file's table of formats has those of cells only: the one under the chart holds it.
    Graphique::Donnees &graphique = *m_donnees->graphique;
    graphique.retouches->formatCategories = format;
    if (!format.isEmpty())
        m_donnees->appeler([&] {
            graphique.coin()->setPropertyValue("NumberFormat",
                                               Any(graphique.feuille->classeur->cleFormat(format)));
        });
}

QString AxeGraphique::formatNombre() const
{
    sal_Int32 cle = 0;
    if (!(m_donnees->lire("NumberFormat") >>= cle))
        return {};
    return m_donnees->appeler([&] { return m_donnees->graphique->formatDeCle(cle); });
}

void AxeGraphique::orientation(int degres)
{
    m_donnees->regler(Reglages().mettre("TextRotation", static_cast<double>(degres)));
}

int AxeGraphique::orientation() const
{
    double degres = 0;
    m_donnees->lire("TextRotation") >>= degres;
    return qRound(degres);
}

void AxeGraphique::taillePolice(double points)
{
    const Reglages taille = Reglages().mettre("CharHeight", static_cast<float>(points));
    m_donnees->appeler([&] {
        taille.appliquer(m_donnees->objet);
        const auto titre =
            Reference<css::chart2::XTitled>(m_donnees->objet, UNO_QUERY_THROW)->getTitleObject();
        if (titre.is())
            for (const auto &morceau : titre->getText())
                taille.appliquer(morceau);
    });
}

void AxeGraphique::placeGraduations(PlaceGraduations place)
{
    auto cote = css::chart::ChartAxisLabelPosition_NEAR_AXIS;
    if (place == PlaceGraduations::Bas)
        cote = css::chart::ChartAxisLabelPosition_OUTSIDE_START;
    else if (place == PlaceGraduations::Haut)
        cote = css::chart::ChartAxisLabelPosition_OUTSIDE_END;
    m_donnees->regler(
        Reglages().mettre("DisplayLabels", place != PlaceGraduations::Aucune).mettre("LabelPosition", cote));
}

void AxeGraphique::graduations(Graduation majeures, Graduation mineures)
{
    m_donnees->regler(
        Reglages().mettre("MajorTickmarks", repere(majeures)).mettre("MinorTickmarks", repere(mineures)));
}

void AxeGraphique::titre(const QString &texte)
{
    m_donnees->appeler([&] {
        ecrireTitre(*m_donnees->graphique, m_donnees->objet, texte, m_donnees->type == TypeAxe::Valeur);
    });
}

QString AxeGraphique::titre() const
{
    return m_donnees->appeler([this] { return lireTitre(m_donnees->objet); });
}

void AxeGraphique::afficher(bool oui)
{
    m_donnees->regler(Reglages().mettre("Show", oui));
}

void AxeGraphique::quadrillage(bool oui, Teinte couleur)
{
    m_donnees->appeler([&] {
        Reglages reglages;
        reglages.mettre("Show", oui);
        if (oui)
            mettreTrait(reglages, {StyleTrait::Continu, couleur, EpaisseurTrait::Filet}, TRAIT_ORDINAIRE,
                        m_donnees->graphique->document);
        reglages.appliquer(m_donnees->objet->getGridProperties());
    });
}

void AxeGraphique::couleur(Teinte couleur)
{
    Reglages reglages;
    mettreTrait(reglages, {StyleTrait::Continu, couleur, EpaisseurTrait::Filet}, TRAIT_ORDINAIRE,
                m_donnees->graphique->document);
    m_donnees->regler(reglages);
}
