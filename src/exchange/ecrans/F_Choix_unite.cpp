#include "exchange/ecrans/F_Choix_unite.h"

#include "exchange/ecrans/ActionsChoix.h"
#include "frame/Session.h"
#include "ui_F_Choix_unite.h"

F_Choix_unite::F_Choix_unite(Session &session, Cadre &cadre)
    : EcranReprise(session, cadre), m_ui(std::make_unique<Ui::F_Choix_unite>())
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_continuer, nullptr);
    m_ui->lbl_ligne->setText(emplacement());
    m_ui->LabelURF->setText(session.importSession.ElementNom);
    m_ui->LabelPAR->setText(session.importSession.ElementParametre);

    connect(m_ui->cmd_corriger, &QPushButton::clicked, this, &F_Choix_unite::cmd_corriger_Click);
    connect(m_ui->cmd_ignorer, &QPushButton::clicked, this, &F_Choix_unite::cmd_ignorer_Click);
    connect(m_ui->cmd_continuer, &QPushButton::clicked, this, &F_Choix_unite::cmd_continuer_Click);
}

F_Choix_unite::~F_Choix_unite() = default;

void F_Choix_unite::cmd_corriger_Click()
{
    m_ui->cmd_continuer->setEnabled(true);
    m_ui->cmd_continuer->setFocus();
    m_ui->cmd_ignorer->setEnabled(false);
    m_ui->cmd_corriger->setEnabled(false);
    ActionsChoix::corriger(session(), cadre());
}

void F_Choix_unite::cmd_ignorer_Click()
{
    m_ui->cmd_continuer->setEnabled(true);
    m_ui->cmd_continuer->setFocus();
    m_ui->cmd_ignorer->setEnabled(false);
    m_ui->cmd_corriger->setEnabled(session().importSession.typeImport != TypeImport::Quesu);
    ActionsChoix::ignorer(session());
}

void F_Choix_unite::cmd_continuer_Click()
{
    RelancerImport();
}
