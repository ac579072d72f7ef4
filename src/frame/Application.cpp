#include "frame/Application.h"

#include "platform/Dialogue.h"
#include "platform/Erreur.h"

#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>

Application::Application(int &argc, char **argv) : QApplication(argc, argv)
{
    Q_INIT_RESOURCE(frame);
    setApplicationName(QStringLiteral("Ovralis"));
    setApplicationDisplayName(QString());
    setApplicationVersion(QStringLiteral(OVRALIS_VERSION));
    setWindowIcon(QIcon(QStringLiteral(":/icones/ovralis.svg")));
    // Closing the main window ends the program through the start-up object, which first lets everything go.
    setQuitOnLastWindowClosed(false);

    const QLocale francais(QLocale::French, QLocale::France);
    QLocale::setDefault(francais);
    if (m_traduction.load(francais, QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(&m_traduction);
}

bool Application::notify(QObject *receveur, QEvent *evenement)
{
    try {
        return QApplication::notify(receveur, evenement);
    } catch (const Erreur &erreur) {
        signaler(erreur.numeroEtDescription());
    } catch (const std::exception &erreur) {
        signaler(QString::fromUtf8(erreur.what()));
    }
    return true;
}

void Application::signaler(const QString &description)
{
    if (m_dialogue)
        m_dialogue->message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                                description,
                            QStringLiteral("Erreur"), Icone::Critique);
}
