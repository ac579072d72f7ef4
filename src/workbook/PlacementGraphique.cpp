// Charts of a sheet: made, found again under their name, removed.
#include "workbook/DonneesGraphique.h"
#include "workbook/Graphique.h"

#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XEmbeddedObjectSupplier.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/table/XTableChartsSupplier.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
// A defined name holds no blank.
rtl::OUString nomDefini(const QString &nom)
{
    QString sans = nom;
    return versUno(sans.replace(QLatin1Char(' '), QLatin1Char('_')));
}

Reference<css::sheet::XNamedRanges> nomsDe(const Feuille::Donnees &feuille)
{
    return {Reference<css::beans::XPropertySet>(feuille.objet(), UNO_QUERY_THROW)
                ->getPropertyValue("NamedRanges"),
            UNO_QUERY_THROW};
}

Reference<css::table::XTableCharts> graphiquesDe(const Feuille::Donnees &feuille)
{
    return Reference<css::table::XTableChartsSupplier>(feuille.objet(), UNO_QUERY_THROW)->getCharts();
}

// The cell under the chart's corner.
Reference<css::beans::XPropertySet> celluleNommee(const Feuille::Donnees &feuille, const QString &nom)
{
    const Reference<css::sheet::XCellRangeReferrer> nommee(nomsDe(feuille)->getByName(nomDefini(nom)),
                                                           UNO_QUERY_THROW);
    return {nommee->getReferredCells(), UNO_QUERY_THROW};
}

CadreDessin cadreDe(const Reference<css::beans::XPropertySet> &cellule)
{
    css::awt::Point coin;
    css::awt::Size taille;
    cellule->getPropertyValue("Position") >>= coin;
    cellule->getPropertyValue("Size") >>= taille;
    return CadreDessin{coin.X, coin.Y, taille.Width, taille.Height};
}

// The name of the chart's own object in this file; it changes from file to file.
rtl::OUString nomObjet(const Reference<css::drawing::XShape> &forme)
{
    rtl::OUString nom;
    Reference<css::beans::XPropertySet>(forme, UNO_QUERY_THROW)->getPropertyValue("PersistName") >>= nom;
    return nom;
}

Reference<css::uno::XInterface> modele(const Reference<css::drawing::XShape> &forme)
{
    Reference<css::uno::XInterface> modele;
    Reference<css::beans::XPropertySet>(forme, UNO_QUERY_THROW)->getPropertyValue("Model") >>= modele;
    return modele;
}

bool estObjet(const Reference<css::drawing::XShape> &forme)
{
    return Reference<css::lang::XServiceInfo>(forme, UNO_QUERY_THROW)
        ->supportsService("com.sun.star.drawing.OLE2Shape");
}

// By the number of the object's class.
bool estGraphique(const Reference<css::drawing::XShape> &forme)
{
    if (!estObjet(forme))
        return false;
    rtl::OUString classe;
    Reference<css::beans::XPropertySet>(forme, UNO_QUERY_THROW)->getPropertyValue("CLSID") >>= classe;
    return classe.equalsIgnoreAsciiCase("12dcae26-281f-416f-a234-c3086127382e");
}

// The chart whose corner stands in this cell; or else the nearest one, as the application leaves a chart in its place when
// rows are inserted above it. Without a shape: there is none.
PlaceGraphique placeSur(const Feuille::Donnees &feuille, const Reference<css::beans::XPropertySet> &cellule)
{
    constexpr int LOIN = 5'000; // hundredths of a millimetre: not this chart any more
    const CadreDessin cadre = cadreDe(cellule);
    const auto &page = feuille.dessins();
    const sal_Int32 nombre = page->getCount();
    PlaceGraphique trouvee{{}, cellule, 0};
    int rang = 0;
    int meilleur = LOIN;
    for (sal_Int32 i = 0; i < nombre; ++i) {
        const Reference<css::drawing::XShape> forme(page->getByIndex(i), UNO_QUERY_THROW);
        if (!estGraphique(forme))
            continue;
        const css::awt::Point coin = forme->getPosition();
        const auto ecart = [](int place, int debut, int largeur) {
            return place < debut ? debut - place : qMax(0, place - debut - largeur);
        };
        const int distance = ecart(coin.X, cadre.x, cadre.largeur) + ecart(coin.Y, cadre.y, cadre.hauteur);
        if (distance < meilleur) {
            meilleur = distance;
            trouvee.forme = forme;
            trouvee.rang = rang;
        }
        ++rang;
    }
    return trouvee;
}

// The chart of a sheet that has but one; empty for none or several.
Reference<css::uno::XInterface> seulGraphique(const Feuille::Donnees &feuille)
{
    const auto tous = graphiquesDe(feuille);
    const auto noms = tous->getElementNames();
    if (noms.getLength() != 1)
        return {};
    return Reference<css::document::XEmbeddedObjectSupplier>(tous->getByName(noms[0]), UNO_QUERY_THROW)
        ->getEmbeddedObject();
}

// Number, from 0, of the row or column in which this position falls.
template <class Bandes> sal_Int32 bandeA(const Bandes &bandes, int position, bool colonnes)
{
    sal_Int32 premiere = 0;
    sal_Int32 derniere = bandes->getCount() - 1;
    while (premiere < derniere) {
        const sal_Int32 milieu = (premiere + derniere + 1) / 2;
        css::awt::Point coin;
        Reference<css::beans::XPropertySet>(
            Reference<css::table::XCellRange>(bandes->getByIndex(milieu), UNO_QUERY_THROW)
                ->getCellByPosition(0, 0),
            UNO_QUERY_THROW)
            ->getPropertyValue("Position") >>= coin;
        if ((colonnes ? coin.X : coin.Y) <= position)
            premiere = milieu;
        else
            derniere = milieu - 1;
    }
    return premiere;
}
} // namespace

const Reference<css::beans::XPropertySet> &Graphique::Donnees::coin() const
{
    if (!m_place.coin.is())
        m_place.coin = celluleNommee(*feuille, nom);
    return m_place.coin;
}

const Reference<css::drawing::XShape> &Graphique::Donnees::forme() const
{
    if (!m_place.forme.is())
        m_place.forme = placeSur(*feuille, coin()).forme;
    return m_place.forme;
}

Graphique Feuille::graphique(const QString &nom) const
{
    return m_donnees->appeler([&] {
        const auto absent = [&nom] {
            return Erreur(GraphiqueAbsent,
                          QStringLiteral("La feuille n'a pas de graphique « %1 ».").arg(nom));
        };
        if (!nomsDe(*m_donnees)->hasByName(nomDefini(nom)))
            throw absent();
        if (const auto seul = seulGraphique(*m_donnees); seul.is())
            return Graphique(std::make_shared<Graphique::Donnees>(m_donnees, nom, seul, PlaceGraphique()));
        const PlaceGraphique place = placeSur(*m_donnees, celluleNommee(*m_donnees, nom));
        if (!place.forme.is())
            throw absent();
        return Graphique(std::make_shared<Graphique::Donnees>(m_donnees, nom, modele(place.forme), place));
    });
}

Graphique Feuille::ajouterGraphique(const QString &nom, const CadreDessin &cadre)
{
    return m_donnees->appeler([&] {
        const auto noms = nomsDe(*m_donnees);
        if (noms->hasByName(nomDefini(nom)))
            throw Erreur(NomPris, QStringLiteral("La feuille a déjà un graphique « %1 ».").arg(nom));
        const Reference<css::table::XColumnRowRange> bandes(m_donnees->objet(), UNO_QUERY_THROW);
        const sal_Int32 colonne = bandeA(bandes->getColumns(), cadre.x, true);
        const sal_Int32 ligne = bandeA(bandes->getRows(), cadre.y, false);

        // Born of one cell, so that it reads from the sheet, then emptied.
        css::table::CellRangeAddress naissance;
        naissance.Sheet = m_donnees->rang();
        const auto tous = graphiquesDe(*m_donnees);
        // The object's own name is one for the whole workbook, where each sheet may have its "Graphique".
        const rtl::OUString objet = nomDefini(nom) + "_" + rtl::OUString::number(m_donnees->rang() + 1);
        tous->addNewByName(objet, {cadre.x, cadre.y, cadre.largeur, cadre.hauteur}, seule(naissance), false,
                           false);
        const auto &page = m_donnees->dessins();
        Reference<css::drawing::XShape> forme;
        int rang = -1;
        for (sal_Int32 i = 0; i < page->getCount() && !forme.is(); ++i) {
            const Reference<css::drawing::XShape> dessin(page->getByIndex(i), UNO_QUERY_THROW);
            if (!estObjet(dessin))
                continue;
            ++rang;
            if (nomObjet(dessin) == objet)
                forme = dessin;
        }
        const Reference<css::beans::XPropertySet> coin(m_donnees->objet()->getCellByPosition(colonne, ligne),
                                                       UNO_QUERY_THROW);
        auto donnees = std::make_shared<Graphique::Donnees>(m_donnees, nom, modele(forme),
                                                            PlaceGraphique{forme, coin, rang});
        donnees->oter(donnees->series);
        donnees->series.clear();

        rtl::OUString adresse;
        coin->getPropertyValue("AbsoluteName") >>= adresse;
        noms->addNewByName(nomDefini(nom), adresse,
                           css::table::CellAddress(m_donnees->rang(), colonne, ligne), 0);
        return Graphique(donnees);
    });
}
