// The processes of this host.
#pragma once

#include <QtGlobal>

// True while a process of that number exists.
bool ProcessusActif(qint64 pid);
