// The registry of the host.
#pragma once

#include <optional>
#include <QString>

// Windows' own on Windows. Elsewhere a file "registre.ini" under the folder that stands for C:\, so that the few settings
// which other programs leave there (where a mapping program is installed) can be given on any host. Names of keys and
// values are found whatever their case.
namespace Registre
{
enum class Racine : quint32 {
    Aucune = 0,
    HKEY_CLASSES_ROOT = 0x80000000,
    HKEY_CURRENT_USER = 0x80000001,
    HKEY_LOCAL_MACHINE = 0x80000002,
    HKEY_USERS = 0x80000003,
    HKEY_PERFORMANCE_DATA = 0x80000004,
    HKEY_CURRENT_CONFIG = 0x80000005,
    HKEY_DYN_DATA = 0x80000006,
};

// The root that bears this name, letter for letter; Aucune for another one.
Racine racine(const QString &nom);

// A value of a key ("Software\Ovralis"); an empty name is the key's default value. Nothing when it is absent.
std::optional<QString> lire(Racine racine, const QString &cle, const QString &nom);
// False where the host refuses.
bool ecrire(Racine racine, const QString &cle, const QString &nom, const QString &valeur);
bool creerCle(Racine racine, const QString &cle);
} // namespace Registre
