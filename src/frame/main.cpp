#include "frame/Application.h"
#include "frame/ArretDemande.h"
#include "frame/Demarrage.h"
#include "frame/DialogueQt.h"
#include "frame/Session.h"

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    DialogueQt dialogue;
    application.definirDialogue(&dialogue);
    Session session(dialogue);
    Demarrage demarrage(session, dialogue);
    QObject::connect(&demarrage, &Demarrage::termine, &application, &QCoreApplication::quit);
    const ArretDemande arret([&demarrage] { demarrage.terminer(); });
    demarrage.lancer();
    return QCoreApplication::exec();
}
