#include "platform/NombreFrancais.h"

#include "platform/Arrondi.h"

QString nombreFrancais(double valeur, int decimales)
{
    QString texte = QString::number(arrondir(valeur, decimales), 'f', decimales);
    if (texte.contains(u'.')) {
        while (texte.endsWith(u'0'))
            texte.chop(1);
        if (texte.endsWith(u'.'))
            texte.chop(1);
    }
    if (texte == QLatin1String("-0"))
        texte = QStringLiteral("0");
    return texte.replace(u'.', u',');
}
