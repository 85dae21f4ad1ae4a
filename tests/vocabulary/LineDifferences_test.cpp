// Differences: whatever the two texts are, the changes lead from one to the other.
#include "LineDifferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

using Lines = std::vector<std::string_view>;

/// Each character is a line.
Lines LinesOf(std::string_view letters) {
  Lines lines;
  for (std::size_t i = 0; i < letters.size(); ++i) lines.push_back(letters.substr(i, 1));
  return lines;
}

/// Both texts in one, with a sign ahead of each line. What stays and goes must be the old text,
/// what stays and comes the new one.
std::string Shown(const Lines& oldLines, const Lines& newLines) {
  const auto changes = LineDifferences(oldLines, newLines);
  for (std::size_t i = 1; i < changes.size(); ++i)
    EXPECT_LT(changes[i - 1].newEnd, changes[i].newFirst) << "changes touch";
  std::string shown;
  Lines inOld, inNew;
  VisitLines({0, oldLines.size(), 0, newLines.size(), changes},
             [&](LineFate fate, std::size_t line) {
               const auto text = (fate == LineFate::Goes ? oldLines : newLines).at(line);
               if (fate != LineFate::Comes) inOld.push_back(text);
               if (fate != LineFate::Goes) inNew.push_back(text);
               shown += " -+"[static_cast<int>(fate)] + std::string(text);
             });
  EXPECT_EQ(inOld, oldLines);
  EXPECT_EQ(inNew, newLines);
  return shown;
}

TEST(LineDifferences, LeaveLinesAloneThatDidNotChange) {
  struct Row {
    const char *name, *oldLines, *newLines, *shown;
  };
  for (const Row& row : {
           Row{"same", "ab", "ab", " a b"},
           Row{"one replaced", "abc", "axc", " a-b+x c"},
           Row{"around", "b", "abc", "+a b+c"},
           Row{"all goes", "ab", "", "-a-b"},
           Row{"all comes", "", "a", "+a"},
           Row{"all else", "abc", "xyz", "-a-b-c+x+y+z"},
           Row{"one of equal lines goes", "xxxyy", "xxyy", " x x-x y y"},
           Row{"no line stands once", "abababab", "abaabab", " a b a-b a b a b"},
           Row{"two places without anchors", "aabbaabb", "abbaabbb", " a-a b b a a+b b b"},
           Row{"an anchor moved", "pqrs", "qrsp", "-p q r s+p"},
           Row{"two swapped around others", "1abcde2", "2abcde1", "-1+2 a b c d e-2+1"},
           Row{"lines came in three places", "abcd", "xaybcdz", "+x a+y b c d+z"},
           Row{"lines went in three places", "xaybcdz", "abcd", "-x a-y b c d-z"},
           Row{"a blank line came with others", "p.q", "xpT.U.qy", "+x p+T+.+U . q+y"},
           Row{"anchors in a part that has none in the whole", "a1a2xb1b2", "b1a2xa1b2",
               "-a+b 1 a 2 x-b+a 1 b 2"},
       }) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Shown(LinesOf(row.oldLines), LinesOf(row.newLines)), row.shown);
  }
}

// Texts that take far more steps than are searched at once.
TEST(LineDifferences, LeadFromAnyTextToADistantOne) {
  std::mt19937 random(9);
  for (const auto& [kinds, fewestStay] :
       {std::pair(1u, 2700), {2u, 2000}, {50u, 500}, {9999u, 0}}) {
    SCOPED_TRACE(kinds);
    std::vector<std::string> oldText, newText;
    for (int i = 0; i < 3300; ++i) oldText.push_back(std::to_string(random() % kinds));
    for (int i = 0; i < 2700; ++i) newText.push_back(std::to_string(random() % kinds));
    const std::string shown =
        Shown({oldText.begin(), oldText.end()}, {newText.begin(), newText.end()});
    EXPECT_GE(std::count(shown.begin(), shown.end(), ' '), fewestStay);
  }
}

}  // namespace
