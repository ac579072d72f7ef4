#include "frame/ArretDemande.h"

#include <utility>

#ifdef Q_OS_UNIX
#include <csignal>
#include <QSocketNotifier>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
// A signal handler may do next to nothing: it writes one byte, which the event loop then reads.
int tuyau[2] = {-1, -1};

void noter(int /*signal*/)
{
    const char octet = 0;
    [[maybe_unused]] const auto ecrits = write(tuyau[0], &octet, 1);
}

constexpr int SIGNAUX[] = {SIGTERM, SIGINT, SIGHUP};
} // namespace

ArretDemande::ArretDemande(std::function<void()> action) : m_action(std::move(action))
{
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, tuyau) != 0)
        return;
    auto *veille = new QSocketNotifier(tuyau[1], QSocketNotifier::Read, this);
    connect(veille, &QSocketNotifier::activated, this, [this] {
        char octet = 0;
        if (read(tuyau[1], &octet, 1) == 1)
            m_action();
    });
    for (const int signal : SIGNAUX)
        std::signal(signal, noter);
}

ArretDemande::~ArretDemande()
{
    for (const int signal : SIGNAUX)
        std::signal(signal, SIG_DFL);
    for (int &bout : tuyau) {
        if (bout >= 0)
            close(bout);
        bout = -1;
    }
}
#else
ArretDemande::ArretDemande(std::function<void()> action) : m_action(std::move(action)) {}
ArretDemande::~ArretDemande() = default;
#endif
