#include "platform/Limites.h"

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif
#ifdef __linux__
#include <sys/prctl.h>
#endif

#ifdef _WIN32
void limiterCeProcessus(std::uint64_t, std::uint64_t) {}
#else
namespace
{
template <typename Ressource> void limiter(Ressource ressource, std::uint64_t valeur)
{
    const rlimit limite{static_cast<rlim_t>(valeur), static_cast<rlim_t>(valeur)};
    // A bound that the system refuses is one that is already tighter.
    setrlimit(ressource, &limite);
}
} // namespace

void limiterCeProcessus(std::uint64_t memoire, std::uint64_t secondes)
{
    limiter(RLIMIT_CORE, 0);
    limiter(RLIMIT_FSIZE, 0);
    limiter(RLIMIT_CPU, secondes);
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
#if !defined(__SANITIZE_ADDRESS__)
    // AddressSanitizer reserves terabytes of addresses for its own map.
    limiter(RLIMIT_AS, memoire);
#else
    (void)memoire;
#endif
}
#endif
