// The life of the program, from the splash to the last thing let go.
#pragma once

#include <memory>
#include <QObject>

class DialogueQt;
class frmSplash;
class MDIF_Mere;
struct Session;

// Three states: the splash, waiting for a base (caption "En attente ..."), working. `ovralis` and the scenario player
// run the same object; they differ only in the DialogueQt that they hand to it.
class Demarrage final : public QObject
{
    Q_OBJECT
public:
    Demarrage(Session &session, DialogueQt &dialogue);
    ~Demarrage() override;

    // Shows the splash; all the rest follows from its closing.
    void lancer();
    // Ends the program: what is running comes to its end by itself, then the base and the spreadsheet are let go.
    void terminer();

    // The main window, null before it is made and after the end.
    MDIF_Mere *fenetre() const { return m_mere.get(); }
    bool pret() const { return m_pret; }

Q_SIGNALS:
    // The study is open and the main window can be used.
    void estPret();
    // Everything has been let go. Emitted once, after which nothing runs.
    void termine();

private:
    void montrerMere();
    // The main window's load. False when the program must end.
    bool charger();
    bool choisirBase();
    void preparerDossiers();
    void lireBassin();
    void liberer();

    Session &m_session;
    DialogueQt &m_dialogue;
    std::unique_ptr<frmSplash> m_splash;
    std::unique_ptr<MDIF_Mere> m_mere;
    bool m_pret = false;
    bool m_fini = false;
};
