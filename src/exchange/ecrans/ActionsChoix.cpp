#include "exchange/ecrans/ActionsChoix.h"

#include "frame/Cadre.h"
#include "frame/Session.h"

void ActionsChoix::ignorer(Session &session)
{
    ++session.importSession.LigneReprise;
    session.importSession.LigneIgnoree = true;
    session.dialogue.message(QStringLiteral("Vos données contenant cet élément ne seront pas enregistrées"),
                             QStringLiteral("Attention"), Icone::Information);
}

void ActionsChoix::reprendreLigneIgnoree(Session &session)
{
    if (!session.importSession.LigneIgnoree)
        return;
    --session.importSession.LigneReprise;
    session.importSession.LigneIgnoree = false;
}

void ActionsChoix::corriger(Session &session, Cadre &cadre)
{
    const ImportSession &import = session.importSession;
    if (session.dialogue.ouvrirDocument(import.FichierImport))
        cadre.reduire();
    else
        session.dialogue.message(
            QStringLiteral(
                "Le fichier « %1 » n'a pas pu être ouvert par son application.\nOuvrez-le vous-même, "
                "corrigez la ligne, enregistrez et fermez-le, puis continuez l'import.")
                .arg(import.TitreImport),
            QStringLiteral("Attention"), Icone::Exclamation);
    reprendreLigneIgnoree(session);
}
