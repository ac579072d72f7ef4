// What every screen shown in the main window has in common.
//
// - Enter presses the screen's main button, Escape its closing one.
// - Alt and a letter goes to the screen's own labels and buttons before the menus of the main window.
// - While a report is being made the screen is disabled and cannot be closed.
// - Fields that check their text speak through the session's dialogue.
#pragma once

#include <functional>
#include <QPointer>
#include <QWidget>

class Cadre;
class QPushButton;
struct Session;

class Ecran : public QWidget
{
    Q_OBJECT
public:
    Ecran(Session &session, Cadre &cadre, QWidget *parent = nullptr);

    // The screen that holds a widget; the widget's own window where no screen does.
    static const QWidget *de(const QWidget *widget);

public Q_SLOTS:
    // Closes the child window that shows this screen.
    void fermer();

protected:
    // To be called once the controls are there (after setupUi): connects the checked fields and the buttons of the
    // action row. Either button may be null.
    void preparer(QPushButton *principal, QPushButton *fermeture);

    // The field that has the focus when the screen opens.
    void commencerPar(QWidget *champ) { m_premier = champ; }

    // Whether every checked field that is shown and enabled can take its text; the first that cannot says why and gets
    // the focus.
    bool verifierZones();

    // Runs a command of the screen under the one handler of its failures: "Une erreur s'est produite en cours de
    // traitement : " and the failure, under "Erreur".
    void executer(const std::function<void()> &commande);

    Session &session() const { return m_session; }
    Cadre &cadre() const { return m_cadre; }

    void keyPressEvent(QKeyEvent *evenement) override;
    void closeEvent(QCloseEvent *evenement) override;
    void showEvent(QShowEvent *evenement) override;

private:
    void suivreRapport(bool enCours);

    Session &m_session;
    Cadre &m_cadre;
    QPointer<QPushButton> m_principal;
    QPointer<QPushButton> m_fermeture;
    QPointer<QWidget> m_premier; // until the screen has opened
    QPointer<QWidget> m_foyer;   // while a report disables the screen
};
