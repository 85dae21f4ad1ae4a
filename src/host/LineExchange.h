// The usual edit of a rewrite: lines went, and at the same place most of them come back in their
// order, with some new ones among them or in their place. It is recognised in one walk over both.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "LineTable.h"

/// Lines that were added lately, by their bytes: a template writes the same ones into every
/// procedure, and they need to be there once.
class RecentLines {
 public:
  explicit RecentLines(LineTable& table) : mTable(table) {}

  struct Entry {
    LineTable::Line line;
    std::uint16_t uses = 0;  ///< since it was added
    bool isPlain = false;    ///< IsPlainLine
  };
  /// text, end: of a line without a tail.
  const Entry& Add(std::string_view text, std::string_view end);
  void Clear() { mEntries.clear(); }

 private:
  LineTable& mTable;
  std::vector<Entry>
      mEntries;  // by hash; of two beside one another the one that is used more stays
};

/// True when a line standing alone is no head, no end, no directive and no part of a continued
/// line: it can come or go inside a body without a change of what the lines around it mean.
bool IsPlainLine(std::string_view line);

struct LineExchange {
  std::vector<LineTable::Line> lines;  ///< what stands in the place of those that went
  /// How many of the first lines are those that went, when all that differ behind them are plain
  /// and the last one doesn't differ; else 0.
  std::int32_t sameAhead = 0;
};

/// Nothing when it isn't the usual edit: a file whose lines don't all end in CR LF, or a line with
/// hidden ones behind it that doesn't come back.
/// bytes: the new lines, each with its CR LF.
std::optional<LineExchange> ExchangeLines(LineTable& table, RecentLines& recent,
                                          const std::vector<LineTable::Line>& gone,
                                          std::string_view bytes);
