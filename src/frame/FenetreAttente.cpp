#include "frame/FenetreAttente.h"

#include "frame/Reprise.h"
#include "ui_FenetreAttente.h"

#include <QApplication>
#include <QCloseEvent>

FenetreAttente::FenetreAttente(const QString &nom, Dialogue &dialogue)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_ui(std::make_unique<Ui::FenetreAttente>()), m_dialogue(dialogue)
{
    m_ui->setupUi(this);
    setObjectName(nom);
    setWindowModality(Qt::ApplicationModal);
    connect(m_ui->cmd_annuler, &QPushButton::clicked, this, &FenetreAttente::annuler);
}

FenetreAttente::~FenetreAttente() = default;

void FenetreAttente::montrer(const QString &titre, const QString &libelle)
{
    setWindowTitle(titre);
    m_ui->lbl_texte->setText(libelle);
    if (isVisible())
        return;
    m_annulee = false;
    m_ui->cmd_annuler->hide();
    m_ui->progression->hide();
    adjustSize();
    if (const QWidget *dessous = QApplication::activeWindow()) {
        const QRect cadre = dessous->frameGeometry();
        move(cadre.center() - rect().center());
    }
    show();
    // Painted before the work begins, however long it is until the first step.
    m_dialogue.ceder();
}

void FenetreAttente::cacher()
{
    hide();
}

void FenetreAttente::libelle(const QString &texte)
{
    if (!isVisible())
        return;
    m_ui->lbl_texte->setText(texte);
    Reprise::cederParfois(m_dialogue);
}

void FenetreAttente::maximum(int valeur)
{
    if (!isVisible())
        return;
    m_ui->progression->setVisible(valeur > 0);
    m_ui->progression->setMaximum(std::max(valeur, 1));
    m_ui->progression->setValue(0);
    Reprise::cederParfois(m_dialogue);
}

void FenetreAttente::valeur(int valeur)
{
    if (!isVisible())
        return;
    // The bar paints itself as soon as it moves: it moves by hundredths, not for each of thousands of rows.
    QProgressBar *barre = m_ui->progression;
    const qint64 maximum = barre->maximum();
    const qint64 nouvelle = std::min<qint64>(valeur, maximum);
    if (nouvelle * 100 / maximum != barre->value() * qint64(100) / maximum)
        barre->setValue(static_cast<int>(nouvelle));
    Reprise::cederParfois(m_dialogue);
}

void FenetreAttente::permettreAnnulation(bool oui)
{
    if (!isVisible())
        return;
    m_ui->cmd_annuler->setVisible(oui);
    m_ui->cmd_annuler->setEnabled(oui && !m_annulee);
}

void FenetreAttente::reject()
{
    annuler();
}

void FenetreAttente::closeEvent(QCloseEvent *evenement)
{
    annuler();
    evenement->ignore();
}

void FenetreAttente::annuler()
{
    if (m_ui->cmd_annuler->isHidden())
        return;
    m_annulee = true;
    m_ui->cmd_annuler->setEnabled(false);
}
