#include "capture/ColonnesSerie.h"

#include "capture/M_Variables_OVRA.h"
#include "platform/Saisie.h"
#include "platform/VersNombre.h"

namespace
{
const QString TITRE = QStringLiteral("Erreur de type");

QString montrerDate(const QVariant &valeur)
{
    const QDate date = QDate::fromString(valeur.toString().left(10), Qt::ISODate);
    return date.isValid() ? Saisie::ecrireDate(date) : valeur.toString();
}

std::optional<QVariant> lireDate(const QString &texte)
{
    const auto date = Saisie::lireDate(texte);
    return date ? std::optional<QVariant>(date->toString(Qt::ISODate)) : std::nullopt;
}

std::optional<QVariant> lirePremierDuMois(const QString &texte)
{
    const auto date = Saisie::lireDate(texte);
    return date && date->day() == 1 ? std::optional<QVariant>(date->toString(Qt::ISODate)) : std::nullopt;
}

std::optional<QVariant> lireHeure(const QString &texte)
{
    constexpr int SANS_SECONDES = 5;
    if (!M_Variables_OVRA::HeureValide(texte))
        return std::nullopt;
    return QVariant(texte.size() == SANS_SECONDES ? texte + QStringLiteral(":00") : texte);
}

std::optional<QVariant> lireNombre(const QString &texte)
{
    return EstNumerique(texte) ? std::optional<QVariant>(VersNombre(texte)) : std::nullopt;
}
} // namespace

ColonneTravail ColonnesSerie::date(const QString &champ, const QString &titre)
{
    return {champ,
            titre,
            lireDate,
            montrerDate,
            QStringLiteral("La date n'est pas au format adapté : \"jj/mm/aaaa\"."),
            TITRE,
            false};
}

ColonneTravail ColonnesSerie::premierDuMois(const QString &champ, const QString &titre)
{
    return {champ,
            titre,
            lirePremierDuMois,
            montrerDate,
            QStringLiteral("La date n'est pas au format adapté : \"01/mm/aaaa\"."),
            TITRE,
            false};
}

ColonneTravail ColonnesSerie::heure(const QString &champ, const QString &titre)
{
    return {champ,
            titre,
            lireHeure,
            [](const QVariant &valeur) { return valeur.toString(); },
            QStringLiteral("L'heure n'est pas au format adapté : \"hh:mm:ss\" ou \"hh:mm\"."),
            TITRE,
            false};
}

ColonneTravail ColonnesSerie::nombre(const QString &champ, const QString &titre, const QString &message)
{
    return {champ,      titre,
            lireNombre, [](const QVariant &valeur) { return Saisie::ecrireNombre(valeur.toDouble()); },
            message,    TITRE,
            true};
}
