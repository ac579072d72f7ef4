// Bounds that a process puts on itself.
#pragma once

#include <cstdint>

// From now on this process may hold at most `memoire` bytes, use at most `secondes` of processor time, write to no file,
// leave no memory image behind, and not outlive the process that started it. Where the system has no such bounds, nothing happens. Plain C++: used by a process
// that does without Qt.
void limiterCeProcessus(std::uint64_t memoire, std::uint64_t secondes);
