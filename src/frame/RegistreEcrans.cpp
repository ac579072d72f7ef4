#include "frame/RegistreEcrans.h"

#include "analysis/ecrans/F_Concentrations_PC.h"
#include "analysis/ecrans/F_Donnees_brutes_PC.h"
#include "analysis/ecrans/F_Hydrometrie.h"
#include "capture/ecrans/F_Mesure_Hydro.h"
#include "capture/ecrans/F_Mesure_Physico.h"
#include "capture/ecrans/F_Mesure_Pluvio.h"
#include "capture/ecrans/F_Mesures_Phyto.h"
#include "capture/ecrans/F_Organisme_Preleveur.h"
#include "capture/ecrans/F_Saisie_BV.h"
#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_Departement.h"
#include "capture/ecrans/F_Saisie_Gestionnaire.h"
#include "capture/ecrans/F_Saisie_Laboratoire.h"
#include "capture/ecrans/F_Saisie_Methode.h"
#include "capture/ecrans/F_Saisie_Parametre.h"
#include "capture/ecrans/F_Saisie_Reseau.h"
#include "capture/ecrans/F_Saisie_SEQ.h"
#include "capture/ecrans/F_Saisie_SS_BV.h"
#include "capture/ecrans/F_Saisie_Station_Hydro.h"
#include "capture/ecrans/F_Saisie_Station_Mesure.h"
#include "capture/ecrans/F_Saisie_Station_Pluvio.h"
#include "capture/ecrans/F_Saisie_Unite.h"
#include "exchange/ecrans/ControleurImport.h"
#include "exchange/ecrans/F_Import_physico.h"
#include "exchange/ecrans/F_Import_phyto.h"
#include "frame/Cadre.h"
#include "frame/CommandesMaintenance.h"
#include "frame/Session.h"
#include "maintenance/ecrans/F_couleurs.h"
#include "maintenance/ecrans/F_MiseAJour_Intervenant.h"

#include <QWidget>

namespace
{
using Preparation = std::function<void(Session &)>;
using Commande = std::function<void(Session &, Cadre &)>;

// An entry that opens the screen `Ecran`.
template <typename Ecran> EntreeRegistre ecran(const char16_t *menu, const Preparation &preparer = {})
{
    return {QString::fromUtf16(menu), QString::fromLatin1(Ecran::staticMetaObject.className()), preparer,
            [](Session &session, Cadre &cadre) -> QWidget * { return new Ecran(session, cadre); }};
}

EntreeRegistre commande(const char16_t *menu, const Commande &executer)
{
    return {QString::fromUtf16(menu), {}, {}, [executer](Session &session, Cadre &cadre) -> QWidget * {
                executer(session, cadre);
                return nullptr;
            }};
}

void importPhytoReuni(Session &session, Cadre & /*cadre*/)
{
    F_Import_phyto::annoncer(session);
}

void enIntervenant(Session &session)
{
    session.ModeIntervenant = true;
}

void viderCompteursImport(Session &session)
{
    session.importSession.viderCompteurs();
}
} // namespace

const QList<EntreeRegistre> &registreEcrans()
{
    static const QList<EntreeRegistre> registre = {
        ecran<F_Mesure_Physico>(u"m_mesure_physico"),
        ecran<F_Mesures_Phyto>(u"m_mesure_phyto"),
        ecran<F_Concentrations_PC>(u"m_evolution_physico"),
        ecran<F_Hydrometrie>(u"m_consult_hydro"),
        ecran<F_Mesure_Hydro>(u"m_mesure_hydrom"),
        ecran<F_Mesure_Pluvio>(u"m_mesure_pluvio"),
        ecran<F_Import_physico>(u"m_import_donnees_physico", viderCompteursImport),
        commande(u"m_import_donnees_phyto", importPhytoReuni),
        commande(u"m_import_donnees_hydro", ControleurImport::importerHydro),
        commande(u"m_import_donnees_pluvio", ControleurImport::importerPluvio),
        ecran<F_MiseAJour_Intervenant>(u"m_corresp_intervenant"),
        ecran<F_Donnees_brutes_PC>(u"m_donnees_brutes_physico"),
        commande(u"mnu_compact", CommandesMaintenance::compacter),
        commande(u"mnu_sauv_coul", CommandesMaintenance::sauvegarderCouleurs),
        commande(u"mnu_rest_coul", CommandesMaintenance::restaurerCouleurs),
        ecran<F_couleurs>(u"mnu_mod_coul"),
        ecran<F_Saisie_BV>(u"m_BV"),
        ecran<F_Saisie_Station_Mesure>(u"m_station_qualite"),
        ecran<F_Saisie_Station_Hydro>(u"m_station_hydro"),
        ecran<F_Saisie_Station_Pluvio>(u"m_station_pluvio"),
        ecran<F_Saisie_SS_BV>(u"m_sous_bassin"),
        ecran<F_Saisie_Commune>(u"m_commune"),
        ecran<F_Saisie_Departement>(u"m_departement"),
        ecran<F_Saisie_SEQ>(u"m_grille_seq"),
        ecran<F_Saisie_Gestionnaire>(u"m_prelev", enIntervenant),
        ecran<F_Saisie_Parametre>(u"mnu_param"),
        ecran<F_Saisie_Unite>(u"m_unite"),
        ecran<F_Saisie_Reseau>(u"m_reseau"),
        ecran<F_Saisie_Methode>(u"m_methode"),
        ecran<F_Saisie_Laboratoire>(u"m_laboratoire"),
        ecran<F_Organisme_Preleveur>(u"m_preleveur"),
        commande(u"mnu_trans_res", CommandesMaintenance::transposerReseaux),
    };
    return registre;
}
