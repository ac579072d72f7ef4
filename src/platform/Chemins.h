// Paths of the fixed tree under C:\, and where they are on this host.
#pragma once

#include <QString>

// The program speaks of its own folders in the Windows form ("C:\PROJET\Modèles\rapport.xls"): fields, messages and
// constants. Only this module turns that form into a path of the host. On Windows it is the path itself; elsewhere the
// folder given to definirRacine (the user's home by default) stands for C:\.
namespace Chemins
{
inline constexpr char16_t BASE[] = u"C:\\Projet\\Base\\";
inline constexpr char16_t MODELES[] = u"C:\\PROJET\\Modèles\\";
inline constexpr char16_t EXPORT[] = u"C:\\PROJET\\Export\\";
inline constexpr char16_t TRAVAIL[] = u"C:\\Projet\\Travail\\";
inline constexpr char16_t VALIDATION_FRACTION[] = u"C:\\Projet\\Validation_Fraction\\";
inline constexpr char16_t DESSIN[] = u"C:\\Projet\\Dessin\\";
inline constexpr char16_t MAJ_INTERVENANT[] = u"C:\\Projet\\MajIntervenant\\";

// The host folder that stands for C:\ (tests and scenarios give their own).
void definirRacine(const QString &dossierHote);
QString racine();

// Host path of a Windows path. Each component that exists under another case is taken as it exists ("PROJET" and
// "Projet" are one folder); a path that is not of the Windows form comes back unchanged.
QString versHote(const QString &chemin);

// Folder part of a path of either form, its separator included: "/a/b.mdb" gives "/a/", "C:\x\b.mdb" gives "C:\x\".
QString dossier(const QString &chemin);
// What follows the last separator of a path of either form.
QString titre(const QString &chemin);
} // namespace Chemins
