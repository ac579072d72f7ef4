#include "widgets/ChoixPeriode.h"

#include "platform/Saisie.h"
#include "widgets/ZoneDate.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

ChoixPeriode::ChoixPeriode(QWidget *parent)
    : QWidget(parent), m_debut(new ZoneDate(this)), m_fin(new ZoneDate(this)),
      m_tout(new QPushButton(QStringLiteral("Tout"), this)), m_etendue(new QLabel(this))
{
    auto *libelleDebut = new QLabel(QStringLiteral("&Date de début :"), this);
    libelleDebut->setBuddy(m_debut);
    m_debut->setAccessibleName(QStringLiteral("Date de début :"));
    auto *libelleFin = new QLabel(QStringLiteral("Da&te de fin :"), this);
    libelleFin->setBuddy(m_fin);
    m_fin->setAccessibleName(QStringLiteral("Date de fin :"));
    m_tout->setAutoDefault(false);
    m_etendue->setForegroundRole(QPalette::PlaceholderText);

    auto *grille = new QGridLayout(this);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->addWidget(libelleDebut, 0, 0, Qt::AlignRight | Qt::AlignVCenter);
    grille->addWidget(m_debut, 0, 1);
    grille->addWidget(libelleFin, 0, 2, Qt::AlignRight | Qt::AlignVCenter);
    grille->addWidget(m_fin, 0, 3);
    auto *offre = new QHBoxLayout;
    offre->addWidget(m_etendue, 1);
    offre->addWidget(m_tout);
    grille->addLayout(offre, 1, 1, 1, 3);
    grille->setColumnStretch(1, 1);
    grille->setColumnStretch(3, 1);

    connect(m_tout, &QPushButton::clicked, this, [this] { fixer(m_premier, m_dernier); });
    proposer(QDate(), QDate());
}

QDate ChoixPeriode::debut() const
{
    return m_debut->date();
}

QDate ChoixPeriode::fin() const
{
    return m_fin->date();
}

void ChoixPeriode::fixer(QDate debut, QDate fin)
{
    m_debut->fixer(debut);
    m_fin->fixer(fin);
}

void ChoixPeriode::vider()
{
    fixer(QDate(), QDate());
}

void ChoixPeriode::proposer(QDate premier, QDate dernier)
{
    m_premier = premier;
    m_dernier = dernier;
    m_debut->proposer(premier);
    m_fin->proposer(dernier);
    const bool connue = premier.isValid() && dernier.isValid();
    m_tout->setEnabled(connue);
    m_tout->setToolTip(connue ? QStringLiteral("Prendre toute la période pour laquelle il y a des mesures")
                              : QStringLiteral("Choisissez d'abord une station qui a des mesures"));
    m_etendue->setText(connue ? QStringLiteral("Mesures du %1 au %2")
                                    .arg(Saisie::ecrireDate(premier), Saisie::ecrireDate(dernier))
                              : QString());
}

QString ChoixPeriode::nomDebut() const
{
    return m_debut->objectName();
}

QString ChoixPeriode::nomFin() const
{
    return m_fin->objectName();
}

void ChoixPeriode::setNomDebut(const QString &nom)
{
    m_debut->setObjectName(nom);
}

void ChoixPeriode::setNomFin(const QString &nom)
{
    m_fin->setObjectName(nom);
}
