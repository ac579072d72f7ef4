#include "platform/VersNombre.h"

#include "platform/Arrondi.h"
#include "platform/Erreur.h"

#include <cmath>
#include <optional>

namespace
{
constexpr int TYPE_INCOMPATIBLE = 13;
constexpr int DECIMALES = 4;

std::optional<double> lire(const QString &texte)
{
    QString chiffres;
    chiffres.reserve(texte.size());
    for (const QChar c : texte.trimmed()) {
        if (c == u',')
            chiffres += u'.';
        else if (!c.isSpace()) // no-break spaces part the thousands in French
            chiffres += c;
    }
    // toDouble would also take "inf" and "nan".
    for (const QChar c : std::as_const(chiffres))
        if (c.isLetter() && c != u'e' && c != u'E')
            return std::nullopt;
    bool bon = false;
    const double nombre = chiffres.toDouble(&bon);
    return bon && std::isfinite(nombre) ? std::optional(nombre) : std::nullopt;
}
} // namespace

double VersNombre(const QVariant &valeur)
{
    if (valeur.isNull())
        return 0;
    if (valeur.typeId() != QMetaType::QString)
        return arrondir(valeur.toDouble(), DECIMALES);
    const QString texte = valeur.toString();
    if (texte.isEmpty())
        return 0;
    const std::optional<double> nombre = lire(texte);
    if (!nombre)
        throw Erreur(TYPE_INCOMPATIBLE, QStringLiteral("« %1 » n'est pas un nombre.").arg(texte));
    return arrondir(*nombre, DECIMALES);
}

bool EstNumerique(const QString &texte)
{
    return lire(texte).has_value();
}
