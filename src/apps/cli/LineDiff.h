// The lines in which two files differ. Lines that stand once in each file anchor the comparison,
// so that a file of tens of thousands of lines takes time in proportion to its size; between the
// anchors the shortest script is looked for, up to a bound behind which a stretch counts as
// replaced whole.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// Lines lOldStart to lOldEnd give way to lNewStart to lNewEnd; from 0, the ends not included.
struct LineChange {
  std::size_t lOldStart, lOldEnd, lNewStart, lNewEnd;
};

/// Splits at LF; each line keeps its line end, and a missing last one stays missing.
std::vector<std::string_view> SplitBytes(std::string_view sBytes);

/// In order, no two of them touching. Never fails.
std::vector<LineChange> CompareLines(const std::vector<std::string_view>& asOld,
                                     const std::vector<std::string_view>& asNew);
