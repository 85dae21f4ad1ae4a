// Differences: whatever the two files are, the hunks lead from one to the other.
#include "UnifiedDiff.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "LineDifferences.h"

namespace {

/// Applies a diff strictly: places, counts and every line of context have to be right.
std::string Patched(const std::string& sOld, const std::string& sDiff) {
  const auto asOld = SplitByteLines(sOld);
  std::string sNew;
  std::size_t lAt = 0, lWanted = 0;
  for (std::string_view sLine : SplitByteLines(sDiff)) {
    if (sLine.starts_with("--- ") || sLine.starts_with("+++ ")) continue;
    if (sLine.starts_with("@@")) {
      EXPECT_EQ(lWanted, 0u) << "the hunk ahead is short";
      unsigned lStart = 0, lOld = 1, lNew = 0, lCount = 1;
      std::istringstream oHead{std::string(sLine)};
      std::string sSkip, sFrom, sTo;
      oHead >> sSkip >> sFrom >> sTo;
      std::sscanf(sFrom.c_str(), "-%u,%u", &lStart, &lOld);
      std::sscanf(sTo.c_str(), "+%u,%u", &lNew, &lCount);
      const std::size_t lFirst = lOld == 0 ? lStart : lStart - 1;
      EXPECT_LE(lAt, lFirst) << "hunks overlap";
      while (lAt < lFirst) sNew += asOld[lAt++];
      EXPECT_EQ(SplitByteLines(sNew).size(), lCount == 0 ? lNew : lNew - 1);
      lWanted = lOld + lCount;
    } else if (sLine[0] == '\\') {
      if (sLine.data() + sLine.size() == sDiff.data() + sDiff.size()) sNew.pop_back();
    } else {
      if (sLine[0] != '+') {
        EXPECT_EQ(asOld.at(lAt).substr(0, sLine.size() - 2), sLine.substr(1, sLine.size() - 2));
        ++lAt;
      }
      if (sLine[0] != '-') sNew += sLine.substr(1);
      lWanted -= sLine[0] == ' ' ? 2 : 1;
    }
  }
  while (lAt < asOld.size()) sNew += asOld[lAt++];
  return sNew;
}

TEST(UnifiedDiff, LeadsFromAnyFileToAnyOther) {
  std::mt19937 oRandom(20);
  auto fnBelow = [&](unsigned n) { return static_cast<unsigned>(oRandom() % n); };
  for (int nRound = 0; nRound < 6000; ++nRound) {
    SCOPED_TRACE(nRound);
    const unsigned lLetters = 1 + fnBelow(30);
    std::string sOld, sNew;
    for (unsigned i = fnBelow(40); i > 0; --i) {
      sOld += std::string(1, static_cast<char>('a' + fnBelow(lLetters))) + '\n';
      if (fnBelow(8) != 0) sNew += sOld.substr(sOld.size() - 2);
      if (fnBelow(8) == 0)
        sNew += std::string(1, static_cast<char>('a' + fnBelow(lLetters))) + '\n';
    }
    if (fnBelow(3) == 0 && !sOld.empty() && !sNew.empty()) sOld.pop_back(), sNew.pop_back();
    std::string sDiff;
    AppendUnifiedDiff("x", sOld, sNew, {}, sDiff);
    ASSERT_EQ(Patched(sOld, sDiff), sNew) << sOld << "--\n" << sDiff;
    ASSERT_EQ(sDiff.empty(), sOld == sNew);
  }
}

}  // namespace
