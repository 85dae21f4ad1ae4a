// A moment as people read it in messages and lists: 2026-11-23 17:01:02, by the clock of the place.
#pragma once

#include <cstdint>
#include <string>

/// secondsSince1970: of the system's clock.
std::string LocalTime(std::int64_t secondsSince1970);
