// Bodies of made-up procedures: the statements that real ones are made of, nested and mixed.
#pragma once

#include <string>
#include <string_view>

#include "VBWriter.h"

/// A word for names, such as Depot.
std::string_view Noun(Dice& oDice);

/// Declarations and statements of one procedure, about lLines lines. sExit: Sub, Function or
/// Property, what an Exit statement names.
void WriteBody(VBWriter& oWriter, std::string_view sExit, std::size_t lLines);
