#include "widgets/ZoneMois.h"

#include "platform/Saisie.h"

ZoneMois::ZoneMois(QWidget *parent) : ZoneTexte(parent)
{
    setPlaceholderText(QStringLiteral("mm/aaaa"));
    setMaxLength(7);
}

QDate ZoneMois::mois() const
{
    return Saisie::lireMois(text()).value_or(QDate());
}

void ZoneMois::fixer(QDate mois)
{
    setText(Saisie::ecrireMois(mois));
}

bool ZoneMois::accepter()
{
    const QString texte = text().trimmed();
    const auto lu = Saisie::lireMois(texte);
    if (!lu && !texte.isEmpty())
        return false;
    const QString forme = lu ? Saisie::ecrireMois(*lu) : QString();
    if (forme != text())
        setText(forme);
    return true;
}

QString ZoneMois::messageRefus() const
{
    return QStringLiteral("La date n'est pas au format adapté : \"mm/aaaa\".");
}

QString ZoneMois::titreRefus() const
{
    return QStringLiteral("Erreur de type");
}
