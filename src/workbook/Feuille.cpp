#include "workbook/Feuille.h"

#include "workbook/DonneesClasseur.h"

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/lang/IndexOutOfBoundsException.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheets.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <QRegularExpression>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
enum Numero { HorsFeuille = 40 };

// Row and column, from 1, of a cell's address ("B12"); nothing for another text.
std::optional<std::pair<int, int>> celluleNommee(const QString &adresse)
{
    static const QRegularExpression forme(QStringLiteral("^\\$?([A-Z]{1,3})\\$?([0-9]{1,7})$"),
                                          QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch lue = forme.match(adresse);
    if (!lue.hasMatch())
        return std::nullopt;
    int colonne = 0;
    for (const QChar lettre : lue.captured(1).toUpper())
        colonne = colonne * 26 + lettre.unicode() - 'A' + 1;
    return std::pair(lue.captured(2).toInt(), colonne);
}

[[noreturn]] void refuserPlage(const css::table::CellRangeAddress &lieu)
{
    throw Erreur(HorsFeuille, QStringLiteral("Les cellules L%1C%2 à L%3C%4 sont hors de la feuille.")
                                  .arg(lieu.StartRow + 1)
                                  .arg(lieu.StartColumn + 1)
                                  .arg(lieu.EndRow + 1)
                                  .arg(lieu.EndColumn + 1));
}

Reference<css::table::XTableRows> lignesDe(const Feuille::Donnees &donnees)
{
    return Reference<css::table::XColumnRowRange>(donnees.objet(), UNO_QUERY_THROW)->getRows();
}

// The last row and column (from 1) that hold anything.
std::pair<int, int> etendue(const Feuille::Donnees &donnees)
{
    constexpr sal_Int16 CONTENU = css::sheet::CellFlags::VALUE | css::sheet::CellFlags::DATETIME |
                                  css::sheet::CellFlags::STRING | css::sheet::CellFlags::FORMULA;
    return donnees.appeler([&] {
        const auto pleines = Reference<css::sheet::XCellRangesQuery>(donnees.objet(), UNO_QUERY_THROW)
                                 ->queryContentCells(CONTENU);
        int ligne = 0;
        int colonne = 0;
        const css::uno::Sequence<css::table::CellRangeAddress> rectangles = pleines->getRangeAddresses();
        for (const css::table::CellRangeAddress &rectangle : rectangles) {
            ligne = qMax(ligne, rectangle.EndRow + 1);
            colonne = qMax(colonne, rectangle.EndColumn + 1);
        }
        return std::pair(ligne, colonne);
    });
}
} // namespace

const Reference<css::sheet::XSpreadsheet> &Feuille::Donnees::objet() const
{
    if (m_deplacements != classeur->deplacements) {
        m_objet.set(classeur->ouvert()->getSheets()->getByName(versUno(nom())), UNO_QUERY_THROW);
        m_deplacements = classeur->deplacements;
    }
    return m_objet;
}

QString Feuille::Donnees::nom() const
{
    if (m_nom.isEmpty() || m_renommages != classeur->renommages)
        m_nom = versQt(Reference<css::container::XNamed>(m_objet, UNO_QUERY_THROW)->getName());
    m_renommages = classeur->renommages;
    return m_nom;
}

void Feuille::Donnees::renommer(const QString &nom)
{
    Reference<css::container::XNamed>(objet(), UNO_QUERY_THROW)->setName(versUno(nom));
    ++classeur->renommages;
}

sal_Int16 Feuille::Donnees::rang() const
{
    if (!m_rang)
        m_rang =
            Reference<css::sheet::XCellRangeAddressable>(objet(), UNO_QUERY_THROW)->getRangeAddress().Sheet;
    return *m_rang;
}

const Reference<css::drawing::XDrawPage> &Feuille::Donnees::dessins() const
{
    if (!m_dessins.is())
        m_dessins.set(Reference<css::drawing::XDrawPagesSupplier>(classeur->ouvert(), UNO_QUERY_THROW)
                          ->getDrawPages()
                          ->getByIndex(rang()),
                      UNO_QUERY_THROW);
    return m_dessins;
}

const Reference<css::table::XCellRange> &Plage::Donnees::plage() const
{
    if (m_plage.is())
        return m_plage;
    try {
        m_plage = feuille->objet()->getCellRangeByPosition(adresse.StartColumn, adresse.StartRow,
                                                           adresse.EndColumn, adresse.EndRow);
    } catch (const css::lang::IndexOutOfBoundsException &) {
        refuserPlage(adresse);
    }
    return m_plage;
}

Feuille::Feuille(std::shared_ptr<Donnees> donnees) : m_donnees(std::move(donnees)) {}

QString Feuille::nom() const
{
    return m_donnees->appeler([this] { return m_donnees->nom(); });
}

void Feuille::renommer(const QString &nom)
{
    m_donnees->appeler([&] { m_donnees->renommer(nom); });
}

Plage Feuille::cellule(int ligne, int colonne) const
{
    return plage(ligne, colonne, ligne, colonne);
}

Plage Feuille::plage(int ligne1, int colonne1, int ligne2, int colonne2) const
{
    return m_donnees->appeler([&] {
        css::table::CellRangeAddress lieu;
        lieu.Sheet = m_donnees->rang();
        lieu.StartRow = qMin(ligne1, ligne2) - 1;
        lieu.EndRow = qMax(ligne1, ligne2) - 1;
        lieu.StartColumn = qMin(colonne1, colonne2) - 1;
        lieu.EndColumn = qMax(colonne1, colonne2) - 1;
        if (lieu.StartRow < 0 || lieu.StartColumn < 0)
            refuserPlage(lieu);
        return Plage(std::make_shared<Plage::Donnees>(m_donnees, lieu));
    });
}

Plage Feuille::plage(const QString &adresse) const
{
    const auto debut = celluleNommee(adresse.section(QLatin1Char(':'), 0, 0));
    const auto fin = celluleNommee(adresse.section(QLatin1Char(':'), -1));
    if (!debut || !fin || adresse.count(QLatin1Char(':')) > 1)
        throw Erreur(HorsFeuille, QStringLiteral("« %1 » n'est pas une adresse de cellules.").arg(adresse));
    return plage(debut->first, debut->second, fin->first, fin->second);
}

void Feuille::insererLignes(int ligne, int nombre)
{
    m_donnees->appeler([&] { lignesDe(*m_donnees)->insertByIndex(ligne - 1, nombre); });
    ++m_donnees->classeur->deplacements;
}

void Feuille::supprimerLignes(int ligne, int nombre)
{
    m_donnees->appeler([&] { lignesDe(*m_donnees)->removeByIndex(ligne - 1, nombre); });
    ++m_donnees->classeur->deplacements;
}

void Feuille::copier(const Plage &source, int ligne, int colonne)
{
    m_donnees->appeler([&] {
        Reference<css::sheet::XCellRangeMovement>(m_donnees->objet(), UNO_QUERY_THROW)
            ->copyRange(css::table::CellAddress(m_donnees->rang(), colonne - 1, ligne - 1),
                        source.donnees().adresse);
    });
}

int Feuille::derniereLigne() const
{
    return etendue(*m_donnees).first;
}

int Feuille::derniereColonne() const
{
    return etendue(*m_donnees).second;
}

void Feuille::hauteurLigne(int ligne, int centiemesMm)
{
    m_donnees->appeler([&] {
        Reference<css::beans::XPropertySet>(lignesDe(*m_donnees)->getByIndex(ligne - 1), UNO_QUERY_THROW)
            ->setPropertyValue("Height", Any(static_cast<sal_Int32>(centiemesMm)));
    });
}

void Feuille::hauteurLignes(int ligne, int nombre, int centiemesMm)
{
    m_donnees->appeler([&] {
        const Reference<css::table::XColumnRowRange> bande(
            m_donnees->objet()->getCellRangeByPosition(0, ligne - 1, 0, ligne + nombre - 2), UNO_QUERY_THROW);
        Reference<css::beans::XPropertySet>(bande->getRows(), UNO_QUERY_THROW)
            ->setPropertyValue("Height", Any(static_cast<sal_Int32>(centiemesMm)));
    });
}

void Feuille::sautDePage(int ligne)
{
    m_donnees->appeler([&] {
        Reference<css::beans::XPropertySet>(lignesDe(*m_donnees)->getByIndex(ligne - 1), UNO_QUERY_THROW)
            ->setPropertyValue("IsStartOfNewPage", Any(true));
    });
}

void Feuille::largeurColonne(int colonne, int centiemesMm)
{
    m_donnees->appeler([&] {
        const auto colonnes =
            Reference<css::table::XColumnRowRange>(m_donnees->objet(), UNO_QUERY_THROW)->getColumns();
        Reference<css::beans::XPropertySet>(colonnes->getByIndex(colonne - 1), UNO_QUERY_THROW)
            ->setPropertyValue("Width", Any(static_cast<sal_Int32>(centiemesMm)));
    });
}

void Feuille::cacherColonnes(int colonne, int nombre, bool oui)
{
    m_donnees->appeler([&] {
        const Reference<css::table::XColumnRowRange> bandes(
            m_donnees->objet()->getCellRangeByPosition(colonne - 1, 0, colonne + nombre - 2, 0),
            UNO_QUERY_THROW);
        Reference<css::beans::XPropertySet>(bandes->getColumns(), UNO_QUERY_THROW)
            ->setPropertyValue("IsVisible", Any(!oui));
    });
}

void Feuille::hauteurOptimale(int ligne)
{
    m_donnees->appeler([&] {
        Reference<css::beans::XPropertySet>(lignesDe(*m_donnees)->getByIndex(ligne - 1), UNO_QUERY_THROW)
            ->setPropertyValue("OptimalHeight", Any(true));
    });
}

void Feuille::montrerDepuis(int colonne)
{
    // No window of a hidden instance is saved: the finished file is told.
    m_donnees->appeler([&] {
        RetouchesClasseur &retouches = m_donnees->classeur->retouches;
        retouches.feuilleActive = m_donnees->rang();
        retouches.premieresColonnes.insert(m_donnees->rang(), colonne - 1);
    });
}

void Feuille::cacher(bool oui)
{
    m_donnees->appeler([&] {
        Reference<css::beans::XPropertySet>(m_donnees->objet(), UNO_QUERY_THROW)
            ->setPropertyValue("IsVisible", Any(!oui));
    });
}
