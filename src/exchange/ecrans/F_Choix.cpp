#include "exchange/ecrans/F_Choix.h"

#include "exchange/ecrans/ActionsChoix.h"
#include "frame/Session.h"
#include "ui_F_Choix.h"
#include "widgets/LectureSeule.h"

#include <QScopedValueRollback>

F_Choix::F_Choix(Session &session, Cadre &cadre, const QString &libelleAction, const QString &element,
                 OuvrirFiche fiche)
    : EcranReprise(session, cadre), m_ui(std::make_unique<Ui::F_Choix>()), m_fiche(std::move(fiche))
{
    m_ui->setupUi(this);
    preparer(m_ui->cmd_continuer, nullptr);
    LectureSeule::appliquer(m_ui->txt_element);
    Vider_Choix();
    m_ui->lbl_ligne->setText(emplacement());
    m_ui->lbl_action->setText(libelleAction);
    m_ui->txt_element->setText(element);
    m_ui->txt_element->setCursorPosition(0);

    connect(m_ui->cmd_ajouter, &QPushButton::clicked, this, &F_Choix::cmd_ajouter_Click);
    connect(m_ui->cmd_corriger, &QPushButton::clicked, this, &F_Choix::cmd_corriger_Click);
    connect(m_ui->cmd_ignorer, &QPushButton::clicked, this, &F_Choix::cmd_ignorer_Click);
    connect(m_ui->cmd_continuer, &QPushButton::clicked, this, &F_Choix::cmd_continuer_Click);
}

F_Choix::~F_Choix() = default;

void F_Choix::Vider_Choix()
{
    const QScopedValueRollback vider(session().ViderEnCours, true);
    m_ui->lbl_ligne->clear();
    m_ui->lbl_action->clear();
    m_ui->txt_element->clear();
    m_ui->cmd_continuer->setEnabled(false);
    m_ui->cmd_ignorer->setEnabled(true);
    m_ui->cmd_corriger->setEnabled(true);
    permettreAjout(true);
}

void F_Choix::AfficherChoix(int mode)
{
    const bool vide = mode == 1;
    const bool unite = mode == 5;
    m_ui->Label1->setVisible(!vide);
    m_ui->Label2->setVisible(!unite);
    m_ui->Label3->setVisible(!vide);
    m_ui->Label4->setVisible(!vide);
    m_ui->txt_element->setVisible(!vide);
    m_ui->Label5->setVisible(vide);
    m_ui->Label6->setVisible(vide);
    m_ui->Label7->setVisible(mode == 2);
    m_ui->Label8->setVisible(unite);
    m_ui->Label9->setVisible(unite);
    // The parameter of a unit is named behind "correspondant au paramètre :".
    if (unite)
        m_ui->ligneParametre->insertWidget(1, m_ui->lbl_action);
    if (vide)
        permettreAjout(false);
}

void F_Choix::permettreAjout(bool oui)
{
    m_ui->cmd_ajouter->setEnabled(oui && m_fiche);
    if (!m_fiche)
        m_ui->cmd_ajouter->setToolTip(QStringLiteral(
            "Il n'y a pas encore de fiche pour ajouter cet élément : corrigez le fichier ou ignorez "
            "la ligne."));
    else if (!oui)
        m_ui->cmd_ajouter->setToolTip(QStringLiteral("Un élément vide ne peut pas être ajouté."));
    else
        m_ui->cmd_ajouter->setToolTip(QStringLiteral("Ouvre la fiche de l'élément, déjà remplie."));
}

void F_Choix::attendreLaSuite()
{
    m_ui->cmd_continuer->setEnabled(true);
    m_ui->cmd_continuer->setFocus();
    m_ui->cmd_ajouter->setEnabled(false);
    m_ui->cmd_ignorer->setEnabled(false);
    m_ui->cmd_corriger->setEnabled(false);
}

void F_Choix::cmd_ajouter_Click()
{
    attendreLaSuite();
    m_fiche(session(), cadre());
    ActionsChoix::reprendreLigneIgnoree(session());
}

void F_Choix::cmd_corriger_Click()
{
    attendreLaSuite();
    ActionsChoix::corriger(session(), cadre());
}

void F_Choix::cmd_ignorer_Click()
{
    m_ui->cmd_continuer->setEnabled(true);
    m_ui->cmd_continuer->setFocus();
    m_ui->cmd_ignorer->setEnabled(false);
    permettreAjout(true);
    m_ui->cmd_corriger->setEnabled(session().importSession.typeImport != TypeImport::Quesu);
    ActionsChoix::ignorer(session());
}

void F_Choix::cmd_continuer_Click()
{
    RelancerImport();
}
