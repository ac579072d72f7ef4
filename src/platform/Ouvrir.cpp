#include "platform/Ouvrir.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <windows.h>

#include <shellapi.h>
#endif

bool ouvrirAvecSonApplication(const QString &cheminHote)
{
    const QFileInfo document(cheminHote);
    if (!document.exists())
        return false;
    const QString chemin = QDir::toNativeSeparators(document.absoluteFilePath());
    const QString dossier = QDir::toNativeSeparators(document.absolutePath());
#ifdef Q_OS_WIN
    const auto texte = [](const QString &t) { return reinterpret_cast<const wchar_t *>(t.utf16()); };
    const HINSTANCE rendu =
        ShellExecuteW(nullptr, nullptr, texte(chemin), nullptr, texte(dossier), SW_SHOWMAXIMIZED);
    // By the rule of ShellExecute, a value above 32 is a success.
    return reinterpret_cast<INT_PTR>(rendu) > 32;
#else
#ifdef Q_OS_MACOS
    const QString ouvreur = QStringLiteral("open");
#else
    const QString ouvreur = QStringLiteral("xdg-open");
#endif
    if (QStandardPaths::findExecutable(ouvreur).isEmpty())
        return false;
    return QProcess::startDetached(ouvreur, {chemin}, dossier);
#endif
}
