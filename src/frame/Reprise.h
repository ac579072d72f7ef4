// Yielding to the event loop from inside long loops, often enough to stay alive and rarely enough to cost nothing.
#pragma once

#include "platform/Dialogue.h"

namespace Reprise
{
// Lets pending events be handled if 40 ms have passed since the last time.
void cederParfois(Dialogue &dialogue);
} // namespace Reprise
