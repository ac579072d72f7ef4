#include "capture/ecrans/F_Saisie_Station_Pluvio.h"

#include "capture/ecrans/F_Saisie_BV.h"
#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_Gestionnaire.h"
#include "capture/ecrans/ListesFiche.h"
#include "capture/FichesStations.h"
#include "ui_F_Saisie_Station_Pluvio.h"

F_Saisie_Station_Pluvio::F_Saisie_Station_Pluvio(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::stationPluvio()),
      m_ui(std::make_unique<Ui::F_Saisie_Station_Pluvio>())
{
    m_ui->setupUi(this);
    appeler<F_Saisie_BV>(m_ui->cmd_bv, OrigineSaisie::STATION_PLUVIO);
    appeler<F_Saisie_Commune>(m_ui->cmd_commune, OrigineSaisie::STATION_PLUVIO);
    appeler<F_Saisie_Gestionnaire>(m_ui->cmd_gestionnaire, OrigineSaisie::STATION_PLUVIO);
    preparerFiche();
}

F_Saisie_Station_Pluvio::~F_Saisie_Station_Pluvio() = default;

void F_Saisie_Station_Pluvio::remplirListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    m_ui->cmb_type->remplir(LectureFiche::valeursConnues(donnees, QStringLiteral("STATION_PLUVIO"),
                                                         QStringLiteral("TypeStationPM")));
    remplirCombo(m_ui->cmb_bv, ListesFiche::bassins(donnees));
    remplirListe(m_ui->lst_commune, ListesFiche::communes(donnees));
    remplirListe(m_ui->lst_gestionnaire, ListesFiche::gestionnaires(donnees));
}
