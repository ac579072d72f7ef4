#include "workbook/Garde.h"

#include "platform/ProcessusLie.h"

Garde::Garde() : m_fil([this] { surveiller(); }) {}

Garde::~Garde()
{
    {
        const std::lock_guard verrou(m_verrou);
        m_fin = true;
    }
    m_reveil.notify_one();
    m_fil.join();
}

void Garde::surveiller()
{
    std::unique_lock verrou(m_verrou);
    while (!m_fin) {
        if (m_echeance == Horloge::time_point::max()) {
            m_prochainReveil = m_echeance;
            m_reveil.wait(verrou);
        } else if (Horloge::now() < m_echeance) {
            m_prochainReveil = m_echeance;
            m_reveil.wait_until(verrou, Horloge::time_point(m_prochainReveil));
        } else {
            m_aTue = true;
            m_echeance = Horloge::time_point::max();
            ProcessusLie::abattre(m_numero);
        }
    }
}

Garde::Veille::Veille(Garde &garde, int millisecondes) : m_garde(garde)
{
    const std::lock_guard verrou(garde.m_verrou);
    if (garde.m_echeance != Horloge::time_point::max())
        return;
    m_exterieure = true;
    garde.m_echeance = Horloge::now() + std::chrono::milliseconds(millisecondes);
    // Mostly the thread already wakes before that: thousands of short calls a second must not each wake it.
    if (garde.m_echeance < garde.m_prochainReveil)
        garde.m_reveil.notify_one();
}

Garde::Veille::~Veille()
{
    if (!m_exterieure)
        return;
    const std::lock_guard verrou(m_garde.m_verrou);
    m_garde.m_echeance = Horloge::time_point::max();
}
