#include "workbook/MiseEnPage.h"

#include "workbook/DonneesClasseur.h"

#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XHeaderFooterContent.hpp>
#include <com/sun/star/sheet/XPrintAreas.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextContent.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
using Proprietes = Reference<css::beans::XPropertySet>;

Reference<css::uno::XInterface> creer(const Feuille::Donnees &donnees, const char *service)
{
    return Reference<css::lang::XMultiServiceFactory>(donnees.classeur->ouvert(), UNO_QUERY_THROW)
        ->createInstance(rtl::OUString::createFromAscii(service));
}

// The sheet's own page style, made on first use: by default all sheets share one.
Proprietes styleDePage(const Feuille::Donnees &donnees)
{
    const Proprietes feuille(donnees.objet(), UNO_QUERY_THROW);
    const rtl::OUString nom =
        "Page " + Reference<css::container::XNamed>(donnees.objet(), UNO_QUERY_THROW)->getName();
    const Reference<css::container::XNameContainer> styles(
        Reference<css::style::XStyleFamiliesSupplier>(donnees.classeur->ouvert(), UNO_QUERY_THROW)
            ->getStyleFamilies()
            ->getByName("PageStyles"),
        UNO_QUERY_THROW);
    if (!styles->hasByName(nom))
        styles->insertByName(nom, Any(creer(donnees, "com.sun.star.style.PageStyle")));
    feuille->setPropertyValue("PageStyle", Any(nom));
    return {styles->getByName(nom), UNO_QUERY_THROW};
}

// Writes a text with its "&P" and "&N" as fields.
void ecrireTexte(const Feuille::Donnees &donnees, const Reference<css::text::XText> &zone,
                 const QString &texte)
{
    zone->setString(rtl::OUString());
    const auto fin = [&zone] { return zone->getEnd(); };
    for (qsizetype debut = 0; debut < texte.size();) {
        const QString suite = texte.mid(debut, 2);
        if (suite == QLatin1String("&P") || suite == QLatin1String("&N")) {
            const char *service = suite == QLatin1String("&P") ? "com.sun.star.text.TextField.PageNumber"
                                                               : "com.sun.star.text.TextField.PageCount";
            zone->insertTextContent(fin(), {creer(donnees, service), UNO_QUERY_THROW}, false);
            debut += 2;
            continue;
        }
        qsizetype suivant = texte.indexOf(QLatin1Char('&'), debut + 1);
        if (suivant < 0)
            suivant = texte.size();
        zone->insertString(fin(), versUno(texte.mid(debut, suivant - debut)), false);
        debut = suivant;
    }
}

void ecrireBandeau(const Feuille::Donnees &donnees, const Proprietes &style, const char *presence,
                   const char *contenu, const QString &gauche, const QString &centre, const QString &droite)
{
    const bool present = !(gauche.isEmpty() && centre.isEmpty() && droite.isEmpty());
    style->setPropertyValue(rtl::OUString::createFromAscii(presence), Any(present));
    if (!present)
        return;
    const rtl::OUString nom = rtl::OUString::createFromAscii(contenu);
    const Reference<css::sheet::XHeaderFooterContent> bandeau(style->getPropertyValue(nom), UNO_QUERY_THROW);
    ecrireTexte(donnees, bandeau->getLeftText(), gauche);
    ecrireTexte(donnees, bandeau->getCenterText(), centre);
    ecrireTexte(donnees, bandeau->getRightText(), droite);
    style->setPropertyValue(nom, Any(bandeau)); // the contents are a copy until they are set back
}
} // namespace

void Feuille::mettreEnPage(const MiseEnPage &page)
{
    constexpr sal_Int32 PETIT_COTE_A4 = 21000;
    constexpr sal_Int32 GRAND_COTE_A4 = 29700;
    m_donnees->appeler([&] {
        const Proprietes style = styleDePage(*m_donnees);
        const auto definir = [&style](const char *nom, const Any &valeur) {
            style->setPropertyValue(rtl::OUString::createFromAscii(nom), valeur);
        };
        definir("IsLandscape", Any(page.paysage));
        definir("Width", Any(page.paysage ? GRAND_COTE_A4 : PETIT_COTE_A4));
        definir("Height", Any(page.paysage ? PETIT_COTE_A4 : GRAND_COTE_A4));
        definir("LeftMargin", Any(static_cast<sal_Int32>(page.margeGauche)));
        definir("RightMargin", Any(static_cast<sal_Int32>(page.margeDroite)));
        definir("TopMargin", Any(static_cast<sal_Int32>(page.margeHaut)));
        definir("BottomMargin", Any(static_cast<sal_Int32>(page.margeBas)));
        definir("CenterHorizontally", Any(page.centreeHorizontalement));
        definir("ScaleToPagesX", Any(static_cast<sal_Int16>(page.pagesEnLargeur)));
        definir("ScaleToPagesY", Any(static_cast<sal_Int16>(page.pagesEnHauteur)));
        ecrireBandeau(*m_donnees, style, "HeaderIsOn", "RightPageHeaderContent", page.enTeteGauche,
                      page.enTeteCentre, page.enTeteDroite);
        ecrireBandeau(*m_donnees, style, "FooterIsOn", "RightPageFooterContent", page.piedGauche,
                      page.piedCentre, page.piedDroite);

        const Reference<css::sheet::XPrintAreas> zones(m_donnees->objet(), UNO_QUERY_THROW);
        zones->setPrintTitleRows(page.premiereLigneRepetee > 0);
        if (page.premiereLigneRepetee > 0) {
            css::table::CellRangeAddress titres;
            titres.StartRow = page.premiereLigneRepetee - 1;
            titres.EndRow = qMax(page.premiereLigneRepetee, page.derniereLigneRepetee) - 1;
            zones->setTitleRows(titres);
        }
    });
}

void Feuille::zoneImpression(const Plage &plage)
{
    m_donnees->appeler([&] {
        Reference<css::sheet::XPrintAreas>(m_donnees->objet(), UNO_QUERY_THROW)
            ->setPrintAreas({&plage.donnees().adresse, 1});
    });
}
