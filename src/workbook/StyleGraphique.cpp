#include "workbook/StyleGraphique.h"

#include "platform/Erreur.h"
#include "workbook/DonneesGraphique.h"
#include "workbook/PaletteParDefaut.h"

#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>

namespace
{
constexpr int INDEX_AUCUN = -4142;

// In hundredths of a millimetre, those that the format's four weights are read back as.
sal_Int32 largeur(EpaisseurTrait epaisseur)
{
    switch (epaisseur) {
    case EpaisseurTrait::Filet:
        return 0;
    case EpaisseurTrait::Fin:
        return 26;
    case EpaisseurTrait::Moyen:
        return 53;
    case EpaisseurTrait::Epais:
        return 79;
    }
    return 0;
}

css::drawing::LineDash tirets(StyleTrait style)
{
    css::drawing::LineDash motif;
    motif.Style = css::drawing::DashStyle_RECT;
    motif.Distance = 120;
    if (style == StyleTrait::Tirets || style == StyleTrait::TiretPoint) {
        motif.Dashes = 1;
        motif.DashLen = 280;
    }
    if (style == StyleTrait::Points || style == StyleTrait::TiretPoint) {
        motif.Dots = 1;
        motif.DotLen = 50;
    }
    return motif;
}
} // namespace

Teinte Teinte::index(int indexCouleur)
{
    if (indexCouleur == COULEUR_AUTOMATIQUE)
        return automatique();
    if (indexCouleur == INDEX_AUCUN)
        return aucune();
    return rvb(couleurParDefaut(indexCouleur));
}

Teinte Teinte::schema(int couleurDeSchema)
{
    constexpr int PREMIERE = 8; // 0 to 7 are the same eight colours again
    if (couleurDeSchema < 0 || couleurDeSchema > 63)
        throw Erreur(CouleurInconnue,
                     QStringLiteral("Il n'y a pas de couleur de schéma n° %1.").arg(couleurDeSchema));
    return rvb(couleurParDefaut((couleurDeSchema < PREMIERE ? couleurDeSchema + PREMIERE : couleurDeSchema) -
                                PREMIERE + 1));
}

namespace
{
rtl::OUString nomTirets(StyleTrait style, const css::uno::Reference<css::uno::XInterface> &document)
{
    const rtl::OUString nom =
        rtl::OUString::createFromAscii("Ovralis ") + rtl::OUString::number(static_cast<int>(style));
    const css::uno::Reference<css::container::XNameContainer> table(
        css::uno::Reference<css::lang::XMultiServiceFactory>(document, css::uno::UNO_QUERY_THROW)
            ->createInstance("com.sun.star.drawing.DashTable"),
        css::uno::UNO_QUERY_THROW);
    if (!table->hasByName(nom))
        table->insertByName(nom, css::uno::Any(tirets(style)));
    return nom;
}
} // namespace

void mettreTrait(Reglages &reglages, const AspectTrait &aspect, const NomsTrait &noms,
                 const css::uno::Reference<css::uno::XInterface> &document)
{
    using css::drawing::LineStyle;
    const bool aucun = aspect.style == StyleTrait::Aucun || aspect.couleur.estAucune();
    const bool plein = aspect.style == StyleTrait::Continu;
    reglages.mettre(noms.style, aucun
                                    ? css::drawing::LineStyle_NONE
                                    : (plein ? css::drawing::LineStyle_SOLID : css::drawing::LineStyle_DASH));
    if (aucun)
        return;
    if (!plein)
        reglages.mettre(noms.nomTirets, nomTirets(aspect.style, document));
    reglages.mettre(noms.epaisseur, largeur(aspect.epaisseur));
    if (!aspect.couleur.estAutomatique())
        reglages.mettre(noms.couleur, static_cast<sal_Int32>(aspect.couleur.rvb()));
}

void mettreFond(Reglages &reglages, Teinte couleur, const char *nomCouleur)
{
    if (couleur.estAutomatique())
        return;
    reglages.mettre("FillStyle",
                    couleur.estAucune() ? css::drawing::FillStyle_NONE : css::drawing::FillStyle_SOLID);
    if (!couleur.estAucune())
        reglages.mettre(nomCouleur, static_cast<sal_Int32>(couleur.rvb()));
}

void Reglages::appliquer(const css::uno::Reference<css::beans::XMultiPropertySet> &objet) const
{
    const auto nombre = static_cast<sal_Int32>(m_valeurs.size());
    css::uno::Sequence<rtl::OUString> noms(nombre);
    css::uno::Sequence<css::uno::Any> valeurs(nombre);
    sal_Int32 i = 0;
    for (const auto &[nom, valeur] : m_valeurs) {
        noms.getArray()[i] = nom;
        valeurs.getArray()[i++] = valeur;
    }
    objet->setPropertyValues(noms, valeurs);
}
