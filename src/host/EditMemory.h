// Lines that were deleted, kept until the next edit elsewhere: when text is inserted in their
// place, those of its lines that were there before get their own bytes back, and hidden lines
// find a place again.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "LineExchange.h"

class LexicalScan;

class EditMemory {
 public:
  explicit EditMemory(LineTable& oLines) : moLines(oLines), moRecent(oLines) {}

  void Clear() {
    moGone.clear();
    moRecent.Clear();
  }
  /// Takes lines away. Deletes side by side are remembered as one.
  void Delete(std::int32_t lStart, std::int32_t lCount);
  struct Inserted {
    std::int32_t count = 0;  ///< of lines
    /// How many of the first are the deleted ones, when all lines that differ behind them are
    /// plain: no heads, ends, directives or parts of continued lines, and not the last line. 0 when
    /// that isn't so.
    std::int32_t sameAhead = 0;
  };
  /// Puts text ahead of a line; a line end at its end leaves one more empty line.
  Inserted Insert(std::int32_t line, std::string bytes, LexicalScan& scan);

 private:
  /// bytes: each line with its end.
  Inserted InsertAligned(std::int32_t line, std::string_view bytes, LexicalScan& scan);
  std::vector<LineTable::Line> NewLines(const std::vector<std::string_view>& asNew);
  void PairChanged(const std::vector<std::string_view>& asNew, std::size_t lFrom, std::size_t lTo,
                   std::size_t lOld, std::size_t lOldTo);
  void AddChanged(const std::vector<std::string_view>& asNew, std::size_t lFrom, std::size_t lTo,
                  std::vector<LineTable::Line>& oMade);
  void PlaceTails(std::int32_t lLine, std::int32_t lCount, LexicalScan& oScan);
  std::size_t Needed(std::string_view bytes) const;
  std::int32_t SameAhead(const std::vector<std::string_view>& asNew) const;

  LineTable& moLines;
  RecentLines moRecent;
  std::vector<LineTable::Line> moGone;
  std::int32_t mlPlace = 0;
  /// Of each new line the old one whose bytes or place it took, or -1.
  std::vector<std::int32_t> malPartner;
  std::vector<bool> mabKept;  // of each old line: it is back, with all its bytes
};
