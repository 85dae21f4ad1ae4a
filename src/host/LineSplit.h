// Splits bytes into lines at CR LF, LF and lone CR, in linear time whatever the mix.
//
//   LineSplit oSplit(sBytes);
//   while (oSplit.Next()) Use(oSplit.Text(), oSplit.End());
//
// The views point into the bytes. A line end at the very end makes no extra line.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Position of the first CR or LF at `from` or behind it, or the number of bytes.
inline std::size_t FindLineBreak(std::string_view bytes, std::size_t from) {
#if defined(__SSE2__)
  // All bytes of a group come through here: a vector of them at once.
  constexpr std::size_t Block = sizeof(__m128i);
  for (; from + Block <= bytes.size(); from += Block) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + from));
    const __m128i breaks = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8('\r')),
                                        _mm_cmpeq_epi8(block, _mm_set1_epi8('\n')));
    const auto bits = static_cast<unsigned>(_mm_movemask_epi8(breaks));
    if (bits != 0) return from + static_cast<std::size_t>(std::countr_zero(bits));
  }
#endif
  while (from < bytes.size() && bytes[from] != '\r' && bytes[from] != '\n') ++from;
  return from;
}

class LineSplit {
 public:
  explicit LineSplit(std::string_view sBytes, std::size_t lFrom = 0)
      : msBytes(sBytes), mlBegin(lFrom), mlText(lFrom), mlNext(lFrom) {}

  bool Next() {
    if (mlNext >= msBytes.size()) return false;
    mlBegin = mlNext;
    mlText = FindLineBreak(msBytes, mlBegin);
    mlNext = std::min(mlText + 1, msBytes.size());
    if (mlNext < msBytes.size() && msBytes[mlText] == '\r' && msBytes[mlNext] == '\n') ++mlNext;
    return true;
  }

  std::size_t Begin() const { return mlBegin; }
  /// Where the next line begins.
  std::size_t Behind() const { return mlNext; }
  std::string_view Text() const { return msBytes.substr(mlBegin, mlText - mlBegin); }
  std::string_view End() const { return msBytes.substr(mlText, mlNext - mlText); }

 private:
  std::string_view msBytes;
  std::size_t mlBegin;
  std::size_t mlText;
  std::size_t mlNext;
};
