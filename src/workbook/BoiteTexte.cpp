#include "workbook/BoiteTexte.h"

#include "workbook/DonneesGraphique.h"

#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/TextVerticalAdjust.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/style/ParagraphAdjust.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

class BoiteTexte::Donnees
{
public:
    Donnees(std::shared_ptr<Feuille::Donnees> donneesFeuille,
            const Reference<css::drawing::XShape> &objetDessin)
        : feuille(std::move(donneesFeuille)), forme(objetDessin)
    {
    }
    template <class F> std::invoke_result_t<F> appeler(F &&appels) const
    {
        return feuille->appeler(std::forward<F>(appels));
    }
    void regler(const Reglages &reglages) const
    {
        appeler([&] { reglages.appliquer(forme); });
    }
    Any lire(const char *nom) const
    {
        return appeler([&] {
            return Reference<css::beans::XPropertySet>(forme, UNO_QUERY_THROW)
                ->getPropertyValue(rtl::OUString::createFromAscii(nom));
        });
    }

    std::shared_ptr<Feuille::Donnees> feuille;
    Reference<css::drawing::XShape> forme;
};

namespace
{
// The drawn object of this name; empty without.
Reference<css::drawing::XShape> formeNommee(const Feuille::Donnees &feuille, const QString &nom)
{
    const auto &page = feuille.dessins();
    const rtl::OUString voulu = versUno(nom);
    const sal_Int32 nombre = page->getCount();
    for (sal_Int32 i = 0; i < nombre; ++i) {
        const Reference<css::container::XNamed> forme(page->getByIndex(i), UNO_QUERY_THROW);
        if (forme->getName() == voulu)
            return Reference<css::drawing::XShape>(forme, UNO_QUERY_THROW);
    }
    return {};
}

Reference<css::text::XTextCursor> toutLeTexte(const Reference<css::text::XText> &contenu)
{
    auto curseur = contenu->createTextCursor();
    curseur->gotoStart(false);
    curseur->gotoEnd(true);
    return curseur;
}

Reglages reglagesDe(const BoiteTexte::Police &police)
{
    return Reglages()
        .mettre("CharFontName", versUno(police.nom))
        .mettre("CharHeight", static_cast<float>(police.points));
}
} // namespace

BoiteTexte Feuille::zoneTexte(const QString &nom) const
{
    return m_donnees->appeler([&] {
        const Reference<css::drawing::XShape> forme = formeNommee(*m_donnees, nom);
        if (!forme.is())
            throw Erreur(ZoneAbsente, QStringLiteral("La feuille n'a pas de zone de texte « %1 ».").arg(nom));
        return BoiteTexte(std::make_shared<BoiteTexte::Donnees>(m_donnees, forme));
    });
}

bool Feuille::aZoneTexte(const QString &nom) const
{
    return m_donnees->appeler([&] { return formeNommee(*m_donnees, nom).is(); });
}

BoiteTexte Feuille::ajouterZoneTexte(const QString &nom, const CadreDessin &cadre)
{
    const auto forme = m_donnees->appeler([&] {
        const Reference<css::lang::XMultiServiceFactory> fabrique(m_donnees->classeur->ouvert(),
                                                                  UNO_QUERY_THROW);
        const Reference<css::drawing::XShape> nouvelle(
            fabrique->createInstance("com.sun.star.drawing.TextShape"), UNO_QUERY_THROW);
        m_donnees->dessins()->add(nouvelle);
        nouvelle->setPosition({cadre.x, cadre.y});
        nouvelle->setSize({cadre.largeur, cadre.hauteur});
        Reglages().mettre("TextAutoGrowHeight", false).mettre("TextAutoGrowWidth", false).appliquer(nouvelle);
        Reference<css::container::XNamed>(nouvelle, UNO_QUERY_THROW)->setName(versUno(nom));
        return nouvelle;
    });
    return BoiteTexte(std::make_shared<BoiteTexte::Donnees>(m_donnees, forme));
}

BoiteTexte::BoiteTexte(std::shared_ptr<Donnees> donnees) : m_donnees(std::move(donnees)) {}

QString BoiteTexte::nom() const
{
    return m_donnees->appeler([this] {
        return versQt(Reference<css::container::XNamed>(m_donnees->forme, UNO_QUERY_THROW)->getName());
    });
}

QString BoiteTexte::texte() const
{
    return m_donnees->appeler([this] {
        return versQt(Reference<css::text::XText>(m_donnees->forme, UNO_QUERY_THROW)->getString());
    });
}

void BoiteTexte::ecrire(const QString &texte, int lignesEnGras, const std::optional<Police> &police)
{
    m_donnees->appeler([&] {
        const Reference<css::text::XText> contenu(m_donnees->forme, UNO_QUERY_THROW);
        const auto curseur = toutLeTexte(contenu);
        const Reference<css::beans::XMultiPropertySet> choisi(curseur, UNO_QUERY_THROW);
        // Before the text, which takes this look: each change of a long text lays all of it out again.
        (police ? reglagesDe(*police) : Reglages())
            .mettre("CharWeight", css::awt::FontWeight::NORMAL)
            .appliquer(choisi);
        contenu->setString(versUno(texte));
        if (lignesEnGras > 0) {
            const qsizetype longueur = texte.section(QLatin1Char('\n'), 0, lignesEnGras - 1).size();
            curseur->gotoStart(false);
            curseur->goRight(static_cast<sal_Int16>(qMin<qsizetype>(longueur, 32'767)), true);
            Reglages().mettre("CharWeight", css::awt::FontWeight::BOLD).appliquer(choisi);
        }
    });
}

void BoiteTexte::police(const Police &police)
{
    // The text that is there has a look of its own, which the box's does not change.
    m_donnees->appeler([&] {
        reglagesDe(police).appliquer(
            toutLeTexte(Reference<css::text::XText>(m_donnees->forme, UNO_QUERY_THROW)));
        reglagesDe(police).appliquer(m_donnees->forme);
    });
}

void BoiteTexte::couleurPolice(Teinte couleur)
{
    m_donnees->regler(Reglages().mettre("CharColor", static_cast<sal_Int32>(couleur.rvb())));
}

void BoiteTexte::alignement(Alignement alignement)
{
    using css::drawing::TextVerticalAdjust;
    const std::pair<Alignement, TextVerticalAdjust> verticaux[] = {
        {Alignement::Haut, css::drawing::TextVerticalAdjust_TOP},
        {Alignement::Milieu, css::drawing::TextVerticalAdjust_CENTER},
        {Alignement::Bas, css::drawing::TextVerticalAdjust_BOTTOM}};
    for (const auto &[voulu, vertical] : verticaux)
        if (voulu == alignement) {
            m_donnees->regler(Reglages().mettre("TextVerticalAdjust", vertical));
            return;
        }
    auto valeur = css::style::ParagraphAdjust_LEFT;
    if (alignement == Alignement::Centre)
        valeur = css::style::ParagraphAdjust_CENTER;
    else if (alignement == Alignement::Droite)
        valeur = css::style::ParagraphAdjust_RIGHT;
    m_donnees->regler(Reglages().mettre("ParaAdjust", static_cast<sal_Int16>(valeur)));
}

void BoiteTexte::fond(Teinte couleur)
{
    Reglages reglages;
    mettreFond(reglages, couleur, "FillColor");
    m_donnees->regler(reglages);
}

void BoiteTexte::bord(const AspectTrait &aspect)
{
    Reglages reglages;
    m_donnees->appeler([&] {
        mettreTrait(reglages, aspect, TRAIT_ORDINAIRE, m_donnees->feuille->classeur->ouvert());
        reglages.appliquer(m_donnees->forme);
    });
}

void BoiteTexte::montrer(bool oui)
{
    m_donnees->regler(Reglages().mettre("Visible", oui));
}

bool BoiteTexte::visible() const
{
    bool oui = true;
    m_donnees->lire("Visible") >>= oui;
    return oui;
}

CadreDessin BoiteTexte::cadre() const
{
    return m_donnees->appeler([this] {
        const css::awt::Point coin = m_donnees->forme->getPosition();
        const css::awt::Size taille = m_donnees->forme->getSize();
        return CadreDessin{coin.X, coin.Y, taille.Width, taille.Height};
    });
}

void BoiteTexte::placer(const CadreDessin &cadre)
{
    m_donnees->appeler([&] {
        m_donnees->forme->setPosition({cadre.x, cadre.y});
        m_donnees->forme->setSize({cadre.largeur, cadre.hauteur});
    });
}

void BoiteTexte::supprimer()
{
    m_donnees->appeler([this] { m_donnees->feuille->dessins()->remove(m_donnees->forme); });
}
