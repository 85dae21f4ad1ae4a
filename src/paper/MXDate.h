// Dates and times as the system shows and prints them, in local time, and the clock behind them.
// Times are seconds since 1970.
#pragma once

#include <cstdint>
#include <functional>

#include "Text.h"

namespace MXDate {

/// "Medium Date": 05-Jun-24.
Text MediumDate(std::int64_t lTime);
/// "Short Time": 17:45.
Text ShortTime(std::int64_t lTime);
/// "yyyy/mm/dd hh:mm:ss": 2024/06/05 17:45:09.
Text FileTime(std::int64_t lTime);

/// The same moment in UTC as documents carry it: 2024-06-05T17:45:09Z.
Text DocumentTime(std::int64_t lTime);

/// The present time. Set by programs whose output must not depend on the moment.
extern std::function<std::int64_t()> fnNow;

}  // namespace MXDate
