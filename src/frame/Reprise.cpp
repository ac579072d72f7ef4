#include "frame/Reprise.h"

#include <QElapsedTimer>

namespace
{
QElapsedTimer depuis;
} // namespace

bool Reprise::venue()
{
    static constexpr qint64 INTERVALLE_MS = 40;
    return !depuis.isValid() || depuis.elapsed() >= INTERVALLE_MS;
}

void Reprise::cederParfois(Dialogue &dialogue)
{
    if (!venue())
        return;
    dialogue.ceder();
    // Counted from the end of the events, so that slow ones do not eat the whole time of the loop.
    depuis.start();
}
