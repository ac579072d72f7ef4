// The date and time that the program sees; replaceable at this one place, for scenarios and tests.
#pragma once

#include <optional>
#include <QDateTime>

namespace Horloge
{
QDateTime maintenant();
// From now on `maintenant` starts at this moment and runs on; nothing gives the real time back.
void regler(const std::optional<QDateTime> &moment);
} // namespace Horloge
