// The three kinds of code pages behind CodePage::Get, and the fast conversion of ASCII that they
// share.
#pragma once

#include <memory>

#include "CodePage.h"

std::unique_ptr<CodePage> MakeCodePage1252();
std::unique_ptr<CodePage> MakeCodePageUtf8();
/// Null when lNumber isn't the number of a known page; Failure 5 when the C library lacks its
/// table.
std::unique_ptr<CodePage> MakeCodePageTable(int lNumber);

namespace CodePageAscii {

/// Converts ASCII at the beginning and gives its length. Works in whole blocks, so that the
/// compiler vectorises the loops; the caller converts what is left one by one.
std::size_t WidenBlocks(const char* pcFrom, std::size_t lCount, char16_t* pcTo);
std::size_t NarrowBlocks(const char16_t* pcFrom, std::size_t lCount, char* pcTo);
/// The length of the ASCII beginning.
std::size_t AsciiLength(std::string_view sBytes);

}  // namespace CodePageAscii

/// The length of the well-formed UTF-8 sequence of two to four bytes at the beginning of sBytes,
/// which isn't empty; 0 for any other beginning.
std::size_t Utf8SequenceLength(std::string_view sBytes);
