#include "widgets/BlocFiltres.h"

#include "widgets/ListeFiltree.h"
#include "widgets/ZoneCombo.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

BlocFiltres::BlocFiltres(QWidget *parent)
    : QWidget(parent), m_gestionnaires(creer(QStringLiteral("Gestionnaire :"))),
      m_reseaux(creer(QStringLiteral("Réseau de mesure :"))),
      m_commentaires(creer(QStringLiteral("Commentaire :"))), m_blocProtocole(new QWidget(this)),
      m_protocole(new ZoneCombo(m_blocProtocole))
{
    auto *libelle = new QLabel(QStringLiteral("Protocole de sui&vi :"), m_blocProtocole);
    libelle->setBuddy(m_protocole);
    m_protocole->setAccessibleName(QStringLiteral("Protocole de suivi :"));
    m_protocole->lineEdit()->setPlaceholderText(QStringLiteral("Tous"));
    auto *rangees = new QVBoxLayout(m_blocProtocole);
    rangees->setContentsMargins(0, 0, 0, 0);
    rangees->setSpacing(2);
    rangees->addWidget(libelle);
    rangees->addWidget(m_protocole);

    auto *colonne = new QVBoxLayout(this);
    colonne->setContentsMargins(0, 0, 0, 0);
    for (const Critere &critere : {m_gestionnaires, m_reseaux, m_commentaires}) {
        colonne->addWidget(critere.bloc, 1);
        montrerEtat(critere);
        critere.bloc->hide();
    }
    colonne->addWidget(m_blocProtocole);
    m_blocProtocole->hide();
}

BlocFiltres::Critere BlocFiltres::creer(const QString &libelle)
{
    Critere critere;
    critere.bloc = new QWidget(this);
    critere.liste = new ListeFiltree(critere.bloc);
    critere.liste->setMinimumHeight(60);
    auto *titre = new QLabel(libelle, critere.bloc);
    titre->setBuddy(critere.liste);
    critere.etat = new QLabel(critere.bloc);
    critere.etat->setForegroundRole(QPalette::PlaceholderText);
    critere.effacer = new QToolButton(critere.bloc);
    critere.effacer->setText(QStringLiteral("Effacer"));
    critere.effacer->setAutoRaise(true);
    critere.effacer->setToolTip(QStringLiteral("Ne plus filtrer sur ce critère"));
    // The row keeps its height when the button comes and goes.
    QSizePolicy taille = critere.effacer->sizePolicy();
    taille.setRetainSizeWhenHidden(true);
    critere.effacer->setSizePolicy(taille);

    auto *entete = new QHBoxLayout;
    entete->addWidget(titre);
    entete->addWidget(critere.etat, 1);
    entete->addWidget(critere.effacer);
    auto *colonne = new QVBoxLayout(critere.bloc);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->setSpacing(2);
    colonne->addLayout(entete);
    colonne->addWidget(critere.liste, 1);

    connect(critere.liste, &ListeFiltree::choixChange, this, [critere] { montrerEtat(critere); });
    connect(critere.effacer, &QToolButton::clicked, this, [critere] {
        critere.liste->vider();
        montrerEtat(critere);
        critere.liste->setFocus();
    });
    return critere;
}

void BlocFiltres::montrerEtat(const Critere &critere)
{
    const auto choisis = critere.liste->codes().size();
    critere.etat->setText(choisis == 0   ? QStringLiteral("tous")
                          : choisis == 1 ? QStringLiteral("1 choisi")
                                         : QStringLiteral("%1 choisis").arg(choisis));
    critere.effacer->setVisible(choisis > 0);
}

void BlocFiltres::remplir(const ListesFiltres &listes)
{
    m_gestionnaires.liste->remplir(listes.gestionnaires);
    m_reseaux.liste->remplir(listes.reseaux);
    m_commentaires.liste->remplir(listes.commentaires);
    m_protocole->remplir(listes.protocoles);
    for (const Critere &critere : {m_gestionnaires, m_reseaux, m_commentaires})
        montrerEtat(critere);
}

// The palette has no pale form of its placeholder colour for what is disabled.
void BlocFiltres::changeEvent(QEvent *evenement)
{
    QWidget::changeEvent(evenement);
    if (evenement->type() != QEvent::EnabledChange)
        return;
    for (const Critere &critere : {m_gestionnaires, m_reseaux, m_commentaires})
        critere.etat->setForegroundRole(isEnabled() ? QPalette::PlaceholderText : QPalette::WindowText);
}

QStringList BlocFiltres::gestionnaires() const
{
    return m_gestionnaires.liste->codes();
}

QStringList BlocFiltres::reseaux() const
{
    return m_reseaux.liste->codes();
}

QStringList BlocFiltres::commentaires() const
{
    return m_commentaires.liste->codes();
}

QString BlocFiltres::protocole() const
{
    return m_protocole->texte();
}

void BlocFiltres::vider()
{
    m_protocole->vider();
    for (const Critere &critere : {m_gestionnaires, m_reseaux, m_commentaires}) {
        critere.liste->vider();
        montrerEtat(critere);
    }
}

void BlocFiltres::nommer(const Critere &critere, const QString &nom)
{
    critere.liste->setObjectName(nom);
    critere.bloc->setVisible(!nom.isEmpty());
}

QString BlocFiltres::nomGestionnaires() const
{
    return m_gestionnaires.liste->objectName();
}

QString BlocFiltres::nomReseaux() const
{
    return m_reseaux.liste->objectName();
}

QString BlocFiltres::nomCommentaires() const
{
    return m_commentaires.liste->objectName();
}

QString BlocFiltres::nomProtocole() const
{
    return m_protocole->objectName();
}

void BlocFiltres::setNomGestionnaires(const QString &nom)
{
    nommer(m_gestionnaires, nom);
}

void BlocFiltres::setNomReseaux(const QString &nom)
{
    nommer(m_reseaux, nom);
}

void BlocFiltres::setNomCommentaires(const QString &nom)
{
    nommer(m_commentaires, nom);
}

void BlocFiltres::setNomProtocole(const QString &nom)
{
    m_protocole->setObjectName(nom);
    m_blocProtocole->setVisible(!nom.isEmpty());
}
