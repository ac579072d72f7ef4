#include "capture/ecrans/F_Mesure_Pluvio.h"

#include "capture/EcritureSerie.h"
#include "capture/SeriePluvio.h"
#include "frame/Session.h"
#include "ui_F_Mesure_Pluvio.h"

#include <QHeaderView>
#include <QScopedValueRollback>

F_Mesure_Pluvio::F_Mesure_Pluvio(Session &session, Cadre &cadre, QWidget *parent)
    : EcranSerie(session, cadre, parent), m_ui(std::make_unique<Ui::F_Mesure_Pluvio>()),
      m_pluies(session.donnees, QString::fromUtf16(SeriePluvio::TABLE), SeriePluvio::colonnes())
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_valider, m_ui->cmd_fermer);
    m_ui->DBGrid1->definirTable(&m_pluies, &session.dialogue);
    m_ui->DBGrid1->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    relier({m_ui->cmb_station, m_ui->txt_station, m_ui->frm_saisie, m_ui->lbl_nombre, m_ui->cmd_ajouter,
            m_ui->cmd_retirer, m_ui->cmd_rech, m_ui->cmd_valider, m_ui->cmd_annul, m_ui->cmd_suppr,
            m_ui->cmd_visual, m_ui->cmd_fermer},
           {QStringLiteral("Le code de la station pluviométrique doit être renseigné. "),
            QStringLiteral(
                "L'enregistrement des mesures pluviométriques ont été effectuées. Désirez-vous en effectuer "
                "d'autres?")});
}

F_Mesure_Pluvio::~F_Mesure_Pluvio() = default;

void F_Mesure_Pluvio::Vider_Mesure_Pluvio()
{
    const QScopedValueRollback vider(session().ViderEnCours, true);
    m_ui->cmb_station->vider();
    m_ui->txt_station->clear();
}

GrilleSaisie *F_Mesure_Pluvio::grille() const
{
    return m_ui->DBGrid1;
}

TableTravail *F_Mesure_Pluvio::table() const
{
    return const_cast<TableTravail *>(&m_pluies);
}

QList<TableTravail *> F_Mesure_Pluvio::tables() const
{
    return {table()};
}

ListeChoix F_Mesure_Pluvio::stations() const
{
    return SeriePluvio::stations(session().donnees);
}

bool F_Mesure_Pluvio::existe(const QString &station) const
{
    return SeriePluvio::existe(session().donnees, station);
}

void F_Mesure_Pluvio::remplir(const QString &station)
{
    SeriePluvio::remplir(session().donnees, station);
    m_pluies.relire(SeriePluvio::ordre());
}

bool F_Mesure_Pluvio::complete() const
{
    return SeriePluvio::complete(session().donnees);
}

void F_Mesure_Pluvio::enregistrer(const QString &station)
{
    SeriePluvio::enregistrer(session().donnees, station);
}

void F_Mesure_Pluvio::supprimer(const QString &station)
{
    SeriePluvio::supprimer(session().donnees, station);
}

VueMesures F_Mesure_Pluvio::vue() const
{
    return {QStringLiteral("Mesures_Pluvio_"), [this](Feuille &feuille) {
                ecrireSerie(feuille,
                            {QStringLiteral("LISTE DES MESURES PLUVIOMETRIQUES"),
                             QStringLiteral("Station pluviométrique:"),
                             m_ui->cmb_station->code(),
                             {},
                             {},
                             QStringLiteral("m/d/yy")},
                            m_pluies);
            }};
}
