// The same head in several branches of conditional compilation, with one body behind them: the
// usual way to write a procedure for two compilers. All branches together are its head.
//
//   #If VBA7 Then
//   Public Sub Ring(ByVal window As LongPtr)
//   #Else
//   Public Sub Ring(ByVal window As Long)
//   #End If          ' the head ends here
#pragma once

#include <cstddef>

#include "Directive.h"
#include "ProcText.h"

/// What line i says to the compiler; None for one that goes on with a statement above it.
DirectiveKind DirectiveAt(const ProcText& code, std::size_t i);
/// Index of the line behind the statement that begins in line i.
std::size_t BehindStatement(const ProcText& code, std::size_t i);
/// Index of the line behind the whole block, for a head that begins in line head and ends ahead of
/// line behind; that is behind itself when the head stands alone, or anything but comments and the
/// same head with other parameters or types shares the block with it.
std::size_t BehindSplitHead(const ProcText& code, std::size_t head, std::size_t behind);
