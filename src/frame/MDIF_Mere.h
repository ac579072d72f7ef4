// The main window: the menu, the screens as its children, the progress bar.
#pragma once

#include "frame/Cadre.h"

#include <QHash>
#include <QMainWindow>
#include <QTimer>

class BarreProgression;
class DialogueQt;
class QAction;
class QLabel;
class ZoneTravail;
struct EntreeRegistre;
struct Session;

class MDIF_Mere final : public QMainWindow, public Cadre
{
    Q_OBJECT
public:
    MDIF_Mere(Session &session, DialogueQt &dialogue);
    ~MDIF_Mere() override;

    void montrer(QWidget *ecran) override;
    void reduire() override;
    void terminer() override;

    // Before a base is open no entry can be used but help and quit; once it is, the status bar names its file.
    void activerMenu(bool baseOuverte);
    // The caption and what stands on the empty client area, once the study's basin is known.
    void nommerBassin(const QString &bassin) override;
    // A tick every 50 ms with nothing to do.
    void demarrerTimer1();
    // Runs a menu entry as a click on it does; false where nothing stands behind it.
    bool ouvrir(const QString &menu);
    // The menu entry of that name; null if there is none.
    QAction *entree(const QString &nom) const { return m_actions.value(nom); }
    // The help page of the screen that is in front, or the help's first page.
    void aideDeLEcran();

Q_SIGNALS:
    // The user has confirmed that he quits, or has closed the window.
    void finDemandee();

protected:
    void closeEvent(QCloseEvent *evenement) override;

private:
    void construireMenu();
    void lier(const QString &menu, const std::function<void()> &action);
    void executer(const EntreeRegistre &entree);
    void quitter();
    QWidget *ecranOuvert(const QString &classe) const;
    void mettreDevant(QWidget *ecran);

    Session &m_session;
    ZoneTravail *m_zone;
    BarreProgression *m_barre;
    QLabel *m_etude;
    QTimer m_timer1;
    QHash<QString, QAction *> m_actions;
    // Entries with something behind them.
    QHash<QString, std::function<void()>> m_commandes;
};
