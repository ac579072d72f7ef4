#include "pilote/Joueur.h"

#include "frame/Demarrage.h"
#include "frame/MDIF_Mere.h"
#include "frame/Session.h"
#include "pilote/Cible.h"
#include "pilote/DialoguePilote.h"
#include "pilote/Gestes.h"
#include "platform/Horloge.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

namespace
{
constexpr int CADENCE_MS = 10;
// How long a window may take to come to the front by itself.
constexpr int ACTIVATION_MS = 500;
// How long a routine that is running may take to come back once the play is over.
constexpr int FIN_MS = 60000;
} // namespace

Joueur::Joueur(Scenario scenario, QString captures, Session &session, DialoguePilote &dialogue,
               Demarrage &demarrage)
    : m_scenario(std::move(scenario)), m_captures(std::move(captures)), m_session(session),
      m_dialogue(dialogue), m_demarrage(demarrage)
{
    m_dialogue.imprevu = [this](const QString &raison) { echouer(m_derniereLigne, raison); };
    m_dialogue.resoudre = [this](const QString &ecrit) { return chemin(ecrit); };
    connect(&m_demarrage, &Demarrage::termine, this, [this] {
        m_programmeFini = true;
        if (m_conclu)
            signalerFin();
    });
    m_splashMontre = std::any_of(m_scenario.pas.cbegin(), m_scenario.pas.cend(),
                                 [this](const Pas &pas) { return concerneSplash(pas); });
    connect(&m_cadence, &QTimer::timeout, this, &Joueur::battre);
}

Joueur::~Joueur() = default;

void Joueur::lancer()
{
    m_depuis.start();
    m_cadence.start(CADENCE_MS);
}

// A timer does not fire again while its own slot runs, so the slot only posts the call: a posted call is delivered by
// the inner event loop of the routine that an earlier step has set going.
void Joueur::battre()
{
    if (m_pose || m_conclu)
        return;
    m_pose = true;
    QMetaObject::invokeMethod(this, &Joueur::jouer, Qt::QueuedConnection);
}

void Joueur::jouer()
{
    m_pose = false;
    if (m_conclu)
        return;
    if (m_rang >= m_scenario.pas.size()) {
        conclure(0);
        return;
    }
    if (m_enSuspens && Gestes::enSuspens() && !tropTard(ACTIVATION_MS))
        return;
    m_enSuspens = false;
    const Pas pas = m_scenario.pas[m_rang];
    try {
        if (!momentPermis(pas))
            return;
        m_derniereLigne = pas.ligne;
        ++m_enCours;
        const auto retour = qScopeGuard([this] { --m_enCours; });
        if ((this->*verbes().value(pas.verbe))(pas) == Etat::Attend)
            return;
        // A gesture has already moved on, and its routine may have played further steps meanwhile.
        if (m_rang < m_scenario.pas.size() && m_scenario.pas[m_rang].ligne == pas.ligne)
            suivant();
    } catch (const Echec &echec) {
        // What an earlier gesture has set going has not come back yet: what is asked for may still come of it.
        if (m_enCours > 0 && !tropTard(delaiMs))
            return;
        echouer(pas.ligne, echec.raison());
    }
}

void Joueur::suivant()
{
    ++m_rang;
    m_tape = false;
    m_depuis.start();
}

void Joueur::echouer(int ligne, const QString &raison)
{
    if (m_conclu)
        return;
    ecrire(m_scenario.nom + u':' + QString::number(ligne) + QStringLiteral(": ") +
           QString(raison).replace(u'\n', QLatin1String("\\n")));
    conclure(1);
}

void Joueur::conclure(int code)
{
    m_conclu = true;
    m_code = code;
    m_cadence.stop();
    if (m_programmeFini || !m_lance) {
        signalerFin();
        return;
    }
    QTimer::singleShot(FIN_MS, this, [this] {
        ecrire(m_scenario.nom + QStringLiteral(": le programme ne se termine pas"));
        m_session.tableur.tuer();
        m_code = 1;
        signalerFin();
    });
    m_demarrage.terminer();
}

void Joueur::signalerFin()
{
    Q_EMIT fini(m_code);
}

bool Joueur::tropTard(int delai) const
{
    return m_depuis.elapsed() >= delai;
}

bool Joueur::concerneSplash(const Pas &pas) const
{
    return pas.texte(0) == QLatin1String("frmSplash");
}

bool Joueur::momentPermis(const Pas &pas)
{
    static const QStringList reglages = {QStringLiteral("horloge"), QStringLiteral("reponse"),
                                         QStringLiteral("fichier"), QStringLiteral("couleur"),
                                         QStringLiteral("tuer_tableur")};
    if (reglages.contains(pas.verbe) || pas.verbe == QLatin1String("base"))
        return true;
    static const QStringList constats = {
        QStringLiteral("message"),        QStringLiteral("message_titre"), QStringLiteral("question"),
        QStringLiteral("aucun_message"),  QStringLiteral("ouvert"),        QStringLiteral("fichier_existe"),
        QStringLiteral("fichier_absent"), QStringLiteral("ferme"),         QStringLiteral("termine")};
    const bool constat = constats.contains(pas.verbe);
    if (!m_lance && !constat)
        throw Echec(QStringLiteral("le programme n'est pas démarré (pas « base »)"));
    if (m_programmeFini && !constat)
        throw Echec(QStringLiteral("le programme est terminé"));
    if (!m_lance || m_programmeFini || m_demarrage.pret())
        return true;
    // The start-up is under way. Boxes may be looked at, and the splash; anything else waits for its end.
    if (concerneSplash(pas) && Cible::formulaire(QStringLiteral("frmSplash")))
        return true;
    if (pas.verbe.startsWith(QLatin1String("message")) || pas.verbe == QLatin1String("question"))
        return true;
    if (!tropTard(delaiMs))
        return false;
    throw Echec(QStringLiteral("le démarrage ne s'achève pas"));
}

QWidget *Joueur::cible(const Pas &pas) const
{
    return Cible::controleUtilisable(pas.texte(0), pas.texte(1));
}

bool Joueur::degagee(QWidget *form)
{
    if (const QWidget *obstacle = Cible::obstacle(form)) {
        if (!tropTard(delaiMs))
            return false;
        throw Echec(
            QStringLiteral("la fenêtre %1 bloque %2").arg(obstacle->objectName(), form->objectName()));
    }
    if (Cible::devant(form))
        return true;
    if (!tropTard(ACTIVATION_MS))
        return false;
    Cible::forcerDevant(form);
    return true;
}

QWidget *Joueur::prete(const Pas &pas)
{
    QWidget *form = Cible::formulaireMontre(pas.texte(0));
    QWidget *controle = cible(pas);
    return degagee(form) ? controle : nullptr;
}

Joueur::Etat Joueur::geste(const Pas &pas, const std::function<void(QWidget *)> &action)
{
    QWidget *controle = prete(pas);
    if (!controle)
        return Etat::Attend;
    suivant();
    action(controle);
    return Etat::Fait;
}

QAction *Joueur::entreeDeMenu(const QString &nom) const
{
    QAction *action = m_demarrage.fenetre() ? m_demarrage.fenetre()->entree(nom) : nullptr;
    if (!action)
        throw Echec(QStringLiteral("pas d'entrée de menu %1").arg(nom));
    return action;
}

QString Joueur::chemin(const QString &ecrit) const
{
    const QString hote = Chemins::versHote(ecrit);
    return QDir::cleanPath(QDir(m_scenario.dossier).absoluteFilePath(hote));
}

void Joueur::exiger(bool vrai, const QString &raison) const
{
    if (!vrai)
        throw Echec(raison);
}

void Joueur::comparer(const QString &quoi, const QString &lu, const QString &attendu) const
{
    exiger(lu == attendu, QStringLiteral("%1 : « %2 » attendu, « %3 » trouvé").arg(quoi, attendu, lu));
}

Joueur::Etat Joueur::horloge(const Pas &pas)
{
    Horloge::regler(QDateTime::fromString(pas.texte(0), QStringLiteral("yyyy-MM-dd hh:mm")));
    return Etat::Fait;
}

Joueur::Etat Joueur::base(const Pas &pas)
{
    exiger(!m_lance, QStringLiteral("le programme est déjà démarré"));
    m_lance = true;
    m_dialogue.fichiers.prepend(pas.annuler ? std::nullopt : std::optional(pas.texte(0)));
    m_demarrage.lancer();
    if (!m_splashMontre)
        // Any key closes it.
        if (QWidget *splash = Cible::formulaire(QStringLiteral("frmSplash")))
            QTest::keyClick(splash, Qt::Key_Space);
    return Etat::Fait;
}

Joueur::Etat Joueur::tuerTableur(const Pas &pas)
{
    QTimer::singleShot(pas.nombre(0), this, [this] { m_session.tableur.tuer(); });
    return Etat::Fait;
}

Joueur::Etat Joueur::reponse(const Pas &pas)
{
    m_dialogue.reponses.enqueue(pas.texte(0));
    return Etat::Fait;
}

Joueur::Etat Joueur::fichier(const Pas &pas)
{
    m_dialogue.fichiers.enqueue(pas.annuler ? std::nullopt : std::optional(pas.texte(0)));
    return Etat::Fait;
}

Joueur::Etat Joueur::couleur(const Pas &pas)
{
    if (pas.annuler) {
        m_dialogue.couleurs.enqueue(std::nullopt);
    } else {
        const int rgb = pas.texte(0).mid(1).toInt(nullptr, 16);
        m_dialogue.couleurs.enqueue(Couleur{rgb >> 16, (rgb >> 8) & 0xff, rgb & 0xff});
    }
    return Etat::Fait;
}
