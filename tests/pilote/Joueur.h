// Plays a scenario on the running program.
#pragma once

#include "pilote/Scenario.h"

#include <functional>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>

class Demarrage;
class DialoguePilote;
class QAction;
struct Session;

// Steps are played from the event loop, one at a time, also from the loops that a running routine opens: a gesture that
// sets a long routine going does not hold up the checks that follow it. So a gesture counts as played as soon as it
// begins, and a check is asked again until it holds or its time is over.
class Joueur final : public QObject
{
    Q_OBJECT
public:
    Joueur(Scenario scenario, QString captures, Session &session, DialoguePilote &dialogue,
           Demarrage &demarrage);
    ~Joueur() override;

    void lancer();

    // Where failure lines go (the standard output).
    std::function<void(const QString &)> ecrire;
    // How long `message`, `question` and blocked gestures wait.
    int delaiMs = 120000;

Q_SIGNALS:
    // Every step held and the program has ended (0), or a step did not (1).
    void fini(int code);

private:
    enum class Etat { Fait, Attend };
    using Verbe = Etat (Joueur::*)(const Pas &);
    static const QHash<QString, Verbe> &verbes();

    void battre();
    void jouer();
    void suivant();
    void echouer(int ligne, const QString &raison);
    // Ends the program, then the play.
    void conclure(int code);
    void signalerFin();

    bool tropTard(int delai) const;
    // Whether a step may be played before the start-up is over, or after the end.
    bool momentPermis(const Pas &pas);
    bool concerneSplash(const Pas &pas) const;
    QWidget *cible(const Pas &pas) const;
    // The control of a gesture, once nothing stands before it; null: not yet.
    QWidget *prete(const Pas &pas);
    bool degagee(QWidget *form);
    Etat geste(const Pas &pas, const std::function<void(QWidget *)> &action);
    QAction *entreeDeMenu(const QString &nom) const;
    QString chemin(const QString &ecrit) const;
    void exiger(bool vrai, const QString &raison) const;
    void comparer(const QString &quoi, const QString &lu, const QString &attendu) const;

    // One member a step, under the step's name.
    Etat horloge(const Pas &pas);
    Etat base(const Pas &pas);
    Etat quitter(const Pas &pas);
    Etat termine(const Pas &pas);
    Etat menu(const Pas &pas);
    Etat attendre(const Pas &pas);
    Etat saisir(const Pas &pas);
    Etat taper(const Pas &pas);
    Etat touche(const Pas &pas);
    Etat choisir(const Pas &pas);
    Etat deselectionner(const Pas &pas);
    Etat doubleClic(const Pas &pas);
    Etat cocher(const Pas &pas);
    Etat decocher(const Pas &pas);
    Etat cliquer(const Pas &pas);
    Etat onglet(const Pas &pas);
    Etat cellule(const Pas &pas);
    Etat boutonCellule(const Pas &pas);
    Etat supprimerLigne(const Pas &pas);
    Etat fermer(const Pas &pas);
    Etat reponse(const Pas &pas);
    Etat fichier(const Pas &pas);
    Etat couleur(const Pas &pas);
    Etat tuerTableur(const Pas &pas);
    Etat message(const Pas &pas);
    Etat messageTitre(const Pas &pas);
    Etat question(const Pas &pas);
    Etat aucunMessage(const Pas &pas);
    Etat ouvert(const Pas &pas);
    Etat fichierExiste(const Pas &pas);
    Etat fichierAbsent(const Pas &pas);
    Etat ferme(const Pas &pas);
    Etat verifier(const Pas &pas);
    Etat verifierCellule(const Pas &pas);
    Etat verifierLigne(const Pas &pas);
    Etat lignes(const Pas &pas);
    Etat selection(const Pas &pas);
    Etat coche(const Pas &pas);
    Etat decoche(const Pas &pas);
    Etat actif(const Pas &pas);
    Etat inactif(const Pas &pas);
    Etat visible(const Pas &pas);
    Etat invisible(const Pas &pas);
    Etat menuActif(const Pas &pas);
    Etat menuInactif(const Pas &pas);
    Etat foyer(const Pas &pas);
    Etat titre(const Pas &pas);
    Etat titreFenetre(const Pas &pas);
    Etat capture(const Pas &pas);
    Etat captureFenetre(const Pas &pas);

    Etat messageAttendu(const QString *titre, const QString &texte);
    void enregistrer(QWidget *fenetre, const QString &nom) const;

    Scenario m_scenario;
    QString m_captures;
    Session &m_session;
    DialoguePilote &m_dialogue;
    Demarrage &m_demarrage;

    QTimer m_cadence;
    QElapsedTimer m_depuis; // since the current step was first asked
    qsizetype m_rang = 0;
    int m_enCours = 0;       // steps whose call has not returned: a routine that they set going is running
    int m_derniereLigne = 0; // of the step begun last
    bool m_pose = false;     // a call of jouer is on its way
    bool m_lance = false;    // `base` has been played
    bool m_programmeFini = false;
    bool m_splashMontre = false; // a step names the splash: it is left to itself
    bool m_enSuspens = false;    // the last gesture may not be over (Gestes::enSuspens)
    bool m_tape = false;         // the text of `saisir` is typed, the field still to be left
    bool m_conclu = false;
    int m_code = 0;
};
