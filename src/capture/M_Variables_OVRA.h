// What the capture screens share: the check of a typed time.
#pragma once

#include <QString>

namespace M_Variables_OVRA
{
// True for "hh:mm" and "hh:mm:ss" written with two digits each, hours from 0 to 24, minutes and seconds from 0 to 60,
// bounds included: "24:00" and "12:60" pass, as they always have.
bool HeureValide(const QString &texte);
} // namespace M_Variables_OVRA
