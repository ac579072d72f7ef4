// The watch kept over calls to the spreadsheet application, so that a hung one cannot freeze the program.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <QtGlobal>
#include <thread>

// A call blocks until its answer comes or its process dies. So the watch, on a thread of its own, kills the process
// when a call outlives its bound; the call then fails as it does when the process dies by itself.
class Garde
{
public:
    Garde();
    ~Garde();
    Garde(const Garde &) = delete;
    Garde &operator=(const Garde &) = delete;

    void definirProcessus(qint64 numero) { m_numero = numero; }
    // True once the watch had to kill the process.
    bool aTue() const { return m_aTue; }

    // Watches while it lives; one inside another leaves the outer bound in force.
    class Veille
    {
    public:
        Veille(Garde &garde, int millisecondes);
        ~Veille();
        Veille(const Veille &) = delete;
        Veille &operator=(const Veille &) = delete;

    private:
        Garde &m_garde;
        bool m_exterieure = false;
    };

private:
    using Horloge = std::chrono::steady_clock;
    void surveiller();

    std::mutex m_verrou;
    std::condition_variable m_reveil;
    Horloge::time_point m_echeance = Horloge::time_point::max(); // max: nothing to watch
    Horloge::time_point m_prochainReveil = Horloge::time_point::max();
    bool m_fin = false;
    std::atomic<qint64> m_numero{0};
    std::atomic<bool> m_aTue{false};
    std::thread m_fil;
};
