#include "capture/M_Variables_OVRA.h"

#include <QStringView>

namespace
{
// Two ASCII digits that make a number of at most `maximum`.
bool deuxChiffres(QStringView texte, int maximum)
{
    const auto chiffre = [](QChar c) { return c >= u'0' && c <= u'9'; };
    return chiffre(texte[0]) && chiffre(texte[1]) && texte.toInt() <= maximum;
}
} // namespace

bool M_Variables_OVRA::HeureValide(const QString &texte)
{
    const QStringView vue(texte);
    if (vue.size() != 5 && vue.size() != 8)
        return false;
    if (!deuxChiffres(vue.mid(0, 2), 24) || vue[2] != u':' || !deuxChiffres(vue.mid(3, 2), 60))
        return false;
    return vue.size() == 5 || (vue[5] == u':' && deuxChiffres(vue.mid(6, 2), 60));
}
