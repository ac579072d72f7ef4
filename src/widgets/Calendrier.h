// The calendar that drops below a date field.
#pragma once

#include <functional>
#include <QDate>

class QWidget;

namespace Calendrier
{
// Shows it below a field (above, where there is no room), opened on this day or, for a null one, on today. The day that the
// user picks is handed over; nothing is where he leaves it.
void ouvrir(QWidget *champ, QDate montree, const std::function<void(QDate)> &prendre);
} // namespace Calendrier
