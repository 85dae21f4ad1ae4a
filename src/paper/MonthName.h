// How dates call the months.
#pragma once

#include "Text.h"

namespace MXDate {

/// number: 1 to 12. "Jan" on Windows in the language of the user, elsewhere in English.
Text ShortMonthName(int number);

}  // namespace MXDate
