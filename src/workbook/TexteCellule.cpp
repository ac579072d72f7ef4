#include "workbook/TexteCellule.h"

#include "workbook/Plage.h"

#include <cmath>

QString texteCellule(const QVariant &valeur)
{
    switch (valeur.typeId()) {
    case QMetaType::Double: {
        const double nombre = valeur.toDouble();
        if (std::fabs(nombre) < 1e15 && nombre == std::nearbyint(nombre))
            return QString::number(nombre, 'f', 0);
        return QString::number(nombre, 'g', QLocale::FloatingPointShortest);
    }
    case QMetaType::QDate:
        return valeur.toDate().toString(u"dd/MM/yyyy");
    case QMetaType::QDateTime:
        return valeur.toDateTime().toString(u"dd/MM/yyyy");
    case QMetaType::QTime:
        return valeur.toTime().toString(u"HH:mm:ss");
    default:
        break;
    }
    if (valeur.canConvert<ErreurCellule>())
        return valeur.value<ErreurCellule>().signe;
    return valeur.toString();
}
