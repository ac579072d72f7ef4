#include "frame/OuvertureBase.h"

#include "database/jet/EtapesJet.h"
#include "database/M_Ouvrir_bdd_OVRA.h"
#include "database/M_Structure_2002.h"
#include "frame/Session.h"
#include "maintenance/M_Couleurs.h"
#include "maintenance/M_Transposition.h"

bool ouvrirBase(Session &session)
{
    Ouverture ouverture{session.donnees, session.dialogue, session.FichierBase, {}, {}, {}};
    ouverture.etapes.CreerCouleurs = [&session] {
        M_Couleurs::CreerCouleurs(session.donnees, session.tableur, session.CheminBase);
    };
    ouverture.etapes.ChargerCouleurs = [&session] { chargerPalette(session); };
    ouverture.etapes.MettreAJourVersion = [&session] {
        M_Structure_2002::MettreAJourVersion(session.donnees);
    };
    ouverture.etapes.TransposerStructure = [&session] {
        const auto transposerReseaux = [&session](const QString &fichier) {
            M_Transposition::TransposerReseaux(session.donnees, session.tableur, session.dialogue, fichier,
                                               session.CheminBase);
        };
        return M_Structure_2002::TransposerStructure(
            session.donnees, {session.dialogue, session.CheminBase + QStringLiteral("corresp_reseaux.xls"),
                              transposerReseaux});
    };
    EtapesJet::brancher(ouverture.etapes, session.dialogue);
    const bool ouverte = M_Ouvrir_bdd_OVRA::OuvrirBase(ouverture);
    session.ChaineFournisseur = ouverture.ChaineFournisseur;
    session.VersionAccess = ouverture.VersionAccess;
    return ouverte;
}

void chargerPalette(Session &session)
{
    const M_Couleurs::Palette palette = M_Couleurs::ChargerCouleurs(session.donnees);
    session.CouleurR = palette.R;
    session.CouleurG = palette.G;
    session.CouleurB = palette.B;
}

void InitCarte(Session &session)
{
    session.CheminDessin = QString::fromUtf16(Chemins::DESSIN);
    session.CheminCarteTravail = QString::fromUtf16(Chemins::TRAVAIL);
    session.TypesCarte = {QStringLiteral("Bilan"),  QStringLiteral("Evaluation"), QStringLiteral("Référence"),
                          QStringLiteral("AEP"),    QStringLiteral("Drains"),     QStringLiteral("Impact"),
                          QStringLiteral("Retenue")};
}
