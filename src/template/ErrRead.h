// Whether code reads Err without an On Error ahead of it: a routine that others call from their
// handlers, and that a template with a handler would take the error from.
//
//   Sub ShowFailure()
//       MsgBox Err.Description         reads it
//       Err.Raise 5: Err.Number = 5    these don't
#pragma once

#include <bit>
#include <cstdint>
#include <optional>

#include "ProcText.h"
#include "UnitBlock.h"

/// Line from 0 of the first read among lines first up to and not including end.
std::optional<std::size_t> FirstErrRead(const ProcText& code, std::size_t first, std::size_t end);

/// The same question about the whole text of a procedure, for which most texts need not be taken
/// apart. headLine: of the head within the text, from 1.
bool ReadsErr(TextView procCode, std::int32_t headLine);

/// Calls take(at) for each place where `err` stands in the text in any case, also within a word,
/// until it gives true; then true. Most texts are long and hold none: two of that letter are rare.
template <class Take>
bool AnyErr(TextView text, Take&& take) {
  UnitBits before = 0;  // the block ahead ends in the letter
  for (std::size_t at = 0; at < text.size(); at += UnitBlock::Size) {
    const UnitBlock block(text, at);
    const UnitBits letters = block.Equal('r') | block.Equal('R');
    for (UnitBits bits = letters & (letters << 1U | before); bits != 0; bits &= bits - 1) {
      const std::size_t last = at + static_cast<std::size_t>(std::countr_zero(bits));
      if (last >= 2 && LowerCase(text[last - 2]) == u'e' && take(last - 2)) return true;
    }
    before = letters >> (UnitBlock::Size - 1);
  }
  return false;
}
