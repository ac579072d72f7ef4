#include "capture/ecrans/F_Mesure_Hydro.h"

#include "capture/EcritureSerie.h"
#include "capture/SerieHydro.h"
#include "frame/Session.h"
#include "ui_F_Mesure_Hydro.h"

#include <QHeaderView>
#include <QScopedValueRollback>

F_Mesure_Hydro::F_Mesure_Hydro(Session &session, Cadre &cadre, QWidget *parent)
    : EcranSerie(session, cadre, parent), m_ui(std::make_unique<Ui::F_Mesure_Hydro>()),
      m_jours(session.donnees, QString::fromUtf16(SerieHydro::TABLE_JOUR), SerieHydro::colonnesJour()),
      m_mois(session.donnees, QString::fromUtf16(SerieHydro::TABLE_MOIS), SerieHydro::colonnesMois())
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_valider, m_ui->cmd_fermer);
    m_ui->DBGrid1->definirTable(&m_jours, &session.dialogue);
    m_ui->DBGrid2->definirTable(&m_mois, &session.dialogue);
    for (GrilleSaisie *une : {m_ui->DBGrid1, m_ui->DBGrid2})
        une->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_ui->opt_debit_jour->setChecked(true);
    connect(m_ui->opt_debit_jour, &QAbstractButton::toggled, this, &F_Mesure_Hydro::changerOption);
    relier({m_ui->cmb_station_hydro, m_ui->txt_station_hydro, m_ui->frm_saisie, m_ui->lbl_nombre,
            m_ui->cmd_ajouter, m_ui->cmd_retirer, m_ui->cmd_rech, m_ui->cmd_valider, m_ui->cmd_annul,
            m_ui->cmd_suppr, m_ui->cmd_visual, m_ui->cmd_fermer},
           {QStringLiteral("Le code de la station hydrométrique doit être renseigné. "),
            QStringLiteral(
                "L'enregistrement des mesures hydrométriques ont été effectuées. Désirez-vous en effectuer "
                "d'autres?")});
    changerOption();
}

F_Mesure_Hydro::~F_Mesure_Hydro() = default;

bool F_Mesure_Hydro::journalier() const
{
    return m_ui->opt_debit_jour->isChecked();
}

void F_Mesure_Hydro::changerOption()
{
    m_ui->DBGrid1->setVisible(journalier());
    m_ui->DBGrid2->setVisible(!journalier());
    actualiser();
}

void F_Mesure_Hydro::Vider_Mesure_Hydro()
{
    const QScopedValueRollback vider(session().ViderEnCours, true);
    m_ui->cmb_station_hydro->vider();
    m_ui->txt_station_hydro->clear();
}

GrilleSaisie *F_Mesure_Hydro::grille() const
{
    return journalier() ? m_ui->DBGrid1 : m_ui->DBGrid2;
}

TableTravail *F_Mesure_Hydro::table() const
{
    return tables().at(journalier() ? 0 : 1);
}

QList<TableTravail *> F_Mesure_Hydro::tables() const
{
    auto *moi = const_cast<F_Mesure_Hydro *>(this);
    return {&moi->m_jours, &moi->m_mois};
}

ListeChoix F_Mesure_Hydro::stations() const
{
    return SerieHydro::stations(session().donnees);
}

bool F_Mesure_Hydro::existe(const QString &station) const
{
    return SerieHydro::existe(session().donnees, station);
}

void F_Mesure_Hydro::remplir(const QString &station)
{
    SerieHydro::remplir(session().donnees, station);
    m_jours.relire(SerieHydro::ordreJour());
    m_mois.relire(SerieHydro::ordreMois());
}

bool F_Mesure_Hydro::complete() const
{
    return SerieHydro::complete(session().donnees);
}

void F_Mesure_Hydro::enregistrer(const QString &station)
{
    SerieHydro::enregistrer(session().donnees, station);
}

void F_Mesure_Hydro::supprimer(const QString &station)
{
    SerieHydro::supprimer(session().donnees, station);
}

VueMesures F_Mesure_Hydro::vue() const
{
    return {QStringLiteral("Mesures_Hydro_"), [this](Feuille &feuille) {
                const QString titre = journalier()
                                          ? QStringLiteral("LISTE DES MESURES HYDROMETRIQUES JOURNALIERES")
                                          : QStringLiteral("LISTE DES MESURES HYDROMETRIQUES MENSUELLES");
                ecrireSerie(feuille,
                            {titre, QStringLiteral("Station hydrométrique:"), m_ui->cmb_station_hydro->code(),
                             QStringLiteral("Nom :"), m_ui->txt_station_hydro->text(),
                             QStringLiteral("dd/mm/yyyy")},
                            *table());
            }};
}
