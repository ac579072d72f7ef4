#include "frame/MDIF_Mere.h"

#include "frame/Aide.h"
#include "frame/BarreProgression.h"
#include "frame/DialogueQt.h"
#include "frame/FenetreFille.h"
#include "frame/MenuPrincipal.h"
#include "frame/RegistreEcrans.h"
#include "frame/Session.h"
#include "frame/ZoneTravail.h"
#include "platform/Erreur.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>

namespace
{
constexpr char16_t TITRE[] = u"Ovralis - Outil Local";
constexpr int INTERVALLE_TIMER1_MS = 50;

// Nearly the whole of a small screen; on a large one no more than the screens have use for.
QRect premierePlace(const QRect &ecran)
{
    const QSize taille =
        QSize(ecran.width() * 96 / 100, ecran.height() * 92 / 100).boundedTo(QSize(1500, 940));
    QRect place(QPoint(), taille);
    place.moveCenter(ecran.center());
    return place;
}
} // namespace

MDIF_Mere::MDIF_Mere(Session &session, DialogueQt &dialogue)
    : m_session(session), m_zone(new ZoneTravail(this)), m_barre(new BarreProgression(dialogue, this)),
      m_etude(new QLabel(this)), m_timer1(this)
{
    setObjectName(QStringLiteral("MDIF_Mere"));
    setWindowTitle(QStringLiteral("En attente ..."));
    setCentralWidget(m_zone);
    m_etude->setObjectName(QStringLiteral("lbl_etude"));
    m_etude->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(m_barre, 1);
    statusBar()->addPermanentWidget(m_etude);
    m_zone->definirLegende(QString::fromUtf16(TITRE), QStringLiteral("Qualité de l'eau"));
    construireMenu();
    activerMenu(false);
    setGeometry(premierePlace(QGuiApplication::primaryScreen()->availableGeometry()));

    auto *aide = new QAction(this);
    aide->setObjectName(QStringLiteral("aide_contextuelle"));
    aide->setShortcut(QKeySequence::HelpContents);
    aide->setShortcutContext(Qt::ApplicationShortcut);
    connect(aide, &QAction::triggered, this, &MDIF_Mere::aideDeLEcran);
    addAction(aide);
    // A report yields to the user while it runs: nothing else may start meanwhile, nor take the base away from it.
    connect(&m_session.etatRapport, &EtatRapport::change, this,
            [this](bool enCours) { activerMenu(!enCours); });
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    dialogue.definirFenetre(this, m_barre);
}

MDIF_Mere::~MDIF_Mere() = default;

void MDIF_Mere::construireMenu()
{
    QHash<QString, QMenu *> menus;
    for (const EntreeMenu &entree : menuPrincipal()) {
        const QString nom = entree.nom.toString();
        const QString libelle = entree.libelle.toString();
        QMenu *parent = menus.value(entree.parent.toString());
        QAction *action = nullptr;
        if (entree.genre == GenreEntree::Menu) {
            QMenu *menu = parent ? parent->addMenu(libelle) : menuBar()->addMenu(libelle);
            menus.insert(nom, menu);
            action = menu->menuAction();
        } else {
            action = parent ? parent->addAction(libelle) : menuBar()->addAction(libelle);
            connect(action, &QAction::triggered, this, [this, nom] { ouvrir(nom); });
        }
        action->setObjectName(nom);
        action->setVisible(entree.genre != GenreEntree::Cachee);
        // An action of the bar with an icon would show the icon alone.
        if (parent && !entree.icone.isEmpty())
            action->setIcon(QIcon(QStringLiteral(":/icones/%1.svg").arg(entree.icone)));
        m_actions.insert(nom, action);
    }

    for (const EntreeRegistre &entree : registreEcrans())
        lier(entree.menu, [this, &entree] { executer(entree); });
    lier(QStringLiteral("m_cascade"), [this] { m_zone->cascadeSubWindows(); });
    lier(QStringLiteral("m_aide"), [this] { Aide::ouvrir(m_session.dialogue, QString()); });
    lier(QStringLiteral("m_quitter"), [this] { quitter(); });
}

void MDIF_Mere::lier(const QString &menu, const std::function<void()> &action)
{
    Q_ASSERT(m_actions.contains(menu));
    m_commandes.insert(menu, action);
}

void MDIF_Mere::activerMenu(bool baseOuverte)
{
    m_etude->setText(baseOuverte ? m_session.TitreBase : QString());
    m_etude->setToolTip(baseOuverte ? m_session.FichierBase : QString());
    for (const EntreeMenu &entree : menuPrincipal()) {
        const QString nom = entree.nom.toString();
        QAction *action = m_actions.value(nom);
        if (action->menu()) {
            action->setEnabled(!action->menu()->isEmpty());
            continue;
        }
        const bool sansBase = nom == QLatin1String("m_aide") || nom == QLatin1String("m_quitter");
        const bool existe = m_commandes.contains(nom);
        action->setEnabled(existe && (baseOuverte || sansBase));
        action->setStatusTip(existe ? QString() : QStringLiteral("Cette fonction n'existe pas encore."));
    }
}

void MDIF_Mere::nommerBassin(const QString &bassin)
{
    setWindowTitle(QString::fromUtf16(TITRE) + QStringLiteral(" / ") + bassin);
    m_zone->definirLegende(bassin, m_session.FichierBase);
}

void MDIF_Mere::demarrerTimer1()
{
    m_timer1.start(INTERVALLE_TIMER1_MS);
}

bool MDIF_Mere::ouvrir(const QString &menu)
{
    const auto commande = m_commandes.constFind(menu);
    if (commande == m_commandes.constEnd())
        return false;
    commande.value()();
    return true;
}

void MDIF_Mere::executer(const EntreeRegistre &entree)
{
    // A command without a screen works before it returns, and may yield to the user.
    const bool commande = entree.classe.isEmpty();
    if (commande)
        activerMenu(false);
    const auto rendre = qScopeGuard([this, commande] {
        if (commande)
            activerMenu(!m_session.etatRapport.enCours());
    });
    try {
        if (entree.preparer)
            entree.preparer(m_session);
        QWidget *ecran = entree.classe.isEmpty() ? nullptr : ecranOuvert(entree.classe);
        if (!ecran)
            ecran = entree.ouvrir(m_session, *this);
        if (ecran && !ecran->testAttribute(Qt::WA_SetWindowIcon))
            ecran->setWindowIcon(m_actions.value(entree.menu)->icon());
        if (ecran)
            montrer(ecran);
    } catch (const Erreur &erreur) {
        m_session.dialogue.message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                                       erreur.numeroEtDescription(),
                                   QStringLiteral("Erreur"), Icone::Critique);
    }
}

QWidget *MDIF_Mere::ecranOuvert(const QString &classe) const
{
    const QList<QMdiSubWindow *> fenetres = m_zone->subWindowList();
    for (const QMdiSubWindow *fenetre : fenetres)
        if (fenetre->widget() && fenetre->isVisible() &&
            fenetre->widget()->metaObject()->className() == classe.toLatin1())
            return fenetre->widget();
    return nullptr;
}

void MDIF_Mere::montrer(QWidget *ecran)
{
    auto *fenetre = qobject_cast<FenetreFille *>(ecran->parentWidget());
    if (!fenetre) {
        fenetre = new FenetreFille(ecran, m_zone);
        m_zone->addSubWindow(fenetre);
        // As large as the screen asks for, as long as the client area holds it. Shown first: a layout takes in what has
        // changed since it was made (a list filled, a field hidden) only once it is visible.
        ecran->show();
        fenetre->show();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        fenetre->adjustSize();
        fenetre->resize(fenetre->size().boundedTo(m_zone->viewport()->size()));
    }
    fenetre->move(0, 0);
    ecran->show();
    mettreDevant(ecran);
}

void MDIF_Mere::mettreDevant(QWidget *ecran)
{
    auto *fenetre = qobject_cast<QMdiSubWindow *>(ecran->parentWidget());
    if (fenetre->isMinimized())
        fenetre->showNormal();
    fenetre->show();
    m_zone->setActiveSubWindow(fenetre);
}

void MDIF_Mere::reduire()
{
    showMinimized();
}

void MDIF_Mere::terminer()
{
    QMetaObject::invokeMethod(this, &MDIF_Mere::finDemandee, Qt::QueuedConnection);
}

void MDIF_Mere::aideDeLEcran()
{
    const QMdiSubWindow *fenetre = m_zone->activeSubWindow();
    const QWidget *ecran = fenetre && fenetre->isVisible() ? fenetre->widget() : nullptr;
    Aide::ouvrir(m_session.dialogue,
                 ecran ? QString::fromLatin1(ecran->metaObject()->className()) : QString());
}

void MDIF_Mere::quitter()
{
    const Reponse reponse =
        m_session.dialogue.question(QStringLiteral("Etes-vous sûr de vouloir quitter l'application?"),
                                    QStringLiteral("Fermeture de l'application"),
                                    {Reponse::Oui, Reponse::Non}, Reponse::Oui, Icone::Question);
    if (reponse == Reponse::Oui)
        Q_EMIT finDemandee();
}

void MDIF_Mere::closeEvent(QCloseEvent *evenement)
{
    evenement->accept();
    Q_EMIT finDemandee();
}
