#include "workbook/Recopie.h"

#include "workbook/DonneesClasseur.h"

#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/table/CellAddress.hpp>

// What is there already is copied after itself, so that its height doubles each time. The application moves whole blocks, where its own filling goes cell by cell.
void recopierVersLeBas(const Plage &plage, int modele)
{
    const Plage::Donnees &donnees = plage.donnees();
    donnees.appeler([&] {
        const css::uno::Reference<css::sheet::XCellRangeMovement> feuille(donnees.feuille->objet(),
                                                                          css::uno::UNO_QUERY_THROW);
        css::table::CellRangeAddress faites = donnees.adresse;
        faites.EndRow = faites.StartRow + modele - 1;
        while (faites.EndRow < donnees.adresse.EndRow) {
            css::table::CellRangeAddress source = faites;
            const sal_Int32 reste = donnees.adresse.EndRow - faites.EndRow;
            source.EndRow = std::min(faites.EndRow, faites.StartRow + reste - 1);
            const css::table::CellAddress suite(source.Sheet, source.StartColumn, faites.EndRow + 1);
            feuille->copyRange(suite, source);
            faites.EndRow += source.EndRow - source.StartRow + 1;
        }
    });
}
