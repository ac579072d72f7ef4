#include "frame/BarreProgression.h"

#include "frame/Reprise.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

BarreProgression::BarreProgression(Dialogue &dialogue, QWidget *parent)
    : QWidget(parent), m_dialogue(dialogue), m_texte(new QLabel(this)), m_barre(new QProgressBar(this)),
      m_annuler(new QToolButton(this))
{
    setObjectName(QStringLiteral("barre_progression"));
    m_texte->setObjectName(QStringLiteral("lbl_etat"));
    m_texte->setTextFormat(Qt::PlainText);
    m_barre->setObjectName(QStringLiteral("progression"));
    m_barre->setFormat(QStringLiteral("%p %"));
    m_barre->setAlignment(Qt::AlignCenter);
    m_barre->setFixedWidth(260);
    m_annuler->setObjectName(QStringLiteral("cmd_annuler"));
    m_annuler->setText(QStringLiteral("Annuler"));
    m_annuler->setToolTip(QStringLiteral("Arrête le travail en cours dès que possible"));
    connect(m_annuler, &QToolButton::clicked, this, [this] {
        m_annulee = true;
        m_annuler->setEnabled(false);
    });

    auto *disposition = new QHBoxLayout(this);
    disposition->setContentsMargins(6, 0, 6, 0);
    disposition->setSpacing(12);
    disposition->addWidget(m_texte);
    disposition->addWidget(m_barre);
    disposition->addWidget(m_annuler);
    disposition->addStretch();
    m_barre->hide();
    m_annuler->hide();
}

void BarreProgression::montrer(const QString & /*titre*/, const QString &libelle)
{
    m_texte->setText(libelle);
    if (m_montree)
        return;
    m_montree = true;
    m_annulee = false;
    m_barre->hide();
    m_annuler->hide();
    m_dialogue.ceder();
}

void BarreProgression::cacher()
{
    m_montree = false;
    m_texte->clear();
    m_barre->hide();
    m_annuler->hide();
}

void BarreProgression::libelle(const QString &texte)
{
    if (!m_montree)
        return;
    m_texte->setText(texte);
    Reprise::cederParfois(m_dialogue);
}

void BarreProgression::maximum(int valeur)
{
    if (!m_montree)
        return;
    m_barre->setVisible(valeur > 0);
    m_barre->setMaximum(std::max(valeur, 1));
    m_barre->setValue(0);
    Reprise::cederParfois(m_dialogue);
}

void BarreProgression::valeur(int valeur)
{
    if (!m_montree)
        return;
    m_barre->setValue(std::min(valeur, m_barre->maximum()));
    Reprise::cederParfois(m_dialogue);
}

void BarreProgression::permettreAnnulation(bool oui)
{
    if (!m_montree)
        return;
    m_annuler->setVisible(oui);
    m_annuler->setEnabled(oui && !m_annulee);
}
