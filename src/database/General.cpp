#include "database/General.h"

#include "platform/Dialogue.h"
#include "platform/Textes.h"

namespace
{
QString jusquAuNul(const QString &valeur)
{
    return valeur.left(valeur.indexOf(QChar(u'\0')));
}
} // namespace

Registre::Racine General::RacineRegistre(const QString &nom)
{
    return Registre::racine(nom);
}

QString General::LireRegistre(Dialogue &dialogue, const QString &chemin, const QString &valeur)
{
    if (!chemin.startsWith(QLatin1String("HKEY_")) || chemin.endsWith(u'\\')) {
        dialogue.message(QStringLiteral("Incorrect Format:\n\n") + chemin,
                         Textes::TITRE_PROGRAMME.toString());
        return {};
    }
    const qsizetype barre = chemin.indexOf(u'\\');
    const QString racine = barre < 0 ? chemin : chemin.left(barre);
    const QString cle = barre < 0 ? QString() : chemin.mid(barre + 1);
    const std::optional<QString> lue = Registre::lire(RacineRegistre(racine), cle, valeur);
    return lue ? jusquAuNul(*lue) : ABSENT.toString();
}

QString General::LireValeur(Registre::Racine racine, const QString &cle, const QString &nom)
{
    return jusquAuNul(Registre::lire(racine, cle, nom).value_or(QString()));
}

bool General::CreerCle(Registre::Racine racine, const QString &cle)
{
    return Registre::creerCle(racine, cle);
}

bool General::EcrireValeur(Registre::Racine racine, const QString &cle, const QString &nom,
                           const QString &valeur)
{
    return Registre::ecrire(racine, cle, nom, valeur);
}
