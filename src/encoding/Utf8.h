// UTF-8 bytes and 16-bit text, in both directions and in two manners. For people (messages, JSON,
// terminals): what has no counterpart becomes U+FFFD. For what has to come back to the byte (files,
// file names): a byte that belongs to no well-formed sequence is carried as the lone low surrogate
// U+DC00 + byte, which well-formed text can't hold.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// For people. Always well-formed; each lone surrogate becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
void AppendUtf8(std::u16string_view text, std::string& bytes);
/// For people. Each byte of no well-formed sequence becomes U+FFFD; so do overlong forms,
/// surrogates and what lies above U+10FFFF, byte by byte.
std::u16string FromUtf8(std::string_view bytes);

namespace Utf8 {

/// Appends the text of all bytes; AppendBytes gives the same bytes again.
void AppendText(std::string_view bytes, std::u16string& text);
/// Appends the bytes of the text up to the first unit that has none (a lone surrogate that stands
/// for no byte from 80h); how many units were taken.
std::size_t AppendBytes(std::u16string_view text, std::string& bytes);
/// The length of the well-formed sequence of two to four bytes at the beginning of bytes, which
/// isn't empty; 0 for any other beginning.
std::size_t SequenceLength(std::string_view bytes);
bool IsWellFormed(std::string_view bytes);
/// How many characters a well-formed text has.
std::size_t CharacterCount(std::string_view bytes);

}  // namespace Utf8
