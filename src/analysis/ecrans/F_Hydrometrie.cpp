#include "analysis/ecrans/F_Hydrometrie.h"

#include "analysis/LectureHydrologie.h"
#include "analysis/ListesSelection.h"
#include "analysis/M_Consultation_OVRA.h"
#include "frame/Session.h"
#include "ui_F_Hydrometrie.h"
#include "widgets/LectureSeule.h"

F_Hydrometrie::F_Hydrometrie(Session &session, Cadre &cadre, QWidget *parent)
    : Ecran(session, cadre, parent), m_ui(std::make_unique<Ui::F_Hydrometrie>())
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_visualiser, m_ui->cmd_fermer);
    for (QLineEdit *zone : {m_ui->txt_station_hydro, m_ui->txt_station_pluvio})
        LectureSeule::appliquer(zone);

    // One kind of flow at a time, or none: ticking one takes the tick off the other.
    for (const auto &[coche, autre] : {std::pair(m_ui->chk_debit_jour, m_ui->chk_debit_mensuel),
                                       std::pair(m_ui->chk_debit_mensuel, m_ui->chk_debit_jour)}) {
        connect(coche, &QAbstractButton::toggled, this, [autre = autre](bool oui) {
            if (oui)
                autre->setChecked(false);
        });
    }
    for (ZoneCombo *station : {m_ui->cmb_station_hydro, m_ui->cmb_station_pluvio})
        connect(station, &ZoneCombo::choixChange, this, [this] { executer([this] { changerStations(); }); });
    connect(m_ui->cmd_visualiser, &QPushButton::clicked, this, &F_Hydrometrie::visualiser);

    executer([this] {
        m_ui->cmb_station_hydro->remplir(ListesSelection::stationsHydro(this->session().donnees));
        m_ui->cmb_station_pluvio->remplir(ListesSelection::stationsPluvio(this->session().donnees));
        changerStations();
    });
    commencerPar(m_ui->chk_debit_jour);
}

F_Hydrometrie::~F_Hydrometrie() = default;

void F_Hydrometrie::changerStations()
{
    const DataEnvironment1 &donnees = session().donnees;
    const QString hydro = m_ui->cmb_station_hydro->code();
    const QString pluvio = m_ui->cmb_station_pluvio->code();
    m_ui->txt_station_hydro->setText(LectureHydrologie::nomStationDebit(donnees, hydro));
    m_ui->txt_station_pluvio->setText(LectureHydrologie::nomStationPluie(donnees, pluvio));
    for (QLineEdit *zone : {m_ui->txt_station_hydro, m_ui->txt_station_pluvio})
        zone->setCursorPosition(0);
    const auto [premier, dernier] = LectureHydrologie::etendue(donnees, hydro, pluvio);
    m_ui->choix_periode->proposer(premier, dernier);
}

DemandeHydrologie F_Hydrometrie::demande() const
{
    DemandeHydrologie lue;
    lue.debit = m_ui->chk_debit_jour->isChecked()      ? GenreDebit::Journalier
                : m_ui->chk_debit_mensuel->isChecked() ? GenreDebit::Mensuel
                                                       : GenreDebit::Aucun;
    lue.stationDebit = m_ui->cmb_station_hydro->code();
    lue.pluie = m_ui->chk_pluvio->isChecked();
    lue.stationPluie = m_ui->cmb_station_pluvio->code();
    lue.debut = m_ui->choix_periode->debut();
    lue.fin = m_ui->choix_periode->fin();
    return lue;
}

void F_Hydrometrie::visualiser()
{
    executer([this] {
        if (!verifierZones())
            return;
        const DemandeHydrologie lue = demande();
        if (const auto refus = ReglesHydrologie::premierRefus(lue)) {
            session().dialogue.message(refus->message, QStringLiteral("Attention"), Icone::Exclamation);
            champ(refus->champ)->setFocus(Qt::OtherFocusReason);
            return;
        }
        CoursRapport cours(session().dialogue, session().tableur, session().dossiers, session().etatRapport);
        cours.executer(M_Consultation_OVRA::commandeGraphique(lue, session().donnees, session().dialogue));
    });
}

QWidget *F_Hydrometrie::champ(ReglesHydrologie::Champ nom) const
{
    using ReglesHydrologie::Champ;
    switch (nom) {
    case Champ::StationDebit:
        return m_ui->cmb_station_hydro;
    case Champ::StationPluie:
        return m_ui->cmb_station_pluvio;
    case Champ::DateDebut:
        return findChild<QWidget *>(m_ui->choix_periode->nomDebut());
    case Champ::DateFin:
        return findChild<QWidget *>(m_ui->choix_periode->nomFin());
    case Champ::Choix:
        return m_ui->chk_debit_jour;
    }
    return nullptr;
}
