#include "workbook/FormatsPlage.h"

#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XSheetCellRangeContainer.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XUniqueCellFormatRangesSupplier.hpp>
#include <com/sun/star/util/NumberFormat.hpp>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace
{
NatureFormat natureDe(Classeur::Donnees &classeur, const Any &cleFormat)
{
    sal_Int32 cle = 0;
    cleFormat >>= cle;
    const sal_Int16 type = classeur.typeFormat(cle);
    if (type & css::util::NumberFormat::DATE)
        return NatureFormat::Date;
    return type & css::util::NumberFormat::TIME ? NatureFormat::Heure : NatureFormat::Autre;
}

Any formatDe(const Reference<css::uno::XInterface> &cellules)
{
    return Reference<css::beans::XPropertySet>(cellules, UNO_QUERY_THROW)->getPropertyValue("NumberFormat");
}
} // namespace

GrilleFormats::GrilleFormats(const Plage::Donnees &plage)
    : m_colonnes(plage.adresse.EndColumn - plage.adresse.StartColumn + 1)
{
    Classeur::Donnees &classeur = *plage.feuille->classeur;
    const int lignes = plage.adresse.EndRow - plage.adresse.StartRow + 1;
    const bool seule = lignes == 1 && m_colonnes == 1;
    if (seule || Reference<css::beans::XPropertyState>(plage.plage(), UNO_QUERY_THROW)
                         ->getPropertyState("NumberFormat") != css::beans::PropertyState_AMBIGUOUS_VALUE) {
        m_unique = natureDe(classeur, plage.proprietes()->getPropertyValue("NumberFormat"));
        return;
    }
    m_natures.fill(NatureFormat::Autre, static_cast<qsizetype>(lignes) * m_colonnes);
    const Reference<css::container::XIndexAccess> groupes =
        Reference<css::sheet::XUniqueCellFormatRangesSupplier>(plage.plage(), UNO_QUERY_THROW)
            ->getUniqueCellFormatRanges();
    for (sal_Int32 i = 0; i < groupes->getCount(); ++i) {
        const Reference<css::sheet::XSheetCellRanges> groupe(groupes->getByIndex(i), UNO_QUERY_THROW);
        const NatureFormat nature = natureDe(classeur, formatDe(groupe));
        if (nature == NatureFormat::Autre)
            continue;
        const css::uno::Sequence<css::table::CellRangeAddress> rectangles = groupe->getRangeAddresses();
        for (const css::table::CellRangeAddress &rectangle : rectangles) {
            for (int l = rectangle.StartRow; l <= rectangle.EndRow; ++l) {
                for (int c = rectangle.StartColumn; c <= rectangle.EndColumn; ++c)
                    m_natures[static_cast<qsizetype>(l - plage.adresse.StartRow) * m_colonnes + c -
                              plage.adresse.StartColumn] = nature;
            }
        }
    }
}

void FormatsVoulus::vouloir(int ligne, int colonne, QLatin1String format)
{
    m_cellules[format].append({ligne, colonne});
}

void FormatsVoulus::appliquer() const
{
    if (m_cellules.isEmpty())
        return;
    Classeur::Donnees &classeur = *m_plage.feuille->classeur;
    const GrilleFormats presents(m_plage);
    for (auto it = m_cellules.cbegin(); it != m_cellules.cend(); ++it) {
        // Runs of one column, so that a column of dates is one rectangle.
        QVector<QPair<int, int>> cellules = it.value();
        std::sort(cellules.begin(), cellules.end(), [](const auto &a, const auto &b) {
            return std::pair(a.second, a.first) < std::pair(b.second, b.first);
        });
        std::vector<css::table::CellRangeAddress> rectangles;
        for (const auto &[ligne, colonne] : std::as_const(cellules)) {
            if (presents.nature(ligne, colonne) != NatureFormat::Autre)
                continue;
            css::table::CellRangeAddress lieu = m_plage.adresse;
            lieu.StartRow = lieu.EndRow = lieu.StartRow + ligne;
            lieu.StartColumn = lieu.EndColumn = lieu.StartColumn + colonne;
            if (!rectangles.empty() && rectangles.back().StartColumn == lieu.StartColumn &&
                rectangles.back().EndRow + 1 == lieu.StartRow)
                rectangles.back().EndRow = lieu.EndRow;
            else
                rectangles.push_back(lieu);
        }
        if (rectangles.empty())
            continue;
        const Reference<css::lang::XMultiServiceFactory> fabrique(classeur.ouvert(), UNO_QUERY_THROW);
        const Reference<css::sheet::XSheetCellRangeContainer> ensemble(
            fabrique->createInstance("com.sun.star.sheet.SheetCellRanges"), UNO_QUERY_THROW);
        ensemble->addRangeAddresses(
            css::uno::Sequence(rectangles.data(), static_cast<sal_Int32>(rectangles.size())), false);
        Reference<css::beans::XPropertySet>(ensemble, UNO_QUERY_THROW)
            ->setPropertyValue("NumberFormat", Any(classeur.cleFormat(QString(it.key()))));
    }
}
