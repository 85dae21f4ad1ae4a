// Which new lines are old lines: an order-keeping alignment in near-linear time.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// For each new line the index of the old line with the same bytes that it stands for, or -1.
/// The indices rise. Lines that occur once on each side are the anchors; between them equal lines
/// are taken as they come.
/// Example: old a b c, new x a c gives -1 0 2.
std::vector<std::int32_t> AlignLines(const std::vector<std::string_view>& asOld,
                                     const std::vector<std::string_view>& asNew);
