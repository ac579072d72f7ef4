#include "platform/ProcessusLie.h"

#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <csignal>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace
{
#ifdef Q_OS_WIN
// The system kills every process of this job when its last handle goes, that is with the program.
HANDLE travailLie()
{
    static const HANDLE travail = [] {
        const HANDLE nouveau = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limites{};
        limites.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(nouveau, JobObjectExtendedLimitInformation, &limites, sizeof(limites));
        return nouveau;
    }();
    return travail;
}
#else
// Between fork and exec. Its own session: a Ctrl+C meant for the program must not reach the child first.
void lier(pid_t parent)
{
    setsid();
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    if (getppid() != parent) // the program ended meanwhile
        _exit(1);
}

// A shell that waits for the end of the program, told by the end of its standard input, then erases what the child
// left. Twice, as the child, killed at the same moment, may be writing its last file.
constexpr char VEILLEUR[] = "trap '' INT TERM HUP; read -r fin; rm -rf -- \"$@\"; [ \"$fin\" ] && exit; "
                            "sleep 1; rm -rf -- \"$@\"";
#endif

void effacer(const QStringList &chemins)
{
    for (const QString &chemin : chemins) {
        if (QFileInfo(chemin).isDir())
            QDir(chemin).removeRecursively();
        else
            QFile::remove(chemin);
    }
}
} // namespace

ProcessusLie::ProcessusLie(const QString &programme, const QStringList &arguments,
                           const QStringList &environnement, const QStringList &effacerALaFin)
    : m_aEffacer(effacerALaFin)
{
#ifndef Q_OS_WIN
    // Whoever talks to the child may be writing when it dies: that must come back as a failed call, not end the program.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : environnement)
        variables.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    m_processus.setProcessEnvironment(variables);
    m_processus.setStandardInputFile(QProcess::nullDevice());
    m_processus.setStandardOutputFile(QProcess::nullDevice());
    m_processus.setStandardErrorFile(QProcess::nullDevice());
    // A child that lasts must not hold the folder that the program was started from.
    m_processus.setWorkingDirectory(QDir::rootPath());
    m_veilleur.setWorkingDirectory(QDir::rootPath());
#ifndef Q_OS_WIN
    const pid_t parent = getpid();
    m_processus.setChildProcessModifier([parent] { lier(parent); });
    m_veilleur.setChildProcessModifier([] { setsid(); });
    m_veilleur.setStandardOutputFile(QProcess::nullDevice());
    m_veilleur.setStandardErrorFile(QProcess::nullDevice());
    m_veilleur.start(QStringLiteral("/bin/sh"),
                     QStringList{QStringLiteral("-c"), QLatin1String(VEILLEUR), QStringLiteral("veilleur")} +
                         m_aEffacer);
#endif
    m_processus.setProgram(programme);
    m_processus.setArguments(arguments);
    demarrer();
}

void ProcessusLie::demarrer()
{
    m_processus.start(QIODevice::NotOpen);
#ifdef Q_OS_WIN
    if (const HANDLE processus = OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE,
                                             static_cast<DWORD>(m_processus.processId()))) {
        AssignProcessToJobObject(travailLie(), processus);
        CloseHandle(processus);
    }
#endif
}

ProcessusLie::~ProcessusLie()
{
    tuer();
    effacer(m_aEffacer);
    // One line tells the watcher that the child is gone: once is enough.
    m_veilleur.write("fini\n");
    m_veilleur.closeWriteChannel();
    m_veilleur.waitForFinished(2000);
}

void ProcessusLie::relancer()
{
    tuer();
    demarrer();
}

bool ProcessusLie::vivant()
{
    return !attendreFin(0);
}

bool ProcessusLie::attendreFin(int millisecondes)
{
    if (m_processus.state() == QProcess::NotRunning)
        return true;
    return m_processus.waitForFinished(millisecondes) || m_processus.state() == QProcess::NotRunning;
}

qint64 ProcessusLie::numero() const
{
    return m_processus.processId();
}

QString ProcessusLie::erreurDemarrage() const
{
    return m_processus.error() == QProcess::FailedToStart ? m_processus.errorString() : QString();
}

int ProcessusLie::codeSortie() const
{
    const bool fini = m_processus.state() == QProcess::NotRunning &&
                      m_processus.error() != QProcess::FailedToStart &&
                      m_processus.exitStatus() == QProcess::NormalExit;
    return fini ? m_processus.exitCode() : -1;
}

void ProcessusLie::tuer()
{
    if (m_processus.state() == QProcess::NotRunning)
        return;
    m_processus.kill();
    m_processus.waitForFinished(5000);
}

void ProcessusLie::abattre(qint64 numero)
{
    if (numero <= 0)
        return;
#ifdef Q_OS_WIN
    if (const HANDLE processus = OpenProcess(PROCESS_TERMINATE, FALSE, static_cast<DWORD>(numero))) {
        TerminateProcess(processus, 1);
        CloseHandle(processus);
    }
#else
    kill(static_cast<pid_t>(numero), SIGKILL);
#endif
}
