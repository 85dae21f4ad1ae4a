// Thirty-two units of a text at once: which of them are a given sign, as bits, the first unit in
// bit 0. For the few passes that go over all text of a group; what is looked for there is rare, so
// nearly all blocks are done with a handful of instructions.
//
//   for (std::size_t at = 0; at < text.size(); at += UnitBlock::Size) {
//     for (UnitBits bits = UnitBlock(text, at).Equal(':'); bits != 0; bits &= bits - 1) {
//       const std::size_t place = at + static_cast<std::size_t>(std::countr_zero(bits));
//     }
//   }
#pragma once

#include <algorithm>
#include <cstdint>

#include "Text.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// With room for the bits that a shift or a sum moves out of a block.
using UnitBits = std::uint64_t;

class UnitBlock {
 public:
  static constexpr std::size_t Size = 32;

  /// The units of the text at `at` and behind it. What lies behind the text's end counts as NUL.
  UnitBlock(TextView text, std::size_t at) {
    if (text.size() - at >= Size) {
      Load(text.data() + at);
    } else {
      char16_t rest[Size] = {};
      std::copy(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), rest);
      Load(rest);
    }
  }

#if defined(__SSE2__)
  UnitBits Equal(char ascii) const {
    const __m128i sign = _mm_set1_epi8(ascii);
    const int first = _mm_movemask_epi8(_mm_cmpeq_epi8(mBytes[0], sign));
    const int last = _mm_movemask_epi8(_mm_cmpeq_epi8(mBytes[1], sign));
    return static_cast<UnitBits>(first) | static_cast<UnitBits>(last) << 16U;
  }
  bool IsAscii() const {
    const __m128i all =
        _mm_or_si128(_mm_or_si128(mUnits[0], mUnits[1]), _mm_or_si128(mUnits[2], mUnits[3]));
    const __m128i isAscii = _mm_cmpeq_epi8(_mm_srli_epi16(all, 7), _mm_setzero_si128());
    return _mm_movemask_epi8(isAscii) == 0xFFFF;
  }
  /// Writes the units with ASCII letters in lower case.
  void LowerInto(char16_t* result) const {
    for (std::size_t i = 0; i < 4; ++i) {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(result) + i, Lower(mUnits[i]));
    }
  }

 private:
  void Load(const char16_t* from) {
    for (std::size_t i = 0; i < 4; ++i) {
      mUnits[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from) + i);
    }
    // No unit beyond a byte becomes an ASCII sign.
    mBytes[0] = _mm_packus_epi16(mUnits[0], mUnits[1]);
    mBytes[1] = _mm_packus_epi16(mUnits[2], mUnits[3]);
  }
  static __m128i Lower(__m128i units) {
    const __m128i fromA = _mm_cmpgt_epi16(units, _mm_set1_epi16(u'A' - 1));
    const __m128i toZ = _mm_cmplt_epi16(units, _mm_set1_epi16(u'Z' + 1));
    return _mm_or_si128(units, _mm_and_si128(_mm_and_si128(fromA, toZ), _mm_set1_epi16(0x20)));
  }

  __m128i mUnits[4], mBytes[2];
#else
  UnitBits Equal(char ascii) const {
    UnitBits bits = 0;
    for (std::size_t i = 0; i < Size; ++i) {
      bits |= static_cast<UnitBits>(mUnits[i] == static_cast<char16_t>(ascii)) << i;
    }
    return bits;
  }
  bool IsAscii() const {
    return std::all_of(mUnits, mUnits + Size, [](char16_t unit) { return unit < 0x80; });
  }
  /// Writes the units with ASCII letters in lower case.
  void LowerInto(char16_t* result) const {
    std::transform(mUnits, mUnits + Size, result,
                   [](char16_t unit) { return unit < 0x80 ? LowerCase(unit) : unit; });
  }

 private:
  void Load(const char16_t* from) {
    std::copy(from, from + Size, mUnits);
  }

  char16_t mUnits[Size];
#endif
};
