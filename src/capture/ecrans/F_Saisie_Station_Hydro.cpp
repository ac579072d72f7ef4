#include "capture/ecrans/F_Saisie_Station_Hydro.h"

#include "capture/ecrans/F_Saisie_BV.h"
#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_Gestionnaire.h"
#include "capture/ecrans/ListesFiche.h"
#include "capture/FichesStations.h"
#include "ui_F_Saisie_Station_Hydro.h"

F_Saisie_Station_Hydro::F_Saisie_Station_Hydro(Session &session, Cadre &cadre)
    : FicheReference(session, cadre, Fiches::stationHydro()),
      m_ui(std::make_unique<Ui::F_Saisie_Station_Hydro>())
{
    m_ui->setupUi(this);
    appeler<F_Saisie_BV>(m_ui->cmd_bv, OrigineSaisie::STATION_HYDRO);
    appeler<F_Saisie_Commune>(m_ui->cmd_commune, OrigineSaisie::STATION_HYDRO);
    appeler<F_Saisie_Gestionnaire>(m_ui->cmd_gestionnaire, OrigineSaisie::STATION_HYDRO);
    preparerFiche();
}

F_Saisie_Station_Hydro::~F_Saisie_Station_Hydro() = default;

void F_Saisie_Station_Hydro::remplirListes()
{
    const DataEnvironment1 &donnees = session().donnees;
    m_ui->cmb_type->remplir(LectureFiche::valeursConnues(donnees, QStringLiteral("STATION_HYDRO"),
                                                         QStringLiteral("TypeStationHM")));
    remplirCombo(m_ui->cmb_bv, ListesFiche::bassins(donnees));
    remplirListe(m_ui->lst_commune, ListesFiche::communes(donnees));
    remplirListe(m_ui->lst_gestionnaire, ListesFiche::gestionnaires(donnees));
    remplirListe(m_ui->lst_station, ListesFiche::stationsQualite(donnees));
}
