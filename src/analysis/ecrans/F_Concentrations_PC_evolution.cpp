// The evolution charts as the screen asks for them.
#include "analysis/ecrans/F_Concentrations_PC.h"
#include "analysis/EvolutionPC.h"
#include "frame/Session.h"
#include "platform/Saisie.h"
#include "ui_F_Concentrations_PC.h"

using namespace ReglesConcentrations;

namespace
{
// What is ticked among the boxes that can be: a disabled box counts for nothing.
bool coche(const QAbstractButton *boite)
{
    return boite->isEnabled() && boite->isChecked();
}
} // namespace

// One curve for each parameter; organic carbon has one for each of its fractions.
QList<CourbeDemandee> F_Concentrations_PC::courbesDemandees() const
{
    if (!plusieurs())
        return {{m_ui->cmb_param->texte(), m_ui->ZC_FRACTION->texte()}};
    QList<CourbeDemandee> courbes;
    const QStringList codes = m_ui->lst_param2->codes();
    const QStringList noms = m_ui->lst_param2->textes();
    const QStringList fractions = m_ui->ZL_FRACTION->textes();
    for (qsizetype i = 0; i < codes.size(); ++i) {
        if (!demandeFraction({codes[i]}) || fractions.isEmpty()) {
            courbes.append({noms[i], {}});
            continue;
        }
        for (const QString &fraction : fractions)
            courbes.append({noms[i], fraction});
    }
    return courbes;
}

DemandeEvolution F_Concentrations_PC::demandeEvolution() const
{
    DemandeEvolution demande;
    demande.selection = demandeRapport();
    demande.courbes = courbesDemandees();
    demande.nomsGestionnaires = findChild<ListeFiltree *>(m_ui->filtres->nomGestionnaires())->textes();
    demande.nomsReseaux = findChild<ListeFiltree *>(m_ui->filtres->nomReseaux())->textes();
    demande.fondSEQ = coche(m_ui->chk_seq);
    if (coche(m_ui->chk_obj_moyen))
        demande.objectifMoyen = m_reperes.objectifMoyen;
    demande.frequenceMoyen = coche(m_ui->chk_freq_depass1);
    if (coche(m_ui->chk_obj_max))
        demande.objectifMaximal = m_reperes.objectifMaximal;
    demande.frequenceMaximal = coche(m_ui->chk_freq_depass2);
    demande.norme = coche(m_ui->chk_normes_eaux_brutes);
    demande.quantile = coche(m_ui->chk_quantile);
    demande.intituleSeuil = m_ui->txt_seuil->text().trimmed();
    demande.valeurSeuil = m_ui->txt_valeur->nombre();
    if (m_ui->opt_pluvio->isChecked())
        demande.stationPluie = m_ui->dbcmb_pluvio->code();
    if (m_ui->CB_ECHELLE_MAX->isChecked())
        demande.echelleMaximale = Saisie::lireNombre(m_ui->ZE_ECHELLE_MAX->text());
    return demande;
}

void F_Concentrations_PC::lancerGraphique()
{
    lancer(Commande::Graphique, [this] {
        return M_Concentration_OVRA::commandeGraphique(demandeEvolution(), session().donnees,
                                                       session().dialogue);
    });
}

void F_Concentrations_PC::lancerGraphiqueEtRapport()
{
    lancer(Commande::GraphiqueEtRapport, [this] {
        return M_Concentration_OVRA::commandeGraphiqueEtRapport(demandeEvolution(), session().donnees,
                                                                session().dialogue);
    });
}
