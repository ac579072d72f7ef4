#include "frame/Demarrage.h"

#include "database/M_Ouvrir_bdd_OVRA.h"
#include "frame/DialogueQt.h"
#include "frame/frmSplash.h"
#include "frame/MDIF_Mere.h"
#include "frame/OuvertureBase.h"
#include "frame/Session.h"
#include "platform/Erreur.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

namespace
{
// Time left to the main window to paint itself before the spreadsheet application takes its share of the processor.
constexpr int REPIT_TABLEUR_MS = 150;
// How often the end looks whether the routine that was running has come back.
constexpr int ATTENTE_FIN_MS = 20;

void creerDossier(const QString &chemin)
{
    const QString hote = Chemins::versHote(chemin);
    if (!QFileInfo(hote).isDir() && !QDir().mkpath(hote))
        throw Erreur(0, QStringLiteral("Le dossier ne peut pas être créé : ") + chemin);
}
} // namespace

Demarrage::Demarrage(Session &session, DialogueQt &dialogue) : m_session(session), m_dialogue(dialogue)
{
    m_session.tableur.definirAttente([this] { m_dialogue.ceder(); });
}

Demarrage::~Demarrage()
{
    m_dialogue.definirFenetre(nullptr, nullptr);
}

void Demarrage::lancer()
{
    m_splash = std::make_unique<frmSplash>();
    connect(m_splash.get(), &frmSplash::ferme, this, &Demarrage::montrerMere, Qt::QueuedConnection);
    m_splash->show();
}

void Demarrage::montrerMere()
{
    m_splash.reset();
    m_mere = std::make_unique<MDIF_Mere>(m_session, m_dialogue);
    connect(m_mere.get(), &MDIF_Mere::finDemandee, this, &Demarrage::terminer);
    m_mere->show();
    m_dialogue.ceder();
    if (m_fini)
        return;
    if (!charger()) {
        terminer();
        return;
    }
    m_dialogue.ceder();
    if (m_fini)
        return;
    m_pret = true;
    QTimer::singleShot(REPIT_TABLEUR_MS, this, [this] {
        if (!m_fini)
            m_session.tableur.demarrerEnAvance();
    });
    Q_EMIT estPret();
}

bool Demarrage::charger()
{
    m_session.ModeSaisie = 1;
    m_session.OrigineSaisie = 0;
    m_session.CalculCarteEnCours = false;
    m_session.CheminBase = QStringLiteral("C:\\");
    m_session.CheminBase = QString::fromUtf16(Chemins::BASE);
    try {
        if (!choisirBase())
            return false;
        if (!ouvrirBase(m_session)) {
            m_session.dialogue.message(
                QStringLiteral("Une erreur s'est produite, le programme va être arrêté."),
                QStringLiteral("Fin du programme"), Icone::Critique);
            return false;
        }
        preparerDossiers();
        m_session.ChargementEnCours = true;
        InitCarte(m_session);
        M_Ouvrir_bdd_OVRA::InitChampsCarte(m_session.donnees, m_session.dialogue);
    } catch (const Erreur &) {
        // Nothing is told of a failure here: the program ends as it does when the choice is cancelled.
        return false;
    }
    m_session.ChargementEnCours = false;
    m_session.importSession.viderCompteurs();
    m_mere->activerMenu(true);
    lireBassin();
    m_mere->demarrerTimer1();
    return true;
}

bool Demarrage::choisirBase()
{
    DemandeFichier demande;
    demande.titre = QStringLiteral("Choisissez la base de données par défaut");
    demande.filtre = QStringLiteral("Access (*.mdb)|*.mdb");
    demande.dossierInitial = m_session.CheminBase;
    const std::optional<QString> choix = m_session.dialogue.choisirFichier(demande);
    if (!choix || m_fini)
        return false;
    m_session.CheminBase = Chemins::dossier(*choix);
    m_session.FichierBase = *choix;
    m_session.TitreBase = Chemins::titre(*choix);
    return true;
}

void Demarrage::preparerDossiers()
{
    m_session.CheminTravail = QString::fromUtf16(Chemins::TRAVAIL);
    creerDossier(m_session.CheminTravail);
    creerDossier(QString::fromUtf16(Chemins::VALIDATION_FRACTION));
}

void Demarrage::lireBassin()
{
    try {
        Requete lieu = m_session.donnees.commande(QStringLiteral("Lieu_BV"));
        if (lieu.suivant()) {
            m_mere->nommerBassin(lieu.texte("Bassin_versant"));
            return;
        }
    } catch (const Erreur &erreur) {
        m_session.dialogue.message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                                       erreur.numeroEtDescription(),
                                   QStringLiteral("Erreur"), Icone::Critique);
        return;
    }
    // A base without a basin goes straight to the sheet that creates it.
    m_mere->ouvrir(QStringLiteral("m_BV"));
}

void Demarrage::terminer()
{
    if (m_fini)
        return;
    m_fini = true;
    m_pret = false;
    m_dialogue.cesser();
    if (m_splash)
        m_splash->hide();
    if (m_mere)
        m_mere->hide();
    // A report in the making would go on, unseen, to its end: without its instance it stops and removes its file.
    if (m_session.etatRapport.enCours())
        m_session.tableur.tuer();
    QTimer::singleShot(0, this, &Demarrage::liberer);
}

void Demarrage::liberer()
{
    // The windows and the connection belong to the routine that is running until it has come back.
    if (m_dialogue.enAttente()) {
        QTimer::singleShot(ATTENTE_FIN_MS, this, &Demarrage::liberer);
        return;
    }
    m_dialogue.definirFenetre(nullptr, nullptr);
    m_mere.reset();
    m_session.donnees.liberer();
    m_session.tableur.quitter();
    Q_EMIT termine();
}
