#include "frame/Reprise.h"

#include <QElapsedTimer>

void Reprise::cederParfois(Dialogue &dialogue)
{
    static constexpr qint64 INTERVALLE_MS = 40;
    static QElapsedTimer depuis;
    if (depuis.isValid() && depuis.elapsed() < INTERVALLE_MS)
        return;
    dialogue.ceder();
    // Counted from the end of the events, so that slow ones do not eat the whole time of the loop.
    depuis.start();
}
