#include "platform/Saisie.h"

#include <QRegularExpression>

namespace
{
// The year that two typed digits stand for.
int anneeEntiere(const QString &chiffres)
{
    const int annee = chiffres.toInt();
    if (chiffres.size() > 2)
        return annee;
    return annee < 30 ? 2000 + annee : 1900 + annee;
}
} // namespace

std::optional<QDate> Saisie::lireDate(const QString &texte)
{
    static const QRegularExpression forme(
        QStringLiteral("^([0-9]{1,2})/([0-9]{1,2})/([1-9][0-9]{3}|[0-9]{2})$"));
    const auto trouve = forme.match(texte.trimmed());
    if (!trouve.hasMatch())
        return std::nullopt;
    const QDate date(anneeEntiere(trouve.captured(3)), trouve.captured(2).toInt(),
                     trouve.captured(1).toInt());
    return date.isValid() ? std::optional(date) : std::nullopt;
}

QString Saisie::ecrireDate(QDate date)
{
    return date.toString(QStringLiteral("dd/MM/yyyy"));
}

std::optional<QDate> Saisie::lireMois(const QString &texte)
{
    static const QRegularExpression forme(QStringLiteral("^(0[1-9]|1[0-2])/([1-9][0-9]{3}|[0-9]{2})$"));
    const auto trouve = forme.match(texte.trimmed());
    if (!trouve.hasMatch())
        return std::nullopt;
    const QDate mois(anneeEntiere(trouve.captured(2)), trouve.captured(1).toInt(), 1);
    return mois.isValid() ? std::optional(mois) : std::nullopt;
}

QString Saisie::ecrireMois(QDate date)
{
    return date.toString(QStringLiteral("MM/yyyy"));
}

std::optional<double> Saisie::lireNombre(const QString &texte)
{
    static const QRegularExpression forme(QStringLiteral("^[+-]?([0-9]+([.,][0-9]*)?|[.,][0-9]+)$"));
    QString nombre = texte.trimmed();
    if (!forme.match(nombre).hasMatch())
        return std::nullopt;
    bool lu = false;
    const double valeur = nombre.replace(u',', u'.').toDouble(&lu);
    return lu ? std::optional(valeur) : std::nullopt;
}

bool Saisie::debutDeNombre(const QString &texte)
{
    static const QRegularExpression forme(QStringLiteral("^[+-]?[0-9]*([.,][0-9]*)?$"));
    return forme.match(texte.trimmed()).hasMatch();
}

QString Saisie::ecrireNombre(double nombre)
{
    QString texte = QString::number(nombre, 'f', 4);
    while (texte.endsWith(u'0'))
        texte.chop(1);
    if (texte.endsWith(u'.'))
        texte.chop(1);
    if (texte == QLatin1String("-0"))
        return QStringLiteral("0");
    return texte.replace(u'.', u',');
}
