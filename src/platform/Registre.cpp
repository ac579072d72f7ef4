#include "platform/Registre.h"

#include "platform/Chemins.h"

#include <QSettings>

namespace
{
struct Nom {
    QStringView nom;
    Registre::Racine racine;
};

using Registre::Racine;

constexpr Nom RACINES[] = {
    {u"HKEY_CLASSES_ROOT", Racine::HKEY_CLASSES_ROOT},
    {u"HKEY_CURRENT_USER", Racine::HKEY_CURRENT_USER},
    {u"HKEY_LOCAL_MACHINE", Racine::HKEY_LOCAL_MACHINE},
    {u"HKEY_USERS", Racine::HKEY_USERS},
    {u"HKEY_PERFORMANCE_DATA", Racine::HKEY_PERFORMANCE_DATA},
    {u"HKEY_CURRENT_CONFIG", Racine::HKEY_CURRENT_CONFIG},
    {u"HKEY_DYN_DATA", Racine::HKEY_DYN_DATA},
};

QString nomDe(Racine racine)
{
    for (const Nom &n : RACINES)
        if (n.racine == racine)
            return n.nom.toString();
    return {};
}

// A root's settings, and the path of a key in them.
struct Emplacement {
    std::unique_ptr<QSettings> reglages;
    QString prefixe;
};

Emplacement emplacement(Racine racine, const QString &cle)
{
#ifdef Q_OS_WIN
    return {std::make_unique<QSettings>(nomDe(racine) + u'\\' + cle, QSettings::NativeFormat), QString()};
#else
    QString prefixe = nomDe(racine) + u'/' + QString(cle).replace(u'\\', u'/');
    if (!prefixe.endsWith(u'/'))
        prefixe += u'/';
    return {std::make_unique<QSettings>(Chemins::racine() + QStringLiteral("/registre.ini"),
                                        QSettings::IniFormat),
            prefixe};
#endif
}

// The name under which Qt keeps a key's default value.
QString nomDeValeur(const QString &nom)
{
    return nom.isEmpty() ? QStringLiteral("Default") : nom;
}

QString nomExistant(const QSettings &reglages, const QString &complet)
{
    const QStringList noms = reglages.allKeys();
    for (const QString &n : noms)
        if (n.compare(complet, Qt::CaseInsensitive) == 0)
            return n;
    return {};
}
} // namespace

Racine Registre::racine(const QString &nom)
{
    for (const Nom &n : RACINES)
        if (n.nom == nom)
            return n.racine;
    return Racine::Aucune;
}

std::optional<QString> Registre::lire(Racine racine, const QString &cle, const QString &nom)
{
    if (racine == Racine::Aucune)
        return std::nullopt;
    const Emplacement e = emplacement(racine, cle);
    const QString existant = nomExistant(*e.reglages, e.prefixe + nomDeValeur(nom));
    if (existant.isEmpty())
        return std::nullopt;
    return e.reglages->value(existant).toString();
}

bool Registre::ecrire(Racine racine, const QString &cle, const QString &nom, const QString &valeur)
{
    if (racine == Racine::Aucune)
        return false;
    const Emplacement e = emplacement(racine, cle);
    const QString complet = e.prefixe + nomDeValeur(nom);
    const QString existant = nomExistant(*e.reglages, complet);
    e.reglages->setValue(existant.isEmpty() ? complet : existant, valeur);
    e.reglages->sync();
    return e.reglages->status() == QSettings::NoError;
}

bool Registre::creerCle(Racine racine, const QString &cle)
{
    // A key is there as soon as it has its default value.
    return lire(racine, cle, {}).has_value() || ecrire(racine, cle, {}, QString());
}
