#include "widgets/ZoneAnnee.h"

#include <QRegularExpression>

ZoneAnnee::ZoneAnnee(QWidget *parent) : ZoneTexte(parent)
{
    setPlaceholderText(QStringLiteral("aaaa"));
    setMaxLength(4);
}

QDate ZoneAnnee::annee() const
{
    static const QRegularExpression forme(QStringLiteral("^[1-9][0-9]{3}$"));
    const QString texte = text().trimmed();
    return forme.match(texte).hasMatch() ? QDate(texte.toInt(), 1, 1) : QDate();
}

bool ZoneAnnee::accepter()
{
    return text().trimmed().isEmpty() || annee().isValid();
}

QString ZoneAnnee::messageRefus() const
{
    return QStringLiteral("La date n'est pas au format adapté : \"aaaa\".");
}

QString ZoneAnnee::titreRefus() const
{
    return QStringLiteral("Erreur de type");
}
