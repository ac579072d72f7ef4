#include "pilote/Ecran.h"

#include <QFile>

EcranDEssai::EcranDEssai()
{
    const bool sansAffichage =
        qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    const QByteArray voulue = qgetenv("QT_QPA_PLATFORM");
    if (voulue.isEmpty() ? !sansAffichage : voulue != "offscreen")
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QFile reglages(m_dossier.filePath(QStringLiteral("ecran.json")));
    if (!reglages.open(QIODevice::WriteOnly))
        return;
    reglages.write(R"({"screens": [{"name": "essai", "x": 0, "y": 0, "width": 1366, "height": 768,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    reglages.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(reglages.fileName()));
}
