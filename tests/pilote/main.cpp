// pilote [--racine DIR] [--captures DIR] SCENARIO.scn
#include "frame/Application.h"
#include "frame/ArretDemande.h"
#include "frame/Demarrage.h"
#include "frame/Session.h"
#include "pilote/DialoguePilote.h"
#include "pilote/Ecran.h"
#include "pilote/Installation.h"
#include "pilote/Joueur.h"

#include <cstdio>
#include <QDir>
#include <QTemporaryDir>

namespace
{
constexpr int ILLISIBLE = 2;

void ecrire(const QString &ligne)
{
    std::fputs((ligne + u'\n').toUtf8().constData(), stdout);
    std::fflush(stdout);
}

// Qt's offscreen platform complains of each window that it cannot do all that a real one does.
void trierAvertissements(QtMsgType type, const QMessageLogContext &contexte, const QString &texte)
{
    if (!texte.startsWith(QLatin1String("This plugin does not support")))
        std::fputs((qFormatLogMessage(type, contexte, texte) + u'\n').toUtf8().constData(), stderr);
}

struct Options {
    QString racine;
    QString captures;
    QString scenario;
};

std::optional<Options> lireOptions(const QStringList &arguments)
{
    Options options;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const bool reste = i + 1 < arguments.size();
        if (arguments[i] == QLatin1String("--racine") && reste)
            options.racine = arguments[++i];
        else if (arguments[i] == QLatin1String("--captures") && reste)
            options.captures = arguments[++i];
        else if (!arguments[i].startsWith(QLatin1String("--")) && options.scenario.isEmpty())
            options.scenario = arguments[i];
        else
            return std::nullopt;
    }
    if (options.scenario.isEmpty())
        return std::nullopt;
    return options;
}

int jouer(Application &application, const Scenario &scenario, const Options &options)
{
    QTemporaryDir temporaire;
    const QString racine = options.racine.isEmpty() ? temporaire.path() : QDir(options.racine).absolutePath();
    const QStringList manques = Installation::garnir(racine, QStringLiteral(DOSSIER_INSTALLATION));
    for (const QString &manque : manques)
        std::fputs(("pilote: " + manque + '\n').toUtf8().constData(), stderr);
    Chemins::definirRacine(racine);

    DialoguePilote dialogue;
    dialogue.ecrire = ecrire;
    application.definirDialogue(&dialogue);
    Session session(dialogue);
    Demarrage demarrage(session, dialogue);
    Joueur joueur(scenario, options.captures, session, dialogue, demarrage);
    joueur.ecrire = ecrire;
    QObject::connect(&joueur, &Joueur::fini, &application, &QCoreApplication::exit);
    const ArretDemande arret([&] {
        QObject::disconnect(&joueur, nullptr, &application, nullptr);
        QObject::connect(&demarrage, &Demarrage::termine, &application, [] { QCoreApplication::exit(1); });
        demarrage.terminer();
    });
    joueur.lancer();
    const int code = QCoreApplication::exec();
    application.definirDialogue(nullptr);
    return code;
}
} // namespace

int main(int argc, char *argv[])
{
    // Before the application exists, as it decides which display it has.
    const EcranDEssai ecran;
    qInstallMessageHandler(trierAvertissements);
    Application application(argc, argv);
    const std::optional<Options> options = lireOptions(QCoreApplication::arguments());
    if (!options) {
        ecrire(QStringLiteral("pilote [--racine DIR] [--captures DIR] SCENARIO.scn"));
        return ILLISIBLE;
    }
    try {
        return jouer(application, lireScenario(options->scenario), *options);
    } catch (const ScenarioIllisible &erreur) {
        ecrire(QString::fromUtf8(erreur.what()));
        return ILLISIBLE;
    }
}
