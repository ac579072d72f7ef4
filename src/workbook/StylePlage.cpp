// The looks of a range: number format, font, alignment, fill, borders.
#include "workbook/DonneesClasseur.h"
#include "workbook/PaletteParDefaut.h"
#include "workbook/Plage.h"

#include <com/sun/star/awt/FontSlant.hpp>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/table/BorderLine2.hpp>
#include <com/sun/star/table/BorderLineStyle.hpp>
#include <com/sun/star/table/CellHoriJustify.hpp>
#include <com/sun/star/table/CellVertJustify2.hpp>
#include <com/sun/star/table/TableBorder2.hpp>
#include <com/sun/star/util/XMergeable.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
constexpr sal_Int32 COULEUR_NULLE = -1; // the application's "automatic" and "none"

css::table::BorderLine2 traitDe(TraitBord trait, EpaisseurBord epaisseur, int indexCouleur)
{
    // In hundredths of a millimetre: a thin line of 0.75 point, a medium one of 1.75.
    constexpr sal_Int32 FIN = 26;
    constexpr sal_Int32 MOYEN = 62;
    css::table::BorderLine2 ligne;
    if (trait == TraitBord::Aucun)
        return ligne;
    ligne.LineStyle = css::table::BorderLineStyle::SOLID;
    ligne.LineWidth = static_cast<sal_uInt32>(epaisseur == EpaisseurBord::Moyen ? MOYEN : FIN);
    ligne.OuterLineWidth = static_cast<sal_Int16>(ligne.LineWidth);
    ligne.Color = indexCouleur == COULEUR_AUTOMATIQUE ? 0 : couleurParDefaut(indexCouleur);
    return ligne;
}
} // namespace

void Plage::formatNombre(const QString &format)
{
    const sal_Int32 cle = m_donnees->appeler([&] { return m_donnees->feuille->classeur->cleFormat(format); });
    // Asking is cheaper than setting, after which the application lays the cells out again. Where cells differ, what is
    // read is the standard format: whether they have it is known by its not being set anywhere. To cells that have none
    // it is not given: the file would hold every empty one of the range.
    const bool present = format == QLatin1String("General") ? m_donnees->appeler([this] {
        return Reference<css::beans::XPropertyState>(m_donnees->plage(), UNO_QUERY_THROW)
                   ->getPropertyState("NumberFormat") == css::beans::PropertyState_DEFAULT_VALUE;
    })
                                                            : m_donnees->lire("NumberFormat") == Any(cle);
    if (!present)
        m_donnees->definir("NumberFormat", Any(cle));
}

void Plage::gras(bool oui)
{
    m_donnees->definir("CharWeight", Any(oui ? css::awt::FontWeight::BOLD : css::awt::FontWeight::NORMAL));
}

void Plage::italique(bool oui)
{
    m_donnees->definir("CharPosture", Any(oui ? css::awt::FontSlant_ITALIC : css::awt::FontSlant_NONE));
}

void Plage::taillePolice(double points)
{
    m_donnees->definir("CharHeight", Any(static_cast<float>(points)));
}

void Plage::nomPolice(const QString &nom)
{
    m_donnees->definir("CharFontName", Any(versUno(nom)));
}

void Plage::couleurPolice(int rvb)
{
    m_donnees->definir("CharColor", Any(static_cast<sal_Int32>(rvb)));
}

void Plage::alignementHorizontal(Alignement alignement)
{
    css::table::CellHoriJustify valeur = css::table::CellHoriJustify_STANDARD;
    if (alignement == Alignement::Gauche)
        valeur = css::table::CellHoriJustify_LEFT;
    else if (alignement == Alignement::Centre)
        valeur = css::table::CellHoriJustify_CENTER;
    else if (alignement == Alignement::Droite)
        valeur = css::table::CellHoriJustify_RIGHT;
    m_donnees->definir("HoriJustify", Any(valeur));
}

void Plage::alignementVertical(Alignement alignement)
{
    sal_Int32 valeur = css::table::CellVertJustify2::STANDARD;
    if (alignement == Alignement::Haut)
        valeur = css::table::CellVertJustify2::TOP;
    else if (alignement == Alignement::Milieu || alignement == Alignement::Centre)
        valeur = css::table::CellVertJustify2::CENTER;
    else if (alignement == Alignement::Bas)
        valeur = css::table::CellVertJustify2::BOTTOM;
    m_donnees->definir("VertJustify", Any(valeur));
}

void Plage::orientation(int degres)
{
    m_donnees->definir("RotateAngle", Any(static_cast<sal_Int32>(degres * 100)));
}

void Plage::renvoiALaLigne(bool oui)
{
    m_donnees->definir("IsTextWrapped", Any(oui));
}

void Plage::fusionner()
{
    m_donnees->appeler(
        [this] { Reference<css::util::XMergeable>(m_donnees->plage(), UNO_QUERY_THROW)->merge(true); });
}

void Plage::fond(int indexCouleur)
{
    fondRvb(couleurParDefaut(indexCouleur));
}

void Plage::fondRvb(int rvb)
{
    m_donnees->definir("CellBackColor", Any(static_cast<sal_Int32>(rvb)));
}

void Plage::sansFond()
{
    m_donnees->definir("CellBackColor", Any(COULEUR_NULLE));
}

int Plage::couleurFond() const
{
    sal_Int32 couleur = COULEUR_NULLE;
    m_donnees->lire("CellBackColor") >>= couleur;
    return couleur;
}

void Plage::bord(Bord bord, TraitBord trait, EpaisseurBord epaisseur, int indexCouleur)
{
    const css::table::BorderLine2 ligne = traitDe(trait, epaisseur, indexCouleur);
    css::table::TableBorder2 bords; // only the lines that are marked valid are touched
    switch (bord) {
    case Bord::DiagonaleBas:
        m_donnees->definir("DiagonalTLBR2", Any(ligne));
        return;
    case Bord::DiagonaleHaut:
        m_donnees->definir("DiagonalBLTR2", Any(ligne));
        return;
    case Bord::Gauche:
        bords.LeftLine = ligne;
        bords.IsLeftLineValid = true;
        break;
    case Bord::Haut:
        bords.TopLine = ligne;
        bords.IsTopLineValid = true;
        break;
    case Bord::Bas:
        bords.BottomLine = ligne;
        bords.IsBottomLineValid = true;
        break;
    case Bord::Droite:
        bords.RightLine = ligne;
        bords.IsRightLineValid = true;
        break;
    case Bord::InterieurVertical:
        bords.VerticalLine = ligne;
        bords.IsVerticalLineValid = true;
        break;
    case Bord::InterieurHorizontal:
        bords.HorizontalLine = ligne;
        bords.IsHorizontalLineValid = true;
        break;
    }
    m_donnees->definir("TableBorder2", Any(bords));
}
