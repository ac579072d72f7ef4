#include "platform/Processus.h"

#ifdef Q_OS_WIN
#include <windows.h>

#include <tlhelp32.h>
#else
#include <cerrno>
#include <csignal>
#endif

bool ProcessusActif(qint64 pid)
{
    if (pid <= 0)
        return false;
#ifdef Q_OS_WIN
    const HANDLE cliche = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (cliche == INVALID_HANDLE_VALUE)
        return false;
    PROCESSENTRY32 entree{};
    entree.dwSize = sizeof(entree);
    bool trouve = false;
    for (BOOL suite = Process32First(cliche, &entree); suite && !trouve;
         suite = Process32Next(cliche, &entree))
        trouve = entree.th32ProcessID == static_cast<DWORD>(pid);
    CloseHandle(cliche);
    return trouve;
#else
    // Signal 0 only asks; a process of another user answers "not permitted", so it exists.
    return kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
#endif
}
