// Numbers of processes, by which lines of a log and names of files tell who made them.
#pragma once

#include <cstdint>

/// Of this one. Safe in a signal handler.
std::int32_t ProcessNumber();
/// True when there is no such process for certain. A number that is in use again counts as there.
bool IsProcessGone(std::int64_t number);
