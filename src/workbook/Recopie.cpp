#include "workbook/Recopie.h"

#include "workbook/DonneesClasseur.h"

#include <com/sun/star/sheet/FillDateMode.hpp>
#include <com/sun/star/sheet/FillDirection.hpp>
#include <com/sun/star/sheet/FillMode.hpp>
#include <com/sun/star/sheet/XCellSeries.hpp>

void recopierVersLeBas(const Plage &plage)
{
    if (plage.lignes() < 2)
        return;
    const Plage::Donnees &donnees = plage.donnees();
    donnees.appeler([&donnees] {
        css::uno::Reference<css::sheet::XCellSeries>(donnees.plage, css::uno::UNO_QUERY_THROW)
            ->fillSeries(css::sheet::FillDirection_TO_BOTTOM, css::sheet::FillMode_SIMPLE,
                         css::sheet::FillDateMode_FILL_DATE_DAY, 0, 0);
    });
}
