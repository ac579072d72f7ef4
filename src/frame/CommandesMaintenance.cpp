#include "frame/CommandesMaintenance.h"

#include "frame/Cadre.h"
#include "frame/OuvertureBase.h"
#include "frame/Session.h"
#include "maintenance/M_ClasseurCouleurs.h"
#include "maintenance/M_Compactage.h"
#include "maintenance/M_Transposition.h"

void CommandesMaintenance::compacter(Session &session, Cadre &cadre)
{
    const M_Compactage::Issue issue =
        M_Compactage::compacter(session.donnees, Chemins::versHote(session.FichierBase), session.dialogue,
                                [&session] { return ouvrirBase(session); });
    if (issue == M_Compactage::Issue::BasePerdue)
        cadre.terminer();
}

void CommandesMaintenance::sauvegarderCouleurs(Session &session, Cadre & /*cadre*/)
{
    M_ClasseurCouleurs::SauvegarderCouleurs(session.donnees, session.tableur, session.dialogue,
                                            session.CheminBase);
}

void CommandesMaintenance::restaurerCouleurs(Session &session, Cadre & /*cadre*/)
{
    if (M_ClasseurCouleurs::RestaurerCouleurs(session.donnees, session.tableur, session.dialogue,
                                              session.CheminBase))
        chargerPalette(session);
}

void CommandesMaintenance::transposerReseaux(Session &session, Cadre & /*cadre*/)
{
    M_Transposition::TransposerReseaux(session.donnees, session.tableur, session.dialogue, QString(),
                                       session.CheminBase);
}
