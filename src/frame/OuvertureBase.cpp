#include "frame/OuvertureBase.h"

#include "frame/Session.h"
#include "platform/Erreur.h"

bool ouvrirBase(Session &session)
{
    try {
        session.donnees.ouvrir(session.FichierBase);
        return true;
    } catch (const Erreur &erreur) {
        session.dialogue.message(QStringLiteral("Erreur à l'ouverture de la base de données : \n ") +
                                     erreur.numeroEtDescription(),
                                 QStringLiteral("Erreur d'ouverture"), Icone::Exclamation);
        return false;
    }
}

void preparerCartes(Session & /*session*/) {}
