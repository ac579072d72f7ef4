#include "platform/Horloge.h"

namespace
{
qint64 decalageMs = 0;
} // namespace

QDateTime Horloge::maintenant()
{
    return QDateTime::currentDateTime().addMSecs(decalageMs);
}

void Horloge::regler(const std::optional<QDateTime> &moment)
{
    decalageMs = moment ? QDateTime::currentDateTime().msecsTo(*moment) : 0;
}
