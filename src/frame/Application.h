// The QApplication of the program and of the scenario player.
#pragma once

#include <QApplication>
#include <QTranslator>

class Dialogue;

// Gives the program its name, icon and French (the words of Qt's own dialogs), and keeps a failure that escaped a
// command's handler from ending the program: it is shown, and the program goes on.
class Application final : public QApplication
{
    Q_OBJECT
public:
    Application(int &argc, char **argv);

    void definirDialogue(Dialogue *dialogue) { m_dialogue = dialogue; }
    bool notify(QObject *receveur, QEvent *evenement) override;

private:
    void signaler(const QString &description);

    QTranslator m_traduction;
    Dialogue *m_dialogue = nullptr;
};
