// Lower case as the system knows it.
#pragma once

#include "Text.h"

/// The lower case of each of the 65,536 units by the simple mapping of Unicode; surrogates and
/// units without one stay what they are.
Text LowerCaseTable();
