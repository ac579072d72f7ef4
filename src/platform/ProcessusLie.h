// A child process whose life is bound to ours: it ends when the program ends, however the program ends.
#pragma once

#include <memory>
#include <QProcess>
#include <QString>
#include <QStringList>

// The child is killed with the object, and by the system itself if the program crashes or is killed. The folders and
// files given to `effacerALaFin` are erased after it, in both cases. To be used from the main thread only: the system
// takes the end of the thread that started the child for the end of the program.
class ProcessusLie
{
public:
    // Starts the program at once, in its own session, without terminal. `environnement` is added to ours.
    // `effacerALaFin` are host paths; they need not exist yet.
    ProcessusLie(const QString &programme, const QStringList &arguments, const QStringList &environnement,
                 const QStringList &effacerALaFin);
    ~ProcessusLie();
    ProcessusLie(const ProcessusLie &) = delete;
    ProcessusLie &operator=(const ProcessusLie &) = delete;

    // Starts an ended child again, with the same arguments.
    void relancer();

    // Whether it still runs (or is still about to).
    bool vivant();
    // Waits for its end; false when it lives on after this time.
    bool attendreFin(int millisecondes);
    // Process number; 0 before it runs and after it ended.
    qint64 numero() const;
    // Why it could not be started, in the system's words; empty when it could.
    QString erreurDemarrage() const;
    // Exit code of an ended process; -1 for one that was killed or never ran.
    int codeSortie() const;
    // Kills it outright and waits for its end.
    void tuer();

    // Kills a process outright by its number; the only function that another thread may call.
    static void abattre(qint64 numero);

private:
    void demarrer();

    QStringList m_aEffacer;
    QProcess m_veilleur;
    QProcess m_processus;
};
