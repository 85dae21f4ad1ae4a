// Small questions about the bytes of a source line. Keywords are ASCII in every code page, so
// they are compared as bytes, letters without case.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// Blank, tab, and the code 19h that the language counts as white space.
inline bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\x19';
}
inline bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
inline char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// sLower: in lower case.
inline bool StartsNoCase(std::string_view sBytes, std::string_view sLower) {
  if (sBytes.size() < sLower.size()) return false;
  for (std::size_t l = 0; l < sLower.size(); ++l) {
    if (AsciiLower(sBytes[l]) != sLower[l]) return false;
  }
  return true;
}
inline bool IsWord(std::string_view sBytes, std::string_view sLower) {
  return sBytes.size() == sLower.size() && StartsNoCase(sBytes, sLower);
}

inline std::string_view SkipBlanks(std::string_view sBytes) {
  constexpr std::string_view Step = "    ";  // as editors indent: one look for four blanks
  std::size_t l = 0;
  while (l + Step.size() <= sBytes.size() &&
         std::memcmp(sBytes.data() + l, Step.data(), Step.size()) == 0) {
    l += Step.size();
  }
  while (l < sBytes.size() && IsBlank(sBytes[l])) ++l;
  return {sBytes.data() + l, sBytes.size() - l};
}
inline std::string_view TrimBlanks(std::string_view sBytes) {
  sBytes = SkipBlanks(sBytes);
  while (!sBytes.empty() && IsBlank(sBytes.back())) sBytes.remove_suffix(1);
  return sBytes;
}

/// By length and both ends: quick to make, and different for nearly all lines that differ.
inline std::uint64_t LineHash(std::string_view sLine) {
  std::uint64_t lFirst = 0;
  std::uint64_t lLast = 0;
  const std::size_t lCount = std::min(sLine.size(), sizeof lFirst);
  if (lCount > 0) std::memcpy(&lFirst, sLine.data(), lCount);
  if (lCount > 0) std::memcpy(&lLast, sLine.data() + sLine.size() - lCount, lCount);
  const std::uint64_t lMixed =
      (lFirst + sLine.size()) * 0x9E3779B97F4A7C15U + lLast * 0xC2B2AE3D27D4EB4FU;
  return lMixed ^ (lMixed >> 29U) ^ (lMixed >> 47U);
}

/// Where the continuation mark of a physical line stands; npos when it has none. White space must
/// stand ahead of it, so the mark can't be the second byte of a character.
inline std::size_t ContinuationMark(std::string_view sLine) {
  std::size_t l = sLine.size();
  while (l > 0 && IsBlank(sLine[l - 1])) --l;
  return l >= 2 && sLine[l - 1] == '_' && IsBlank(sLine[l - 2]) ? l - 1 : std::string_view::npos;
}
