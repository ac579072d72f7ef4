#include "workbook/InstallationCalc.h"

#include "platform/Erreur.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace
{
// Settings of the hidden instance: item path, property, type, value.
struct Reglage {
    const char *chemin;
    const char *propriete;
    const char *valeur;
};
constexpr Reglage REGLAGES[] = {
    {"/org.openoffice.Setup/L10N", "ooLocale",
     "en-US"}, // language of its own words; the only one always installed
    {"/org.openoffice.Setup/L10N", "ooSetupSystemLocale", "fr-FR"},
    {"/org.openoffice.Setup/Office", "ooSetupInstCompleted", "true"},
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Office.Common/Misc", "UseLocking", "false"},
    {"/org.openoffice.Office.Common/Misc", "UseDocumentSystemFileLocking", "false"},
    {"/org.openoffice.Office.Common/Misc", "UseDocumentOOoLockFile", "false"},
    {"/org.openoffice.Office.Common/Save/Document", "AutoSave", "false"},
    {"/org.openoffice.Office.Common/Security/Scripting", "MacroSecurityLevel", "3"},
    {"/org.openoffice.Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
    {"/org.openoffice.Office.Recovery/RecoveryInfo", "Enabled", "false"},
    {"/org.openoffice.Office.Recovery/AutoSave", "Enabled", "false"},
    {"/org.openoffice.Office.Calc/Content/Update", "Link", "2"}, // never
};

void ecrireFichier(const QString &chemin, const QByteArray &contenu)
{
    QFile fichier(chemin);
    if (!QDir().mkpath(QFileInfo(chemin).path()) || !fichier.open(QIODevice::WriteOnly) ||
        fichier.write(contenu) != contenu.size())
        throw Erreur(1, QStringLiteral("Le dossier temporaire « %1 » ne peut pas être écrit : %2")
                            .arg(QFileInfo(chemin).path(), fichier.errorString()));
}

// The executable proper stands beside the script of the same name, which only looks for Java and a splash screen.
QString executable(const QString &soffice)
{
    const QString direct = QFileInfo(soffice).path() + QStringLiteral("/soffice.bin");
    return QFileInfo(direct).isExecutable() ? direct : soffice;
}
} // namespace

InstallationCalc InstallationCalc::chercher(const QString &programmeImpose)
{
    const QString impose =
        programmeImpose.isEmpty() ? qEnvironmentVariable("OVRALIS_SOFFICE") : programmeImpose;
    QStringList candidats{QStandardPaths::findExecutable(QStringLiteral("soffice")),
                          QStringLiteral(OVRALIS_LIBREOFFICE "/program/soffice")};
    if (!impose.isEmpty())
        candidats.prepend(impose);

    InstallationCalc trouvee;
    for (const QString &candidat : std::as_const(candidats)) {
        const QString soffice = QFileInfo(candidat).canonicalFilePath(); // empty when absent
        if (soffice.isEmpty())
            continue;
        if (trouvee.programme.isEmpty() && (impose.isEmpty() || candidat == impose))
            trouvee.programme = executable(soffice);
        if (trouvee.dossierProgramme.isEmpty() &&
            QFileInfo::exists(QFileInfo(soffice).path() + QStringLiteral("/types/offapi.rdb")))
            trouvee.dossierProgramme = QFileInfo(soffice).path();
    }
    return trouvee;
}

void InstallationCalc::ecrireProfil(const QString &dossier) const
{
    // An instance compares this file with its own build; the same, it leaves the list of extensions alone.
    const QSettings version(dossierProgramme + QStringLiteral("/versionrc"), QSettings::IniFormat);
    const QString build = version.value(QStringLiteral("Version/buildid")).toString();
    ecrireFichier(dossier + QStringLiteral("/user/extensions/buildid"), build.toUtf8());

    QByteArray reglages = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\" "
                          "xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" "
                          "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n";
    for (const Reglage &reglage : REGLAGES) {
        reglages += QByteArray("<item oor:path=\"") + reglage.chemin + "\"><prop oor:name=\"" +
                    reglage.propriete + "\" oor:op=\"fuse\"><value>" + reglage.valeur +
                    "</value></prop></item>\n";
    }
    reglages += "</oor:items>\n";
    ecrireFichier(dossier + QStringLiteral("/user/registrymodifications.xcu"), reglages);

    if (!QDir(dossier).mkdir(QStringLiteral("tmp")))
        throw Erreur(1, QStringLiteral("Le dossier temporaire « %1 » ne peut pas être écrit.").arg(dossier));
}

QString InstallationCalc::urlDossier(const QString &dossier)
{
    return QString::fromLatin1(QUrl::fromLocalFile(dossier).toEncoded());
}

QStringList InstallationCalc::prises(const QString &dossier, const QString &nomTube)
{
#ifdef Q_OS_UNIX
    // Unix sockets in a fixed folder, named by the user's number. The second one, by which instances of one profile
    // find each other, bears the MD5 of the profile's URL in UTF-16, its bytes in hexadecimal without leading zeros.
    const QString urlProfil = urlDossier(dossier);
    const QByteArrayView utf16(reinterpret_cast<const char *>(urlProfil.utf16()), urlProfil.size() * 2);
    QString empreinte;
    for (const char octet : QCryptographicHash::hash(utf16.toByteArray(), QCryptographicHash::Md5))
        empreinte += QString::number(static_cast<uchar>(octet), 16);
    const uint utilisateur = QFileInfo(dossier).ownerId();
    QStringList prises;
    for (const char *lieu : {"/tmp", "/var/tmp"}) {
        const QString debut = QStringLiteral("%1/OSL_PIPE_%2_").arg(QLatin1String(lieu)).arg(utilisateur);
        prises << debut + nomTube << debut + QStringLiteral("SingleOfficeIPC_") + empreinte;
    }
    return prises;
#else
    Q_UNUSED(dossier)
    Q_UNUSED(nomTube)
    return {};
#endif
}
