// Yielding to the event loop from inside long loops, often enough to stay alive and rarely enough to cost nothing.
#pragma once

#include "platform/Dialogue.h"

namespace Reprise
{
// Whether 40 ms have passed since the last time that events were handled from here.
bool venue();
// Lets pending events be handled if so.
void cederParfois(Dialogue &dialogue);
} // namespace Reprise
