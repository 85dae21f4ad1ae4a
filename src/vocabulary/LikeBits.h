// Two helpers of LikePattern: the elements of a pattern, each a set of units, and the search for
// a long run of them, which steps through the text once with a bit for each element that has been
// reached (the bits of 64 elements move in one operation), so that it never goes back.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Text.h"

struct LikeRange {
  char16_t cLow, cHigh;
};

/// Elements from 0; the ranges of each are in order, apart from each other, possibly none.
class LikeElements {
 public:
  void Add(std::span<const LikeRange> aoRange);
  std::size_t Count() const { return mlFirst.size() - 1; }
  std::span<const LikeRange> operator[](std::size_t lIndex) const {
    return std::span(moRanges).subspan(mlFirst[lIndex], mlFirst[lIndex + 1] - mlFirst[lIndex]);
  }
  bool Accepts(std::size_t lIndex, char16_t cUnit) const;
  bool IsLiteral(std::size_t lIndex) const;

 private:
  std::vector<LikeRange> moRanges;
  std::vector<std::size_t> mlFirst = {0};  ///< of each element its first range, and the end
};

class LikeBits {
 public:
  LikeBits() = default;
  LikeBits(const LikeElements& oElements, std::size_t lFirst, std::size_t lCount);
  bool IsEmpty() const { return mlCount == 0; }
  /// The index behind the first fit that begins at lPos or later; npos if there is none.
  std::size_t FindBehind(TextView sText, std::size_t lPos) const;

 private:
  void AddClasses(const LikeElements& oElements, std::size_t lFirst);
  std::size_t ClassOf(char16_t cUnit) const;

  // Units that the same elements accept are one class; a class is a stretch of units.
  std::vector<char16_t> mcClassStart;
  std::vector<std::uint16_t> mnAsciiClass;
  std::vector<std::uint64_t> mlMask;  ///< per class mlWords words: the elements that accept it
  std::size_t mlWords = 0;
  std::size_t mlCount = 0;
};
