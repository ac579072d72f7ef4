#include "capture/ReglesFiche.h"

#include "capture/M_Enreg_Tables.h"
#include "database/Schema.h"
#include "platform/Erreur.h"
#include "platform/Saisie.h"
#include "platform/VersNombre.h"

#include <cmath>

namespace
{
// Beyond it a double no longer holds every whole number, and a sheet would not show what was typed.
constexpr double PLUS_GRAND = 1e12;

const Schema::Colonne &colonneDe(const QString &table, const QString &colonne)
{
    const Schema::Table *t = Schema::table(table);
    const qsizetype position = t ? t->position(colonne) : -1;
    if (position < 0)
        throw Erreur(0, QStringLiteral("Colonne inconnue : %1.%2").arg(table, colonne));
    return t->colonnes[position];
}

bool estTexte(const Schema::Colonne &colonne)
{
    return colonne.genre == Schema::Genre::Texte || colonne.genre == Schema::Genre::Memo;
}

bool estDate(const Schema::Colonne &colonne)
{
    return colonne.genre == Schema::Genre::Date || colonne.genre == Schema::Genre::DateHeure;
}

bool estEntier(const Schema::Colonne &colonne)
{
    return colonne.genre != Schema::Genre::Reel && colonne.genre != Schema::Genre::Simple;
}

// Line breaks of any system as the one that is stored.
QString lignesUnies(QString texte)
{
    return texte.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
}

// A character that cannot be stored, seen or typed again: a control character, or half of one.
bool irrecevable(const QString &texte, qsizetype i, bool lignes)
{
    const QChar c = texte[i];
    if (c.isHighSurrogate())
        return i + 1 >= texte.size() || !texte[i + 1].isLowSurrogate();
    if (c.isLowSurrogate())
        return i == 0 || !texte[i - 1].isHighSurrogate();
    if (lignes && (c == u'\n' || c == u'\t'))
        return false;
    return c.category() == QChar::Other_Control;
}

std::optional<RefusFiche> refusNombre(const Schema::Colonne &colonne, const ChampFiche &champ,
                                      const QString &texte)
{
    const std::optional<double> nombre = Saisie::lireNombre(texte);
    if (!nombre)
        return RefusFiche{QStringLiteral("La valeur demandée est de type numérique."),
                          QStringLiteral("Erreur de type"), champ.controle};
    if (std::abs(*nombre) > PLUS_GRAND)
        return RefusFiche{champ.designation + QStringLiteral(" est une valeur trop grande."),
                          QStringLiteral("Attention"), champ.controle};
    if (estEntier(colonne) && *nombre != std::floor(*nombre))
        return RefusFiche{champ.designation + QStringLiteral(" doit être un nombre entier."),
                          QStringLiteral("Erreur de type"), champ.controle};
    return std::nullopt;
}
} // namespace

QString ReglesFiche::refusTexte(const QString &designation, const QString &texte, int longueur, bool lignes)
{
    if (longueur > 0 && texte.size() > longueur)
        return QStringLiteral("%1 ne doit contenir que %2 caractères au maximum.")
            .arg(designation)
            .arg(longueur);
    for (qsizetype i = 0; i < texte.size(); ++i) {
        if (irrecevable(texte, i, lignes))
            return QStringLiteral(
                       "%1 contient un caractère invisible (le %2e) qui ne peut pas être enregistré. "
                       "Effacez-le ou retapez le texte.")
                .arg(designation)
                .arg(i + 1);
    }
    return {};
}

std::optional<RefusFiche> ReglesFiche::refusChamp(const QString &table, const ChampFiche &champ,
                                                  const QString &texte)
{
    const Schema::Colonne &colonne = colonneDe(table, champ.colonne);
    const bool memo = colonne.genre == Schema::Genre::Memo;
    const QString utile = lignesUnies(texte).trimmed();
    if (utile.isEmpty())
        return std::nullopt;
    if (estTexte(colonne)) {
        // A comment of one line is typed in a field of one line, or in one of several where the column allows.
        const QString message =
            refusTexte(champ.designation, utile, colonne.longueur, memo || colonne.longueur == 255);
        if (message.isEmpty())
            return std::nullopt;
        return RefusFiche{message, QStringLiteral("Attention"), champ.controle};
    }
    if (!estDate(colonne))
        return refusNombre(colonne, champ, utile);
    if (Saisie::lireDate(utile))
        return std::nullopt;
    return RefusFiche{QStringLiteral("La date n'est pas au format adapté : \"jj/mm/aaaa\"."),
                      QStringLiteral("Erreur de type"), champ.controle};
}

std::optional<RefusFiche> ReglesFiche::refusFiche(const DescriptionFiche &description,
                                                  const ValeursFiche &valeurs)
{
    for (const ChampFiche &champ : description.champs) {
        const QString texte = valeurs.value(champ.colonne);
        if (texte.trimmed().isEmpty() && !champ.siVide.isEmpty())
            return RefusFiche{champ.siVide, QStringLiteral("Attention"), champ.controle};
        if (const auto refus = refusChamp(description.table, champ, texte))
            return refus;
    }
    return std::nullopt;
}

std::optional<RefusFiche> ReglesFiche::refusDoublon(const DataEnvironment1 &donnees,
                                                    const DescriptionFiche &description,
                                                    const ValeursFiche &valeurs, const QString &interne)
{
    if (interne.isEmpty() || description.cleInterne.isEmpty())
        return std::nullopt;
    const QString cle = valeurs.value(description.critere).trimmed();
    const auto autre = M_Enreg_Tables::chercher(donnees, description.table, description.critere, cle);
    const auto chargee =
        M_Enreg_Tables::chercher(donnees, description.table, description.cleInterne, interne);
    if (!autre || autre == chargee)
        return std::nullopt;
    const ChampFiche &champ = *description.champ(description.critere);
    return RefusFiche{QStringLiteral("%1 « %2 » est déjà celui d'un autre enregistrement. Changez-le.")
                          .arg(champ.designation, cle),
                      QStringLiteral("Attention"), champ.controle};
}

QVariant ReglesFiche::valeurAEcrire(const QString &table, const QString &colonne, const QString &texte)
{
    const Schema::Colonne &definition = colonneDe(table, colonne);
    const QString utile = lignesUnies(texte).trimmed();
    if (estTexte(definition))
        return utile.isNull() ? QStringLiteral("") : utile;
    if (utile.isEmpty())
        return {};
    if (estDate(definition))
        return Saisie::lireDate(utile).value_or(QDate());
    const double nombre = VersNombre(utile);
    return estEntier(definition) ? QVariant(static_cast<qlonglong>(nombre)) : QVariant(nombre);
}

QString ReglesFiche::texteAMontrer(const QString &table, const QString &colonne, const QVariant &valeur)
{
    if (valeur.isNull())
        return {};
    const Schema::Colonne &definition = colonneDe(table, colonne);
    if (estTexte(definition))
        return valeur.toString();
    if (estDate(definition)) {
        const QDate date = QDate::fromString(valeur.toString().left(10), Qt::ISODate);
        return Saisie::ecrireDate(date);
    }
    bool nombre = false;
    const double lu = valeur.toDouble(&nombre);
    return nombre ? Saisie::ecrireNombre(lu) : valeur.toString();
}
