// Two helpers of LikePattern: the elements of a pattern, each a set of units, and the search for
// a long run of them, which steps through the text once with a bit for each element that has been
// reached (the bits of 64 elements move in one operation), so that it never goes back.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Text.h"

struct LikeRange {
  char16_t low, high;
};

/// Elements from 0; the ranges of each are in order, apart from each other, possibly none.
class LikeElements {
 public:
  void Add(std::span<const LikeRange> ranges);
  std::size_t Count() const { return mFirst.size() - 1; }
  std::span<const LikeRange> operator[](std::size_t index) const {
    return std::span(mRanges).subspan(mFirst[index], mFirst[index + 1] - mFirst[index]);
  }
  bool Accepts(std::size_t index, char16_t unit) const;
  bool IsLiteral(std::size_t index) const;

 private:
  std::vector<LikeRange> mRanges;
  std::vector<std::size_t> mFirst = {0};  ///< of each element its first range, and the end
};

class LikeBits {
 public:
  LikeBits() = default;
  LikeBits(const LikeElements& elements, std::size_t first, std::size_t count);
  bool IsEmpty() const { return mCount == 0; }
  /// The index behind the first fit that begins at pos or later; npos if there is none.
  std::size_t FindBehind(TextView text, std::size_t pos) const;

 private:
  void AddClasses(const LikeElements& elements, std::size_t first);
  std::size_t ClassOf(char16_t unit) const;

  // Units that the same elements accept are one class; a class is a stretch of units.
  std::vector<char16_t> mClassStarts;
  std::vector<std::uint16_t> mAsciiClasses;
  std::vector<std::uint64_t> mMasks;  ///< per class mWords words: the elements that accept it
  std::size_t mWords = 0;
  std::size_t mCount = 0;
};
