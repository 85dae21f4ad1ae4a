// The order of sorted lists, trees and tables, and the keys that move in a row of entries.
#pragma once

#include "FormsTypes.h"

namespace Forms {

/// By the lower case of each unit.
bool LessNoCase(TextView sLeft, TextView sRight);

/// Where a key leads from lCurrent: Up and Down (or Left and Right, with bSideways) by one, Home
/// and End to the ends, held inside lFirst to lLast. lCurrent when the key moves nothing or there
/// are no entries.
std::int32_t MovedIndex(std::int32_t nKeyCode, std::int32_t lCurrent, std::int32_t lFirst,
                        std::int32_t lLast, bool bSideways = false);

}  // namespace Forms
