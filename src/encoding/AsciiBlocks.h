// ASCII at the beginning of bytes or of 16-bit text, a block at a time: the compiler turns the
// loops into wide registers. What is left, part of a block or a block with something else in it, is
// the caller's, one by one.
#pragma once

#include <cstddef>
#include <string_view>

namespace AsciiBlocks {

/// Writes the units of the whole blocks at the beginning that are ASCII; how many they are.
std::size_t Widen(std::string_view bytes, char16_t* to);
/// Writes the bytes of the whole blocks at the beginning that are ASCII; how many they are.
std::size_t Narrow(std::u16string_view text, char* to);
/// The length of the ASCII beginning, to the byte.
std::size_t Length(std::string_view bytes);

}  // namespace AsciiBlocks
